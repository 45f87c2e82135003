#include "diagnosticspage.h"

#include <memory>

#include "controldescriptor.h"
#include "pageowners.h"
#include "supervisionrules.h"
#include "../device/consoleproperties.h"
#include "../device/partner.h"
#include "../entry/module.h"
#include "../protocol.h"
#include "../resources/resource.h"

#include "../../base/gdi.h"
#include "../../base/text.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const int kLampIds[SUPERVISION_ROWS] = {
    IDC_DIAG_LAMP_CONNECTED, IDC_DIAG_LAMP_INPUT,     IDC_DIAG_LAMP_MEMORY,     IDC_DIAG_LAMP_WATCHDOG, IDC_DIAG_LAMP_FIRMWARE,
    IDC_DIAG_LAMP_EXTENSION, IDC_DIAG_LAMP_MICROPHONE, IDC_DIAG_LAMP_ALARM, IDC_DIAG_LAMP_POWER,
};
const int kHeaderIds[] = {IDC_DIAG_MONITORINGHEADER, IDC_DIAG_STATEHEADER, IDC_DIAG_NOTIFICATIONHEADER,
                          IDC_DIAG_CONTROLSHEADER};
const COLORREF kPageColour = RGB(0xD4, 0xD0, 0xC8);
const COLORREF kBandColour = RGB(0x4C, 0x4C, 0x4C);
const COLORREF kRuleColour = RGB(0x80, 0x80, 0x80);
const COLORREF kSeparatorColour = RGB(0xBC, 0xB8, 0xAF);
const COLORREF kRowShade = RGB(0xDC, 0xD8, 0xD1);
const int kLampNotSet = -1;

struct DIAGNOSTICSSTATE {
    CONSOLEPROPERTIES* console = nullptr;
    std::unique_ptr<DIAGNOSTICSPROPERTIES> widgets;
    Bitmap lamps[3];  // by LAMP: unknown 140, no fault 141, fault 142
    HWND rowLamps[SUPERVISION_ROWS] = {};
    HWND combinedLamp = NULL;
    HWND toggles[SUPERVISION_ROWS] = {};
    HWND clear = NULL;
    HWND test = NULL;
    int shown[SUPERVISION_ROWS + 1];  // the lamp each static shows, combined last
    int clearEnabled = -1;
    int labelledModel = -1;  // the device type the texts were last set for
    Brush page{CreateSolidBrush(kPageColour)};
    Brush band{CreateSolidBrush(kBandColour)};
};

// ---- Reading the device --------------------------------------------------------

bool ReadConsoleByte(CONSOLEPROPERTIES* c, const char* keyword, uint8_t* value)
{
    REQUEST read = {REQ_READ, 0, REQTYPE_BYTE, REQMODE_EDIT, value, keyword, nullptr};
    return c->OnMessage(0, (LPARAM)&read) != 0;
}

// The connection object is asked for its "online"; the answer is kept in the console.
bool DeviceOnline(CONSOLEPROPERTIES* c)
{
    uint8_t online = 0;
    if (c->m_pPartner && ReadVariable(c->m_pPartner, "online", &online, REQTYPE_BYTE))
        c->m_connectionOnline = online;
    else
        c->m_connectionOnline = 0;
    // A console the host counts as gone is not asked further.
    return c->m_connectionOnline != 0 && c->IsOnline();
}

FAULTSNAPSHOT TakeSnapshot(CONSOLEPROPERTIES* c)
{
    FAULTSNAPSHOT s;
    s.type = c->m_model;
    s.online = DeviceOnline(c);
    s.furtherFault = c->m_masterFault != 0;
    if (!s.online)
        return s;
    char keyword[16];
    s.faultData = true;
    for (int row = 0; row < SUPERVISION_ROWS; row++) {
        const int n = FaultOfRow(row);
        FormatText(keyword, sizeof keyword, "Faults%d", n);
        s.faultData = ReadConsoleByte(c, keyword, &s.faults[n]) && s.faultData;
    }
    s.faultData = ReadConsoleByte(c, "MasterFault", &s.masterFault) && s.faultData;
    return s;
}

