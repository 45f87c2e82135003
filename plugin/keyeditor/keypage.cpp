#include "keypage.h"

#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

#include "hostlists.h"
#include "pagetable.h"
#include "pickers.h"
#include "../device/consoleproperties.h"
#include "../device/keyundo.h"
#include "../entry/module.h"
#include "../keys/keycatalogue.h"
#include "../protocol.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const COLORREF kEditColour = 0xCEFFFF;    // pale yellow
const COLORREF kStaticColour = 0xC8D0D4;  // the page grey
const DWORD_PTR kNoPrechimeItem = (DWORD_PTR)-1;

struct KEYPAGESTATE {
    CONSOLEPROPERTIES* console = nullptr;
    const KEYPAGE* page = nullptr;
    int pageId = 0;
    int key = -1;
    bool loading = false;  // the controls are being set from the key: not the user's changes
};

struct KEYPAGEOPEN {
    CONSOLEPROPERTIES* console;
    int pageId;
};

KEYSLOT* BoundSlot(KEYPAGESTATE* state)
{
    if (state->key < 0 || state->key >= CONSOLE_KEY_COUNT)
        return nullptr;
    return &state->console->m_keys[state->key];
}

// ---- Item lists ---------------------------------------------------------------------

void AddItem(HWND combo, const char* text, DWORD_PTR data)
{
    const LRESULT at = SendMessageA(combo, CB_ADDSTRING, 0, (LPARAM)text);
    if (at >= 0)
        SendMessageA(combo, CB_SETITEMDATA, at, (LPARAM)data);
}

// The item lists kept with the dialog: control id, 0x403, the length of the
// text with its end, the text; a zero id ends them. Read byte by byte, as
// the resource packs them without alignment.
void FillFromResource(HWND dialog, int pageId)
{
    HRSRC found = FindResourceA(ModuleInstance(), MAKEINTRESOURCEA(pageId), MAKEINTRESOURCEA(240));
    HGLOBAL loaded = found ? LoadResource(ModuleInstance(), found) : NULL;
    const unsigned char* data = loaded ? static_cast<const unsigned char*>(LockResource(loaded)) : nullptr;
    const DWORD size = found ? SizeofResource(ModuleInstance(), found) : 0;
    DWORD at = 0;
    while (data && at + 2 <= size) {
        const int control = data[at] | data[at + 1] << 8;
        if (control == 0 || at + 8 > size)
            break;
        const DWORD length = data[at + 4] | data[at + 5] << 8 | data[at + 6] << 16 | (DWORD)data[at + 7] << 24;
        at += 8;
        if (length == 0 || length > size - at)
            break;
        std::string text(reinterpret_cast<const char*>(data + at), length - 1);
        at += length;
        HWND combo = GetDlgItem(dialog, control);
        if (combo)
            AddItem(combo, text.c_str(), 0);
    }
}

void FillCodeLists(HWND dialog, const KEYPAGE* page)
{
    for (int i = 0; i < page->count; i++) {
        const PAGECONTROL& control = page->controls[i];
        HWND combo = GetDlgItem(dialog, control.control);
        if (control.items) {
            SendMessageA(combo, CB_RESETCONTENT, 0, 0);
            for (const std::string& item : SplitItems(control.items))
                AddItem(combo, item.c_str(), 0);
        } else if (control.kind == PC_PRECHIME) {
            SendMessageA(combo, CB_RESETCONTENT, 0, 0);
            for (const auto& entry : PrechimeTable(false))
                AddItem(combo, entry.second.c_str(), (DWORD_PTR)entry.first);
        } else if (control.kind == PC_TONE) {
            SendMessageA(combo, CB_RESETCONTENT, 0, 0);
            for (const auto& entry : AlarmToneTable(false))
                AddItem(combo, entry.second.c_str(), (DWORD_PTR)entry.first);
        } else if (control.kind == PC_SPIN) {
            SendDlgItemMessageA(dialog, control.control, UDM_SETBUDDY, (WPARAM)GetDlgItem(dialog, control.extra), 0);
        } else if (control.kind == PC_TEXT) {
            SendDlgItemMessageA(dialog, control.control, EM_LIMITTEXT, KEYTEXT_SIZE - 1, 0);
        }
    }
}

