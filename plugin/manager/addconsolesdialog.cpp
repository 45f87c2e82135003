#include "addconsolesdialog.h"

#include <stdio.h>

#include <string>
#include <vector>

#include "consolebatch.h"
#include "consoletargets.h"
#include "../entry/module.h"
#include "../firmware/extraction.h"
#include "../protocol.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const UINT kTickPeriod = 250;
const char kNewDesign[] = "temp\\new.ds";
const char kNoneAvailable[] = "None available";

struct ADDCONSOLES {
    std::string type;
    HOSTINFO* root = nullptr;
    std::vector<CONSOLETARGET> targets;
    int selected = 0;
};

int Warn(HWND dialog, const char* text, const char* caption)
{
    return MessageBoxA(dialog, text, caption, MB_OK | MB_SETFOREGROUND);
}

CONSOLETARGET* SelectedTarget(ADDCONSOLES* state)
{
    if (state->selected < 0 || (size_t)state->selected >= state->targets.size())
        return nullptr;
    return &state->targets[(size_t)state->selected];
}

// The lowest free address (bit 0 upward); above 16 when none is.
int LowestFree(uint32_t freeAddresses)
{
    int address = 0;
    while (address <= 16 && !((freeAddresses >> address) & 1u))
        address++;
    return address;
}

void ShowNumbers(HWND dialog, int count, int start)
{
    const bool available = start <= 16;
    if (available) {
        SetDlgItemInt(dialog, IDC_CALLSTATION_COUNT, (UINT)count, FALSE);
        SetDlgItemInt(dialog, IDC_CALLSTATION_START, (UINT)start, FALSE);
    } else {
        SetDlgItemTextA(dialog, IDC_CALLSTATION_COUNT, kNoneAvailable);
        SetDlgItemTextA(dialog, IDC_CALLSTATION_START, kNoneAvailable);
    }
    EnableWindow(GetDlgItem(dialog, IDOK), available);
}

void SelectTarget(HWND dialog, ADDCONSOLES* state)
{
    const LRESULT at = SendDlgItemMessageA(dialog, IDC_CALLSTATION_TARGET, CB_GETCURSEL, 0, 0);
    state->selected = at == CB_ERR ? 0 : (int)at;
    CONSOLETARGET* target = SelectedTarget(state);
    int consoles = 0;
    int count = 0, start = 0;
    if (target && ReadConsoleCount(target->controller, target->name, &consoles) && consoles != 0)
        count = start = 1;
    if (target)
        target->consoles = consoles;
    uint32_t freeAddresses = 0;
    if (target && ReadFreeAddresses(target->controller, &freeAddresses))
        target->freeAddresses = freeAddresses;
    start = LowestFree(freeAddresses);
    count = 1;
    ShowNumbers(dialog, count, start);
    SendDlgItemMessageA(dialog, IDC_CALLSTATION_EXTENSIONS, CB_SETCURSEL, 0, 0);
}

void FillExtensions(HWND dialog, const std::string& type)
{
    HWND list = GetDlgItem(dialog, IDC_CALLSTATION_EXTENSIONS);
    const bool keypad = IsKeypadType(type);
    const char* const choices[] = {"none", "1", "2", "3", "4", "5"};
    for (int i = 0; i < (keypad ? 1 : 6); i++)
        SendMessageA(list, CB_ADDSTRING, 0, (LPARAM)choices[i]);
    SendMessageA(list, CB_SETCURSEL, 0, 0);
    EnableWindow(list, !keypad);
}

void FillTargets(HWND dialog, ADDCONSOLES* state)
{
    HWND list = GetDlgItem(dialog, IDC_CALLSTATION_TARGET);
    state->targets = FindConsoleTargets(state->root);
    for (const CONSOLETARGET& target : state->targets)
        SendMessageA(list, CB_ADDSTRING, 0, (LPARAM)target.name.c_str());
    if (state->targets.empty())
        SendMessageA(list, CB_ADDSTRING, 0, (LPARAM)"no connection available");
    SendMessageA(list, CB_SETCURSEL, 0, 0);
}

