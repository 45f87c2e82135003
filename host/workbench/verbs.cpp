#include "verbs.h"

#include <vector>

#include "../../base/banned.h"

namespace {

// In the order of the README's table.
const SCRIPTVERBROW kVerbs[] = {
    {SCRIPT_SET, "set", "OBJ*KEYWORD=VALUE", "an edit, as the property list makes one (OnLoad with mode 0)"},
    {SCRIPT_GET, "get", "OBJ KEYWORD", "prints KEYWORD=VALUE as the object reads it"},
    {SCRIPT_SAVE, "save", "FILE", "writes the design"},
    {SCRIPT_CALLBACK, "callback", "CODE", "calls the plug-in's fnCallback; prints the text for 13, the number otherwise"},
    {SCRIPT_TRACE, "trace", "", "prints the lines of the output window"},
    {SCRIPT_SCREENSHOT, "screenshot", "FILE", "writes the workbench window as the screen shows it"},
    {SCRIPT_SHOT, "shot", "TARGET FILE",
     "writes a picture of TARGET: surface, screen, an object's canvas (its name), config:OBJ, view:OBJ, panel:OBJ, "
     "page:OBJ, or dialog (the dialog open now, else the next one to show)"},
    {SCRIPT_SELECT, "select", "OBJ [KEY]",
     "selects the object (the property list shows it), or clicks key KEY in its configuration window"},
    {SCRIPT_FIRMWARE, "firmware", "OBJ PACKAGE PASSWORD",
     "runs the online console's firmware update, printing each state text"},
    {SCRIPT_EDIT, "edit", "OBJ KEYWORD VALUE", "types VALUE into OBJ's row KEYWORD of the property list"},
    {SCRIPT_DRAG, "drag", "OBJ DX DY", "drags the object by DX, DY with the mouse"},
    {SCRIPT_DESIGN, "design", "on|off", "edits the design (objects hand the mouse to the surface) or runs it"},
    {SCRIPT_WIDGETS, "widgets", "OBJ", "builds a page of every widget kind bound to OBJ"},
    {SCRIPT_CLICK, "click", "OBJ WIDGET",
     "clicks a widget of OBJ's page, or with config:OBJ one of its configuration window's (column, buttons, Supervision)"},
    {SCRIPT_READ, "read", "OBJ WIDGET", "prints WIDGET=TEXT, what the widget shows"},
    {SCRIPT_TOOLTIP, "tooltip", "OBJ", "prints the tooltip of the object's canvas (and shows it)"},
    {SCRIPT_MENU, "menu", "OBJ", "prints the object's context menu, an item a line"},
    {SCRIPT_OPEN, "open", "OBJ", "opens the console's configuration window"},
    {SCRIPT_TAB, "tab", "OBJ configuration|supervision", "clicks a tab of the console's configuration window"},
    {SCRIPT_COLUMN, "column", "OBJ", "prints the configuration window's column, NAME=TEXT a widget, \"greyed\" when disabled"},
    {SCRIPT_LAMPS, "lamps", "OBJ", "prints the Supervision page's nine row lamps and the combined lamp: grey, ok or fault"},
    {SCRIPT_CHOOSE, "choose", "OBJ CONSOLE", "picks CONSOLE in the configuration window's console selector"},
    {SCRIPT_CLOSE, "close", "OBJ", "closes the console's configuration window"},
    {SCRIPT_DELETE, "delete", "OBJ", "deletes the object as the user would"},
    {SCRIPT_ONLINE, "online", "OBJ on|off", "switches a simulated console on or off"},
    {SCRIPT_FAULT, "fault", "OBJ N on|off", "raises or clears fault word N of a simulated console"},
    {SCRIPT_DEVICE, "device", "OBJ VARIABLE=VALUE", "sets a simulated variable of a console or a controller"},
    {SCRIPT_LIST, "list", "OBJ", "prints the object's property list, KEYWORD=VALUE a row"},
    {SCRIPT_ALARMS, "alarms", "", "prints the design's alarm matrix, a source a line"},
    {SCRIPT_TICK, "tick", "MS", "advances the host's clock and timers by MS"},
    {SCRIPT_IDLE, "idle", "MS",
     "lets MS of real time pass with the message loop running: the windows' own timers fire; prints the CPU time spent"},
    {SCRIPT_VIEW, "view", "OBJ", "opens the console's view in a frame of its own"},
    {SCRIPT_PRESS, "press", "OBJ KEY",
     "presses key KEY (its id) of the console view with the mouse; panel:OBJ presses it on the control panel"},
    {SCRIPT_RELEASE, "release", "OBJ KEY", "releases the mouse button over key KEY (of the view, or of panel:OBJ)"},
    {SCRIPT_RCLICK, "rclick", "OBJ KEY ITEM", "opens the key's context menu, prints its items and chooses ITEM (- none)"},
    {SCRIPT_LABEL, "label", "OBJ KEY TEXT", "types TEXT into the key's label box and presses Enter"},
    {SCRIPT_EXTENSION, "extension", "OBJ add|remove", "the console view's toolbar buttons"},
    {SCRIPT_PAGE, "page", "OBJ [N|side|buttons]",
     "page button N (0 the console, k extension slot k-1), or the layout side by side or with page buttons; "
     "panel:OBJ N shows the control panel's page N (0 side by side, 1 with page buttons, 2 the extensions); "
     "alone, prints the configuration window's key page: its id and every control's id and value"},
    {SCRIPT_LEDS, "leds", "OBJ KEY MODE [MODE2]", "sets the modes (0 to 3) of the key's first and second LED"},
    {SCRIPT_SCROLL, "scroll", "OBJ X", "moves the console view's scroll box to X"},
    {SCRIPT_PANEL, "panel", "OBJ", "opens the console's control panel, or closes it when it is open"},
    {SCRIPT_DROP, "drop", "OBJ FUNCTION KEY",
     "drags the key-function tree's FUNCTION (a node's first word or its id) onto key KEY of the configuration window"},
    {SCRIPT_PICK, "pick", "OBJ CONTROL VALUE",
     "sets control CONTROL of the key page as a user would (a list's item, a text, 1 or 0, a number; \"...\": the picker's entry, - cancels)"},
    {SCRIPT_ADDCONSOLES, "addconsoles", "TYPE",
     "opens the add-consoles dialog for TYPE; the lines after it drive the dialog until it closes"},
    {SCRIPT_DIALOG, "dialog", "FIELD VALUE",
     "the add-consoles dialog: target, count, start or extensions takes VALUE; show prints it; ok, cancel press the buttons"},
    {SCRIPT_TREE, "tree", "OBJ", "prints the manager tree of OBJ's configuration window, TEXT = OBJECT an item"},
    {SCRIPT_TREESELECT, "treeselect", "OBJ ITEM", "clicks the manager tree's item ITEM (its text or its object)"},
    {SCRIPT_MOVE, "move", "OBJ CONTROLLER [WINDOW]",
     "drags console OBJ's item in its manager tree (or in WINDOW's) onto CONTROLLER; prints dropped or refused"},
    {SCRIPT_MERGE, "merge", "FILE", "loads a design file into the open design: its objects are added"},
    {SCRIPT_UNDO, "undo", "OBJ", "takes back the last key edit in the console's configuration window (Ctrl+Z)"},
    {SCRIPT_REDO, "redo", "OBJ", "does the last undone key edit again (Ctrl+Y)"},
    {SCRIPT_KEY, "key", "OBJ KEYNAME",
     "types a key stroke on the configuration window's console view: ctrl+ and shift+ before a letter, a digit, left, "
     "right, up, down, delete, enter, escape, f2, f10 or apps"},
    {SCRIPT_SELECTKEYS, "selectkeys", "OBJ KEYS",
     "clicks the keys (ids) in turn in the configuration window: they join the selection, the last one has the focus"},
    {SCRIPT_IMPORT, "import", "PLAN [check|show]",
     "reads the key plan PLAN (CSV) against the design, prints the difference and applies it; check only prints; "
     "show opens the import window"},
    {SCRIPT_HELP, "help", "", "prints every command with its arguments and what it does"},
};

}  // namespace

SCRIPTVERBLIST ScriptVerbs()
{
    return SCRIPTVERBLIST{kVerbs, sizeof kVerbs / sizeof kVerbs[0]};
}

const SCRIPTVERBROW* FindScriptVerb(const std::string& name)
{
    for (const SCRIPTVERBROW& row : kVerbs)
        if (name == row.name)
            return &row;
    return nullptr;
}

const SCRIPTVERBROW* ScriptVerbRow(SCRIPTVERB verb)
{
    for (const SCRIPTVERBROW& row : kVerbs)
        if (row.verb == verb)
            return &row;
    return nullptr;
}

std::string ScriptHelp()
{
    std::vector<std::string> usages;
    size_t column = 0;
    for (const SCRIPTVERBROW& row : kVerbs) {
        usages.push_back(row.pattern[0] ? std::string(row.name) + " " + row.pattern : row.name);
        column = usages.back().size() > column ? usages.back().size() : column;
    }
    std::string help;
    for (size_t i = 0; i < usages.size(); i++) {
        usages[i].resize(column + 2, ' ');  // the help texts in one column, two blanks right of the widest
        help += usages[i] + kVerbs[i].help + "\n";
    }
    return help;
}
