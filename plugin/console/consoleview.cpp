// The console view window: its messages, the toolbar and page commands; its
// input (select, label, press, scroll, blink) is that of viewinput.cpp.
#include "consoleview.h"

#include <windowsx.h>

#include "viewrules.h"
#include "viewstate.h"
#include "../device/consoleproperties.h"
#include "../device/liveconsoles.h"
#include "../entry/module.h"
#include "../protocol.h"

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

const UINT kBlinkPeriod = 100;

LRESULT View_Create(HWND hwnd, const CREATESTRUCTA* create)
{
    CONSOLEPROPERTIES* console = AsConsole(LiveConsole(create->lpCreateParams));
    if (!console) {
        Trace("DOVRIXC: a console view needs a console to show\n");
        return -1;
    }
    CONSOLEVIEW* view = new CONSOLEVIEW;
    view->console = console;
    view->frame = PictureFrameOf(ConsoleType(view));
    AttachWindowState(hwnd, view);
    console->m_hConsoleView = hwnd;
    CreateKeyTooltip(hwnd, view);
    CreateHeaderControls(hwnd, view);
    CreateViewToolbar(hwnd, view);
    BuildViewLayout(hwnd, view, 0);
    SetTimer(hwnd, TIMER_POLL, kBlinkPeriod, NULL);
    view->editMode = true;
    return 0;
}

void View_Destroy(HWND hwnd, CONSOLEVIEW* view)
{
    KillTimer(hwnd, TIMER_POLL);
    if (view->toolbar && IsWindow(view->toolbar))
        DestroyWindow(view->toolbar);
    if (view->tooltip && IsWindow(view->tooltip))
        DestroyWindow(view->tooltip);
    if (view->console->m_hConsoleView == hwnd)
        view->console->m_hConsoleView = NULL;
    FreeWindowState<CONSOLEVIEW>(hwnd);
}

// The keys of a removed extension stay in the design and are still sent to
// the controller while no one sees them: the output pane says so.
void ReportLeftKeys(CONSOLEPROPERTIES* c, int extension)
{
    int configured = 0;
    for (int key = 20 * extension - 5; key <= 20 * extension + 14 && key < CONSOLE_KEY_COUNT; key++)
        if (c->m_keys[key].functionId != 0)
            ++configured;
    if (configured > 0)
        EDITTRACE(c->m_pHost ? c->m_pHost : c, "Extension %d removed; its %d configured keys stay in the design",
                  extension, configured);
}

void ChangeExtensions(HWND hwnd, CONSOLEVIEW* view, bool add)
{
    CONSOLEPROPERTIES* c = view->console;
    uint8_t* slots = c->m_settings.extensionSlots;
    if (add && PresentExtensions(slots) >= EXTENSION_SLOT_COUNT) {
        MessageBoxA(NULL, "Maximum number of extensions reached!", "DOVRIXC", MB_OK);
        return;
    }
    if (!add && PresentExtensions(slots) == 0) {
        MessageBoxA(NULL, "No extension available for deletion!", "DOVRIXC", MB_OK);
        return;
    }
    const int present = PresentExtensions(slots);
    if (add)
        AddExtensionSlot(slots);
    else
        RemoveExtensionSlot(slots);
    if (!add)
        ReportLeftKeys(c, present);
    c->m_settings.extensionCount = PresentExtensions(slots);
    c->MarkEdited();
    SendMessageA(hwnd, CVM_SETPAGE, 0, view->page % 3);
    // An open control panel shows the extensions as they are now.
    if (c->m_hControlPanel && IsWindow(c->m_hControlPanel))
        SendMessageA(c->m_hControlPanel, CVM_CONSOLECHANGED, 0, 0);
}

