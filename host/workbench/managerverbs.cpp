// The system manager as a user drives it: the add-consoles dialog (opened
// with "addconsoles TYPE"; the script's next lines then fill it in and press
// its buttons, "dialog FIELD VALUE", until it closes) and the manager tree
// of a configuration window ("tree", "treeselect", "move").
#include "workbench.h"

#include "dialogwatch.h"

#include <stdio.h>
#include <string.h>

#include <commctrl.h>

#include "../../plugin/protocol.h"
#include "../../plugin/resources/resource.h"

#include "../../base/text.h"
#include "../../base/banned.h"

const char* const kAddConsoleTypes[4] = {"ORN-15CST", "ORN-CSK", "ELK-15CST", "ELK-CSK"};

INT_PTR AddConsoles(WORKBENCH* bench, const char* type)
{
    return bench->callback ? bench->callback(1, bench->design, (LPARAM)type) : -1;
}

namespace {

const char kDialogTitle[] = "Call Station Dialog";

struct DIALOGRUN {
    WORKBENCH* bench = nullptr;
    HWND dialog = NULL;
};

// Verbs take no context: the one dialog there can be.
DIALOGRUN* g_dialog = nullptr;

bool DialogOpen()
{
    return g_dialog && g_dialog->dialog && IsWindow(g_dialog->dialog) && IsWindowVisible(g_dialog->dialog);
}

// In the dialog's own message loop, once it shows: the script's next lines,
// until it closes.
void DriveScript(HWND dialog)
{
    if (g_dialog->dialog || WindowCaption(dialog) != kDialogTitle)
        return;
    g_dialog->dialog = dialog;
    while (DialogOpen()) {
        if (!RunNextScriptLine(g_dialog->bench)) {
            fprintf(stderr, "workbench: the script ended with the add-consoles dialog open: Cancel\n");
            SendMessageA(dialog, WM_COMMAND, IDCANCEL, (LPARAM)GetDlgItem(dialog, IDCANCEL));
        }
    }
}

bool AddConsolesVerb(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    if (g_dialog) {
        fprintf(stderr, "workbench: the add-consoles dialog is open already\n");
        return false;
    }
    DIALOGRUN run;
    run.bench = bench;
    g_dialog = &run;
    INT_PTR result = -1;
    {
        DIALOGWATCH watch(DriveScript);
        result = AddConsoles(bench, command.text.c_str());
    }
    g_dialog = nullptr;
    printf("addconsoles: %s\n", result == IDOK ? "added" : result == IDCANCEL ? "cancelled" : "refused");
    return result == IDOK || result == IDCANCEL;
}

// ---- The dialog's fields ------------------------------------------------------------------

bool ChooseInList(HWND dialog, int id, const std::string& value)
{
    HWND list = GetDlgItem(dialog, id);
    if (!IsWindowEnabled(list)) {
        fprintf(stderr, "workbench: that list is greyed\n");
        return false;
    }
    const LRESULT at = SendMessageA(list, CB_FINDSTRINGEXACT, (WPARAM)-1, (LPARAM)value.c_str());
    if (at == CB_ERR) {
        fprintf(stderr, "workbench: the list does not offer %s\n", value.c_str());
        return false;
    }
    SendMessageA(list, CB_SETCURSEL, at, 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), (LPARAM)list);
    return true;
}

bool Press(HWND dialog, int id)
{
    HWND button = GetDlgItem(dialog, id);
    if (!IsWindowEnabled(button)) {
        fprintf(stderr, "workbench: that button is greyed\n");
        return false;
    }
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), (LPARAM)button);
    return true;
}

void ShowField(HWND dialog, const char* name, int id)
{
    char text[256] = "";
    GetDlgItemTextA(dialog, id, text, sizeof text);
    printf("%s=%s%s\n", name, text, IsWindowEnabled(GetDlgItem(dialog, id)) ? "" : " greyed");
}

