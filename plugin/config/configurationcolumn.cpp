// The configuration window's column of device parameters and its console
// selector: made from the column table, adapted to the console's kind,
// greyed by the device's state.
#include "configurationstate.h"

#include <string.h>

#include <string>
#include <vector>

#include "columntable.h"
#include "configurationrules.h"
#include "controldescriptor.h"
#include "../device/consoleproperties.h"
#include "../device/handlers.h"
#include "../protocol.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

HWND Widget(CONFIGURATIONSTATE* state, const char* name)
{
    HWND widget = a_FindHwnd(state->widgets.get(), name);
    return widget == INVALID_HANDLE_VALUE ? NULL : widget;
}

// A toggle greyed or restored: its face and binding are sent again.
void SetToggleEnabled(HWND toggle, bool enabled, const char* function)
{
    if (!toggle)
        return;
    EnableWindow(toggle, enabled);
    char binding[64];
    FormatText(binding, sizeof binding, "function=%s", function);
    SendWidgetAttributes(toggle, {"caption=",
                                  enabled ? "bitmap=.\\Controls\\_ZELButton.bmp" : "bitmap=.\\Controls\\_ZELButtonDisabled.bmp",
                                  binding});
}

struct CONSOLECOUNT {
    const char* mine;
    std::vector<std::string> names;
};

BOOL CountConsole(LPCSTR, void* value, void* context)
{
    CONSOLECOUNT* count = static_cast<CONSOLECOUNT*>(context);
    HOSTINFO* obj = static_cast<HOSTINFO*>(value);
    char className[32] = "";
    if (!obj || !obj->m_hWnd || !GetClassNameA(obj->m_hWnd, className, sizeof className) ||
        strcmp(className, "DOVRIXC") != 0)
        return TRUE;
    if (SharedConsoleFamily(count->mine, obj->m_szName))
        count->names.push_back(obj->m_szName);
    return TRUE;
}

}  // namespace

void CreateColumn(HWND hwnd, CONFIGURATIONSTATE* state)
{
    for (const COLUMNROW& row : ConfigurationColumn()) {
        std::vector<std::string> attributes = ColumnAttributes(row);
        HWND widget = CreateHostWidget(state->widgets.get(), hwnd, ColumnControlLine(row).c_str(), {});
        for (const std::string& attribute : attributes)
            SendWidgetAttribute(widget, attribute.c_str());
        if (row.startsDisabled && widget)
            EnableWindow(widget, FALSE);
    }
}

namespace {

void ShowIf(HWND widget, bool show)
{
    if (widget)
        ShowWindow(widget, show ? SW_SHOW : SW_HIDE);
}

}  // namespace

void AdaptColumnToConsole(CONFIGURATIONSTATE* state)
{
    CONSOLEPROPERTIES* c = state->console;
    state->adaptedModel = c->m_model;
    // Over the Supervision page the column stays hidden, whichever console comes.
    const bool column = c->m_configurationTab != TAB_SUPERVISION;
    // The boards have neither the find toggle nor the pilot tone, label included.
    const bool board = c->m_model == MODEL_ELK_CSK || c->m_model == MODEL_ORN_CSK;
    ShowIf(Widget(state, "Find"), column && !board);
    ShowIf(Widget(state, "pilottone"), column && !board);
    ShowIf(Widget(state, "pilottonelabel"), column && !board);
    HWND decadic = Widget(state, "decadeselect");
    HWND decadicLabel = Widget(state, "decadeSelectlabel");
    HWND slot = Widget(state, "slot");
    HWND slotLabel = Widget(state, "slotlabel");
    HWND connection = Widget(state, "connection");
    HWND connectionLabel = Widget(state, "connectionlabel");
    char header[64];
    FormatText(header, sizeof header, "fmt=%s", FirmwareHeader(c->m_szName, c->m_model));
    SendWidgetAttribute(Widget(state, "lbdgenfunandinfo"), header);
    if (IsZelConsole(c->m_szName)) {
        EnableWindow(decadic, FALSE);
        SendWidgetAttributes(decadic, {"caption=", "bitmap=.\\Controls\\_ZELButtonDisabled.bmp",
                                       "function=DecadicSelectionActive"});
        SendWidgetAttributes(decadicLabel, {"fmt=DECADIC SELECT", "textcolor=0x9caaad"});
        SendWidgetAttributes(slot, {"textcolor=0x00ccff", "backgroundcolor=0", "datatype=s", "function=slot"});
        SendWidgetAttributes(slotLabel, {"fmt=SLOT", "textcolor=0"});
        // One place, one pair: the slot stands where the connection would.
        ShowIf(connection, false);
        ShowIf(connectionLabel, false);
        ShowIf(slot, column);
        ShowIf(slotLabel, column);
    } else {
        EnableWindow(decadic, TRUE);
        SendWidgetAttributes(decadic, {"caption=", "bitmap=.\\Controls\\_ZELButton.bmp", "function=DecadicSelectionActive"});
        SendWidgetAttributes(decadicLabel, {"fmt=NUMERIC KEYS", "textcolor=0"});
        SendWidgetAttributes(slot, {"textcolor=0xc8d0d4", "backgroundcolor=0xc8d0d4"});
        SendWidgetAttributes(slotLabel, {"fmt=", "textcolor=0xc8d0d4"});
        ShowIf(slot, false);
        ShowIf(slotLabel, false);
        ShowIf(connection, column);
        ShowIf(connectionLabel, column);
    }
}

