// The layout of the console view and the control panel: which keys, marks and
// boxes stand where for the page shown, the header controls above the keys,
// the page buttons and the toolbar, and the sizes of the window and its frame.
#include "viewstate.h"

#include <commctrl.h>

#include "ledstates.h"
#include "viewimages.h"
#include "viewrules.h"
#include "../config/controldescriptor.h"
#include "../device/consoleproperties.h"
#include "../entry/module.h"
#include "../protocol.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/banned.h"

namespace {

const int kPageButtonShift = 63;
const int kPageButtonWidth = 75;

bool NameHasZel(const CONSOLEVIEW* view)
{
    return strstr(view->console->m_szName, "ZEL") != nullptr;
}

// Key frames come from the loaded strips; the table is the fallback.
void SizeFromStrip(CONSOLEKEY* key)
{
    IMAGESIZE size = {0, 0};
    ConsoleViewImageSize(key->image, &size.width, &size.height);
    SizeKeyFrame(key, size);
}

void AddKeys(CONSOLEVIEW* view, std::vector<CONSOLEKEY> keys)
{
    for (CONSOLEKEY& key : keys) {
        SizeFromStrip(&key);
        key.left += view->keyOffsetX;
        key.label[KEYTEXT_LENGTH - 1] = '\0';
        view->keys.push_back(key);
    }
}

void AddLeds(CONSOLEVIEW* view, const std::vector<CONSOLELED>& leds)
{
    for (CONSOLELED led : leds) {
        int width = 0, height = 0;
        ConsoleViewImageSize(led.image, &width, &height);
        led.frameWidth = width / 2;
        led.frameHeight = height;
        led.left += view->keyOffsetX;
        view->leds[led.list].push_back(led);
    }
}

void AddLabels(CONSOLEVIEW* view, const std::vector<CONSOLEKEYLABEL>& labels)
{
    for (CONSOLEKEYLABEL label : labels) {
        label.x += (float)view->keyOffsetX;
        view->labels.push_back(label);
    }
}

// Label boxes belong to designing: the panel shows none.
void AddConsoleFace(CONSOLEVIEW* view)
{
    const int type = ConsoleType(view);
    AddKeys(view, ConsoleKeys(type));
    AddLeds(view, ConsoleLeds(type));
    if (view->kind->designs)
        AddLabels(view, ConsoleKeyLabels(type));
}

void AddStrip(CONSOLEVIEW* view, int slot, int position)
{
    const int type = ConsoleType(view);
    std::vector<CONSOLEKEY> keys = ExtensionKeys(type, slot, position);
    for (CONSOLEKEY& key : keys)
        key.image = ExtensionKeyImage(StripType(view));
    AddKeys(view, keys);
    AddLeds(view, ExtensionLeds(type, slot, position));
    if (view->kind->designs)
        AddLabels(view, ExtensionKeyLabels(type, slot, position));
    view->stripCount++;
}

void AddEveryStrip(CONSOLEVIEW* view)
{
    const uint8_t* slots = view->console->m_settings.extensionSlots;
    int position = 0;
    for (int slot = 0; slot < EXTENSION_SLOT_COUNT; slot++)
        if (slots[slot])
            AddStrip(view, slot, position++);
}

// The header stands on the console's picture: a page without it hides the
// header. The panel's two host controls show whenever the picture does.
void ShowHeader(CONSOLEVIEW* view)
{
    if (!view->showConsole || !view->kind->viewHeader) {
        for (HWND control : view->header)
            if (control)
                ShowWindow(control, view->showConsole ? SW_SHOW : SW_HIDE);
        return;
    }
    const bool zel = NameHasZel(view);
    for (int i = HEADER_ONLINE; i <= HEADER_FIND; i++)
        if (view->header[i])
            ShowWindow(view->header[i], zel ? SW_SHOW : SW_HIDE);
    if (view->header[HEADER_PICTURE])
        ShowWindow(view->header[HEADER_PICTURE], SW_HIDE);
    if (zel && IsBoardView(ConsoleType(view)) && view->header[HEADER_PICTURE]) {
        SendMessageA(view->header[HEADER_PICTURE], STM_SETIMAGE, IMAGE_BITMAP, (LPARAM)view->pictureBitmap.Get());
        ShowWindow(view->header[HEADER_PICTURE], SW_SHOW);
    }
}

// A top-level window (the control panel) has no frame to size: its owner is
// the host's own window, which keeps its size.
void SizeFrame(HWND hwnd, const CONSOLEVIEW* view, const PAGESIZES& sizes)
{
    HWND parent = GetAncestor(hwnd, GA_PARENT);
    if (parent && parent != GetDesktopWindow()) {
        if (!IsZoomed(parent))
            SetWindowPos(parent, NULL, 0, 0, sizes.frameWidth, 800, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        if (HWND strip = GetDlgItem(parent, IDC_TABSTRIP))
            SetWindowPos(strip, NULL, 0, 0, sizes.stripWidth, 22, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (view->kind->movesIntoFrame)
        SetWindowPos(hwnd, NULL, 18, 26, sizes.window.width, sizes.window.height, SWP_NOZORDER | SWP_NOACTIVATE);
    else
        SetWindowPos(hwnd, NULL, 0, 0, sizes.window.width, sizes.window.height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void DestroyPageButtons(CONSOLEVIEW* view)
{
    for (HWND button : view->pageButtons)
        if (IsWindow(button))
            DestroyWindow(button);
    view->pageButtons.clear();
}

void CreatePageButtons(HWND hwnd, CONSOLEVIEW* view)
{
    DestroyPageButtons(view);
    HFONT font = a_GetFont("MS Sans Serif,8");
    const VIEWKIND* kind = view->kind;
    for (const PAGEBUTTON& page : PageButtons(view->console->m_settings.extensionSlots)) {
        const DWORD style = page.id == IDC_PAGEBUTTON_CONSOLE ? kind->consoleButtonStyle : kind->extensionButtonStyle;
        HWND button = CreateWindowExA(WS_EX_TRANSPARENT, kind->pageButtonClass, page.text.c_str(), style, 0, page.y, kPageButtonWidth,
                                      30, hwnd, (HMENU)(INT_PTR)page.id, ModuleInstance(),
                                      NULL);
        if (!button)
            continue;
        if (font)
            SendMessageA(button, WM_SETFONT, (WPARAM)font, FALSE);
        view->pageButtons.push_back(button);
    }
    if (!view->pageButtons.empty())
        SendMessageA(view->pageButtons[0], BM_SETCHECK, BST_CHECKED, 0);
}

void SetScrollRange(HWND hwnd, CONSOLEVIEW* view)
{
    view->scrollPosition = 0;
    const int extensions = PresentExtensions(view->console->m_settings.extensionSlots);
    if (extensions == 0) {
        ShowScrollBar(hwnd, SB_HORZ, FALSE);
        return;
    }
    const UINT stays = view->kind->scrollBarStays ? SIF_DISABLENOSCROLL : 0;
    SCROLLINFO info = {sizeof info, SIF_RANGE | SIF_PAGE | SIF_POS | stays, 0, SideBySideScrollMaximum(extensions), 525, 0, 0};
    ShowScrollBar(hwnd, SB_HORZ, TRUE);
    SetScrollInfo(hwnd, SB_HORZ, &info, TRUE);
}

// The header controls scroll with the picture: put them back where the
// layout wants them.
void PlaceHeader(CONSOLEVIEW* view)
{
    static const POINT kOrigins[] = {{179, 142}, {72, 142}, {72, 179}, {69, 171}};
    const bool margins = view->kind->viewHeader;
    const int dx = (margins ? view->frame.rightOffset - view->frame.leftMargin : 0) + view->keyOffsetX;
    const int dy = margins ? view->frame.bottomOffset - view->frame.topMargin : 0;
    for (int i = 0; i < 4; i++)
        if (view->header[i])
            SetWindowPos(view->header[i], NULL, kOrigins[i].x + dx, kOrigins[i].y + dy, 0, 0,
                         SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The toolbar docks at the top of the view as the layout has sized it; beside
// the page buttons it then moves right of their column so that both stay
// usable (only moved: a toolbar docks again whenever its size changes).
void PlaceToolbar(CONSOLEVIEW* view, bool besidePageButtons)
{
    if (!view->toolbar)
        return;
    SendMessageA(view->toolbar, TB_AUTOSIZE, 0, 0);
    SetWindowPos(view->toolbar, HWND_TOP, besidePageButtons ? kPageButtonWidth : 0, 0, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
}

// The picture and margins of the type; the panel shows the operator's front.
void ChooseFrame(CONSOLEVIEW* view)
{
    const int type = ConsoleType(view);
    view->frame = PictureFrameOf(type);
    if (view->kind->frontPicture)
        view->frame.picture = ControlPanelPicture(type);
}

}  // namespace

void ClearViewLayout(CONSOLEVIEW* view)
{
    view->keys.clear();
    for (auto& list : view->leds)
        list.clear();
    view->labels.clear();
    view->selection.clear();
    view->stripCount = 0;
    view->pressedKey = NO_KEY;
    view->tipKey = NO_KEY;
}

void CreateHeaderControls(HWND hwnd, CONSOLEVIEW* view)
{
    CONSOLEPROPERTIES* c = view->console;
    const int dx = view->frame.rightOffset - view->frame.leftMargin;
    const int dy = view->frame.bottomOffset - view->frame.topMargin;
    HOSTINFO* widgets[HEADER_FIND + 1] = {};
    char line[128];
    FormatText(line, sizeof line, "0x00000000 LED \"online\" 0x50000000 %d,%d,11x11", 179 + dx, 142 + dy);
    view->header[HEADER_ONLINE] = CreatePanelWidget(
        c, hwnd, line, {"bitmap=.\\templates\\Userpanel\\online.bmp", "function=online"}, &widgets[HEADER_ONLINE]);
    FormatText(line, sizeof line, "0x00000000 BEDIT \"name\" 0x50000000 %d,%d,100x15", 72 + dx, 142 + dy);
    view->header[HEADER_NAME] =
        CreatePanelWidget(c, hwnd, line,
                          {"backgroundcolor=0x00cbcbcb", "textcolor=0x00ffffff", "caption=", "font=ms sans serif,8",
                           "function=name", "interval=2000"},
                          &widgets[HEADER_NAME]);
    FormatText(line, sizeof line, "0x00000000 BTRISTATEBUTTON \"find\" 0x50000000 %d,%d,16x16", 72 + dx, 179 + dy);
    view->header[HEADER_FIND] = CreatePanelWidget(
        c, hwnd, line, {"bitmap=.\\templates\\Userpanel\\id.bmp", "caption=ID", "font=ms sans serif,8", "function=Find"},
        &widgets[HEADER_FIND]);
    view->header[HEADER_PICTURE] =
        CreateWindowExA(0, "STATIC", "StatLabel", 0x5000000E, 69 + dx, 171 + dy, 52, 21, hwnd, NULL,
                        ModuleInstance(), NULL);
    view->pictureBitmap.Reset(LoadBitmapA(ModuleInstance(), MAKEINTRESOURCEA(IDB_ZELLOGO)));
    // The page's one connection line: the widgets show the console they sit on.
    char connection[HOSTNAME_SIZE + 16];
    FormatText(connection, sizeof connection, "connection=%s", c->m_szName);
    for (HOSTINFO* widget : widgets)
        if (widget)
            widget->OnLoad(0, (LPARAM)connection);
}

// The toolbar is the view's own child: it docks at the view's top, wherever
// the view stands, and its buttons' commands come to the view directly.
void CreateViewToolbar(HWND hwnd, CONSOLEVIEW* view)
{
    HINSTANCE instance = ModuleInstance();
    view->toolbar = CreateWindowExA(WS_EX_TRANSPARENT, TOOLBARCLASSNAMEA, "", 0x50008900, 0, 0, 100, 25, hwnd,
                                    (HMENU)(INT_PTR)IDC_VIEW_TOOLBAR, instance, NULL);
    if (!view->toolbar) {
        Trace("DOVRIXC: the console view has no toolbar (%lu)\n", GetLastError());
        return;
    }
    SendMessageA(view->toolbar, TB_BUTTONSTRUCTSIZE, 20, 0);
    SendMessageA(view->toolbar, TB_SETBITMAPSIZE, 0, MAKELPARAM(20, 20));
    TBADDBITMAP bitmap = {instance, IDB_VIEWTOOLBAR};
    SendMessageA(view->toolbar, TB_ADDBITMAP, 3, (LPARAM)&bitmap);
    TBBUTTON buttons[3] = {};
    const int commands[3] = {IDC_VIEWTOOL_POINTER, IDC_VIEWTOOL_ADDEXTENSION, IDC_VIEWTOOL_REMOVEEXTENSION};
    for (int i = 0; i < 3; i++) {
        buttons[i].iBitmap = i;
        buttons[i].idCommand = commands[i];
        buttons[i].fsState = TBSTATE_ENABLED;
        buttons[i].fsStyle = TBSTYLE_BUTTON;
    }
    SendMessageA(view->toolbar, TB_ADDBUTTONSA, 3, (LPARAM)buttons);
    SendMessageA(view->toolbar, TB_AUTOSIZE, 0, 0);
}

void BuildViewLayout(HWND hwnd, CONSOLEVIEW* view, int page)
{
    CloseLabelEditor(view);
    ClearViewLayout(view);
    ChooseFrame(view);
    if (page == 2 && !view->kind->extensionsPage)
        page = 0;
    view->page = page;
    view->selectedPage = 0;
    view->showConsole = page != 2;
    if (page == 1) {
        view->keyOffsetX = kPageButtonShift;
        AddConsoleFace(view);
        SizeFrame(hwnd, view, view->kind->withPageButtons);
        ShowScrollBar(hwnd, SB_HORZ, FALSE);
        view->scrollPosition = 0;
        CreatePageButtons(hwnd, view);
        PlaceToolbar(view, true);
    } else if (page == 2) {
        view->keyOffsetX = 0;
        DestroyPageButtons(view);
        AddEveryStrip(view);
        const int width = ExtensionsPageWidth(view->stripCount);
        SizeFrame(hwnd, view, PAGESIZES{width, width, {width, view->kind->sideBySide.window.height}});
        ShowScrollBar(hwnd, SB_HORZ, FALSE);
        view->scrollPosition = 0;
    } else {
        view->keyOffsetX = 0;
        DestroyPageButtons(view);
        AddConsoleFace(view);
        AddEveryStrip(view);
        SizeFrame(hwnd, view, view->kind->sideBySide);
        SetScrollRange(hwnd, view);
        PlaceToolbar(view, false);
    }
    ShowHeader(view);
    PlaceHeader(view);
    RefreshLedModes(view);
    InvalidateRect(hwnd, NULL, TRUE);
}

// Page k of the page buttons: the console (0) or extension slot k - 1 alone,
// moved to where the console stands.
void ShowExtensionPage(HWND hwnd, CONSOLEVIEW* view, int page)
{
    const uint8_t* slots = view->console->m_settings.extensionSlots;
    const int slot = SlotOfPage(slots, page);
    if (page != 0 && slot < 0) {
        Trace("DOVRIXC: the console has no extension page %d\n", page);
        return;
    }
    CloseLabelEditor(view);
    ClearViewLayout(view);
    view->selectedPage = page;
    if (slot < 0) {
        view->showConsole = true;
        view->keyOffsetX = view->page == 1 ? kPageButtonShift : 0;
        AddConsoleFace(view);
    } else {
        view->showConsole = false;
        int stripX = 0, stripY = 0;
        ExtensionStripOrigin(ConsoleType(view), 0, &stripX, &stripY);
        view->keyOffsetX = kPageButtonShift + view->frame.leftMargin - stripX;
        AddStrip(view, slot, 0);
    }
    ShowHeader(view);
    PlaceHeader(view);
    for (HWND button : view->pageButtons)
        SendMessageA(button, BM_SETCHECK, GetDlgCtrlID(button) == IDC_PAGEBUTTON_CONSOLE + page ? BST_CHECKED : BST_UNCHECKED,
                     0);
    RefreshLedModes(view);
    InvalidateRect(hwnd, NULL, TRUE);
}

void RefreshLedModes(CONSOLEVIEW* view)
{
    for (auto& list : view->leds)
        for (CONSOLELED& led : list)
            led.state = (uint16_t)LedModeOf(view->console->m_ledStates[led.key & 127], led.secondary);
}

void ChoosePage(HWND hwnd, CONSOLEVIEW* view, int page, HWND button)
{
    if (PresentExtensions(view->console->m_settings.extensionSlots) > 0)
        ShowExtensionPage(hwnd, view, page);
    else
        BuildViewLayout(hwnd, view, view->page);
    if (button && IsWindow(button))
        SendMessageA(button, BM_SETCHECK, BST_CHECKED, 0);
    RefreshLedModes(view);
    InvalidateRect(hwnd, NULL, TRUE);
}

// The page a user chose stays chosen while its extension is still there.
void RebuildChangedConsole(HWND hwnd, CONSOLEVIEW* view)
{
    const int chosen = view->selectedPage;
    ShowScrollBar(hwnd, SB_HORZ, FALSE);
    ClearViewLayout(view);
    ChooseFrame(view);
    BuildViewLayout(hwnd, view, IsBoardView(ConsoleType(view)) ? 0 : view->page);
    if (view->page == 1 && chosen > 0 && SlotOfPage(view->console->m_settings.extensionSlots, chosen) >= 0)
        ShowExtensionPage(hwnd, view, chosen);
}