LRESULT View_Command(HWND hwnd, CONSOLEVIEW* view, WPARAM wParam, LPARAM lParam)
{
    const WORD id = LOWORD(wParam);
    const WORD code = HIWORD(wParam);
    if (code == LABELEDITOR_ENTER) {
        StoreEditedLabel(view, GetDlgItem(hwnd, id % 4096));
        return 0;
    }
    if (code == 2)
        return 1;
    switch (id) {
    case IDC_VIEWTOOL_POINTER:
        return DefWindowProcA(hwnd, WM_COMMAND, wParam, lParam);
    case IDC_VIEWTOOL_ADDEXTENSION:
        ChangeExtensions(hwnd, view, true);
        return 0;
    case IDC_VIEWTOOL_REMOVEEXTENSION:
        ChangeExtensions(hwnd, view, false);
        return 0;
    default:
        if (id >= IDC_PAGEBUTTON_CONSOLE)
            ChoosePage(hwnd, view, id - IDC_PAGEBUTTON_CONSOLE, (HWND)lParam);
        return 0;
    }
}

LRESULT View_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE)
        return View_Create(hwnd, reinterpret_cast<const CREATESTRUCTA*>(lParam));
    CONSOLEVIEW* view = WindowState<CONSOLEVIEW>(hwnd);
    if (!view)
        return DefWindowProcA(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_DESTROY:
        View_Destroy(hwnd, view);
        return 0;
    case WM_PAINT:
        ValidateView(hwnd);
        return 0;
    case WM_ERASEBKGND:
    case WM_PRINTCLIENT:
        DrawView(hwnd, view, (HDC)wParam);
        return 1;
    case WM_COMMAND:
        return View_Command(hwnd, view, wParam, lParam);
    case WM_TIMER:
        OnBlinkTimer(hwnd, view, wParam);
        return 0;
    case WM_HSCROLL:
        OnKeyScroll(hwnd, view, wParam);
        return 0;
    case WM_CTLCOLORSTATIC:
        return TransparentStatic((HDC)wParam);
    case WM_CONTEXTMENU:
        if (lParam == -1)  // from the keyboard: at the focus key
            ShowFocusKeyMenu(hwnd, view);
        else
            ShowKeyMenu(hwnd, view, POINT{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        OnViewFocus(hwnd, view, message == WM_SETFOCUS);
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (OnViewKeyDown(hwnd, view, wParam))
            return 0;
        return DefWindowProcA(hwnd, message, wParam, lParam);
    case WM_MOUSEMOVE:
        OnKeyMouseMove(hwnd, view, lParam);
        return 0;
    case WM_LBUTTONDOWN:
        OnKeyButtonDown(hwnd, view, lParam);
        return 0;
    case WM_LBUTTONUP:
        OnKeyButtonUp(hwnd, view, lParam);
        return 0;
    case WM_CAPTURECHANGED:
        OnKeyCaptureChanged(hwnd, view);
        return 0;
    case CVM_SETPAGE:
        BuildViewLayout(hwnd, view, lParam == 1 ? 1 : 0);
        return 0;
    case CVM_HITTEST:
        return OnKeyHitTest(view, wParam, lParam);
    case CVM_CONSOLECHANGED:
        RebuildChangedConsole(hwnd, view);
        return 0;
    case CVM_KEYCHANGED:
        RepaintChangedKey(hwnd, view);
        return 0;
    case CVM_REFRESHLEDS:
        RepaintLeds(hwnd, view);
        return 0;
    case CVM_SETEDITMODE:
        SetOperatingMode(view, lParam);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

}  // namespace

int ConsoleType(const CONSOLEVIEW* view)
{
    return FaceType(*view->kind, view->console->m_model);
}

// A board shown as a front (the control panel) keeps its own extension
// strips: picture 102 with keys 107, not the 15-key front's 202 and 197.
int StripType(const CONSOLEVIEW* view)
{
    return view->console->m_model;
}

CONSOLEKEY* FindViewKey(CONSOLEVIEW* view, int id)
{
    for (CONSOLEKEY& key : view->keys)
        if (key.id == id)
            return &key;
    return nullptr;
}

LRESULT CALLBACK ConsoleViewWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedWindowProc<View_Dispatch>(hwnd, message, wParam, lParam);
}