// Monitoring while online, or while another console of the design already
// monitors and takes the program channel (as switching it on would warn), and
// the emergency key set while online cannot be changed; a console that
// monitors itself can always switch it off. The toggles are only sent their
// look again when that changes.
void GreyDependentOptions(CONFIGURATIONSTATE* state)
{
    CONSOLEPROPERTIES* c = state->console;
    const bool online = c->IsOnline();
    const bool channelTaken =
        !c->m_settings.fireEmergencyMonitoring && AnotherConsoleMonitors(c, MONITORSEARCH_ANY_OTHER);
    const int monitoring = online || channelTaken ? 0 : 1;
    if (monitoring != state->fireMonitoringEnabled) {
        state->fireMonitoringEnabled = monitoring;
        SetToggleEnabled(Widget(state, "lcdFireEmergencyMonitoring"), monitoring != 0, "FireEmergencyMonitoring");
    }
    const int emergency = online ? 0 : 1;
    if (emergency != state->emergencyKeysEnabled) {
        state->emergencyKeysEnabled = emergency;
        SetToggleEnabled(Widget(state, "EmergencyCSTKeys"), emergency != 0, "EmergencyCSTKeys");
    }
}

void RefreshSelector(CONFIGURATIONSTATE* state)
{
    CONSOLEPROPERTIES* c = state->console;
    HOSTINFO* root = a_FindRootHostinfo(c);
    CONSOLECOUNT count = {c->m_szName, {}};
    if (root && root->GetHostinfoTable())
        root->GetHostinfoTable()->Enumerate(CountConsole, &count);
    // Consoles added, removed or renamed while the window is open are listed as they are now.
    if ((int)count.names.size() == state->listedConsoles && count.names == state->listedNames)
        return;
    state->listedConsoles = (int)count.names.size();
    state->listedNames = count.names;
    SendMessageA(state->selector, CB_RESETCONTENT, 0, 0);
    for (const std::string& name : count.names)
        SendMessageA(state->selector, CB_ADDSTRING, 0, (LPARAM)name.c_str());
    RECT client;
    GetClientRect(GetParent(state->selector), &client);
    SetWindowPos(state->selector, NULL, 787, 3, 122, SelectorDropHeight(state->listedConsoles),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    SendMessageA(state->selector, CB_SELECTSTRING, (WPARAM)-1, (LPARAM)c->m_szName);
}

struct SHOWING {
    bool show;
};

namespace {

BOOL ShowWidget(LPCSTR, void* value, void* context)
{
    HWND widget = static_cast<HWND>(value);
    char text[32] = "";
    if (!widget || !IsWindow(widget))
        return TRUE;
    GetWindowTextA(widget, text, sizeof text);
    if (strcmp(text, "OnlineLED") != 0)
        ShowWindow(widget, static_cast<SHOWING*>(context)->show ? SW_SHOW : SW_HIDE);
    return TRUE;
}

}  // namespace

void ShowColumn(CONFIGURATIONSTATE* state, bool show)
{
    SHOWING showing = {show};
    if (state->widgets->m_pChildTable)
        state->widgets->m_pChildTable->Enumerate(ShowWidget, &showing);
    if (show)
        AdaptColumnToConsole(state);  // the hidden half of the shared row stays hidden
}
