// The key-function editor through the real DLL: the tree, drops onto the
// console view's keys, the editor pages in the configuration window's panel,
// the message lists and the destination picker.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <windows.h>
#include <commctrl.h>

#include "testhost.h"
#include "viewmenus.h"
#include "../../plugin/protocol.h"
#include "../../plugin/resources/resource.h"

namespace {

const char kController[] = "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40";
const char kConsole[] = "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 10,10,20x20";

// A console on a controller that offers the system's lists.
std::vector<std::string> ListedDesign(std::vector<std::string> more = {})
{
    std::vector<std::string> lines = {kController,
                                      "ORNCON_1*ports=DOVRIXCSTModule",
                                      "ORNCON_1*zones=Hall,Lobby,Car park",
                                      "ORNCON_1*groups=All,Ground floor",
                                      "ORNCON_1*messages=Evacuate now|3,Gong|7",
                                      "ORNCON_1*inputs=Line 1,Line 2",
                                      "ORNCON_1*logic=TE.Lights,TE.Doors",
                                      "ORNCON_1*conditions=Pagings.Night",
                                      kConsole,
                                      "ORNCST_1*address=1",
                                      "ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule"};
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

HWND OpenConfiguration(TESTDESIGN& design, const char* name = "ORNCST_1")
{
    SendMessageA(design.Object(name)->m_hWnd, WM_HOST_CONTEXTCOMMAND, 0, 1);
    return FindWindowA(NULL, (std::string(name) + " - Configuration").c_str());
}

void Tick(HWND window)
{
    SendMessageA(window, WM_TIMER, TIMER_POLL, 0);
}

HWND TreeView(HWND window)
{
    HWND view = FindWindowExA(window, NULL, "DOVRIXKEYFUNCTIONVIEW", NULL);
    return view ? GetDlgItem(view, IDC_KEYFUNCTIONTREE) : NULL;
}

struct NODE {
    std::string label;
    LPARAM id;
    int depth;
    bool expanded;
    int image;
};

void CollectNodes(HWND tree, HTREEITEM item, int depth, std::vector<NODE>* nodes)
{
    for (; item; item = TreeView_GetNextSibling(tree, item)) {
        char text[64] = "";
        TVITEMA data = {};
        data.mask = TVIF_TEXT | TVIF_PARAM | TVIF_STATE | TVIF_IMAGE;
        data.hItem = item;
        data.pszText = text;
        data.cchTextMax = sizeof text;
        data.stateMask = TVIS_EXPANDED;
        SendMessageA(tree, TVM_GETITEMA, 0, (LPARAM)&data);
        nodes->push_back({text, data.lParam, depth, (data.state & TVIS_EXPANDED) != 0, data.iImage});
        CollectNodes(tree, TreeView_GetChild(tree, item), depth + 1, nodes);
    }
}

HTREEITEM FindNode(HWND tree, HTREEITEM item, LPARAM id)
{
    for (; item; item = TreeView_GetNextSibling(tree, item)) {
        TVITEMA data = {};
        data.mask = TVIF_PARAM;
        data.hItem = item;
        SendMessageA(tree, TVM_GETITEMA, 0, (LPARAM)&data);
        if (data.lParam == id)
            return item;
        if (HTREEITEM found = FindNode(tree, TreeView_GetChild(tree, item), id))
            return found;
    }
    return NULL;
}

// A corner point inside the key, found by asking the view.
bool KeyPoint(HWND view, int key, POINT* point)
{
    for (int y = 0; y < 900; y += 9)
        for (int x = 0; x < 700; x += 15)
            if (ViewHitTest(view, x, y) == key) {
                *point = POINT{x, y};
                return true;
            }
    return false;
}

// Drags the tree node carrying the id onto the key, as the mouse does: the
// tree's begin-drag notice, a move, the release. Answers what the release does.
LRESULT Drop(HWND window, LPARAM id, int key)
{
    HWND tree = TreeView(window);
    HWND view = GetParent(tree);
    HWND consoleView = GetDlgItem(window, IDC_CONSOLEVIEW);
    POINT at;
    if (!tree || !KeyPoint(consoleView, key, &at))
        return -1;
    NMTREEVIEWA notice = {};
    notice.hdr = {tree, IDC_KEYFUNCTIONTREE, (UINT)TVN_BEGINDRAGA};
    notice.itemNew.mask = TVIF_PARAM | TVIF_HANDLE;
    notice.itemNew.hItem = FindNode(tree, TreeView_GetRoot(tree), id);
    notice.itemNew.lParam = id;
    SendMessageA(view, WM_NOTIFY, IDC_KEYFUNCTIONTREE, (LPARAM)&notice);
    MapWindowPoints(consoleView, view, &at, 1);
    SendMessageA(view, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    return SendMessageA(view, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
}

HWND KeyPage(HWND window)
{
    return GetDlgItem(window, IDC_KEYPAGE);
}

int KeyPageId(HWND window)
{
    HWND page = KeyPage(window);
    return page ? (int)SendMessageA(page, KPM_PAGEID, 0, 0) : 0;
}

// Clicks the key in the window's console view and lets two ticks pass: the
// first notes the change, the second opens the key's page.
void SelectKey(HWND window, int key)
{
    HWND consoleView = GetDlgItem(window, IDC_CONSOLEVIEW);
    POINT at;
    ASSERT_TRUE(KeyPoint(consoleView, key, &at)) << key;
    SendMessageA(consoleView, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    SendMessageA(consoleView, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    Tick(window);
    Tick(window);
}

void ChooseItem(HWND page, int control, const char* text)
{
    HWND combo = GetDlgItem(page, control);
    const LRESULT at = SendMessageA(combo, CB_FINDSTRINGEXACT, (WPARAM)-1, (LPARAM)text);
    ASSERT_NE(at, CB_ERR) << text;
    SendMessageA(combo, CB_SETCURSEL, at, 0);
    SendMessageA(page, WM_COMMAND, MAKEWPARAM(control, CBN_SELCHANGE), (LPARAM)combo);
}

void ChooseIndex(HWND page, int control, int index)
{
    HWND combo = GetDlgItem(page, control);
    SendMessageA(combo, CB_SETCURSEL, index, 0);
    SendMessageA(page, WM_COMMAND, MAKEWPARAM(control, CBN_SELCHANGE), (LPARAM)combo);
}

std::string SelectedText(HWND page, int control)
{
    HWND combo = GetDlgItem(page, control);
    const LRESULT at = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    char text[256] = "";
    if (at != CB_ERR)
        SendMessageA(combo, CB_GETLBTEXT, at, (LPARAM)text);
    return text;
}

std::vector<std::string> Items(HWND page, int control)
{
    HWND combo = GetDlgItem(page, control);
    std::vector<std::string> items;
    const int count = (int)SendMessageA(combo, CB_GETCOUNT, 0, 0);
    for (int i = 0; i < count; i++) {
        char text[256] = "";
        SendMessageA(combo, CB_GETLBTEXT, i, (LPARAM)text);
        items.push_back(text);
    }
    return items;
}

void Click(HWND page, int control)
{
    SendMessageA(GetDlgItem(page, control), BM_CLICK, 0, 0);
}

// Answers the picker that opens, once it shows: chooses the row with the
// text and "Ok", or "Cancel" when the text is empty.
struct PICKERRUN {
    std::string choice;
    std::vector<std::string> rows;
    std::string title;
};

void AnswerPicker(HWND dialog, PICKERRUN* run)
{
    HWND list = FindWindowExA(dialog, NULL, WC_LISTVIEWA, NULL);
    if (!run->title.empty() || !list)
        return;
    run->title = WindowCaption(dialog);
    const int count = (int)SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
    int chosen = -1;
    for (int i = 0; i < count; i++) {
        char text[256] = "";
        LVITEMA item = {};
        item.pszText = text;
        item.cchTextMax = sizeof text;
        SendMessageA(list, LVM_GETITEMTEXTA, i, (LPARAM)&item);
        run->rows.push_back(text);
        if (run->choice == text)
            chosen = i;
    }
    if (chosen >= 0) {
        LVITEMA state = {};
        state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        state.state = LVIS_SELECTED | LVIS_FOCUSED;
        SendMessageA(list, LVM_SETITEMSTATE, chosen, (LPARAM)&state);
    }
    PostMessageA(dialog, WM_COMMAND, chosen >= 0 ? IDOK : IDCANCEL, 0);
}

PICKERRUN RunPickerWith(HWND page, int button, const std::string& choice)
{
    PICKERRUN run;
    run.choice = choice;
    DIALOGWATCH watch([&run](HWND dialog) { AnswerPicker(dialog, &run); });
    Click(page, button);
    return run;
}

}  // namespace

// The tree as the catalogue gives it: two branches, fifteen functions, no PTT.
TEST(KeyFunctionView, TheTreeOfFunctions)
{
    TESTDESIGN design;
    design.Load({kConsole});
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    HWND tree = TreeView(window);
    ASSERT_NE(tree, nullptr);
    RECT at;
    GetWindowRect(GetParent(tree), &at);
    MapWindowPoints(NULL, window, (POINT*)&at, 2);
    EXPECT_EQ(at.left, 18);
    EXPECT_EQ(at.top, 441);
    std::vector<NODE> nodes;
    CollectNodes(tree, TreeView_GetRoot(tree), 0, &nodes);
    const struct {
        const char* label;
        LPARAM id;
        int image;
    } expected[] = {
        {"Talk", 20, 3}, {"Selection", 10, 4}, {"Clear Key", 30, -1}, {"Logical Key", 40, -1},
        {"Arithmetical Key", 50, -1}, {"Menu Key", 60, -1}, {"Stop Key", 90, 7}, {"Alarm Key", 80, 5},
        {"Chime Key", 70, 6}, {"On Key", 110, -1}, {"Lock Key", 120, -1}, {"EVAC Message Key", 130, -1},
        {"Business Message Key", 140, -1}, {"System Fault\xA0" "Ack/Res", 160, -1}, {"Indicator Test", 170, -1},
    };
    ASSERT_EQ(nodes.size(), 17u);
    EXPECT_EQ(nodes[0].label, "Button Functions");
    EXPECT_TRUE(nodes[0].expanded);
    EXPECT_EQ(nodes[1].label, "Types");
    EXPECT_EQ(nodes[1].depth, 1);
    EXPECT_TRUE(nodes[1].expanded);
    for (size_t i = 0; i < 15; i++) {
        EXPECT_EQ(nodes[i + 2].label, expected[i].label);
        EXPECT_EQ(nodes[i + 2].id, expected[i].id) << expected[i].label;
        EXPECT_EQ(nodes[i + 2].depth, 2);
        if (expected[i].image >= 0) {
            EXPECT_EQ(nodes[i + 2].image, expected[i].image) << expected[i].label;
        }
    }
    DestroyWindow(window);
}

TEST(KeyFunctionView, ADropGivesTheKeyTheFunctionAndOpensItsPage)
{
    TESTDESIGN design;
    design.Load(ListedDesign());
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(KeyPageId(window), 182);  // no key selected
    RECT at;
    GetWindowRect(KeyPage(window), &at);
    MapWindowPoints(NULL, window, (POINT*)&at, 2);
    EXPECT_EQ(at.left, 230);
    EXPECT_EQ(at.top, 550);
    EXPECT_EQ(at.right - at.left, 470);
    EXPECT_EQ(at.bottom - at.top, 200);
    HOSTINFO* console = design.Object("ORNCST_1");
    console->m_wFlags &= ~HOSTFLAG_EDITED;
    EXPECT_EQ(Drop(window, 20, 5), 1);
    // A new talk key: priority 50 and the internal microphone (the oldest record, prechime code 0 "1-Tone").
    EXPECT_EQ(design.Get("ORNCST_1", "key005"), "Talk to Selection,0,1,0,50,0,0,1,0,0,0,0,0,0,0,0,,1-Tone,");
    EXPECT_NE(console->m_wFlags & HOSTFLAG_EDITED, 0);
    Tick(window);
    Tick(window);
    EXPECT_EQ(KeyPageId(window), 167);
    // Every control edits the key at once.
    HWND page = KeyPage(window);
    ChooseIndex(page, 1015, 1);
    SetDlgItemTextA(page, 1065, "70");
    Click(page, 1016);
    ChooseItem(page, 1017, "Gong");
    EXPECT_EQ(design.Get("ORNCST_1", "key005"), "Talk to Selection,0,1,1,70,1,0,1,0,0,0,0,0,0,0,0,,Gong|7,");
    ChooseIndex(page, 1018, 1);  // a console has its internal microphone alone
    EXPECT_EQ(SelectedText(page, 1018), "Internal Mic");
    EXPECT_EQ(design.Get("ORNCST_1", "key005"), "Talk to Selection,0,1,1,70,1,0,1,0,0,0,0,0,0,0,0,,Gong|7,");
    DestroyWindow(window);
}

TEST(KeyFunctionView, RefusedDropsChangeNothing)
{
    TESTDESIGN design;
    design.Load(ListedDesign({"ORNCST_1*key003=Protect", "ORNCST_1*key004=Indicator Test,0,0"}));
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    {
        MESSAGEBOXCATCHER boxes;
        EXPECT_EQ(Drop(window, 120, 6), 0);  // a second Protect
        EXPECT_EQ(Drop(window, 170, 7), 0);  // a second Indicator Test
        ASSERT_EQ(boxes.Texts().size(), 2u);
        EXPECT_EQ(boxes.Texts()[0], "Protect key already configured");
        EXPECT_EQ(boxes.Texts()[1], "Indicator Test key already configured");
        for (const std::string& caption : boxes.Captions())
            EXPECT_EQ(caption, "WARNING");
    }
    EXPECT_EQ(Drop(window, 20, 116), 0);  // the menu key, without a word
    EXPECT_EQ(design.Get("ORNCST_1", "key116"), "Empty");
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "Protect");
    EXPECT_EQ(design.Get("ORNCST_1", "key006"), "Empty");
    EXPECT_EQ(Drop(window, 20, 115), 1);  // DEL exists without extensions
    DestroyWindow(window);
}

TEST(KeyFunctionView, MessagesAreMatchedByNumber)
{
    TESTDESIGN design;
    design.Load(ListedDesign({"ORNCST_1*key002=EVAC Messages to Zone,0,60,0,0,0,0,0,ORNCON_1.Hall,Old gong|7",
                              "ORNCST_1*key003=EVAC Messages to Zone,0,60,0,0,0,0,0,ORNCON_1.Hall,Gone|99"}));
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    SelectKey(window, 2);
    ASSERT_EQ(KeyPageId(window), 163);
    EXPECT_EQ(Items(KeyPage(window), 2000), (std::vector<std::string>{"Evacuate now", "Gong"}));
    EXPECT_EQ(SelectedText(KeyPage(window), 2000), "Gong");
    SelectKey(window, 3);
    EXPECT_EQ(SelectedText(KeyPage(window), 2000), "");
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "EVAC Messages to Zone,0,60,0,0,0,0,0,ORNCON_1.Hall,Gone|99");
    ChooseItem(KeyPage(window), 2000, "Evacuate now");
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "EVAC Messages to Zone,0,60,0,0,0,0,0,ORNCON_1.Hall,Evacuate now|3");
    DestroyWindow(window);
}

TEST(KeyFunctionView, TheDestinationPickerOkAndCancel)
{
    TESTDESIGN design;
    design.Load(ListedDesign({"ORNCST_1*key002=Select Zone,0,ORNCON_1.Hall"}));
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    SelectKey(window, 2);
    ASSERT_EQ(KeyPageId(window), 120);
    PICKERRUN run = RunPickerWith(KeyPage(window), 1014, "ORNCON_1.Lobby");
    EXPECT_EQ(run.title, "Destinations");
    EXPECT_EQ(run.rows, (std::vector<std::string>{"ORNCON_1.Hall", "ORNCON_1.Lobby", "ORNCON_1.Car park",
                                                  "ORNCON_1.All", "ORNCON_1.Ground floor"}));
    EXPECT_EQ(design.Get("ORNCST_1", "key002"), "Select Zone,0,ORNCON_1.Lobby");
    char shown[128] = "";
    GetDlgItemTextA(KeyPage(window), 1008, shown, sizeof shown);
    EXPECT_STREQ(shown, "ORNCON_1.Lobby");
    RunPickerWith(KeyPage(window), 1014, "");
    EXPECT_EQ(design.Get("ORNCST_1", "key002"), "Select Zone,0,ORNCON_1.Lobby");
    DestroyWindow(window);
}

TEST(KeyFunctionView, AControllerWithoutListsLeavesThemEmpty)
{
    TESTDESIGN design;
    design.Load({kController, "ORNCON_1*ports=DOVRIXCSTModule", kConsole, "ORNCST_1*address=1",
                 "ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule",
                 "ORNCST_1*key002=Business Messages to Zone,0,30,0,0,0,ORNCON_1.Hall,Closing|7",
                 "ORNCST_1*key003=Alarm to Zone,0,0,0,50,0,ORNCON_1.Hall,"});
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    SelectKey(window, 2);
    ASSERT_EQ(KeyPageId(window), 193);
    EXPECT_TRUE(Items(KeyPage(window), 2008).empty());
    PICKERRUN run = RunPickerWith(KeyPage(window), 2004, "ORNCON_1.Hall");
    EXPECT_EQ(run.rows, std::vector<std::string>{"Current Slection"});  // no zones, no groups
    EXPECT_EQ(design.Get("ORNCST_1", "key002"), "Business Messages to Zone,0,30,0,0,0,ORNCON_1.Hall,Closing|7");
    SelectKey(window, 3);
    ASSERT_EQ(KeyPageId(window), 185);
    EXPECT_TRUE(Items(KeyPage(window), 1023).empty());
    DestroyWindow(window);
}

TEST(KeyFunctionView, TheAlarmInputChannelServesExternAlone)
{
    TESTDESIGN design;
    design.Load(ListedDesign({"ORNCST_1*key002=Alarm to Zone,0,0,0,50,0,ORNCON_1.Hall,"}));
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    SelectKey(window, 2);
    HWND page = KeyPage(window);
    ASSERT_EQ(KeyPageId(window), 185);
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(page, 1023)));
    ChooseItem(page, 1023, "Line 2");
    EXPECT_EQ(design.Get("ORNCST_1", "key002"), "Alarm to Zone,0,0,0,50,0,ORNCON_1.Hall,Line 2");
    ChooseItem(page, 1022, "Siren");
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(page, 1023)));
    EXPECT_EQ(design.Get("ORNCST_1", "key002"), "Alarm to Zone,0,0,0,50,3,ORNCON_1.Hall,");
    DestroyWindow(window);
}

