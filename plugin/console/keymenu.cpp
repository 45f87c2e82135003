// A key's context menu: clear, copy and paste its configuration through the
// "CONSOLEKEY" clipboard format, and the roles of the three special keys.
#include "viewstate.h"

#include <string>

#include "consoleview.h"
#include "viewrules.h"
#include "../device/consoleproperties.h"
#include "../entry/module.h"
#include "../device/partner.h"
#include "../keys/keycatalogue.h"
#include "../protocol.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/banned.h"

namespace {

const size_t kClipboardBlock = 256;

UINT ConsoleKeyFormat()
{
    return RegisterClipboardFormatA("CONSOLEKEY");
}

// Alarm keys leave the alarm matrix they announced themselves to.
void RemoveAlarm(CONSOLEPROPERTIES* c, int key)
{
    char source[VARIABLE_NAME_SIZE];
    FormatText(source, sizeof source, "%s.key%d", c->m_szName, key);
    HOSTINFO* matrix = c->m_pPartner ? c->m_pPartner : a_FindRootHostinfo(c);
    if (matrix && matrix != c)
        WriteVariable(matrix, "Matrix.RemoveAlarmID", source, REQTYPE_TEXT);
}

void ClearKey(CONSOLEVIEW* view, int key)
{
    CONSOLEPROPERTIES* c = view->console;
    if (c->m_keys[key].functionId / 10 == 8)
        RemoveAlarm(c, key);
    char line[32];
    FormatText(line, sizeof line, "key%03d=", key);
    c->LoadEdit(line);  // the console tells the view
}

std::string KeyRecordText(CONSOLEPROPERTIES* c, int key)
{
    char keyword[16];
    FormatText(keyword, sizeof keyword, "key%03d", key);
    char record[REQUEST_TEXT_SIZE] = "";
    REQUEST read = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, record, keyword, nullptr};
    c->OnMessage(0, (LPARAM)&read);
    return record;
}

void CopyKey(HWND hwnd, CONSOLEVIEW* view, int key)
{
    const std::string record = KeyRecordText(view->console, key);
    if (!OpenClipboard(hwnd))
        return;
    EmptyClipboard();
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE | GMEM_ZEROINIT, kClipboardBlock);
    if (char* text = block ? static_cast<char*>(GlobalLock(block)) : nullptr) {
        CopyText(text, kClipboardBlock, record.c_str());
        GlobalUnlock(block);
        if (!SetClipboardData(ConsoleKeyFormat(), block))
            GlobalFree(block);
    } else if (block) {
        GlobalFree(block);
    }
    CloseClipboard();
}

bool ReadClipboardKey(HWND hwnd, std::string* record)
{
    if (!OpenClipboard(hwnd))
        return false;
    bool found = false;
    if (HGLOBAL block = GetClipboardData(ConsoleKeyFormat())) {
        const size_t size = GlobalSize(block);
        if (const char* text = static_cast<const char*>(GlobalLock(block))) {
            record->assign(text, strnlen(text, size));
            GlobalUnlock(block);
            found = true;
        }
    }
    CloseClipboard();
    return found;
}

// The function a record sets; a name the catalogue does not know is "Empty" (0).
int32_t PastedFunction(const std::string& record)
{
    return KeyFunctionId(record.substr(0, record.find(',')).c_str());
}

void PasteKey(HWND hwnd, CONSOLEVIEW* view, int key)
{
    std::string record;
    if (!ReadClipboardKey(hwnd, &record))
        return;
    const int32_t function = PastedFunction(record);
    if (RefusesPastedFunction(ConsoleType(view), key, function)) {
        Trace("DOVRIXC: \"System Faults\" cannot sit on key %d of this console\n", key);
        return;
    }
    // Any other record loads as a design line does: an unknown name empties the key.
    const std::string line = FormatString("key%03d=", key) + record;
    view->console->LoadEdit(line.c_str());
    SelectPastedKey(hwnd, view, key);
}

void SetSpecialMode(CONSOLEVIEW* view, int key, int mode)
{
    char line[48];
    FormatText(line, sizeof line, "key0%dOptionState=%d", key, mode);
    view->console->LoadEdit(line);
}

void PrepareMenu(HMENU popup, const CONSOLEVIEW* view, int key, bool special)
{
    const int32_t function = view->console->m_keys[key].functionId;
    EnableMenuItem(popup, IDM_KEY_CLEAR, MF_BYCOMMAND | (CanClearKey(function) ? MF_ENABLED : MF_GRAYED));
    EnableMenuItem(popup, IDM_KEY_COPY, MF_BYCOMMAND | (CanCopyKey(function) ? MF_ENABLED : MF_GRAYED));
    if (special) {
        const int mode = view->console->m_optionStates[key - KEY_SPECIAL_FIRST];
        CheckMenuRadioItem(popup, IDM_SPECIAL_NOTUSED, IDM_SPECIAL_KEYSWITCH, IDM_SPECIAL_NOTUSED + mode, MF_BYCOMMAND);
    }
}

}  // namespace

void ShowKeyMenu(HWND hwnd, CONSOLEVIEW* view, POINT screen)
{
    POINT client = screen;
    ScreenToClient(hwnd, &client);
    int key = NO_KEY;
    if (!SendMessageA(hwnd, CVM_HITTEST, (WPARAM)&key, MAKELPARAM(client.x, client.y)))
        return;
    CONSOLEPROPERTIES* c = view->console;
    const KEYMENU kind = KeyMenuFor(ConsoleType(view), key, c->m_settings.decadicSelectionActive != 0);
    if (kind == KEYMENU_NONE || key >= CONSOLE_KEY_COUNT)
        return;
    view->selection.assign(1, key);
    InvalidateRect(hwnd, NULL, TRUE);
    if (c->IsOnline())
        return;  // a running console keeps its keys
    const bool special = kind == KEYMENU_SPECIAL;
    HMENU menu = LoadMenuA(ModuleInstance(),
                           MAKEINTRESOURCEA(special ? IDR_SPECIALKEYMENU : IDR_KEYMENU));
    if (!menu)
        return;
    HMENU popup = GetSubMenu(menu, 0);
    if (popup) {
        PrepareMenu(popup, view, key, special);
        const UINT command = (UINT)TrackPopupMenu(popup, TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, hwnd, NULL);
        if (command)
            RunKeyCommand(hwnd, view, key, command);
    }
    DestroyMenu(menu);
}

void SelectPastedKey(HWND hwnd, CONSOLEVIEW* view, int key)
{
    view->focusKey = key;
    view->selection.assign(1, key);
    view->console->SelectKeyForEditor(key);
    InvalidateRect(hwnd, NULL, TRUE);
}

void RunKeyCommand(HWND hwnd, CONSOLEVIEW* view, int key, UINT command)
{
    if (key < 0 || key >= CONSOLE_KEY_COUNT)
        return;
    switch (command) {
    case IDM_KEY_CLEAR:
        ClearKey(view, key);
        break;
    case IDM_KEY_COPY:
        CopyKey(hwnd, view, key);
        break;
    case IDM_KEY_PASTE:
        PasteKey(hwnd, view, key);
        break;
    case IDM_SPECIAL_NOTUSED:
    case IDM_SPECIAL_ALARMBUTTON:
    case IDM_SPECIAL_KEYSWITCH:
        if (key >= KEY_SPECIAL_FIRST && key <= KEY_SPECIAL_LAST)
            SetSpecialMode(view, key, (int)(command - IDM_SPECIAL_NOTUSED));
        break;
    default:
        break;
    }
}
