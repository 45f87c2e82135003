// The verbs that write pictures: the screen under the workbench, or a window
// as it draws itself (the surface, a canvas, a configuration window, a
// console view, a control panel, a widget page), or a dialog as the screen
// shows it.
#include "workbench.h"

#include "dialogwatch.h"

#include <stdio.h>
#include <string.h>

#include "importplan.h"

#include "../../base/banned.h"

namespace {

BOOL CALLBACK FindInputDialog(HWND window, LPARAM found)
{
    char className[16] = "";
    GetClassNameA(window, className, sizeof className);
    HWND owner = GetWindow(window, GW_OWNER);
    const bool modal = owner && !IsWindowEnabled(owner) && IsWindowEnabled(window);
    if (strcmp(className, "#32770") != 0 || !IsWindowVisible(window) || !modal)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// The modal dialog of this thread that takes input now (it disables its
// owner): null when there is none.
HWND InputDialog()
{
    HWND found = NULL;
    EnumThreadWindows(GetCurrentThreadId(), FindInputDialog, (LPARAM)&found);
    return found;
}

// "shot dialog FILE": the dialog open now (the script runs inside the
// add-consoles dialog), else the next one to show, before whatever drives it
// acts (the picker's answer, the firmware update's package and START UPDATE).
bool PictureDialog(WORKBENCH* bench, const std::string& path)
{
    if (HWND dialog = InputDialog())
        return SaveScreenPicture(dialog, path.c_str());
    if (!bench->dialogPicture.empty())
        fprintf(stderr, "workbench: no dialog showed for %s\n", bench->dialogPicture.c_str());
    bench->dialogPicture = path;
    return bench->dialogPicture.size() == path.size();
}

bool Screenshot(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    return SaveScreenPicture(bench->frame, command.text.c_str());
}

bool Picture(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    const std::string& target = command.object;
    const char* path = command.text.c_str();
    if (target == "screen")
        return SaveScreenPicture(bench->frame, path);
    if (target == "import") {
        HWND window = FindWindowA(kImportWindowClass, NULL);
        if (!window)
            fprintf(stderr, "workbench: no import window is open\n");
        return window && SaveScreenPicture(window, path);
    }
    if (target == "surface")
        return SaveWindowPicture(bench->surface, path);
    if (target == "dialog")
        return PictureDialog(bench, command.text);
    if (target.rfind("view:", 0) == 0) {
        HWND frame = ConsoleViewFrame(bench, target.substr(5));
        if (!frame)
            frame = OpenConsoleView(bench, target.substr(5));
        SIZE used = {};
        return frame && ConsoleViewExtent(frame, &used) && SaveWindowPicture(frame, path, &used);
    }
    if (target.rfind("panel:", 0) == 0) {
        HWND panel = ControlPanelOf(bench, target.substr(6));
        if (!panel)
            panel = ToggleControlPanel(bench, target.substr(6));
        return panel && SaveWindowPicture(panel, path);
    }
    if (target.rfind("page:", 0) == 0) {
        WIDGETPAGE* page = OpenWidgetPage(bench, target.substr(5));
        return page && SaveWindowPicture(page->window, path);
    }
    const bool configuration = target.rfind("config:", 0) == 0;
    HOSTINFO* obj = a_FindHostinfo((configuration ? target.substr(7) : target).c_str());
    HWND window = obj ? obj->m_hWnd : NULL;
    if (window && configuration)
        window = FindConfigurationWindow(obj);
    if (!window) {
        fprintf(stderr, "workbench: nothing to picture for %s\n", target.c_str());
        return false;
    }
    return SaveWindowPicture(window, path);
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_SCREENSHOT, Screenshot},
    {SCRIPT_SHOT, Picture},
};

}  // namespace

const VERBHANDLERS kPictureVerbs = HandlerTable(kHandlers);

std::unique_ptr<DIALOGWATCH> WatchDialogPictures(WORKBENCH* bench)
{
    return std::unique_ptr<DIALOGWATCH>(new DIALOGWATCH([bench](HWND dialog) {
        if (bench->dialogPicture.empty())
            return;
        const std::string path = bench->dialogPicture;
        bench->dialogPicture.clear();
        if (!SaveScreenPicture(dialog, path.c_str()))
            fprintf(stderr, "workbench: cannot write %s\n", path.c_str());
    }));
}