// The lists that live in the system are asked for whenever a key is shown.
void FillSystemList(HWND combo, const PAGECONTROL& control, CONSOLEPROPERTIES* console)
{
    SendMessageA(combo, CB_RESETCONTENT, 0, 0);
    if (control.kind == PC_INPUT) {
        for (const std::string& input : HostListItems(console, kInputList))
            AddItem(combo, input.c_str(), 0);
        return;
    }
    if (control.hook == HOOK_PRECHIMEFLAG)
        AddItem(combo, kNoPrechime, kNoPrechimeItem);
    std::string list;
    if (!ReadHostList(console, kMessageList, &list))
        return;
    for (const MESSAGEENTRY& entry : ParseMessageList(list.c_str()))
        AddItem(combo, entry.name.c_str(), (DWORD_PTR)entry.number);
}

// ---- Loading the key into the controls ------------------------------------------------

int FindItemData(HWND combo, DWORD_PTR data)
{
    const int count = (int)SendMessageA(combo, CB_GETCOUNT, 0, 0);
    for (int i = 0; i < count; i++)
        if ((DWORD_PTR)SendMessageA(combo, CB_GETITEMDATA, i, 0) == data)
            return i;
    return -1;
}

int FindItemText(HWND combo, const char* text)
{
    if (!text || !*text)
        return -1;
    const LRESULT at = SendMessageA(combo, CB_FINDSTRINGEXACT, (WPARAM)-1, (LPARAM)text);
    return at == CB_ERR ? -1 : (int)at;
}

// A stored message is found by its number; its stored name may differ.
int MessageSelection(HWND combo, const PAGECONTROL& control, const KEYSLOT& slot)
{
    if (control.hook == HOOK_PRECHIMEFLAG && KeyFieldNumber(slot, control.flag) == 0)
        return FindItemData(combo, kNoPrechimeItem);
    MESSAGEENTRY stored;
    if (!ParseMessageEntry(KeyFieldText(slot, control.field), &stored))
        return -1;
    const int count = (int)SendMessageA(combo, CB_GETCOUNT, 0, 0);
    for (int i = 0; i < count; i++) {
        const DWORD_PTR data = (DWORD_PTR)SendMessageA(combo, CB_GETITEMDATA, i, 0);
        if (data != kNoPrechimeItem && (unsigned)data == stored.number)
            return i;
    }
    return -1;
}

void ShowInputChannel(HWND dialog, const KEYPAGE* page, const KEYSLOT& slot)
{
    for (int i = 0; i < page->count; i++) {
        const PAGECONTROL& tone = page->controls[i];
        if (tone.hook != HOOK_ALARMTONE)
            continue;
        const bool external = KeyFieldNumber(slot, tone.field) == 0;
        for (int j = 0; j < page->count; j++)
            if (page->controls[j].field == tone.extra && page->controls[j].kind == PC_INPUT) {
                HWND input = GetDlgItem(dialog, page->controls[j].control);
                EnableWindow(input, external ? TRUE : FALSE);
                if (!external)
                    SendMessageA(input, CB_SETCURSEL, (WPARAM)-1, 0);
            }
    }
}

// A text whose picker is the destination picker holds the key's destination.
bool IsDestination(const KEYPAGE* page, const PAGECONTROL& text)
{
    for (int i = 0; i < page->count; i++)
        if (page->controls[i].kind == PC_PICKER && page->controls[i].extra == IDD_DESTINATIONPICKER &&
            page->controls[i].field == text.field)
            return true;
    return false;
}