TEST(KeyFunctionView, TalkAndPttInputsDoNotClash)
{
    TESTDESIGN design;
    design.Load(ListedDesign({"ORNCST_1*key002=Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,ORNCON_1.Hall,,",
                              "ORNCST_1*key123=PTT to Selection,0,0,0,50,0,1,1,0,0,,", "ORNCST_1*type=ORN-CSK"}));
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    SelectKey(window, 2);
    ASSERT_EQ(KeyPageId(window), 167);
    {
        MESSAGEBOXCATCHER boxes;
        ChooseIndex(KeyPage(window), 1018, 2);
        ASSERT_EQ(boxes.Texts().size(), 1u);
        EXPECT_EQ(boxes.Texts()[0], "Cannot choose external line input.\nPTT key is using external mic input");
    }
    EXPECT_EQ(SelectedText(KeyPage(window), 1018), "Internal Mic");
    ChooseIndex(KeyPage(window), 1018, 1);  // the board has the external microphone
    EXPECT_EQ(design.Get("ORNCST_1", "key002"), "Talk to Zone,0,0,0,50,0,0,2,0,0,0,0,0,0,0,0,ORNCON_1.Hall,,");
    ChooseIndex(KeyPage(window), 1018, 0);
    EXPECT_EQ(design.Get("ORNCST_1", "key002"), "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,ORNCON_1.Hall,,");
    design.Edit("ORNCST_1*key123=PTT to Selection,0,0,0,50,0,0,1,0,0,,");
    design.Edit("ORNCST_1*key002=Talk to Zone,0,0,0,50,0,0,3,0,0,0,0,0,0,0,0,ORNCON_1.Hall,,");
    SelectKey(window, 123);
    ASSERT_EQ(KeyPageId(window), 152);
    {
        MESSAGEBOXCATCHER boxes;
        Click(KeyPage(window), 1068);
        ASSERT_EQ(boxes.Texts().size(), 1u);
        EXPECT_EQ(boxes.Texts()[0], "Cannot configure PTT key.\nExternal line input in use by talk key.");
    }
    EXPECT_EQ(IsDlgButtonChecked(KeyPage(window), 1068), BST_UNCHECKED);
    DestroyWindow(window);
}