// ---- The lamps and CLEAR -----------------------------------------------------------

void ShowLamp(DIAGNOSTICSSTATE* state, HWND lamp, int* shown, LAMP wanted)
{
    if (*shown == wanted)
        return;
    *shown = wanted;
    SendMessageA(lamp, STM_SETIMAGE, IMAGE_BITMAP, (LPARAM)state->lamps[wanted].Get());
}

void RefreshClear(DIAGNOSTICSSTATE* state, bool online)
{
    if (state->clearEnabled == (online ? 1 : 0))
        return;
    state->clearEnabled = online ? 1 : 0;
    EnableWindow(state->clear, online);
    SendWidgetAttribute(state->clear, online ? "textcolor=0x0" : "textcolor=0x99A8AC");
}

void RefreshLampsNow(DIAGNOSTICSSTATE* state)
{
    const FAULTSNAPSHOT snapshot = TakeSnapshot(state->console);
    const LAMPSET lamps = RefreshLamps(snapshot);
    for (int row = 0; row < SUPERVISION_ROWS; row++)
        ShowLamp(state, state->rowLamps[row], &state->shown[row], lamps.rows[row]);
    ShowLamp(state, state->combinedLamp, &state->shown[SUPERVISION_ROWS], lamps.combined);
    RefreshClear(state, snapshot.online);
}

// ---- Building and relabelling --------------------------------------------------

void CreateWidgets(HWND dialog, DIAGNOSTICSSTATE* state)
{
    HOSTINFO* owner = state->widgets.get();
    char line[128];
    char function[64];
    char value[64];
    int number = 0;
    for (int row = 0; row < SUPERVISION_ROWS; row++) {
        number = row + 1;
        const int y = MaskToggleY(row);
        Trace("number = %d\n", y);
        FormatText(line, sizeof line, "0 BTRISTATEBUTTON \"ZELFaults%d\" 0x54000000 326,%d,16x16", number, y);
        FormatText(function, sizeof function, "function=FaultMask%d", FaultOfRow(row));
        FormatText(value, sizeof value, "value=%d", state->console->m_settings.faultMask[FaultOfRow(row)]);
        state->toggles[row] = CreateHostWidget(owner, dialog, line,
                                               {"bitmap=.\\Controls\\radiobutton_am_39x13.bmp", "caption=", function, value});
    }
    state->clear = CreateHostWidget(owner, dialog, "0 BBUTTON \"WatchDogClear\" 0x54000000 390,187,188x22",
                                    {"textcolorwhenpressed= 0x0", "textcolor=0x99A8AC", "click=Watchdog.Clear=1",
                                     "bitmap=.\\Controls\\PUSHBUTTON_118_22.bmp", "caption=CLEAR"});
    EnableWindow(state->clear, FALSE);
    state->clearEnabled = 0;
    FormatText(line, sizeof line, "0 BTRISTATEBUTTON \"TestFault%d\" 0x54000000 390,%d,188x22", number + 1, 102 + 278);
    state->test = CreateHostWidget(owner, dialog, line,
                                   {"textcolor=0x0", "bitmap=.\\Controls\\SWITCHBUTTON_118_22.bmp", "caption=TEST",
                                    "function=FaultMaskTest"});
}

void ApplyRowEnabling(HWND dialog, DIAGNOSTICSSTATE* state)
{
    const bool exists = SupervisionRowExists(state->console->m_model, 5);
    EnableWindow(GetDlgItem(dialog, IDC_DIAG_LAMP_EXTENSION), exists);
    HWND toggle = a_FindHwnd(state->widgets.get(), "ZELFaults6");
    if (toggle && toggle != INVALID_HANDLE_VALUE)
        EnableWindow(toggle, exists);
}