void LoadControl(HWND dialog, KEYPAGESTATE* state, const PAGECONTROL& control, const KEYSLOT& slot)
{
    HWND window = GetDlgItem(dialog, control.control);
    const double value = PageControlValue(control, slot);
    char text[64];
    switch (control.kind) {
    case PC_COMBO:
        SendMessageA(window, CB_SETCURSEL, (WPARAM)(int)value, 0);
        break;
    case PC_CHECK:
    case PC_RADIO:
    case PC_BIT:
        CheckDlgButton(dialog, control.control, value != 0 ? BST_CHECKED : BST_UNCHECKED);
        break;
    case PC_NUMBER:
        SetDlgItemInt(dialog, control.control, (UINT)value, FALSE);
        break;
    case PC_REAL:
        FormatText(text, sizeof text, "%g", value);
        SetDlgItemTextA(dialog, control.control, text);
        break;
    case PC_TEXT:
        if (IsDestination(state->page, control)) {
            SetDlgItemTextA(dialog, control.control, DestinationShown(slot, control.field).c_str());
            // The current selection is no text to edit: the picker changes it.
            const bool selection = HasDestinationVariants(slot.functionId) && slot.variant == DESTINATION_SELECTION;
            SendMessageA(window, EM_SETREADONLY, selection ? TRUE : FALSE, 0);
        } else {
            SetDlgItemTextA(dialog, control.control, KeyFieldText(slot, control.field));
        }
        break;
    case PC_MESSAGE:
        FillSystemList(window, control, state->console);
        SendMessageA(window, CB_SETCURSEL, (WPARAM)MessageSelection(window, control, slot), 0);
        break;
    case PC_INPUT:
        FillSystemList(window, control, state->console);
        SendMessageA(window, CB_SETCURSEL, (WPARAM)FindItemText(window, KeyFieldText(slot, control.field)), 0);
        break;
    case PC_PRECHIME:
        SendMessageA(window, CB_SETCURSEL, (WPARAM)FindItemText(window, KeyFieldText(slot, control.field)), 0);
        break;
    case PC_TONE:
        SendMessageA(window, CB_SETCURSEL, (WPARAM)FindItemData(window, (DWORD_PTR)(int)value), 0);
        break;
    case PC_SPIN:
    case PC_PICKER:
        break;
    }
}

// A merge tag makes typing into one field (or holding its spin) one undo step.
// A value the page forces when it opens is no change of the user's: undo
// does not take it back (the page would only force it again).
void Notify(KEYPAGESTATE* state, const char* mergeTag = nullptr, bool userChange = true)
{
    CONSOLEPROPERTIES* c = state->console;
    if (userChange)
        NoteKeyEdit(c, mergeTag);
    else
        AbsorbKeyEdit(c);
    c->NotifyConsoleView(KPM_KEYEDITED, 0, state->key);
    c->m_wFlags |= HOSTFLAG_EDITED;
    c->RefreshCanvas(true);
    if (c->m_hNotify)
        PostMessageA(c->m_hNotify, WM_HOST_LOADED, 0, (LPARAM)c);
}

void BindKey(HWND dialog, KEYPAGESTATE* state, int key)
{
    state->key = key;
    KEYSLOT* slot = BoundSlot(state);
    if (!slot || !state->page)
        return;
    bool forced = false;
    if (state->page->forcedField && KeyFieldNumber(*slot, state->page->forcedField) != state->page->forcedValue)
        forced = SetKeyFieldNumber(slot, state->page->forcedField, state->page->forcedValue);
    state->loading = true;
    // A spin counts within the width of the field its edit writes.
    for (int i = 0; i < state->page->count; i++) {
        int low = 0, high = 0;
        const PAGECONTROL& control = state->page->controls[i];
        if (control.kind == PC_SPIN && PageControlRange(state->page, control, slot->functionId, &low, &high))
            SendDlgItemMessageA(dialog, control.control, UDM_SETRANGE32, (WPARAM)low, (LPARAM)high);
    }
    for (int i = 0; i < state->page->count; i++)
        LoadControl(dialog, state, state->page->controls[i], *slot);
    ShowInputChannel(dialog, state->page, *slot);
    state->loading = false;
    if (forced)
        Notify(state, nullptr, false);
}

// ---- The user's changes ----------------------------------------------------------------

void Refuse(HWND dialog, KEYPAGESTATE* state, const PAGECONTROL& control, const char* message)
{
    if (message)
        MessageBoxA(dialog, message, "WARNING", MB_OK | MB_ICONWARNING | MB_TASKMODAL);
    state->loading = true;
    LoadControl(dialog, state, control, *BoundSlot(state));
    state->loading = false;
}

std::string ComboText(HWND combo, int at)
{
    const LRESULT length = SendMessageA(combo, CB_GETLBTEXTLEN, at, 0);
    if (length < 0)
        return std::string();
    std::vector<char> text((size_t)length + 1, '\0');
    SendMessageA(combo, CB_GETLBTEXT, at, (LPARAM)text.data());
    return text.data();
}