TEST(KeyFunctionView, ThePagesStoreWhatTypingTheRecordWould)
{
    TESTDESIGN design;
    design.Load(ListedDesign({"ORNCST_1*key002=Chime to Zone,0,0,0,50,0,0,0,ORNCON_1.Hall,",
                              "ORNCST_1*key004=Indicator Test,0,0", "ORNCST_1*key006=Stop,0,0,0,91,91,"}));
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    SelectKey(window, 2);  // the chime page keeps its key on "Trigger"
    EXPECT_EQ(design.Get("ORNCST_1", "key002"), "Chime to Zone,0,0,2,50,0,0,0,ORNCON_1.Hall,");
    SelectKey(window, 4);
    EXPECT_EQ(Items(KeyPage(window), 1015), (std::vector<std::string>{"Push", "Toggle"}));
    ChooseIndex(KeyPage(window), 1015, 1);
    Click(KeyPage(window), 2014);
    EXPECT_EQ(design.Get("ORNCST_1", "key004"), "Indicator Test,1,1");
    SelectKey(window, 6);
    EXPECT_EQ(Items(KeyPage(window), 1027), (std::vector<std::string>{"Push", "Switch", "Trigger"}));
    Click(KeyPage(window), 1030);
    SetDlgItemTextA(KeyPage(window), 1067, "12");
    EXPECT_EQ(design.Get("ORNCST_1", "key006"), "Stop,0,12,0,95,91,");
    DestroyWindow(window);
}