// What fnCallback hands the dialog: the type name it was given and the design.
struct ADDCONSOLESREQUEST {
    const char* type;
    HOSTINFO* root;
};

INT_PTR AddConsoles_Init(HWND dialog, const ADDCONSOLESREQUEST* request)
{
    ADDCONSOLES* state = AttachDialogState(dialog, new ADDCONSOLES);
    state->type = request->type;
    state->root = request->root;
    SetTimer(dialog, TIMER_POLL, kTickPeriod, NULL);
    HFONT bold = a_GetFont("ms sans serif,8,bold");
    SendDlgItemMessageA(dialog, IDC_CALLSTATION_TARGETTEXT, WM_SETFONT, (WPARAM)bold, FALSE);
    SendDlgItemMessageA(dialog, IDC_CALLSTATION_NUMBERTEXT, WM_SETFONT, (WPARAM)bold, FALSE);
    FillExtensions(dialog, state->type);
    FillTargets(dialog, state);
    SelectTarget(dialog, state);
    return TRUE;
}

// ---- Ok ---------------------------------------------------------------------------

bool ReadWhole(HWND dialog, int id, int* value)
{
    char text[64] = "";
    GetDlgItemTextA(dialog, id, text, sizeof text);
    return ParseInt(text, value);
}

// The three checks, with their messages; the dialog stays open after one fails.
bool Validate(HWND dialog, ADDCONSOLES* state, int* count, int* start)
{
    if (!ReadWhole(dialog, IDC_CALLSTATION_COUNT, count) || *count < 1) {
        Warn(dialog, "Invalid Number of Devices specified!", "Error");
        return false;
    }
    if (!ReadWhole(dialog, IDC_CALLSTATION_START, start) || *start < 1 || *start > 16) {
        Warn(dialog, "Invalid Startaddress !", "Error");
        return false;
    }
    CONSOLETARGET* target = SelectedTarget(state);
    uint32_t freeAddresses = 0;
    if (target && ReadFreeAddresses(target->controller, &freeAddresses))
        target->freeAddresses = freeAddresses;
    if (!((freeAddresses >> *start) & 1u)) {
        char text[64];
        FormatText(text, sizeof text, "Address %d Already In Use!", *start);
        Warn(dialog, text, "Error");
        return false;
    }
    return true;
}

bool WriteAll(FILE* file, const std::string& text)
{
    return fwrite(text.data(), 1, text.size(), file) == text.size() && fflush(file) == 0;
}

// The design text of new consoles lives only while the host loads it.
void RemoveNewDesign()
{
    char path[MAX_PATH + 16] = "";
    a_MakeFullPathName(kNewDesign, path, sizeof path);
    if (path[0])
        DeleteFileA(path);
}

void EndAddConsoles(HWND dialog, INT_PTR result)
{
    KillTimer(dialog, TIMER_POLL);
    EndDialog(dialog, result);
}

void Generate(HWND dialog, ADDCONSOLES* state, int count, int start)
{
    char folder[MAX_PATH] = "";
    char path[MAX_PATH + 16] = "";
    a_MakeFullPathName("", folder, sizeof folder);
    a_MakeFullPathName(kNewDesign, path, sizeof path);
    // The folder ends in its separator; the file's name goes straight after it.
    const size_t length = strlen(folder);
    if (length > 0 && (folder[length - 1] == '\\' || folder[length - 1] == '/'))
        folder[length - 1] = '\0';
    FILE* file = folder[0] ? OpenFileCreatingFolders(folder, kNewDesign, "wb") : nullptr;
    if (!file) {
        char text[MAX_PATH + 64];
        FormatText(text, sizeof text, "Cannot write %s: no consoles were added.", path);
        Warn(dialog, text, "Error");
        return;
    }
    CONSOLETARGET* target = SelectedTarget(state);
    if (!target) {
        fclose(file);
        DeleteFileA(path);
        Warn(dialog, "Please create a KVT Manager first!", "Attention!");
        EndAddConsoles(dialog, IDCANCEL);
        return;
    }
    CONSOLEBATCH batch;
    batch.type = state->type;
    batch.connection = target->name + "." + target->module;
    batch.controller = target->name;
    batch.zones = ReadZones(batch.connection);
    batch.freeAddresses = target->freeAddresses;
    if (count > ConsoleCapacity(target->freeAddresses, start)) {
        Warn(dialog, "Too many consoles selected!", "Attention!");
        SetDlgItemInt(dialog, IDC_CALLSTATION_COUNT, (UINT)(17 - start), FALSE);
        fclose(file);
        DeleteFileA(path);
        return;
    }
    batch.count = count;
    batch.start = start;
    const LRESULT extensions = SendDlgItemMessageA(dialog, IDC_CALLSTATION_EXTENSIONS, CB_GETCURSEL, 0, 0);
    batch.extensions = extensions == CB_ERR ? 0 : (int)extensions;
    const bool written = WriteAll(file, GenerateConsoles(batch));
    const bool closed = fclose(file) == 0;
    if (!written || !closed) {
        DeleteFileA(path);
        char text[MAX_PATH + 64];
        FormatText(text, sizeof text, "Cannot write %s: no consoles were added.", path);
        Warn(dialog, text, "Error");
        return;
    }
    const BOOL loaded = a_LoadFile(state->root, path);
    DeleteFileA(path);
    if (!loaded) {
        Warn(dialog, "The new consoles could not be loaded.", "Error");
        return;
    }
    EndAddConsoles(dialog, IDOK);
}

