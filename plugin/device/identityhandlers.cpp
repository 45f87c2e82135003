// Handlers of the console's identity and placement: type, address, priority,
// name, screen position, layers, online state.
#include <stdio.h>

#include "consoleproperties.h"
#include "handlerkit.h"
#include "handlers.h"
#include "designlines.h"
#include "partner.h"
#include "../console/consoleview.h"
#include "../protocol.h"

#include "../../base/banned.h"

namespace {

const char kFreeAddresses[] = "ZEL4000.FreeAddresses";

void Inform(const char* text)
{
    MessageBoxA(NULL, text, "DOVRIXC", MB_OK | MB_ICONINFORMATION);
}

// Moves the console on its controller: the partner's window answers non-zero
// when the new address was free and is now the console's.
bool MoveOnController(CONSOLEPROPERTIES* c, int address)
{
    int freeMask = 0;
    if (!ReadVariable(c->m_pPartner, kFreeAddresses, &freeMask, REQTYPE_INT))
        return false;
    if (!(freeMask & (1 << address))) {
        Inform("Address already occupied by other ZEL!");
        return false;
    }
    const WPARAM move = MAKEWPARAM((WORD)c->m_settings.address, (WORD)address);
    return SendMessageA(c->m_pPartner->m_hWnd, WM_HOST_CHANGEADDRESS, move, (LPARAM)c) != 0;
}

}  // namespace

int TypeHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (IsRead(r, REQTYPE_TEXT)) {
        const char* text = ModelText(c->m_model);
        return text[0] ? AnswerText(r, "%s", text) : AnswerText(r, "%d", c->m_model);
    }
    if (!IsWrite(r, REQTYPE_TEXT))
        return 0;
    int model = ModelFromText(TextOf(r));
    if (model < 0 && !(ParseInt(TextOf(r), &model) && model >= 0 && model < MODEL_COUNT))
        return 0;
    c->m_model = model;
    c->AudioInputsDue((WPARAM)r->mode);
    c->RefreshCanvas(true);
    c->NotifyConsoleView(CVM_CONSOLECHANGED, 0, 0);
    return 1;
}

int AddressHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    int address = 0;
    if (IsRead(r, REQTYPE_TEXT)) {
        if (ScanLeadingInt(TextOf(r), &address) && address == c->m_settings.address)
            return 0;
        return AnswerText(r, "%d", c->m_settings.address);
    }
    if (!IsWrite(r, REQTYPE_TEXT) || c->IsOnline() || !ScanLeadingInt(TextOf(r), &address))
        return 0;
    if (address == c->m_settings.address)
        return AnswerText(r, "%d", address);
    if (address < 1 || address > 16) {
        Inform("Please enter a valid address!");
        return 0;
    }
    if (c->m_pPartner && !MoveOnController(c, address))
        return 0;
    c->m_settings.address = address;
    if (c->m_pPartner)
        AnswerText(r, "%d", address);
    c->RefreshCanvas(true);
    return 1;
}

int PriorityHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (IsRead(r, REQTYPE_TEXT))
        return AnswerText(r, "%d", c->m_settings.priority);
    int priority = 0;
    if (!IsWrite(r, REQTYPE_TEXT) || c->IsOnline() || !ScanLeadingInt(TextOf(r), &priority))
        return 0;
    // Any number is taken; the device's field keeps its low 16 bits.
    c->m_settings.priority = (int16_t)(uint16_t)(unsigned)priority;
    return 1;
}

int NameHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (IsRead(r, REQTYPE_TEXT)) {
        if (strncmp(TextOf(r), c->m_szDisplayName, REQUEST_TEXT_SIZE) == 0)
            return 0;
        CopyText(TextOf(r), REQUEST_TEXT_SIZE, c->m_szDisplayName);
        return 1;
    }
    if (!IsWrite(r, REQTYPE_TEXT) || c->IsOnline())
        return 0;
    CopyTextN(c->m_szDisplayName, sizeof c->m_szDisplayName, TextOf(r), DISPLAYNAME_SIZE - 1);
    c->RefreshCanvas(true);
    // The canvas hands it on to the configuration window and its manager tree.
    if (c->m_hWnd && IsWindow(c->m_hWnd))
        SendMessageA(c->m_hWnd, CFM_CONSOLERENAMED, 0, (LPARAM)c);
    return 1;
}

int HostRectHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    int x = 0, y = 0;
    if (!IsWrite(r, REQTYPE_TEXT) || !ParsePosition(TextOf(r), &x, &y) || !c->m_hWnd)
        return 0;
    RECT client;
    GetClientRect(c->m_hWnd, &client);
    x = PullBackInside(x, client.right, GetSystemMetrics(SM_CXVIRTUALSCREEN));
    y = PullBackInside(y, client.bottom, GetSystemMetrics(SM_CYVIRTUALSCREEN));
    SetWindowPos(c->m_hWnd, NULL, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    return 1;
}

// The layers the object is shown on, as the host's names joined by ",".
int LayerHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (IsRead(r, REQTYPE_TEXT)) {
        char* text = TextOf(r);
        text[0] = '\0';
        for (STRINGITEM* item = c->m_strings.first; item; item = item->next) {
            if (item != c->m_strings.first)
                AppendText(text, REQUEST_TEXT_SIZE, ",");
            AppendText(text, REQUEST_TEXT_SIZE, item->text);
        }
        return 1;
    }
    if (!IsWrite(r, REQTYPE_TEXT))
        return 0;
    a_EmptyStringList(&c->m_strings);
    for (const std::string& layer : SplitLayerList(TextOf(r), SHORTTEXT_SIZE))
        a_AddString(&c->m_strings, layer.c_str());
    return 1;
}

// Read only: the online state as the last poll saw it.
int OnlineHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (IsRead(r, REQTYPE_INT)) {
        *static_cast<int*>(r->value) = c->IsOnline();
        return 1;
    }
    return IsRead(r, REQTYPE_TEXT) ? AnswerText(r, "%d", c->IsOnline() ? 1 : 0) : 0;
}
