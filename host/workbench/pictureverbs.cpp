// The verbs that write pictures: the screen under the workbench, or a window
// as it draws itself (the surface, a canvas, a configuration window, a
// console view, a control panel, a widget page).
#include "workbench.h"

#include <stdio.h>

#include "importplan.h"

#include "../../base/banned.h"

namespace {

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
