// The workbench's command language, one command a line. Platform-free.
//
//   set OBJ*KEYWORD=VALUE   an edit: the line goes to the object with mode 0
//   get OBJ KEYWORD         prints KEYWORD=VALUE as the object reads it
//   save FILE               writes the design
//   callback CODE           calls the plug-in's fnCallback
//   trace                   prints the output window's lines
//   screenshot FILE         writes the workbench window's client area as a PNG
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
};

struct SCRIPTCOMMAND {
    SCRIPTVERB verb = SCRIPT_NOTHING;
    std::string object;   // get
    std::string text;     // set: the whole design line; get: the keyword; save, screenshot: the file
    int code = 0;         // callback
};

// Parses one line; false with a message in error when it is malformed.
bool ParseScriptLine(const std::string& line, SCRIPTCOMMAND* command, std::string* error);