void ShowDialog(HWND dialog)
{
    ShowField(dialog, "target", IDC_CALLSTATION_TARGET);
    ShowField(dialog, "count", IDC_CALLSTATION_COUNT);
    ShowField(dialog, "start", IDC_CALLSTATION_START);
    ShowField(dialog, "extensions", IDC_CALLSTATION_EXTENSIONS);
    HWND list = GetDlgItem(dialog, IDC_CALLSTATION_EXTENSIONS);
    std::string choices;
    for (LRESULT i = 0; i < SendMessageA(list, CB_GETCOUNT, 0, 0); i++) {
        char item[64] = "";
        if (SendMessageA(list, CB_GETLBTEXTLEN, i, 0) < (LRESULT)sizeof item)
            SendMessageA(list, CB_GETLBTEXT, i, (LPARAM)item);
        choices += (choices.empty() ? "" : ",") + std::string(item);
    }
    printf("extension choices=%s\n", choices.c_str());
    printf("Ok%s\n", IsWindowEnabled(GetDlgItem(dialog, IDOK)) ? "" : " greyed");
}

bool DialogVerb(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    if (!DialogOpen()) {
        fprintf(stderr, "workbench: no add-consoles dialog is open (addconsoles TYPE opens it)\n");
        return false;
    }
    HWND dialog = g_dialog->dialog;
    const std::string& field = command.text;
    const std::string& value = command.typed;
    if (field == "target")
        return ChooseInList(dialog, IDC_CALLSTATION_TARGET, value);
    if (field == "extensions")
        return ChooseInList(dialog, IDC_CALLSTATION_EXTENSIONS, value);
    if (field == "count" || field == "start") {
        SetDlgItemTextA(dialog, field == "count" ? IDC_CALLSTATION_COUNT : IDC_CALLSTATION_START, value.c_str());
        return true;
    }
    if (field == "show" && value.empty()) {
        ShowDialog(dialog);
        return true;
    }
    if ((field == "ok" || field == "cancel") && value.empty())
        return Press(dialog, field == "ok" ? IDOK : IDCANCEL);
    fprintf(stderr, "workbench: dialog takes target, count, start or extensions with a value, or show, ok, cancel\n");
    return false;
}

// ---- The manager tree -------------------------------------------------------------------------

HWND ManagerTree(const std::string& object, HWND* view)
{
    HOSTINFO* obj = FindWindowedObject(object);
    HWND window = obj ? FindConfigurationWindow(obj) : NULL;
    if (obj && !window)
        fprintf(stderr, "workbench: %s has no configuration window open\n", object.c_str());
    *view = window ? FindWindowExA(window, NULL, "DOVRIXKVTVIEW", NULL) : NULL;
    HWND tree = *view ? GetDlgItem(*view, IDC_MANAGERTREE) : NULL;
    if (window && !tree)
        fprintf(stderr, "workbench: the configuration window of %s has no manager tree\n", object.c_str());
    return tree;
}

HTREEITEM Next(HWND tree, HTREEITEM item, UINT relation)
{
    return (HTREEITEM)SendMessageA(tree, TVM_GETNEXTITEM, relation, (LPARAM)item);
}

void ReadItem(HWND tree, HTREEITEM item, std::string* text, HOSTINFO** object)
{
    char buffer[4096] = "";
    TVITEMA data = {};
    data.mask = TVIF_TEXT | TVIF_PARAM;
    data.hItem = item;
    data.pszText = buffer;
    data.cchTextMax = sizeof buffer;
    SendMessageA(tree, TVM_GETITEMA, 0, (LPARAM)&data);
    *text = buffer;
    *object = reinterpret_cast<HOSTINFO*>(data.lParam);
}

// Depth first, as the tree shows its items.
template <class VISIT>
bool WalkTree(HWND tree, HTREEITEM item, int depth, VISIT visit)
{
    for (; item; item = Next(tree, item, TVGN_NEXT)) {
        std::string text;
        HOSTINFO* object = nullptr;
        ReadItem(tree, item, &text, &object);
        if (!visit(item, depth, text, object) || !WalkTree(tree, Next(tree, item, TVGN_CHILD), depth + 1, visit))
            return false;
    }
    return true;
}

