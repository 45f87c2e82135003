// The workbench: a host application for the plug-in. It loads the plug-in
// with LoadLibrary as the real host does, keeps one design, and runs commands
// on it, from a script or from its window.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>

#include "analyze_host.h"
#include "plugins.h"
#include "../../plugin/protocol.h"
#include "script.h"


typedef INT_PTR (*PLUGINCALLBACK)(int code, HOSTINFO* host, LPARAM param);

// A page of widgets bound to one object (widgetpage.cpp).
struct WIDGETPAGE {
    HOSTINFO owner;     // the page's properties object: its child table holds the widgets
    HWND window = NULL;
};

struct SCRIPTREADER;

struct WORKBENCH {
    HMODULE plugin = NULL;
    PLUGINCALLBACK callback = nullptr;
    HOSTINFO* design = nullptr;
    HWND frame = NULL;        // the workbench window
    HWND surface = NULL;      // parent of the objects' windows
    HWND properties = NULL;   // the property list of the selected object
    HWND output = NULL;       // the output pane (an edit control)
    bool designMode = true;   // objects hand their mouse input to the surface
    std::string designPath;   // the file the design was read from or saved to
    std::map<std::string, std::unique_ptr<WIDGETPAGE>> pages;  // by object name
    std::map<std::string, HWND> consoleViews;                  // frames of console views, by object name
    std::map<std::string, HWND> controlPanels;                 // the consoles' control panels, by object name
    SCRIPTREADER* script = nullptr;                            // the script being run, if any
    std::string dialogPicture;  // "shot dialog FILE" with no dialog open: the next one to show is pictured
};

// Console views in frames of their own (consoleviews.cpp).
HWND OpenConsoleView(WORKBENCH* bench, const std::string& name);
HWND ConsoleViewFrame(WORKBENCH* bench, const std::string& name);
// The part of a frame that the toolbar and the view take, with a margin.
bool ConsoleViewExtent(HWND frame, SIZE* size);
void SetConsoleViewsEditMode(WORKBENCH* bench, bool designing);

// Control panels (panelverbs.cpp): the canvas opens or closes one when asked;
// the panel of a console while it is open, else null.
HWND ToggleControlPanel(WORKBENCH* bench, const std::string& name);
HWND ControlPanelOf(WORKBENCH* bench, const std::string& name);

// A window class of the workbench with the host's face colour (registered once).
bool RegisterFaceClass(const char* name, WNDPROC procedure);

// Builds (once) and returns the widget page of an object; null without one.
WIDGETPAGE* OpenWidgetPage(WORKBENCH* bench, const std::string& object);
// A widget of the object's page, building the page when there is none yet;
// null, with a message on stderr, when there is no such widget.
HWND PageWidget(WORKBENCH* bench, const std::string& object, const std::string& widget);
void CloseWidgetPages(WORKBENCH* bench);


// The host's own item of an object's context menu.
const UINT kDeleteCommand = 1000;

// Loads the simulated controllers from the workbench's folder, then the
// plug-in DLL, and finds its fnCallback. False with a message on stderr.
bool LoadPlugin(WORKBENCH* bench, const char* path);
extern const char kWorkbenchProjectVersion[];
// Starts a new empty design on bench->surface / bench->output, dropping the old one.
void NewDesign(WORKBENCH* bench);
bool OpenDesign(WORKBENCH* bench, const char* path);
bool SaveDesign(WORKBENCH* bench, const char* path);
// What a verb of the script does (verbs.cpp has the verbs): results on stdout,
// errors on stderr. Each file of verbs binds its handlers in a table of its own.
typedef bool (*VERBHANDLER)(WORKBENCH* bench, const SCRIPTCOMMAND& command);
struct VERBHANDLERROW {
    SCRIPTVERB verb;
    VERBHANDLER handler;
};
struct VERBHANDLERS {
    const VERBHANDLERROW* rows;
    size_t count;
};
template <size_t N>
constexpr VERBHANDLERS HandlerTable(const VERBHANDLERROW (&rows)[N])
{
    return VERBHANDLERS{rows, N};
}
extern const VERBHANDLERS kInspectVerbs;      // inspectverbs.cpp: what the design shows
extern const VERBHANDLERS kInputVerbs;        // inputverbs.cpp: what a user does to it
extern const VERBHANDLERS kSimulationVerbs;   // simulationverbs.cpp: the simulated devices and the clock
extern const VERBHANDLERS kPictureVerbs;      // pictureverbs.cpp
extern const VERBHANDLERS kConsoleViewVerbs;  // consoleviews.cpp
extern const VERBHANDLERS kPanelVerbs;        // panelverbs.cpp
extern const VERBHANDLERS kFirmwareVerbs;     // firmwarecommand.cpp
extern const VERBHANDLERS kConfigurationVerbs; // configurationverbs.cpp
extern const VERBHANDLERS kKeyEditorVerbs;     // keyeditorverbs.cpp
extern const VERBHANDLERS kKeyboardVerbs;      // keyboardverbs.cpp
// The key editor of a configuration window: a key clicked so that its page
// opens ("select OBJ KEY"), the page printed ("page OBJ").
bool SelectEditorKey(const std::string& object, int key);
bool PrintEditorPage(const std::string& object);
extern const VERBHANDLERS kManagerVerbs;      // managerverbs.cpp: the system manager's dialog and tree
extern const VERBHANDLERS kImportVerbs;       // importverbs.cpp: key plans

