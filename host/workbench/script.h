// The workbench's command language, one command a line. Platform-free.
// Each verb, its arguments and what it does are a row of the table in
// verbs.cpp, which "help" prints. "# ..." is a comment; blank lines are skipped.
#pragma once

#include <string>

enum SCRIPTVERB {
    SCRIPT_NOTHING,
    SCRIPT_SET,
    SCRIPT_GET,
    SCRIPT_SAVE,
    SCRIPT_CALLBACK,
    SCRIPT_TRACE,
    SCRIPT_SCREENSHOT,
    SCRIPT_ONLINE,
    SCRIPT_FAULT,
    SCRIPT_DEVICE,
    SCRIPT_LIST,
    SCRIPT_TICK,
    SCRIPT_ALARMS,
    SCRIPT_SHOT,
    SCRIPT_TOOLTIP,
    SCRIPT_MENU,
    SCRIPT_OPEN,
    SCRIPT_DELETE,
    SCRIPT_SELECT,
    SCRIPT_DRAG,
    SCRIPT_DESIGN,
    SCRIPT_WIDGETS,
    SCRIPT_CLICK,
    SCRIPT_READ,
    SCRIPT_EDIT,
    SCRIPT_FIRMWARE,
    SCRIPT_VIEW,
    SCRIPT_PRESS,
    SCRIPT_RELEASE,
    SCRIPT_RCLICK,
    SCRIPT_LABEL,
    SCRIPT_EXTENSION,
    SCRIPT_PAGE,
    SCRIPT_LEDS,
    SCRIPT_SCROLL,
    SCRIPT_HELP,
    SCRIPT_TAB,
    SCRIPT_COLUMN,
    SCRIPT_LAMPS,
    SCRIPT_CHOOSE,
    SCRIPT_CLOSE,
    SCRIPT_IDLE,
    SCRIPT_PANEL,
    SCRIPT_DROP,
    SCRIPT_PICK,
    SCRIPT_ADDCONSOLES,
    SCRIPT_DIALOG,
    SCRIPT_TREE,
    SCRIPT_TREESELECT,
    SCRIPT_MOVE,
    SCRIPT_MERGE,
    SCRIPT_UNDO,
    SCRIPT_REDO,
    SCRIPT_KEY,
    SCRIPT_SELECTKEYS,
    SCRIPT_IMPORT,
    SCRIPT_VERB_COUNT  // not a verb: the number of them, SCRIPT_NOTHING included
};

struct SCRIPTCOMMAND {
    SCRIPTVERB verb = SCRIPT_NOTHING;
    std::string object;   // get, online, fault, device, list, tooltip, menu, open, delete; shot: the target
    std::string typed;    // edit, pick, dialog: the value typed; import: check, show or empty;
                          // move: the window's console
    std::string text;     // set: the whole design line; get, edit: the keyword; save, screenshot: the
                          // file; device: the variable; rclick: the item; label: the text;
                          // extension: add or remove; page: N, side or buttons;
                          // tab: configuration or supervision; choose: the console;
                          // drop: the function; select: the key as given (empty: none);
                          // import: the plan file;
                          // addconsoles: the type; dialog: the field; treeselect: the item;
                          // move: the controller
    int code = 0;         // pick: the control; callback: the code; fault: the fault word; tick: milliseconds; drag: DX;
                          // leds: the first LED's mode
    int value = 0;        // online, fault, design: 1 or 0; device: the value; drag: DY; leds: the
                          // second LED's mode
    int key = 0;          // press, release, rclick, label, leds, drop, select: the key id
};

// Parses one line; false with a message in error when it is malformed.
bool ParseScriptLine(const std::string& line, SCRIPTCOMMAND* command, std::string* error);
// Whether every placeholder of an argument pattern is one the parser reads.
bool ScriptPatternIsKnown(const char* pattern);