bool TreeVerb(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HWND view = NULL;
    HWND tree = ManagerTree(command.object, &view);
    if (!tree)
        return false;
    HTREEITEM selected = Next(tree, NULL, TVGN_CARET);
    WalkTree(tree, Next(tree, NULL, TVGN_ROOT), 0,
             [&](HTREEITEM item, int depth, const std::string& text, HOSTINFO* object) {
                 printf("%s%s = %s%s\n", depth ? "  " : "", text.c_str(), object ? object->m_szName : "empty",
                        item == selected ? " (selected)" : "");
                 return true;
             });
    return true;
}

// The first item, depth first, whose text or object is named so.
HTREEITEM FindItem(HWND tree, const std::string& name, int depth = -1)
{
    HTREEITEM found = NULL;
    WalkTree(tree, Next(tree, NULL, TVGN_ROOT), 0,
             [&](HTREEITEM item, int level, const std::string& text, HOSTINFO* object) {
                 if ((depth < 0 || level == depth) && (text == name || (object && name == object->m_szName)))
                     found = item;
                 return found == NULL;
             });
    return found;
}

bool TreeSelectVerb(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HWND view = NULL;
    HWND tree = ManagerTree(command.object, &view);
    HTREEITEM item = tree ? FindItem(tree, command.text) : NULL;
    if (tree && !item)
        fprintf(stderr, "workbench: the manager tree has no item %s\n", command.text.c_str());
    if (!item)
        return false;
    SendMessageA(tree, TVM_SELECTITEM, TVGN_CARET, (LPARAM)item);
    return true;
}

// Presses the mouse on the console's item, moves it over the controller's and
// lets go: in the console's own configuration window, or in WINDOW's.
bool MoveVerb(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    HWND view = NULL;
    HWND tree = ManagerTree(command.typed.empty() ? command.object : command.typed, &view);
    HTREEITEM item = tree ? FindItem(tree, command.object, 1) : NULL;
    HTREEITEM target = tree ? FindItem(tree, command.text, 0) : NULL;
    if (tree && (!item || !target)) {
        fprintf(stderr, "workbench: the manager tree lists no %s\n", item ? command.text.c_str() : command.object.c_str());
        return false;
    }
    if (!tree)
        return false;
    std::string text;
    HOSTINFO* object = nullptr;
    ReadItem(tree, item, &text, &object);
    NMTREEVIEWA drag = {};
    drag.hdr.hwndFrom = tree;
    drag.hdr.idFrom = IDC_MANAGERTREE;
    drag.hdr.code = TVN_BEGINDRAGA;
    drag.itemNew.mask = TVIF_HANDLE | TVIF_PARAM;
    drag.itemNew.hItem = item;
    drag.itemNew.lParam = (LPARAM)object;
    SendMessageA(view, WM_NOTIFY, IDC_MANAGERTREE, (LPARAM)&drag);
    if (GetCapture() != view) {
        printf("move: %s is not dragged\n", command.object.c_str());
        return true;
    }
    SendMessageA(tree, TVM_ENSUREVISIBLE, 0, (LPARAM)target);
    RECT box = {};
    TreeView_GetItemRect(tree, target, &box, TRUE);
    POINT at = {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
    MapWindowPoints(tree, view, &at, 1);
    SendMessageA(view, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    SendMessageA(view, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    if (GetCapture() == view)
        ReleaseCapture();
    // Carried out, the console's item stands under the controller's now.
    HTREEITEM moved = FindItem(tree, command.object, 1);
    if (moved && Next(tree, moved, TVGN_PARENT) == FindItem(tree, command.text, 0))
        printf("move: %s dropped on %s\n", command.object.c_str(), command.text.c_str());
    else
        printf("move: %s refused on %s\n", command.object.c_str(), command.text.c_str());
    return true;
}

bool MergeVerb(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    if (!a_LoadFile(bench->design, command.text.c_str())) {
        fprintf(stderr, "workbench: cannot read %s\n", command.text.c_str());
        return false;
    }
    return true;
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_ADDCONSOLES, AddConsolesVerb}, {SCRIPT_DIALOG, DialogVerb}, {SCRIPT_TREE, TreeVerb},
    {SCRIPT_TREESELECT, TreeSelectVerb},   {SCRIPT_MOVE, MoveVerb}, {SCRIPT_MERGE, MergeVerb},
};

}  // namespace

const VERBHANDLERS kManagerVerbs = HandlerTable(kHandlers);