// Whether every verb has exactly one handler; names those that do not on stderr.
bool CheckVerbHandlers();
// Runs one parsed command; prints results on stdout and errors on stderr.
bool RunCommand(WORKBENCH* bench, const SCRIPTCOMMAND& command);
// Runs a script file; returns the number of lines that failed.
int RunScript(WORKBENCH* bench, const char* path);
// Runs the next line of the script being run; false when there is none.
bool RunNextScriptLine(WORKBENCH* bench);

// The console types the add-consoles dialog makes (the Device menu's items).
extern const char* const kAddConsoleTypes[4];
// Runs the plug-in's add-consoles dialog for the type over the design.
INT_PTR AddConsoles(WORKBENCH* bench, const char* type);

// The design surface (surface.cpp).
extern const char kSurfaceClass[];
bool RegisterSurfaceClass(HINSTANCE instance);
HOSTINFO* ObjectOfWindow(HWND window);
HOSTINFO* ObjectAt(HWND surface, POINT point);  // point in the surface's client coordinates

// The property list (propertylist.cpp): a report list view with two columns.
HWND CreatePropertyList(HWND parent, WORKBENCH* bench);
void DestroyPropertyList(HWND list);
void ShowProperties(HWND list, HOSTINFO* obj);  // null empties it
void RefreshPropertyValues(HWND list);
bool BeginPropertyEdit(HWND list, int row);
int FindPropertyRow(HWND list, const char* keyword);  // -1 when the list has no such row
HWND PropertyEditor(HWND list);                       // the in-place editor, while one is open
void ListCell(HWND list, int row, int column, char* text, int size);

// An object's context menu: the host's items and the object's own.
HMENU BuildContextMenu(HOSTINFO* obj);
void RunContextCommand(WORKBENCH* bench, HOSTINFO* obj, UINT command);
// Destroys an object as the host does when the user deletes it.
void DeleteObject(WORKBENCH* bench, HOSTINFO* obj);
// The named object when it has a window; null, with a message on stderr, else.
HOSTINFO* FindWindowedObject(const std::string& name);

// Headless: message boxes are printed and answered with their default button.
void AnswerMessageBoxes();

// The host's timers for time that did not pass: the clock moves on in steps
// of 100 ms, each step delivering the device objects' poll timer (111) and,
// every 250 ms, the host's own timer (OnTimer of every object).
void Tick(int milliseconds);
void TickObjects();

// A console's configuration window ("NAME - Configuration"), or null.
HWND FindConfigurationWindow(HOSTINFO* obj);
// Clicks a named widget or button of an open configuration window ("click config:OBJ WIDGET").
bool ClickConfigurationWidget(const std::string& object, const std::string& name);
// Runs the console's firmware update with a package of its family's folder.
bool RunFirmwareUpdate(WORKBENCH* bench, HOSTINFO* console, const std::string& package, const std::string& password);

// Pictures as PNG files (capture.cpp): a window's client area drawn by the
// window and its children themselves, or the screen under a top-level window.
// A limit cuts the picture to the top-left part of that size.
bool SaveWindowPicture(HWND window, const char* path, const SIZE* limit = nullptr);
bool SaveScreenPicture(HWND window, const char* path);
// While it lives, the dialog a "shot dialog FILE" waits for is pictured when
// it shows. Made before AnswerMessageBoxes, so a box is pictured before it is answered.
class DIALOGWATCH;
std::unique_ptr<DIALOGWATCH> WatchDialogPictures(WORKBENCH* bench);
void PumpMessagesFor(DWORD milliseconds);