// Every function of the tree, dropped, reads as typing a new key would: the
// record a new key of its family gets, or its bare name. Nothing is reported.
TEST(KeyFunctionView, EveryFamilyFromTheTreeSavesAsTypingANewKeyWould)
{
    TESTDESIGN design;
    design.Load(ListedDesign());
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    const size_t reported = design.Output().size();
    const struct {
        LPARAM id;
        const char* typed;
    } functions[] = {{20, "Talk to Selection,0,0,0,50,0,0,1,"}, {10, "Select Zone"}, {30, "Toggle All,0"},
                     {40, "Switch On"}, {50, "Increase"}, {60, "Menu,0"}, {90, "Stop,0,0,0,91,91,"},
                     {80, "Alarm to Selection"}, {70, "Chime to Selection"}, {110, "On,40,0"}, {120, "Protect"},
                     {130, "EVAC Messages to Selection"}, {140, "Business Messages to Selection"},
                     {160, "System Faults"}, {170, "Indicator Test"}};
    int key = 0;
    for (const auto& f : functions) {
        const int target = f.id == 160 ? 115 : key;  // the fault key's place on this model is DEL
        EXPECT_EQ(Drop(window, f.id, target), 1) << f.typed;
        char typed[80];
        snprintf(typed, sizeof typed, "ORNCST_1*key%03d=%s", 100 + key, f.typed);
        design.Edit(typed);
        char dropped[16], reference[16];
        snprintf(dropped, sizeof dropped, "key%03d", target);
        snprintf(reference, sizeof reference, "key%03d", 100 + key);
        EXPECT_EQ(design.Get("ORNCST_1", dropped), design.Get("ORNCST_1", reference)) << f.typed;
        key++;
    }
    EXPECT_EQ(design.Output().size(), reported);
    // What a new stop, on and talk key do: stop paging, chime and text; switch on at 40; talk at 50.
    EXPECT_EQ(design.Get("ORNCST_1", "key006"), "Stop,0,0,0,91,91,");
    EXPECT_EQ(design.Get("ORNCST_1", "key009"), "On,40,0");
    EXPECT_EQ(design.Get("ORNCST_1", "key000"), "Talk to Selection,0,1,0,50,0,0,1,0,0,0,0,0,0,0,0,,1-Tone,");
    DestroyWindow(window);
}

