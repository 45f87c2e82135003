// The manager tree of the configuration window: controllers and their console
// positions, switching the window to a console, and moving one by dragging.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testhost.h"

#include <commctrl.h>
#include "../../plugin/protocol.h"
#include "../../plugin/resources/resource.h"

namespace {

const char kOrnController1[] = "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40";
const char kOrnController2[] = "control=0 ORNCON \"ORNCON_2\" 0x54000000 200,100,150x40";
const char kElkController[] = "control=0 ELKCON \"ELKCON_1\" 0x54000000 400,100,150x40";

void AddConnected(TESTDESIGN& design, const std::string& name, int address, const char* controller)
{
    design.Load({"control=0 DOVRIXC \"" + name + "\" 0x54000000 10,10,20x20", name + "*address=" + std::to_string(address),
                 name + "*name=Desk " + std::to_string(address)});
    design.Edit(name + "*connection=" + controller + ".DOVRIXCSTModule");
}

HWND Open(TESTDESIGN& design, const char* name)
{
    SendMessageA(design.Object(name)->m_hWnd, WM_HOST_CONTEXTCOMMAND, 0, 1);
    return FindWindowA("DOVRIXZELCONFIGURATIONDIALOG", (std::string(name) + " - Configuration").c_str());
}

std::string Title(HWND window)
{
    char title[256] = "";
    GetWindowTextA(window, title, sizeof title);
    return title;
}

HTREEITEM Next(HWND tree, HTREEITEM item, UINT relation)
{
    return (HTREEITEM)SendMessageA(tree, TVM_GETNEXTITEM, relation, (LPARAM)item);
}

struct ITEM {
    std::string text;
    HOSTINFO* object;
};

ITEM Read(HWND tree, HTREEITEM item)
{
    char text[256] = "";
    TVITEMA data = {};
    data.mask = TVIF_TEXT | TVIF_PARAM;
    data.hItem = item;
    data.pszText = text;
    data.cchTextMax = sizeof text;
    SendMessageA(tree, TVM_GETITEMA, 0, (LPARAM)&data);
    return ITEM{text, reinterpret_cast<HOSTINFO*>(data.lParam)};
}

HTREEITEM Controller(HWND tree, int index)
{
    HTREEITEM item = Next(tree, NULL, TVGN_ROOT);
    for (int i = 0; i < index && item; i++)
        item = Next(tree, item, TVGN_NEXT);
    return item;
}

// The texts of the controller's positions, "empty" ones included.
std::vector<std::string> Positions(HWND tree, int controller)
{
    std::vector<std::string> texts;
    for (HTREEITEM item = Next(tree, Controller(tree, controller), TVGN_CHILD); item; item = Next(tree, item, TVGN_NEXT))
        texts.push_back(Read(tree, item).text);
    return texts;
}

std::vector<std::string> Expected(std::vector<std::string> consoles)
{
    while (consoles.size() < 16)
        consoles.push_back("empty");
    return consoles;
}

HTREEITEM ItemOf(HWND tree, const HOSTINFO* object)
{
    for (HTREEITEM controller = Next(tree, NULL, TVGN_ROOT); controller; controller = Next(tree, controller, TVGN_NEXT)) {
        if (Read(tree, controller).object == object)
            return controller;
        for (HTREEITEM item = Next(tree, controller, TVGN_CHILD); item; item = Next(tree, item, TVGN_NEXT))
            if (Read(tree, item).object == object)
                return item;
    }
    return NULL;
}

struct VIEW {
    HWND window;
    HWND view;
    HWND tree;
};

VIEW OpenTree(TESTDESIGN& design, const char* console)
{
    VIEW v = {};
    v.window = Open(design, console);
    v.view = v.window ? FindWindowExA(v.window, NULL, "DOVRIXKVTVIEW", NULL) : NULL;
    v.tree = v.view ? GetDlgItem(v.view, IDC_MANAGERTREE) : NULL;
    return v;
}

// The user presses the mouse on the console's item, moves over the target and lets go.
bool Drag(const VIEW& v, HOSTINFO* console, HTREEITEM target)
{
    NMTREEVIEWA drag = {};
    drag.hdr.hwndFrom = v.tree;
    drag.hdr.idFrom = IDC_MANAGERTREE;
    drag.hdr.code = TVN_BEGINDRAGA;
    drag.itemNew.hItem = ItemOf(v.tree, console);
    drag.itemNew.lParam = (LPARAM)console;
    SendMessageA(v.view, WM_NOTIFY, IDC_MANAGERTREE, (LPARAM)&drag);
    if (GetCapture() != v.view)
        return false;
    SendMessageA(v.tree, TVM_ENSUREVISIBLE, 0, (LPARAM)target);
    RECT box = {};
    TreeView_GetItemRect(v.tree, target, &box, TRUE);
    POINT at = {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
    if (!target)
        at = {10, -5};  // above every item
    MapWindowPoints(v.tree, v.view, &at, 1);
    SendMessageA(v.view, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    SendMessageA(v.view, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    EXPECT_NE(GetCapture(), v.view);
    return true;
}

HCURSOR PluginCursor(int id)
{
    return LoadCursorA(Plugin(), MAKEINTRESOURCEA(id));
}

}  // namespace

TEST(ManagerTree, StandsAtItsPlaceInTheConfigurationWindow)
{
    TESTDESIGN design;
    design.Load({kOrnController1});
    AddConnected(design, "ORNCST_1", 1, "ORNCON_1");
    const VIEW v = OpenTree(design, "ORNCST_1");
    ASSERT_NE(v.view, nullptr);
    ASSERT_NE(v.tree, nullptr);
    RECT at;
    GetWindowRect(v.view, &at);
    MapWindowPoints(NULL, v.window, reinterpret_cast<POINT*>(&at), 2);
    EXPECT_EQ(at.left, 18);
    EXPECT_EQ(at.top, 68);
    EXPECT_EQ(at.right - at.left, 200);
    EXPECT_EQ(at.bottom - at.top, 350);
    EXPECT_TRUE(GetWindowLongA(v.view, GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
    EXPECT_EQ(Title(v.view), "KVT");
    EXPECT_EQ(Title(v.tree), "Tree");
    // (the tree adds its scroll bars as its items need them)
    EXPECT_EQ((DWORD)GetWindowLongA(v.tree, GWL_STYLE) & ~(DWORD)(WS_HSCROLL | WS_VSCROLL), 0x50000027u);
    EXPECT_EQ((COLORREF)SendMessageA(v.tree, TVM_GETBKCOLOR, 0, 0), 0xceffffu);
    DestroyWindow(v.window);
}

TEST(ManagerTree, ListsTheControllersAndTheirPositions)
{
    TESTDESIGN design;
    design.Load({kElkController, kOrnController1});
    AddConnected(design, "ORNCST_2", 2, "ORNCON_1");
    AddConnected(design, "ORNCST_1", 1, "ORNCON_1");
    AddConnected(design, "ELKCST_3", 3, "ELKCON_1");
    const VIEW v = OpenTree(design, "ORNCST_2");
    ASSERT_NE(v.tree, nullptr);
    EXPECT_EQ(Read(v.tree, Controller(v.tree, 0)).text, "Controller (ORNCON_1).DOVRIXCSTModule");
    EXPECT_EQ(Read(v.tree, Controller(v.tree, 0)).object, design.Object("ORNCON_1"));
    EXPECT_EQ(Read(v.tree, Controller(v.tree, 1)).text, "Controller (ELKCON_1).DOVRIXCSTModule");
    EXPECT_EQ(Controller(v.tree, 2), nullptr);
    EXPECT_EQ(Positions(v.tree, 0), Expected({"Desk 1 (ORNCST_1)", "Desk 2 (ORNCST_2)"}));
    EXPECT_EQ(Positions(v.tree, 1), Expected({"Desk 3 (ELKCST_3)"}));
    HTREEITEM empty = Next(v.tree, Next(v.tree, Next(v.tree, Controller(v.tree, 0), TVGN_CHILD), TVGN_NEXT), TVGN_NEXT);
    EXPECT_EQ(Read(v.tree, empty).object, nullptr);
    EXPECT_EQ(Read(v.tree, Next(v.tree, NULL, TVGN_CARET)).object, design.Object("ORNCST_2"));
    DestroyWindow(v.window);
}

TEST(ManagerTree, ClickingAConsoleSwitchesTheWindowAndNothingElseDoes)
{
    TESTDESIGN design;
    design.Load({kOrnController1, kElkController});
    AddConnected(design, "ORNCST_1", 1, "ORNCON_1");
    AddConnected(design, "ORNCST_2", 2, "ORNCON_1");
    const VIEW v = OpenTree(design, "ORNCST_1");
    ASSERT_NE(v.tree, nullptr);
    HTREEITEM first = ItemOf(v.tree, design.Object("ORNCST_1"));
    SendMessageA(v.tree, TVM_SELECTITEM, TVGN_CARET, (LPARAM)Controller(v.tree, 0));
    EXPECT_EQ(Next(v.tree, NULL, TVGN_CARET), first);
    SendMessageA(v.tree, TVM_SELECTITEM, TVGN_CARET, (LPARAM)Next(v.tree, Controller(v.tree, 1), TVGN_CHILD));  // "empty"
    EXPECT_EQ(Next(v.tree, NULL, TVGN_CARET), first);
    EXPECT_EQ(Title(v.window), "ORNCST_1 - Configuration");
    SendMessageA(v.tree, TVM_SELECTITEM, TVGN_CARET, (LPARAM)ItemOf(v.tree, design.Object("ORNCST_2")));
    EXPECT_EQ(Title(v.window), "ORNCST_2 - Configuration");
    DestroyWindow(v.window);
}

TEST(ManagerTree, TheSelectorMovesTheTreeAlong)
{
    TESTDESIGN design;
    design.Load({kOrnController1});
    AddConnected(design, "ORNCST_1", 1, "ORNCON_1");
    AddConnected(design, "ORNCST_2", 2, "ORNCON_1");
    const VIEW v = OpenTree(design, "ORNCST_1");
    ASSERT_NE(v.tree, nullptr);
    SendMessageA(v.window, CFM_REINITIALIZE, 0, (LPARAM)design.Object("ORNCST_2"));
    EXPECT_EQ(Read(v.tree, Next(v.tree, NULL, TVGN_CARET)).object, design.Object("ORNCST_2"));
    DestroyWindow(v.window);
}

TEST(ManagerTree, ARenamedConsoleShowsItsNewName)
{
    TESTDESIGN design;
    design.Load({kOrnController1});
    AddConnected(design, "ORNCST_1", 1, "ORNCON_1");
    const VIEW v = OpenTree(design, "ORNCST_1");
    ASSERT_NE(v.tree, nullptr);
    design.Edit("ORNCST_1*name=Front desk");
    EXPECT_EQ(Positions(v.tree, 0)[0], "Front desk (ORNCST_1)");
    DestroyWindow(v.window);
}

TEST(ManagerTree, DraggingTheThirdOfFourConsolesToAnotherController)
{
    TESTDESIGN design;
    design.Load({kOrnController1, kOrnController2});
    for (int address = 1; address <= 4; address++)
        AddConnected(design, "ORNCST_" + std::to_string(address), address, "ORNCON_1");
    AddConnected(design, "ORNCST_5", 3, "ORNCON_2");  // takes address 3 there
    const VIEW v = OpenTree(design, "ORNCST_1");
    ASSERT_NE(v.tree, nullptr);
    ASSERT_TRUE(Drag(v, design.Object("ORNCST_3"), Controller(v.tree, 1)));
    ASSERT_NE(PluginCursor(IDR_CURSOR_DROP), nullptr);
    EXPECT_EQ(GetCursor(), PluginCursor(IDR_CURSOR_DROP));
    EXPECT_EQ(Positions(v.tree, 0), Expected({"Desk 1 (ORNCST_1)", "Desk 2 (ORNCST_2)", "Desk 4 (ORNCST_4)"}));
    EXPECT_EQ(Positions(v.tree, 1), Expected({"Desk 3 (ORNCST_5)", "Desk 3 (ORNCST_3)"}));
    EXPECT_EQ(Read(v.tree, ItemOf(v.tree, design.Object("ORNCST_4"))).object, design.Object("ORNCST_4"));
    EXPECT_EQ(design.Get("ORNCST_3", "connection"), "ORNCON_2.DOVRIXCSTModule");
    EXPECT_EQ(design.Get("ORNCST_3", "address"), "4");  // 3 is taken there: the next it accepts
    EXPECT_EQ(Title(v.window), "ORNCST_3 - Configuration");  // the dragged console is shown
    // Back: 4 is ORNCST_4's, so 5; and over again 5 is kept, being free there.
    ASSERT_TRUE(Drag(v, design.Object("ORNCST_3"), Controller(v.tree, 0)));
    EXPECT_EQ(design.Get("ORNCST_3", "connection"), "ORNCON_1.DOVRIXCSTModule");
    EXPECT_EQ(design.Get("ORNCST_3", "address"), "5");
    EXPECT_EQ(Positions(v.tree, 0),
              Expected({"Desk 1 (ORNCST_1)", "Desk 2 (ORNCST_2)", "Desk 4 (ORNCST_4)", "Desk 3 (ORNCST_3)"}));
    EXPECT_EQ(Positions(v.tree, 1), Expected({"Desk 3 (ORNCST_5)"}));
    ASSERT_TRUE(Drag(v, design.Object("ORNCST_3"), Controller(v.tree, 1)));
    EXPECT_EQ(design.Get("ORNCST_3", "connection"), "ORNCON_2.DOVRIXCSTModule");
    EXPECT_EQ(design.Get("ORNCST_3", "address"), "5");
    DestroyWindow(v.window);
}

TEST(ManagerTree, DropsThatFindNoPlaceChangeNothing)
{
    TESTDESIGN design;
    design.Load({kOrnController1, kOrnController2, kElkController});
    AddConnected(design, "ORNCST_1", 1, "ORNCON_1");
    for (int address = 1; address <= 16; address++)
        AddConnected(design, "ORNCST_" + std::to_string(address + 20), address, "ORNCON_2");
    const VIEW v = OpenTree(design, "ORNCST_1");
    ASSERT_NE(v.tree, nullptr);
    HOSTINFO* console = design.Object("ORNCST_1");
    const std::vector<std::string> before = Positions(v.tree, 0);
    EXPECT_TRUE(Drag(v, console, Controller(v.tree, 0)));  // its own controller
    EXPECT_TRUE(Drag(v, console, Controller(v.tree, 1)));  // a full one
    EXPECT_TRUE(Drag(v, console, NULL));                   // nothing
    ASSERT_NE(PluginCursor(IDR_CURSOR_NODROP), nullptr);
    EXPECT_EQ(GetCursor(), PluginCursor(IDR_CURSOR_NODROP));  // only the cursor says so
    EXPECT_TRUE(Drag(v, console, ItemOf(v.tree, design.Object("ORNCST_21"))));  // a position
    EXPECT_TRUE(Drag(v, console, Controller(v.tree, 2)));  // another family
    EXPECT_EQ(Positions(v.tree, 0), before);
    EXPECT_EQ(design.Get("ORNCST_1", "connection"), "ORNCON_1.DOVRIXCSTModule");
    EXPECT_EQ(Read(v.tree, Next(v.tree, Controller(v.tree, 2), TVGN_CHILD)).text, "empty");
    DestroyWindow(v.window);
}

TEST(ManagerTree, NoDragWhileTheShownConsoleIsOnline)
{
    TESTDESIGN design;
    design.Load({kOrnController1, kOrnController2});
    AddConnected(design, "ORNCST_1", 1, "ORNCON_1");
    AddConnected(design, "ORNCST_2", 2, "ORNCON_1");
    const VIEW v = OpenTree(design, "ORNCST_1");
    ASSERT_NE(v.tree, nullptr);
    design.Object("ORNCST_1")->m_wFlags |= HOSTFLAG_ONLINE;
    EXPECT_FALSE(Drag(v, design.Object("ORNCST_2"), Controller(v.tree, 1)));
    EXPECT_EQ(design.Get("ORNCST_2", "connection"), "ORNCON_1.DOVRIXCSTModule");
    EXPECT_EQ(Positions(v.tree, 1), Expected({}));
    design.Object("ORNCST_1")->m_wFlags &= (WORD)~HOSTFLAG_ONLINE;
    DestroyWindow(v.window);
}

TEST(ManagerTree, AConsoleWithAWindowOfItsOwnStaysThere)
{
    TESTDESIGN design;
    design.Load({kOrnController1});
    AddConnected(design, "ORNCST_1", 1, "ORNCON_1");
    AddConnected(design, "ORNCST_2", 2, "ORNCON_1");
    const VIEW first = OpenTree(design, "ORNCST_1");
    const VIEW second = OpenTree(design, "ORNCST_2");
    ASSERT_NE(first.tree, nullptr);
    ASSERT_NE(second.tree, nullptr);
    SendMessageA(first.tree, TVM_SELECTITEM, TVGN_CARET, (LPARAM)ItemOf(first.tree, design.Object("ORNCST_2")));
    EXPECT_EQ(Title(first.window), "ORNCST_1 - Configuration");
    EXPECT_EQ(Title(second.window), "ORNCST_2 - Configuration");
    EXPECT_EQ(Read(first.tree, Next(first.tree, NULL, TVGN_CARET)).object, design.Object("ORNCST_1"));
    DestroyWindow(second.window);
    DestroyWindow(first.window);
}

namespace {

bool OutputHas(const TESTDESIGN& design, const std::string& words)
{
    for (const std::string& line : design.Output())
        if (line.find(words) != std::string::npos)
            return true;
    return false;
}

}  // namespace

// A drop the controller cannot carry out whole is refused before anything is
// let go: ORNCST_1 at address 16, and the other controller free only at 1.
TEST(ManagerTree, ADropWithoutTheConsolesAddressFreeThereIsRefused)
{
    TESTDESIGN design;
    design.Load({kOrnController1, kOrnController2});
    AddConnected(design, "ORNCST_1", 16, "ORNCON_1");
    for (int address = 2; address <= 16; address++)
        AddConnected(design, "ORNCST_" + std::to_string(address + 20), address, "ORNCON_2");
    const VIEW v = OpenTree(design, "ORNCST_1");
    ASSERT_NE(v.tree, nullptr);
    const std::vector<std::string> before = Positions(v.tree, 1);
    ASSERT_EQ(before[15], "empty");
    EXPECT_TRUE(Drag(v, design.Object("ORNCST_1"), Controller(v.tree, 1)));
    EXPECT_EQ(GetCursor(), PluginCursor(IDR_CURSOR_NODROP));
    EXPECT_EQ(design.Get("ORNCST_1", "connection"), "ORNCON_1.DOVRIXCSTModule");
    EXPECT_EQ(design.Get("ORNCST_1", "address"), "16");
    EXPECT_EQ(Positions(v.tree, 0), Expected({"Desk 16 (ORNCST_1)"}));
    EXPECT_EQ(Positions(v.tree, 1), before);
    EXPECT_TRUE(OutputHas(design, "ORNCST_1 not moved to ORNCON_2: CAN address 16 is not free there"));
    DestroyWindow(v.window);
}

// In ORNCST_1's window the item of ORNCST_2, which has a window of its own,
// is dragged: the window stays on ORNCST_1, so the drop is refused and
// neither console is reconnected.
TEST(ManagerTree, ADropOfAConsoleTheWindowDoesNotShowIsRefused)
{
    TESTDESIGN design;
    design.Load({kOrnController1, kOrnController2});
    AddConnected(design, "ORNCST_1", 1, "ORNCON_1");
    AddConnected(design, "ORNCST_2", 2, "ORNCON_1");
    const VIEW first = OpenTree(design, "ORNCST_1");
    const VIEW second = OpenTree(design, "ORNCST_2");
    ASSERT_NE(first.tree, nullptr);
    ASSERT_NE(second.tree, nullptr);
    EXPECT_TRUE(Drag(first, design.Object("ORNCST_2"), Controller(first.tree, 1)));
    EXPECT_EQ(GetCursor(), PluginCursor(IDR_CURSOR_NODROP));
    EXPECT_EQ(Title(first.window), "ORNCST_1 - Configuration");
    EXPECT_EQ(design.Get("ORNCST_1", "connection"), "ORNCON_1.DOVRIXCSTModule");
    EXPECT_EQ(design.Get("ORNCST_2", "connection"), "ORNCON_1.DOVRIXCSTModule");
    EXPECT_EQ(Positions(first.tree, 0), Expected({"Desk 1 (ORNCST_1)", "Desk 2 (ORNCST_2)"}));
    EXPECT_EQ(Positions(first.tree, 1), Expected({}));
    EXPECT_TRUE(OutputHas(design, "ORNCST_2 not moved to ORNCON_2: only the console this window shows (ORNCST_1)"));
    DestroyWindow(second.window);
    DestroyWindow(first.window);
}

// Consoles and a controller added while the window is open, and another
// console renamed, show in the tree and the selector at the window's next tick.
TEST(ManagerTree, TheTreeAndTheSelectorFollowTheDesign)
{
    TESTDESIGN design;
    design.Load({kOrnController1});
    AddConnected(design, "ORNCST_1", 1, "ORNCON_1");
    AddConnected(design, "ORNCST_2", 2, "ORNCON_1");
    const VIEW v = OpenTree(design, "ORNCST_1");
    ASSERT_NE(v.tree, nullptr);
    HWND selector = GetDlgItem(v.window, IDC_CONSOLESELECTOR);
    SendMessageA(v.window, WM_TIMER, TIMER_POLL, 0);
    ASSERT_EQ(SendMessageA(selector, CB_GETCOUNT, 0, 0), 2);
    design.Load({kOrnController2});
    AddConnected(design, "ORNCST_3", 3, "ORNCON_1");
    AddConnected(design, "ORNCST_4", 1, "ORNCON_2");
    design.Edit("ORNCST_2*name=Front desk");
    SendMessageA(v.window, WM_TIMER, TIMER_POLL, 0);
    EXPECT_EQ(Positions(v.tree, 0), Expected({"Desk 1 (ORNCST_1)", "Front desk (ORNCST_2)", "Desk 3 (ORNCST_3)"}));
    EXPECT_EQ(Read(v.tree, Controller(v.tree, 1)).text, "Controller (ORNCON_2).DOVRIXCSTModule");
    EXPECT_EQ(Positions(v.tree, 1), Expected({"Desk 1 (ORNCST_4)"}));
    EXPECT_EQ(Read(v.tree, Next(v.tree, NULL, TVGN_CARET)).object, design.Object("ORNCST_1"));
    EXPECT_EQ(SendMessageA(selector, CB_GETCOUNT, 0, 0), 4);
    EXPECT_NE(SendMessageA(selector, CB_FINDSTRINGEXACT, (WPARAM)-1, (LPARAM) "ORNCST_4"), CB_ERR);
    char shown[64] = "";
    GetWindowTextA(selector, shown, sizeof shown);
    EXPECT_STREQ(shown, "ORNCST_1");
    DestroyWindow(v.window);
}