// The texts of the console's type, whenever the page shows it: opened on
// this page, chosen in the selector or retyped while open.
void ApplyTexts(HWND dialog, DIAGNOSTICSSTATE* state)
{
    state->labelledModel = state->console->m_model;
    const SUPERVISIONTEXTS texts = SupervisionTexts(state->console->m_model);
    SetDlgItemTextA(dialog, IDC_DIAG_ALARMLABEL, texts.alarmButton);
    SetDlgItemTextA(dialog, IDC_DIAG_MONITORINGHEADER, texts.monitoringHeader);
    SetDlgItemTextA(dialog, IDC_DIAG_NOTIFICATIONHEADER, texts.notificationHeader);
    SetDlgItemTextA(dialog, IDC_DIAG_INPUTLABEL, texts.inputNumber);
    SetDlgItemTextA(dialog, IDC_DIAG_COMBINEDLABEL, texts.combined);
}

INT_PTR Diagnostics_Init(HWND dialog, CONSOLEPROPERTIES* console)
{
    DIAGNOSTICSSTATE* state = AttachDialogState(dialog, new DIAGNOSTICSSTATE);
    state->console = console;
    const bool keypad = console->m_model == MODEL_ELK_CSK || console->m_model == MODEL_ORN_CSK;
    state->widgets.reset(keypad ? new ELKCSKDIAGNOSTICSPROPERTIES : new DIAGNOSTICSPROPERTIES);
    state->widgets->m_hWnd = dialog;
    state->lamps[LAMP_UNKNOWN].Reset(LoadBitmapA(ModuleInstance(), MAKEINTRESOURCEA(IDB_LAMP_UNKNOWN)));
    state->lamps[LAMP_OK].Reset(LoadBitmapA(ModuleInstance(), MAKEINTRESOURCEA(IDB_LAMP_OK)));
    state->lamps[LAMP_FAULT].Reset(LoadBitmapA(ModuleInstance(), MAKEINTRESOURCEA(IDB_LAMP_FAULT)));
    for (int row = 0; row < SUPERVISION_ROWS; row++)
        state->rowLamps[row] = GetDlgItem(dialog, kLampIds[row]);
    state->combinedLamp = GetDlgItem(dialog, IDC_DIAG_COMBINEDLAMP);
    for (int& shown : state->shown)
        shown = kLampNotSet;
    CreateWidgets(dialog, state);
    BindPage(state->widgets.get(), console->m_szName);
    RefreshLampsNow(state);
    ApplyRowEnabling(dialog, state);
    ApplyTexts(dialog, state);
    return TRUE;
}

void Diagnostics_Reinitialize(HWND dialog, DIAGNOSTICSSTATE* state, CONSOLEPROPERTIES* console)
{
    if (console)
        state->console = console;
    ApplyRowEnabling(dialog, state);
    BindPage(state->widgets.get(), state->console->m_szName);
    ApplyTexts(dialog, state);
    for (int& shown : state->shown)
        shown = kLampNotSet;
    RefreshLampsNow(state);
    InvalidateRect(dialog, NULL, TRUE);
}

void Diagnostics_Tick(HWND dialog, DIAGNOSTICSSTATE* state)
{
    if (state->console->m_model != state->labelledModel) {
        ApplyRowEnabling(dialog, state);
        ApplyTexts(dialog, state);
    }
    TimePageWidgets(state->widgets.get());
    RefreshLampsNow(state);
}

// ---- Drawing ---------------------------------------------------------------------

RECT DialogRect(HWND dialog, int x, int y, int w, int h)
{
    RECT r = {x, y, x + w, y + h};
    MapDialogRect(dialog, &r);
    return r;
}