// A dropped talk key has its internal microphone: the audio input's error
// never reaches the output pane, on a board either.
TEST(KeyFunctionView, ADroppedTalkKeyReportsNothing)
{
    TESTDESIGN design;
    design.Load(ListedDesign({"ORNCST_1*type=ORN-CSK"}));
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    const std::vector<std::string> before = design.Output();
    EXPECT_EQ(Drop(window, 20, 3), 1);
    EXPECT_EQ(Drop(window, 20, 4), 1);
    EXPECT_EQ(design.Output(), before);
    Tick(window);
    Tick(window);
    ASSERT_EQ(KeyPageId(window), 167);
    EXPECT_EQ(SelectedText(KeyPage(window), 1018), "Internal Mic");
    EXPECT_EQ(GetDlgItemInt(KeyPage(window), 1065, nullptr, FALSE), 50u);
    DestroyWindow(window);
}

// A number the key's field cannot hold is refused with a word; the stored
// number stays and shows. Every spin counts through its field's width.
TEST(KeyFunctionView, ANumberOutsideItsFieldIsRefused)
{
    TESTDESIGN design;
    design.Load(ListedDesign({"ORNCST_1*type=ORN-CSK",
                              "ORNCST_1*key002=Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,60,0,0,0,ORNCON_1.Hall,,",
                              "ORNCST_1*key003=On,40,0", "ORNCST_1*key004=Stop,0,0,0,91,91,",
                              "ORNCST_1*key005=EVAC Messages to Zone,0,0,0,0,0,0,0,ORNCON_1.Hall,",
                              "ORNCST_1*key006=Business Messages to Zone,0,0,0,0,0,ORNCON_1.Hall,",
                              "ORNCST_1*key007=Chime to Zone,0,0,2,50,0,0,0,ORNCON_1.Hall,",
                              "ORNCST_1*key008=Alarm to Zone,0,0,0,50,0,ORNCON_1.Hall,",
                              "ORNCST_1*key009=Increase,V,0,0,0,250,0",
                              "ORNCST_1*key123=PTT to Selection,0,0,0,50,0,0,1,0,0,,"}));
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    const struct {
        int key;
        int page;
        int edit;
        int spin;  // 0: none
        const char* keyword;
    } numbers[] = {
        {2, 167, 1065, 1066, "key002"}, {2, 167, 2021, 2022, "key002"}, {3, 158, 1067, 1068, "key003"},
        {4, 186, 1067, 1068, "key004"}, {5, 163, 1097, 1098, "key005"}, {6, 193, 2005, 2006, "key006"},
        {7, 184, 1065, 1066, "key007"}, {8, 185, 1065, 1066, "key008"}, {9, 183, 1024, 0, "key009"},
        {123, 152, 1065, 1066, "key123"},
    };
    for (const auto& n : numbers) {
        SCOPED_TRACE(n.keyword + std::string(":") + std::to_string(n.edit));
        SelectKey(window, n.key);
        ASSERT_EQ(KeyPageId(window), n.page);
        HWND page = KeyPage(window);
        if (n.spin) {
            int low = -1, high = -1;
            SendDlgItemMessageA(page, n.spin, UDM_GETRANGE32, (WPARAM)&low, (LPARAM)&high);
            EXPECT_EQ(low, 0);
            EXPECT_EQ(high, 65535);  // every priority is a 16-bit field
        }
        const UINT shown = GetDlgItemInt(page, n.edit, nullptr, FALSE);
        const std::string stored = design.Get("ORNCST_1", n.keyword);
        {
            MESSAGEBOXCATCHER boxes;
            SetDlgItemTextA(page, n.edit, "70000");
            ASSERT_EQ(boxes.Texts().size(), 1u);
            EXPECT_EQ(boxes.Texts()[0], "70000 is out of range.\nEnter a number from 0 to 65535.");
        }
        EXPECT_EQ(design.Get("ORNCST_1", n.keyword), stored);
        EXPECT_EQ(GetDlgItemInt(page, n.edit, nullptr, FALSE), shown);
        SetDlgItemTextA(page, n.edit, "65535");  // the field's top is taken
        EXPECT_NE(design.Get("ORNCST_1", n.keyword).find(",65535,"), std::string::npos) << design.Get("ORNCST_1", n.keyword);
    }
    DestroyWindow(window);
}

