// What the windows of the design talk: the host's messages to an object's
// window, the plug-in's own window messages and notifications, its timers,
// and the ids of the child windows and commands it creates in code. The
// plug-in, the stand-in framework, the workbench and the tests name these
// numbers only through this header. (Ids of dialog resources, menus and
// strings are resource ids: resources/resource.h.)
#pragma once

#include <windows.h>

#include "analyze.h"

// ---- The host's protocol ----------------------------------------------------
// The host's messages to an object's window (WM_APP+0 .. WM_APP+55: OnMessage,
// OnLoad, OnSave, OnSaveToListCtrl, the load notice, the address change, the
// properties object (0x8014), the keywords, the display text, the context
// menu and its command) are the framework's: WM_HOST_* of analyze.h.

// The canvas's context-menu item "Configuration".
const UINT IDM_CANVAS_CONFIGURATION = 1;

// ---- Messages among the plug-in's windows (the WM_USER range) ------------

// The console view and the control panel.
enum CONSOLEVIEWMESSAGE : UINT {
    CVM_SETPAGE = WM_USER + 2,         // lParam: 0 side by side, 1 with page buttons, 2 extensions only
    CVM_HITTEST = WM_USER + 10,        // wParam: int* key id; lParam: client point; 1 when a key is hit
    CVM_CONSOLECHANGED = WM_USER + 12, // lParam: the properties object, or null to keep it
    CVM_KEYCHANGED = WM_USER + 13,     // lParam: key id
    CVM_REFRESHLEDS = WM_USER + 14,
    CVM_SETEDITMODE = WM_USER + 16,    // lParam low byte: 1 designing, 0 operating
};

// The configuration window, its pages and its trees.
enum CONFIGURATIONMESSAGE : UINT {
    CFM_REINITIALIZE = WM_USER + 12,   // the console changed (lParam: the object)
    CFM_SETOFFLINE = WM_USER + 16,     // lParam 1 offline, 0 online
    CFM_REFRESHLAMPS = WM_USER + 17,   // to the diagnostics page
    CFM_CONSOLERENAMED = WM_USER + 18, // forwarded by the canvas; to the manager tree: lParam the object
    CFM_SELECTCONSOLE = WM_USER + 20,  // lParam: a console's name
    CFM_SELECTBYNAME = WM_USER + 21,   // to the manager tree: lParam a console's name
    CFM_UNDO = WM_USER + 40,           // takes back the last key edit; answers 1 when there was one
    CFM_REDO = WM_USER + 41,           // does the last undone key edit again; answers 1 when there was one
    CFM_FOLLOWDESIGN = WM_USER + 42,   // to the manager tree: shows the design's controllers and consoles
                                       // as they are now, when they changed (added, renamed, reconnected)
};

// The device canvas.
enum CANVASMESSAGE : UINT {
    DCM_LINESLOADED = WM_USER + 30,    // posted to itself: the design file's lines are all in
    DCM_CONTROLPANEL = WM_USER + 31,   // opens the console's control panel, or closes it when open;
                                       // answers the panel's window when it opened, else 0
};

// The configuration window's tabs (the index kept in the console).
enum CONFIGURATIONTAB : int {
    TAB_CONFIGURATION = 0,
    TAB_SUPERVISION = 1,
};

// The key-function editor pages (user messages 13 and 17).
enum KEYPAGEMESSAGE : UINT {
    KPM_KEYEDITED = WM_USER + 13,      // to the console view: lParam the key number (1037)
    KPM_BINDKEY = WM_USER + 17,        // wParam: the key number to load (1041)
    KPM_PAGEID = WM_USER + 19,         // answers the page's dialog id, for the hosts that look
};

// The key-function tree "DOVRIXKEYFUNCTIONVIEW".
enum KEYFUNCTIONVIEWMESSAGE : UINT {
    KFM_SETCONSOLE = WM_USER + 12,     // lParam: the properties object; null keeps the one it has (1036)
};

// The flat radio button "CSAUTORADIOBUTTON".
enum RADIOBUTTONMESSAGE : UINT {
    RBM_SETSTATE = 0x8B0,              // wParam: the state word
    RBM_SETFACECOLOUR = 0x8B1,         // wParam: colour
    RBM_SETTEXTCOLOUR = 0x8B2,         // wParam: colour
};

// WM_COMMAND notification codes (high word).
const WORD RBN_CHECKED = 0x203;         // a click left the radio button checked
const WORD LABELEDITOR_ENTER = 1111;    // Enter in the console view's label editor

// ---- Timers --------------------------------------------------------------

const UINT_PTR TIMER_POLL = 111;        // canvas 100 ms, configuration window 200 ms, views 100 ms,
                                        // the add-consoles dialog 250 ms
const UINT_PTR TIMER_UPLOAD = 333;      // the firmware update dialog, 200 ms
const UINT_PTR TIMER_DIALOGWATCH = 0x7E59;  // the workbench's and the tests' wait for a dialog they drive to show

// ---- Child windows and commands made in code ------------------------------

enum CHILDID : int {
    IDC_ONLINEINDICATOR = 192,          // configuration window
    IDC_MANAGERVIEW = 1000,             // the manager tree and the key-function tree
    IDC_TABSTRIP = 1001,                // the configuration window's tabs: the view sizes its parent's 1001
    IDC_VIEWBUTTON = 1002,
    IDC_CONSOLEVIEW = 1003,
    IDC_CONSOLESELECTOR = 1006,
    IDC_MANAGERTREE = 1010,             // the manager view's tree control
    IDC_LABELEDITOR = 1002,             // the console view's in-place label editor (its child)
    IDC_VIEW_TOOLBAR = 1012,            // the console view's toolbar
    IDC_PAGEBUTTON_CONSOLE = 2000,      // page buttons: 2000 + page, 2001 + slot for the extensions
    IDC_PAGEBUTTON_LAST = 2005,
    IDC_CONFIGURATION_UPDATE = 6063,    // "UPDATE"
    IDC_KEYFUNCTIONTREE = 1004,         // the key-function view's tree control
    IDC_KEYPAGE = 1005,                 // the configuration window's key-function editor panel
};

// The workbench's key-plan import window (OK and Cancel are IDOK and IDCANCEL).
enum KEYPLANIMPORTID : int {
    IDC_IMPORT_SUMMARY = 100,           // "N keys change on M consoles", or the errors' count
    IDC_IMPORT_LIST = 101,              // console, key, before, after; or line and error
};

// The console view's toolbar commands.
enum VIEWTOOLCOMMAND : int {
    IDC_VIEWTOOL_POINTER = 1,
    IDC_VIEWTOOL_REMOVEEXTENSION = 3,
    IDC_VIEWTOOL_ADDEXTENSION = 20,
};
