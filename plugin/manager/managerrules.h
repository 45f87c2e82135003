// The manager tree's texts and rules that need no window: which objects are
// controllers and consoles, the text of a controller's item and how a drop
// takes it apart again. Platform-free.
#pragma once

#include <string>

// The console module through which a controller serves its consoles.
extern const char kConsoleModuleName[];
// Every controller offers this many console positions (CAN addresses 1 to 16).
enum { MANAGER_POSITIONS = 16 };

// Whether the object name (parent path included) names a controller
// ("ORNCON_" or "ELKCON_" at the start of its own part, no port after it)
// or a console ("ORNCST_", "ELKCST_").
bool IsControllerName(const std::string& name);
bool IsConsoleObjectName(const std::string& name);
// 'A' for "ORNCON_"/"ORNCST_", 'B' for "ELKCON_"/"ELKCST_", 0 for neither.
char FamilyOf(const std::string& name);

// "Controller (NAME).PORT": the controller's name between parentheses and its
// console module's port after the last full stop, as a drop reads it back.
std::string ControllerItemText(const std::string& controller, const std::string& port);

// What a drop takes from the target's text: the controller part (between the
// first "(" and the first ")") and the port part (from the last "." on).
// False when the text has no "." or no such parentheses.
struct DROPTEXT {
    std::string controller;
    std::string port;  // with its leading "."
};
bool SplitDropText(const std::string& text, DROPTEXT* drop);
// A drop reconnects only to a controller of the family of the console's
// present controller (the partner): the controller part must name one.
bool DropReachesPartnersFamily(const DROPTEXT& drop, const std::string& partner);