bool StoreSelection(HWND dialog, KEYPAGESTATE* state, const PAGECONTROL& control, KEYSLOT* slot)
{
    HWND combo = GetDlgItem(dialog, control.control);
    const int at = (int)SendMessageA(combo, CB_GETCURSEL, 0, 0);
    if (at < 0)
        return false;
    const DWORD_PTR data = (DWORD_PTR)SendMessageA(combo, CB_GETITEMDATA, at, 0);
    switch (control.kind) {
    case PC_COMBO:
        if (control.hook == HOOK_AUDIOINPUT) {
            if (!ConsoleOffersAudioInput(state->console->m_model, at + 1)) {
                Refuse(dialog, state, control, nullptr);  // the console has no such input
                return false;
            }
            if (const char* clash = TalkInputClash(state->console->m_keys, CONSOLE_KEY_COUNT, state->key, at + 1)) {
                Refuse(dialog, state, control, clash);
                return false;
            }
        }
        if (!StorePageControlValue(control, slot, at)) {
            // An arithmetic mode without a function of its own: the key keeps "Up" or "Down".
            const std::string refusal = control.hook == HOOK_ARITHMETICMODE
                                            ? ArithmeticModeRefusal(at, ComboText(combo, at).c_str(), *slot)
                                            : std::string();
            Refuse(dialog, state, control, refusal.empty() ? nullptr : refusal.c_str());
            return false;
        }
        return true;
    case PC_TONE:
        StorePageControlValue(control, slot, (double)(int)data);
        ShowInputChannel(dialog, state->page, *slot);
        return true;
    case PC_MESSAGE:
        if (data == kNoPrechimeItem)
            return StorePageControlText(control, slot, "");
        return StorePageControlText(control, slot,
                                    FormatMessageEntry(MESSAGEENTRY{ComboText(combo, at), (unsigned)data}).c_str());
    case PC_PRECHIME:
    case PC_INPUT:
        return StorePageControlText(control, slot, ComboText(combo, at).c_str());
    default:
        return false;
    }
}

// A number outside its field's width is refused: the stored one stays and shows.
bool StoreNumber(HWND dialog, KEYPAGESTATE* state, const PAGECONTROL& control, KEYSLOT* slot, const char* text)
{
    int low = 0, high = 0, number = 0;
    if (!PageControlRange(state->page, control, slot->functionId, &low, &high))
        return false;
    switch (ReadPageNumber(text, low, high, &number)) {
    case PAGENUMBER_TAKEN:
        return StorePageControlValue(control, slot, number);
    case PAGENUMBER_REFUSED:
        Refuse(dialog, state, control, PageNumberRefusal(text, low, high).c_str());
        return false;
    default:
        return false;  // nothing typed yet
    }
}

bool StoreEdit(HWND dialog, KEYPAGESTATE* state, const PAGECONTROL& control, KEYSLOT* slot)
{
    char text[KEYTEXT_SIZE] = "";
    GetDlgItemTextA(dialog, control.control, text, sizeof text);
    if (control.kind == PC_TEXT && (strcmp(text, kNoCaption) == 0 || strcmp(text, kCurrentSelection) == 0))
        return false;  // what the field shows for no destination is none
    if (control.kind == PC_TEXT)
        return StorePageControlText(control, slot, text);
    if (control.kind == PC_NUMBER)
        return StoreNumber(dialog, state, control, slot, text);
    char* end = nullptr;
    const double real = strtod(text, &end);
    return end != text && StorePageControlValue(control, slot, real);
}

bool StoreClick(HWND dialog, KEYPAGESTATE* state, const PAGECONTROL& control, KEYSLOT* slot)
{
    if (control.kind == PC_PICKER) {
        std::string chosen;
        int kind = 0;
        const bool destination = control.extra == IDD_DESTINATIONPICKER;
        if (!RunPicker(dialog, control.extra, state->console, destination && HasDestinationVariants(slot->functionId),
                       &chosen, &kind))
            return false;  // "Cancel" changes nothing
        if (destination)
            StoreDestination(slot, control.field, (DESTINATIONKIND)kind, chosen.c_str());
        else
            StorePageControlText(control, slot, chosen.c_str());
        state->loading = true;
        for (int i = 0; i < state->page->count; i++)
            if (state->page->controls[i].kind == PC_TEXT && state->page->controls[i].field == control.field)
                LoadControl(dialog, state, state->page->controls[i], *slot);
        state->loading = false;
        return true;
    }
    const bool checked = IsDlgButtonChecked(dialog, control.control) == BST_CHECKED;
    if (control.hook == HOOK_PTTLINEIN) {
        if (const char* clash = PttLineInClash(state->console->m_keys, CONSOLE_KEY_COUNT, state->key, checked)) {
            Refuse(dialog, state, control, clash);
            return false;
        }
    }
    if (control.kind == PC_RADIO && !checked)
        return false;  // its partner stores the change
    return StorePageControlValue(control, slot, checked ? 1 : 0);
}

