// The verbs of the key-function editor in a console's configuration window:
// a function dragged from the tree onto a key, a key clicked so that its
// page opens, the page printed, and its controls set as a user sets them
// (the "..." buttons through their picker dialog).
#include "workbench.h"

#include "dialogwatch.h"

#include <stdio.h>
#include <string.h>

#include <commctrl.h>

#include "../../plugin/protocol.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const int kScanWidth = 800;
const int kScanHeight = 900;

HWND WindowOf(const std::string& object)
{
    HOSTINFO* obj = FindWindowedObject(object);
    HWND window = obj ? FindConfigurationWindow(obj) : NULL;
    if (obj && !window)
        fprintf(stderr, "workbench: %s has no configuration window open\n", object.c_str());
    return window;
}

HWND KeyPage(HWND window)
{
    HWND page = GetDlgItem(window, IDC_KEYPAGE);
    if (!page)
        fprintf(stderr, "workbench: the configuration window shows no key page\n");
    return page;
}

// The window's timer ticks twice: the first notes the key's change, the second opens its page.
void LetThePageFollow(HWND window)
{
    SendMessageA(window, WM_TIMER, TIMER_POLL, 0);
    SendMessageA(window, WM_TIMER, TIMER_POLL, 0);
}

// A point inside the key, found by asking the console view.
bool KeyPoint(HWND view, int key, POINT* point)
{
    for (int y = 0; y < kScanHeight; y += 9)
        for (int x = 0; x < kScanWidth; x += 15) {
            int id = -1;
            if (SendMessageA(view, CVM_HITTEST, (WPARAM)&id, MAKELPARAM(x, y)) && id == key) {
                *point = POINT{x, y};
                return true;
            }
        }
    fprintf(stderr, "workbench: the console view shows no key %d\n", key);
    return false;
}

// A node by its label's first word ("Talk", "EVAC") or the id it carries.
HTREEITEM FindNode(HWND tree, HTREEITEM item, const std::string& function, LPARAM* id)
{
    int number = 0;
    const bool byId = ParseInt(function.c_str(), &number);
    for (; item; item = TreeView_GetNextSibling(tree, item)) {
        char label[64] = "";
        TVITEMA data = {};
        data.mask = TVIF_TEXT | TVIF_PARAM;
        data.hItem = item;
        data.pszText = label;
        data.cchTextMax = sizeof label;
        SendMessageA(tree, TVM_GETITEMA, 0, (LPARAM)&data);
        const size_t length = function.size();
        const bool named = strncmp(label, function.c_str(), length) == 0 &&
                           (label[length] == '\0' || label[length] == ' ' || label[length] == '\xA0');
        if (data.lParam >= 0 && (byId ? data.lParam == number : named)) {
            *id = data.lParam;
            return item;
        }
        if (HTREEITEM found = FindNode(tree, TreeView_GetChild(tree, item), function, id))
            return found;
    }
    return NULL;
}

bool Drop(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HWND window = WindowOf(command.object);
    HWND view = window ? FindWindowExA(window, NULL, "DOVRIXKEYFUNCTIONVIEW", NULL) : NULL;
    HWND tree = view ? GetDlgItem(view, IDC_KEYFUNCTIONTREE) : NULL;
    HWND consoleView = window ? GetDlgItem(window, IDC_CONSOLEVIEW) : NULL;
    if (!tree || !consoleView)
        return false;
    LPARAM id = -1;
    HTREEITEM node = FindNode(tree, TreeView_GetRoot(tree), command.text, &id);
    if (!node) {
        fprintf(stderr, "workbench: the key-function tree has no %s\n", command.text.c_str());
        return false;
    }
    POINT at;
    if (!KeyPoint(consoleView, command.key, &at))
        return false;
    // The mouse: the tree starts the drag on the node, moves over the key and lets go.
    NMTREEVIEWA notice = {};
    notice.hdr = {tree, IDC_KEYFUNCTIONTREE, (UINT)TVN_BEGINDRAGA};
    notice.itemNew.mask = TVIF_HANDLE | TVIF_PARAM;
    notice.itemNew.hItem = node;
    notice.itemNew.lParam = id;
    SendMessageA(view, WM_NOTIFY, IDC_KEYFUNCTIONTREE, (LPARAM)&notice);
    MapWindowPoints(consoleView, view, &at, 1);
    SendMessageA(view, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    if (!SendMessageA(view, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y))) {
        printf("refused\n");
        fflush(stdout);
        return true;
    }
    LetThePageFollow(window);
    return true;
}

// ---- The page's controls --------------------------------------------------------------

bool ClassIs(HWND window, const char* name)
{
    char className[64] = "";
    GetClassNameA(window, className, sizeof className);
    return _stricmp(className, name) == 0;
}

bool IsCheckable(HWND button)
{
    const LONG type = GetWindowLongA(button, GWL_STYLE) & BS_TYPEMASK;
    return type == BS_AUTOCHECKBOX || type == BS_CHECKBOX || type == BS_AUTORADIOBUTTON || type == BS_RADIOBUTTON;
}

std::string ControlValue(HWND control)
{
    char text[256] = "";
    if (ClassIs(control, "ComboBox")) {
        const LRESULT at = SendMessageA(control, CB_GETCURSEL, 0, 0);
        if (at != CB_ERR && SendMessageA(control, CB_GETLBTEXTLEN, at, 0) < (LRESULT)sizeof text)
            SendMessageA(control, CB_GETLBTEXT, at, (LPARAM)text);
        return text;
    }
    if (ClassIs(control, UPDOWN_CLASSA))
        return std::to_string((int)SendMessageA(control, UDM_GETPOS32, 0, 0));
    if (ClassIs(control, "Button") && IsCheckable(control))
        return SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? "1" : "0";
    GetWindowTextA(control, text, sizeof text);
    return text;
}