// "Up" and "Down" are the arithmetical key's functions; the other four modes
// are refused with a word, and the list stays on the key's mode.
TEST(KeyFunctionView, AnArithmeticModeWithoutAFunctionIsRefusedWithAWord)
{
    TESTDESIGN design;
    design.Load(ListedDesign({"ORNCST_1*key002=Decrease,TE.Volume,0,10,1,250,0"}));
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    SelectKey(window, 2);
    ASSERT_EQ(KeyPageId(window), 183);
    const std::string stored = design.Get("ORNCST_1", "key002");
    for (const char* mode : {"Set Arithmetic Value", "Switch Arithmetic Value", "Toggle Arithmetic Value",
                             "Radio Button Field"}) {
        MESSAGEBOXCATCHER boxes;
        ChooseItem(KeyPage(window), 1025, mode);
        ASSERT_EQ(boxes.Texts().size(), 1u) << mode;
        EXPECT_NE(boxes.Texts()[0].find(mode), std::string::npos) << boxes.Texts()[0];
        EXPECT_NE(boxes.Texts()[0].find("The key keeps \"Down\"."), std::string::npos) << boxes.Texts()[0];
        EXPECT_EQ(boxes.Captions()[0], "WARNING");
        EXPECT_EQ(SelectedText(KeyPage(window), 1025), "Down");
        EXPECT_EQ(design.Get("ORNCST_1", "key002"), stored);
    }
    ChooseItem(KeyPage(window), 1025, "Up");  // a mode with a function is taken without a word
    EXPECT_EQ(design.Get("ORNCST_1", "key002"), "Increase,TE.Volume,0.000000,10.000000,1.000000,250,0");
    DestroyWindow(window);
}

