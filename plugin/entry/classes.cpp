#include "classes.h"

#include "shadowfallback.h"
#include "../device/canvas.h"
#include "pendingwindow.h"
#include "../config/configurationdialog.h"
#include "../controls/radiobutton.h"
#include "../console/consoleview.h"
#include "../console/controlpanel.h"
#include "../console/viewimages.h"
#include "../keyeditor/keyfunctionview.h"

#include "analyze.h"
#include "../../base/trace.h"
#include "../../base/banned.h"

namespace {

const UINT kShadowedStyle = CS_VREDRAW | CS_HREDRAW | CS_SAVEBITS | CS_GLOBALCLASS | CS_DROPSHADOW;  // 0x24803
const UINT kViewStyle = CS_VREDRAW | CS_HREDRAW | CS_SAVEBITS | CS_GLOBALCLASS;                      // 0x4803

WNDCLASSEXA ClassTemplate(HINSTANCE instance, const char* name, WNDPROC procedure, UINT style, HBRUSH background)
{
    WNDCLASSEXA wc = {};
    wc.cbSize = sizeof wc;
    wc.style = style;
    wc.lpfnWndProc = procedure;
    wc.hInstance = instance;
    wc.hCursor = LoadCursor(NULL, IDC_ARROW);
    wc.hbrBackground = background;
    wc.lpszClassName = name;
    return wc;
}

bool RegisterWithStyle(unsigned style, void* context, unsigned long* error)
{
    WNDCLASSEXA wc = *static_cast<WNDCLASSEXA*>(context);
    wc.style = style;
    if (RegisterClassExA(&wc))
        return true;
    *error = GetLastError();
    return false;
}

int RegisterShadowed(HINSTANCE instance, const char* name, WNDPROC procedure, const char* failureFormat)
{
    WNDCLASSEXA wc = ClassTemplate(instance, name, procedure, kShadowedStyle, (HBRUSH)GetStockObject(NULL_BRUSH));
    return RegisterWithShadowFallback(kShadowedStyle, failureFormat, RegisterWithStyle, &wc);
}

int RegisterZELConfigurationDialog(HINSTANCE instance)
{
    return RegisterShadowed(instance, "DOVRIXZELCONFIGURATIONDIALOG", ConfigurationDialogWndProc,
                            "RegisterZELConfigurationDialog failed %d\n");
}

// The family-B extension keypad's counterpart of the configuration dialog.
int RegisterElkCskConfigurationDialog(HINSTANCE instance)
{
    return RegisterShadowed(instance, "DOVRIXELKCSKCONFIGURATIONDIALOG", ConfigurationDialogWndProc,
                            "Register ELK-CSK - ConfigurationDialog failed %d\n");
}

int RegisterConsoleView(HINSTANCE instance)
{
    LoadConsoleViewImages(instance);
    return RegisterShadowed(instance, "DOVRIXCONSOLEVIEW", ConsoleViewWndProc,
                            "RegisterConsoleView failed %d\n");
}

int RegisterRadioButton(HINSTANCE instance)
{
    WNDCLASSA wc = {};
    wc.style = CS_VREDRAW | CS_HREDRAW | CS_GLOBALCLASS;
    wc.lpfnWndProc = RadioButtonWndProc;
    wc.hInstance = instance;
    wc.hCursor = LoadCursor(NULL, IDC_ARROW);
    wc.lpszClassName = "CSAUTORADIOBUTTON";
    return RegisterClassA(&wc) != 0;
}

int RegisterKVTView(HINSTANCE instance)
{
    WNDCLASSEXA wc = ClassTemplate(instance, "DOVRIXKVTVIEW", PendingWindowProc, kViewStyle,
                                   (HBRUSH)GetStockObject(NULL_BRUSH));
    if (!RegisterClassExA(&wc)) {
        Trace("RegisterKVTView failed\n");
        return 1;
    }
    return 1;
}

int RegisterKeyFunctionView(HINSTANCE instance)
{
    HBRUSH hostBrush = (HBRUSH)a_GetObject(HOSTOBJECT_BACKGROUNDBRUSH);
    WNDCLASSEXA wc = ClassTemplate(instance, "DOVRIXKEYFUNCTIONVIEW", KeyFunctionViewWndProc, kViewStyle, hostBrush);
    if (!RegisterClassExA(&wc)) {
        Trace("RegisterKEYFUNCTIONView failed\n");
        return 0;
    }
    WNDCLASSEXA workspace = ClassTemplate(instance, "KEYFUNCTIONVIEWWORKSPACE", KeyFunctionWorkspaceWndProc,
                                          kViewStyle | CS_DBLCLKS, hostBrush);
    RegisterClassExA(&workspace);
    return 1;
}

int RegisterControlPanel(HINSTANCE instance)
{
    LoadConsoleViewImages(instance);  // the panel's pictures are among the view's
    // The control panel shares the console view's failure text.
    return RegisterShadowed(instance, "DOVRIXCONTROLPANEL", ControlPanelWndProc,
                            "RegisterConsoleView failed %d\n");
}

}  // namespace

ATOM RegisterCanvasClass(HINSTANCE instance)
{
    WNDCLASSA wc = {};
    wc.style = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS | CS_GLOBALCLASS;
    wc.lpfnWndProc = CanvasWndProc;
    wc.cbWndExtra = 4;  // reserved; the properties object lives in GWLP_USERDATA
    wc.hInstance = instance;
    wc.hCursor = LoadCursor(NULL, IDC_ARROW);
    wc.hbrBackground = (HBRUSH)GetStockObject(NULL_BRUSH);
    wc.lpszClassName = "DOVRIXC";
    return RegisterClassA(&wc);
}

int RegisterAllClasses(HINSTANCE instance)
{
    RegisterZELConfigurationDialog(instance);
    RegisterElkCskConfigurationDialog(instance);
    RegisterConsoleView(instance);
    RegisterRadioButton(instance);
    RegisterKVTView(instance);
    RegisterKeyFunctionView(instance);
    RegisterControlPanel(instance);
    return 1;
}
