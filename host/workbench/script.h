// The workbench's command language, one command a line. Platform-free.
//
//   set OBJ*KEYWORD=VALUE   an edit: the line goes to the object with mode 0
//   get OBJ KEYWORD         prints KEYWORD=VALUE as the object reads it
//   save FILE               writes the design
//   callback CODE           calls the plug-in's fnCallback
//   trace                   prints the output window's lines
//   screenshot FILE         writes the workbench window as the screen shows it
//   shot TARGET FILE        writes a picture of TARGET: "surface", "screen", an
//                           object's canvas (its name) or "config:OBJ"
//   tooltip OBJ             prints the tooltip of an object's canvas (and shows it)
//   menu OBJ                prints the object's context menu, an item a line
//   select OBJ              selects the object; the property list shows it
//   edit OBJ KEYWORD VALUE  types VALUE into OBJ's row KEYWORD of the property list
//   firmware OBJ PACKAGE PASSWORD  runs OBJ's firmware update, printing its states
//   drag OBJ DX DY          drags the object by DX, DY with the mouse
//   design on|off           edits the design (objects hand the mouse to the surface) or runs it
//   widgets OBJ             builds a page of every widget kind bound to OBJ ("shot page:OBJ")
//   click OBJ WIDGET        clicks a widget of OBJ's page
//   read OBJ WIDGET         prints WIDGET=TEXT, what the widget shows
//   open OBJ                opens the object's configuration window
//   delete OBJ              deletes the object as the user would
//   online OBJ on|off       switches a simulated console on or off
//   fault OBJ N on|off      raises or clears fault word N (1..10) of a console
//   device OBJ VAR=VALUE    sets a simulated variable ("FirmwareRevision5=1" of a
//                           console, "CAN.Baudrate=62" of a controller)
//   list OBJ                prints the object's property list, KEYWORD=VALUE a row
//   tick MS                 advances the host's clock and timers by MS
//   alarms                  prints the design's alarm matrix, a source a line
//   view OBJ                opens OBJ's console view in a frame of its own ("shot view:OBJ")
//   press OBJ KEY           presses key KEY (its id) of OBJ's console view with the mouse
//   release OBJ KEY         releases the mouse button over key KEY
//   rclick OBJ KEY ITEM     opens KEY's context menu, prints its items and chooses ITEM
//                           ("Clear", "Copy", "Paste", "Not Used", "Alarm Button",
//                           "Key Switch"; "-" closes the menu without a choice)
//   label OBJ KEY TEXT      types TEXT into KEY's label box and presses Enter
//   extension OBJ add|remove  the console view's toolbar buttons
//   page OBJ N|side|buttons   page button N (0 the console, k extension slot k-1), or
//                           the layout side by side or with page buttons
//   leds OBJ KEY MODE [MODE2] sets the modes (0-3) of KEY's first and second LED
//   scroll OBJ X            moves the console view's scroll box to X
//   # ...                   a comment; blank lines are skipped
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
};

struct SCRIPTCOMMAND {
    SCRIPTVERB verb = SCRIPT_NOTHING;
    std::string object;   // get, online, fault, device, list, tooltip, menu, open, delete; shot: the target
    std::string typed;    // edit: the value typed
    std::string text;     // set: the whole design line; get, edit: the keyword; save, screenshot: the
                          // file; device: the variable; rclick: the item; label: the text;
                          // extension: add or remove; page: N, side or buttons
    int code = 0;         // callback: the code; fault: the fault word; tick: milliseconds; drag: DX;
                          // leds: the first LED's mode
    int value = 0;        // online, fault, design: 1 or 0; device: the value; drag: DY; leds: the
                          // second LED's mode
    int key = 0;          // press, release, rclick, label, leds: the key id
};

// Parses one line; false with a message in error when it is malformed.
bool ParseScriptLine(const std::string& line, SCRIPTCOMMAND* command, std::string* error);
