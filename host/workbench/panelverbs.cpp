// The consoles' control panels: the workbench asks a console's canvas to
// open or close its panel (the canvas's own message), as Device > Control
// panel and the "panel" command do, and keeps each open panel by its
// console's name for the commands that press, page and picture it.
#include "workbench.h"

#include <stdio.h>

#include "../../base/banned.h"

HWND ToggleControlPanel(WORKBENCH* bench, const std::string& name)
{
    HOSTINFO* console = FindWindowedObject(name);
    if (!console)
        return NULL;
    HWND panel = (HWND)SendMessageA(console->m_hWnd, DCM_CONTROLPANEL, 0, 0);
    if (panel)
        bench->controlPanels[name] = panel;
    else
        bench->controlPanels.erase(name);
    PumpMessagesFor(50);
    return panel;
}

HWND ControlPanelOf(WORKBENCH* bench, const std::string& name)
{
    auto found = bench->controlPanels.find(name);
    if (found == bench->controlPanels.end())
        return NULL;
    if (IsWindow(found->second))
        return found->second;
    bench->controlPanels.erase(found);  // it went with its console
    return NULL;
}

namespace {

bool Panel(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    const bool wasOpen = ControlPanelOf(bench, command.object) != NULL;
    HWND panel = ToggleControlPanel(bench, command.object);
    if (!panel && !wasOpen) {
        fprintf(stderr, "workbench: %s opened no control panel\n", command.object.c_str());
        return false;
    }
    printf("panel: %s %s\n", command.object.c_str(), panel ? "open" : "closed");
    return true;
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_PANEL, Panel},
};

}  // namespace

const VERBHANDLERS kPanelVerbs = HandlerTable(kHandlers);