// A paste, by the key menu or Ctrl+V, opens the page of the key pasted onto,
// with what it now holds, as a click on it would.
TEST(KeyFunctionView, APastedKeyShowsItsPage)
{
    TESTDESIGN design;
    design.Load(ListedDesign({"ORNCST_1*key002=Stop,0,7,0,91,91,", "ORNCST_1*key003=On,40,0",
                              "ORNCST_1*key004=On,45,0", "ORNCST_1*key005=On,50,0"}));
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    HWND consoleView = GetDlgItem(window, IDC_CONSOLEVIEW);
    SelectKey(window, 2);
    ASSERT_EQ(KeyPageId(window), 186);
    POINT at;
    ASSERT_TRUE(KeyPoint(consoleView, 2, &at));
    ViewMenuAt(consoleView, at.x, at.y, "Copy");
    ASSERT_TRUE(KeyPoint(consoleView, 3, &at));
    ViewMenuAt(consoleView, at.x, at.y, "Paste");  // onto key 3, which was never clicked
    Tick(window);
    Tick(window);
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "Stop,0,7,0,91,91,");
    ASSERT_EQ(KeyPageId(window), 186);
    SetDlgItemTextA(KeyPage(window), 1067, "9");  // the page edits key 3, not key 2
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "Stop,0,9,0,91,91,");
    EXPECT_EQ(design.Get("ORNCST_1", "key002"), "Stop,0,7,0,91,91,");
    // Ctrl+V onto an "On" key while its page shows: the page is the pasted key's, not the old one.
    SelectKey(window, 4);
    ASSERT_EQ(KeyPageId(window), 158);
    ASSERT_TRUE(KeyPoint(consoleView, 5, &at));
    ViewMenuAt(consoleView, at.x, at.y, "Copy");
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    SendMessageA(consoleView, WM_KEYDOWN, 'V', 0);  // onto key 4, the keyboard's key
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
    Tick(window);
    Tick(window);
    EXPECT_EQ(design.Get("ORNCST_1", "key004"), "On,50,0");
    ASSERT_EQ(KeyPageId(window), 158);
    EXPECT_EQ(GetDlgItemInt(KeyPage(window), 1067, nullptr, FALSE), 50u);
    DestroyWindow(window);
}