void Page_Command(HWND dialog, KEYPAGESTATE* state, WPARAM wParam)
{
    const PAGECONTROL* control = FindPageControl(state->page, LOWORD(wParam));
    KEYSLOT* slot = BoundSlot(state);
    if (!control || !slot || state->loading)
        return;
    bool stored = false;
    std::string mergeTag;
    switch (HIWORD(wParam)) {
    case EN_KILLFOCUS:
        SealKeyEdit(state->console);  // the next typing there is a step of its own
        break;
    case CBN_SELCHANGE:
        stored = StoreSelection(dialog, state, *control, slot);
        break;
    case EN_CHANGE:
        stored = (control->kind == PC_TEXT || control->kind == PC_NUMBER || control->kind == PC_REAL) &&
                 StoreEdit(dialog, state, *control, slot);
        mergeTag = FormatString("key%d:%d", state->key, control->control);
        break;
    case BN_CLICKED:
        stored = (control->kind == PC_CHECK || control->kind == PC_RADIO || control->kind == PC_BIT ||
                  control->kind == PC_PICKER) &&
                 StoreClick(dialog, state, *control, slot);
        break;
    default:
        break;
    }
    if (stored)
        Notify(state, mergeTag.empty() ? nullptr : mergeTag.c_str());
}

INT_PTR Page_Colours(HDC hdc, COLORREF colour, int brush)
{
    SetBkColor(hdc, colour);
    SetBkMode(hdc, TRANSPARENT);
    return (INT_PTR)a_GetObject(brush);
}

INT_PTR Page_Init(HWND dialog, const KEYPAGEOPEN* open)
{
    KEYPAGESTATE* state = AttachDialogState(dialog, new KEYPAGESTATE);
    state->console = open->console;
    state->pageId = open->pageId;
    state->page = FindKeyPage(open->pageId);
    state->loading = true;
    if (state->page) {
        FillFromResource(dialog, open->pageId);
        FillCodeLists(dialog, state->page);
    }
    state->loading = false;
    return FALSE;  // the page takes no focus from the window it stands in
}

INT_PTR Page_Dispatch(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
        return Page_Init(dialog, reinterpret_cast<const KEYPAGEOPEN*>(lParam));
    KEYPAGESTATE* state = DialogState<KEYPAGESTATE>(dialog);
    if (!state)
        return FALSE;
    switch (message) {
    case KPM_BINDKEY:
        BindKey(dialog, state, (int)wParam);
        return TRUE;
    case KPM_PAGEID:
        SetWindowLongPtrA(dialog, DWLP_MSGRESULT, state->pageId);
        return TRUE;
    case WM_COMMAND:
        Page_Command(dialog, state, wParam);
        return TRUE;
    case WM_ERASEBKGND:
        return TRUE;  // the page paints nothing itself
    case WM_CTLCOLOREDIT:
        return Page_Colours((HDC)wParam, kEditColour, HOSTOBJECT_BACKGROUNDBRUSH);
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORSTATIC:
        return Page_Colours((HDC)wParam, kStaticColour, HOSTOBJECT_FACEBRUSH);
    case WM_DESTROY:
        FreeDialogState<KEYPAGESTATE>(dialog);
        return TRUE;
    default:
        return FALSE;
    }
}

}  // namespace

HWND CreateKeyPage(HWND parent, CONSOLEPROPERTIES* console, int key)
{
    if (!console)
        return NULL;
    const int32_t function = key >= 0 && key < CONSOLE_KEY_COUNT ? console->m_keys[key].functionId : 0;
    KEYPAGEOPEN open = {console, EditorPageOf(key, function, console->m_settings.decadicSelectionActive != 0)};
    HWND page = CreateDialogParamA(ModuleInstance(), MAKEINTRESOURCEA(open.pageId), parent,
                                   GuardedDialogProc<Page_Dispatch>, (LPARAM)&open);
    if (page)
        SendMessageA(page, KPM_BINDKEY, (WPARAM)key, 0);
    return page;
}

int KeyPageId(HWND page)
{
    const KEYPAGESTATE* state = page ? DialogState<KEYPAGESTATE>(page) : nullptr;
    return state ? state->pageId : 0;
}