void AddConsoles_Ok(HWND dialog, ADDCONSOLES* state)
{
    int count = 0, start = 0;
    if (Validate(dialog, state, &count, &start))
        Generate(dialog, state, count, start);
}

// The tick keeps Ok in step with the controller: a controller whose last
// free address went meanwhile takes no more consoles.
void AddConsoles_Tick(HWND dialog, ADDCONSOLES* state)
{
    CONSOLETARGET* target = SelectedTarget(state);
    uint32_t freeAddresses = 0;
    if (target && ReadFreeAddresses(target->controller, &freeAddresses))
        target->freeAddresses = freeAddresses;
    if (LowestFree(freeAddresses) > 16 && IsWindowEnabled(GetDlgItem(dialog, IDOK)))
        ShowNumbers(dialog, 0, 17);
}

INT_PTR AddConsoles_Dispatch(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
        return AddConsoles_Init(dialog, reinterpret_cast<const ADDCONSOLESREQUEST*>(lParam));
    ADDCONSOLES* state = DialogState<ADDCONSOLES>(dialog);
    if (!state)
        return FALSE;
    switch (message) {
    case WM_TIMER:
        if (wParam == TIMER_POLL)
            AddConsoles_Tick(dialog, state);
        return TRUE;
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDC_CALLSTATION_TARGET:
            if (HIWORD(wParam) == CBN_SELCHANGE)
                SelectTarget(dialog, state);
            return TRUE;
        case IDOK:
            AddConsoles_Ok(dialog, state);
            return TRUE;
        case IDCANCEL:
            EndAddConsoles(dialog, IDCANCEL);
            return TRUE;
        default:
            return FALSE;
        }
    case WM_DESTROY:
        KillTimer(dialog, TIMER_POLL);
        RemoveNewDesign();  // however the dialog closes, the file it writes goes with it
        FreeDialogState<ADDCONSOLES>(dialog);
        return TRUE;
    default:
        return FALSE;
    }
}

INT_PTR CALLBACK AddConsolesDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedDialogProc<AddConsoles_Dispatch>(dialog, message, wParam, lParam);
}

}  // namespace

INT_PTR RunAddConsolesDialog(HOSTINFO* host, const char* type)
{
    HOSTINFO* root = a_FindRootHostinfo(host);
    if (!root || !type || !ConsolePrefix(type)) {
        Trace("fnCallback 1: no design or no console type to add (%s)\n", type ? type : "none");
        if (root)
            EDITTRACE(root, "Add consoles: unknown console type %s", type ? type : "(none)");
        return -1;
    }
    const ADDCONSOLESREQUEST request = {type, root};
    return DialogBoxParamA(ModuleInstance(), MAKEINTRESOURCEA(IDD_CALLSTATIONDIALOG), root->m_hWnd,
                           AddConsolesDialogProc, (LPARAM)&request);
}