TEST(KeyFunctionView, ThePickedDestinationChoosesTheVariant)
{
    TESTDESIGN design;
    design.Load(ListedDesign());
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    ASSERT_EQ(Drop(window, 80, 3), 1);
    Tick(window);
    Tick(window);
    ASSERT_EQ(KeyPageId(window), 185);
    char shown[128] = "";
    GetDlgItemTextA(KeyPage(window), 1008, shown, sizeof shown);
    EXPECT_STREQ(shown, "Current Slection");
    PICKERRUN run = RunPickerWith(KeyPage(window), 1014, "ORNCON_1.Ground floor");
    ASSERT_FALSE(run.rows.empty());
    EXPECT_EQ(run.rows[0], "Current Slection");
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "Alarm to Group,0,0,0,0,0,ORNCON_1.Ground floor,");
    RunPickerWith(KeyPage(window), 1014, "Current Slection");
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "Alarm to Selection,0,0,0,0,0,,");
    // A destination typed longer than the record keeps is cut as the record cuts it.
    RunPickerWith(KeyPage(window), 1014, "ORNCON_1.Hall");
    const std::string longName(200, 'z');
    SetDlgItemTextA(KeyPage(window), 1008, longName.c_str());
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "Alarm to Zone,0,0,0,0,0," + std::string(127, 'z') + ",");
    DestroyWindow(window);
}

// The cursor over a key says whether it takes the function: 105 it does, 111 it does not.
TEST(KeyFunctionView, TheCursorShowsWhetherTheKeyTakesTheDrop)
{
    TESTDESIGN design;
    design.Load(ListedDesign({"ORNCST_1*DecadicSelectionActive=1"}));
    HWND window = OpenConfiguration(design);
    ASSERT_NE(window, nullptr);
    HWND tree = TreeView(window);
    HWND view = GetParent(tree);
    HWND consoleView = GetDlgItem(window, IDC_CONSOLEVIEW);
    const HCURSOR accepted = LoadCursorA(Plugin(), MAKEINTRESOURCEA(105));
    const HCURSOR refused = LoadCursorA(Plugin(), MAKEINTRESOURCEA(111));
    ASSERT_NE(accepted, nullptr);
    ASSERT_NE(refused, nullptr);
    NMTREEVIEWA notice = {};
    notice.hdr = {tree, IDC_KEYFUNCTIONTREE, (UINT)TVN_BEGINDRAGA};
    notice.itemNew.mask = TVIF_PARAM | TVIF_HANDLE;
    notice.itemNew.hItem = FindNode(tree, TreeView_GetRoot(tree), 20);
    notice.itemNew.lParam = 20;
    SendMessageA(view, WM_NOTIFY, IDC_KEYFUNCTIONTREE, (LPARAM)&notice);
    const struct {
        int key;
        HCURSOR cursor;
    } cases[] = {{0, refused}, {11, refused}, {12, accepted}, {116, refused}, {115, accepted}};
    for (const auto& c : cases) {
        POINT at;
        ASSERT_TRUE(KeyPoint(consoleView, c.key, &at)) << c.key;
        MapWindowPoints(consoleView, view, &at, 1);
        SendMessageA(view, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        EXPECT_EQ(GetCursor(), c.cursor) << c.key;
    }
    SendMessageA(view, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(1, 1));  // over the tree
    EXPECT_EQ(GetCursor(), refused);
    EXPECT_EQ(SendMessageA(view, WM_LBUTTONUP, 0, MAKELPARAM(1, 1)), 0);  // let go elsewhere: nothing
    EXPECT_EQ(design.Get("ORNCST_1", "key012"), "Empty");
    DestroyWindow(window);
}