// A dark band behind the column headers with a rule under it, a shaded
// stripe on every other row, separators between the rows and before the
// combined state.
void Diagnostics_Draw(HWND dialog, DIAGNOSTICSSTATE* state, HDC hdc)
{
    RECT client;
    GetClientRect(dialog, &client);
    FillRect(hdc, &client, state->page);
    RECT band = DialogRect(dialog, 0, 39, 0, 14);
    band.left = client.left + 8;
    band.right = client.right - 8;
    FillRect(hdc, &band, state->band);
    Brush rule(CreateSolidBrush(kRuleColour));
    Brush separator(CreateSolidBrush(kSeparatorColour));
    Brush shade(CreateSolidBrush(kRowShade));
    RECT line = {band.left, band.bottom + 1, band.right, band.bottom + 3};
    FillRect(hdc, &line, rule);
    for (int row = 0; row <= SUPERVISION_ROWS; row++) {
        const int top = MaskToggleY(row) - 6;
        if (row < SUPERVISION_ROWS && row % 2 == 1) {
            RECT stripe = {band.left, top + 1, band.right, top + 29};
            FillRect(hdc, &stripe, shade);
        }
        RECT sep = {band.left, top, band.right, top + 1};
        FillRect(hdc, &sep, separator);
    }
    RECT master = DialogRect(dialog, 0, 229, 0, 0);
    RECT masterRule = {band.left, master.top, band.right, master.top + 2};
    FillRect(hdc, &masterRule, rule);
}

HBRUSH Diagnostics_StaticColours(HWND dialog, DIAGNOSTICSSTATE* state, HDC hdc, HWND control)
{
    const int id = GetDlgCtrlID(control);
    SetBkMode(hdc, TRANSPARENT);
    for (int header : kHeaderIds)
        if (id == header) {
            SetTextColor(hdc, RGB(0xFF, 0xFF, 0xFF));
            SetBkColor(hdc, kBandColour);
            return state->band;
        }
    SetTextColor(hdc, RGB(0, 0, 0));
    // Labels stand on the page; their row's stripe shows through.
    (void)dialog;
    return (HBRUSH)GetStockObject(NULL_BRUSH);
}

INT_PTR Diagnostics_Dispatch(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
        return Diagnostics_Init(dialog, reinterpret_cast<CONSOLEPROPERTIES*>(lParam));
    DIAGNOSTICSSTATE* state = DialogState<DIAGNOSTICSSTATE>(dialog);
    if (!state)
        return FALSE;
    switch (message) {
    case WM_TIMER:
        Diagnostics_Tick(dialog, state);
        return TRUE;
    case CFM_REFRESHLAMPS:
        RefreshLampsNow(state);
        return TRUE;
    case CFM_REINITIALIZE:
        Diagnostics_Reinitialize(dialog, state, reinterpret_cast<CONSOLEPROPERTIES*>(lParam));
        return TRUE;
    case WM_ERASEBKGND:
        Diagnostics_Draw(dialog, state, (HDC)wParam);
        SetWindowLongPtrA(dialog, DWLP_MSGRESULT, 1);
        return TRUE;
    case WM_PRINTCLIENT:
        Diagnostics_Draw(dialog, state, (HDC)wParam);
        return TRUE;
    case WM_CTLCOLORSTATIC:
        return (INT_PTR)Diagnostics_StaticColours(dialog, state, (HDC)wParam, (HWND)lParam);
    case WM_DESTROY:
        // The widgets go with the page's windows; their table with the owner.
        FreeDialogState<DIAGNOSTICSSTATE>(dialog);
        return TRUE;
    default:
        return FALSE;
    }
}

INT_PTR CALLBACK DiagnosticsDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedDialogProc<Diagnostics_Dispatch>(dialog, message, wParam, lParam);
}

}  // namespace

HWND CreateDiagnosticsPage(HWND parent, CONSOLEPROPERTIES* console)
{
    const bool keypad = console->m_model == MODEL_ELK_CSK || console->m_model == MODEL_ORN_CSK;
    return CreateDialogParamA(ModuleInstance(), MAKEINTRESOURCEA(keypad ? IDD_DIAGNOSTICS_ELKCSK : IDD_DIAGNOSTICS),
                              parent, DiagnosticsDialogProc, (LPARAM)console);
}