bool PrintPage(const std::string& object)
{
    HWND window = WindowOf(object);
    HWND page = window ? KeyPage(window) : NULL;
    if (!page)
        return false;
    printf("page=%d\n", (int)SendMessageA(page, KPM_PAGEID, 0, 0));
    for (HWND child = GetWindow(page, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(child);
        if (id <= 0 || id == 0xFFFF || ClassIs(child, "Static"))
            continue;  // labels and frames
        const bool greyed = !IsWindowEnabled(child);
        printf("%d=%s%s\n", id, ControlValue(child).c_str(), greyed ? " greyed" : "");
    }
    fflush(stdout);
    return true;
}

// The picker the "..." opens is answered by the hook: its row named by the
// value is chosen and "Ok" pressed; "-" presses "Cancel".
struct PICKERANSWER {
    std::string choice;
    bool answered = false;
    bool found = false;
};
PICKERANSWER* g_answer = nullptr;  // watches take no context

// The picker once it shows: the dialog with a list view.
void AnswerPicker(HWND dialog)
{
    HWND list = !g_answer->answered ? FindWindowExA(dialog, NULL, WC_LISTVIEWA, NULL) : NULL;
    if (!list)
        return;
    g_answer->answered = true;
    const int count = (int)SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
    for (int i = 0; i < count && !g_answer->found; i++) {
        char text[256] = "";
        LVITEMA item = {};
        item.pszText = text;
        item.cchTextMax = sizeof text;
        SendMessageA(list, LVM_GETITEMTEXTA, i, (LPARAM)&item);
        if (g_answer->choice != text)
            continue;
        LVITEMA state = {};
        state.stateMask = state.state = LVIS_SELECTED | LVIS_FOCUSED;
        SendMessageA(list, LVM_SETITEMSTATE, i, (LPARAM)&state);
        g_answer->found = true;
    }
    PostMessageA(dialog, WM_COMMAND, g_answer->found ? IDOK : IDCANCEL, 0);
}

bool PickThroughPicker(HWND button, const std::string& value)
{
    PICKERANSWER answer;
    answer.choice = value;
    g_answer = &answer;
    {
        DIALOGWATCH watch(AnswerPicker);
        SendMessageA(button, BM_CLICK, 0, 0);
    }
    g_answer = nullptr;
    if (value != "-" && !answer.found) {
        fprintf(stderr, "workbench: the picker offers no %s\n", value.c_str());
        return false;
    }
    return true;
}

bool PickIn(HWND page, HWND control, const std::string& value)
{
    HWND parent = page;
    const int id = GetDlgCtrlID(control);
    if (ClassIs(control, "ComboBox")) {
        const LRESULT at = SendMessageA(control, CB_FINDSTRINGEXACT, (WPARAM)-1, (LPARAM)value.c_str());
        if (at == CB_ERR) {
            fprintf(stderr, "workbench: control %d offers no %s\n", id, value.c_str());
            return false;
        }
        SendMessageA(control, CB_SETCURSEL, at, 0);
        SendMessageA(parent, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), (LPARAM)control);
        return true;
    }
    if (ClassIs(control, "Edit")) {
        if (GetWindowLongA(control, GWL_STYLE) & ES_READONLY) {
            fprintf(stderr, "workbench: control %d takes no typing\n", id);
            return false;
        }
        SetWindowTextA(control, value.c_str());  // the edit tells its page of the change
        return true;
    }
    if (ClassIs(control, UPDOWN_CLASSA)) {
        int number = 0;
        HWND buddy = (HWND)SendMessageA(control, UDM_GETBUDDY, 0, 0);
        if (!ParseInt(value.c_str(), &number) || !buddy)
            return false;
        SendMessageA(control, UDM_SETPOS32, 0, number);
        SetWindowTextA(buddy, std::to_string((int)SendMessageA(control, UDM_GETPOS32, 0, 0)).c_str());
        return true;
    }
    if (ClassIs(control, "Button") && IsCheckable(control)) {
        const bool wanted = value == "1";
        if (value != "1" && value != "0")
            return false;
        if ((SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED) != wanted)
            SendMessageA(control, BM_CLICK, 0, 0);
        return true;
    }
    if (ClassIs(control, "Button"))
        return PickThroughPicker(control, value);
    fprintf(stderr, "workbench: control %d takes no value\n", id);
    return false;
}

bool Pick(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HWND window = WindowOf(command.object);
    HWND page = window ? KeyPage(window) : NULL;
    HWND control = page ? GetDlgItem(page, command.code) : NULL;
    if (page && !control)
        fprintf(stderr, "workbench: the key page has no control %d\n", command.code);
    return control && PickIn(page, control, command.typed);
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_DROP, Drop},
    {SCRIPT_PICK, Pick},
};

}  // namespace

const VERBHANDLERS kKeyEditorVerbs = HandlerTable(kHandlers);

bool SelectEditorKey(const std::string& object, int key)
{
    HWND window = WindowOf(object);
    HWND consoleView = window ? GetDlgItem(window, IDC_CONSOLEVIEW) : NULL;
    POINT at;
    if (!consoleView || !KeyPoint(consoleView, key, &at))
        return false;
    SendMessageA(consoleView, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    SendMessageA(consoleView, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    LetThePageFollow(window);
    return true;
}

bool PrintEditorPage(const std::string& object)
{
    return PrintPage(object);
}
