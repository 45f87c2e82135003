#include "pickers.h"

#include <vector>

#include "hostlists.h"
#include "pagetable.h"
#include "../entry/module.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

struct PICKERSTATE {
    int list = 0;                       // the list view's id
    std::vector<std::string> entries;   // what a row stands for
    std::vector<int> kinds;             // and its kind (DESTINATIONKIND; 0 for a logic parameter)
    std::string* chosen = nullptr;
    int* kind = nullptr;
};

struct PICKEROPEN {
    int picker;
    CONSOLEPROPERTIES* console;
    bool offerSelection;
    std::string* chosen;
    int* kind;
};

// Zones and groups are named as the record keeps them: the controller, a
// point, the zone or group ("ORNCON_1.Hall"). The logic picker offers the
// controller's values first, then its paging conditions, each as it is named.
void CollectEntries(const PICKEROPEN* open, PICKERSTATE* state, std::vector<std::string>* kinds)
{
    const std::string controller = ConnectedControllerName(open->console);
    if (open->picker == IDD_DESTINATIONPICKER) {
        if (open->offerSelection) {
            state->entries.push_back(kCurrentSelection);
            state->kinds.push_back(DESTINATION_SELECTION);
            kinds->push_back("Selection");
        }
        for (const std::string& zone : HostListItems(open->console, kZoneList)) {
            state->entries.push_back(controller + "." + zone);
            state->kinds.push_back(DESTINATION_ZONE);
            kinds->push_back("Zone");
        }
        for (const std::string& group : HostListItems(open->console, kGroupList)) {
            state->entries.push_back(controller + "." + group);
            state->kinds.push_back(DESTINATION_GROUP);
            kinds->push_back("Group");
        }
        return;
    }
    for (const std::string& value : HostListItems(open->console, kValueList)) {
        state->entries.push_back(value);
        state->kinds.push_back(0);
        kinds->push_back("Value");
    }
    for (const std::string& condition : HostListItems(open->console, kConditionList)) {
        state->entries.push_back(condition);
        state->kinds.push_back(0);
        kinds->push_back("Condition");
    }
}

void AddColumn(HWND list, int index, const char* title, int width)
{
    LVCOLUMNA column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = const_cast<char*>(title);
    column.cx = width;
    SendMessageA(list, LVM_INSERTCOLUMNA, index, (LPARAM)&column);
}

void FillPicker(HWND dialog, const PICKEROPEN* open, PICKERSTATE* state)
{
    state->list = open->picker == IDD_DESTINATIONPICKER ? IDC_DESTINATION_LIST : IDC_LOGIC_LIST;
    HWND list = GetDlgItem(dialog, state->list);
    SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    AddColumn(list, 0, open->picker == IDD_DESTINATIONPICKER ? "Destination" : "Parameter", 200);
    AddColumn(list, 1, "Kind", 70);
    std::vector<std::string> kinds;
    CollectEntries(open, state, &kinds);
    for (size_t i = 0; i < state->entries.size(); i++) {
        LVITEMA item = {};
        item.mask = LVIF_TEXT;
        item.iItem = (int)i;
        item.pszText = const_cast<char*>(state->entries[i].c_str());
        const int row = (int)SendMessageA(list, LVM_INSERTITEMA, 0, (LPARAM)&item);
        item.iItem = row;
        item.iSubItem = 1;
        item.pszText = const_cast<char*>(kinds[i].c_str());
        SendMessageA(list, LVM_SETITEMTEXTA, row, (LPARAM)&item);
    }
}

void Picker_Ok(HWND dialog, PICKERSTATE* state)
{
    const int row = (int)SendDlgItemMessageA(dialog, state->list, LVM_GETNEXTITEM, (WPARAM)-1, LVNI_SELECTED);
    if (row < 0 || (size_t)row >= state->entries.size()) {
        EndDialog(dialog, IDCANCEL);  // nothing chosen changes nothing
        return;
    }
    *state->chosen = state->entries[row];
    *state->kind = state->kinds[row];
    EndDialog(dialog, IDOK);
}

INT_PTR Picker_Init(HWND dialog, const PICKEROPEN* open)
{
    PICKERSTATE* state = AttachDialogState(dialog, new PICKERSTATE);
    state->chosen = open->chosen;
    state->kind = open->kind;
    FillPicker(dialog, open, state);
    return TRUE;
}

INT_PTR Picker_Notify(HWND dialog, PICKERSTATE* state, const NMHDR* header)
{
    if ((int)header->idFrom == state->list && header->code == NM_DBLCLK)
        Picker_Ok(dialog, state);
    return TRUE;
}

INT_PTR Picker_Dispatch(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
        return Picker_Init(dialog, reinterpret_cast<const PICKEROPEN*>(lParam));
    PICKERSTATE* state = DialogState<PICKERSTATE>(dialog);
    if (!state)
        return FALSE;
    switch (message) {
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK)
            Picker_Ok(dialog, state);
        else if (LOWORD(wParam) == IDCANCEL)
            EndDialog(dialog, IDCANCEL);
        return TRUE;
    case WM_NOTIFY:
        return Picker_Notify(dialog, state, reinterpret_cast<const NMHDR*>(lParam));
    case WM_DESTROY:
        FreeDialogState<PICKERSTATE>(dialog);
        return TRUE;
    default:
        return FALSE;
    }
}

}  // namespace

bool RunPicker(HWND owner, int picker, CONSOLEPROPERTIES* console, bool offerSelection, std::string* chosen,
               int* kind)
{
    PICKEROPEN open = {picker, console, offerSelection, chosen, kind};
    return DialogBoxParamA(ModuleInstance(), MAKEINTRESOURCEA(picker), owner, GuardedDialogProc<Picker_Dispatch>,
                           (LPARAM)&open) == IDOK;
}
