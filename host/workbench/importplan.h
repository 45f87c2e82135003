// A key plan imported into the open design: read against the design as it
// is now, shown as its difference (or its errors) in a window, and applied as
// edits on OK, so the design counts as changed and not saving drops it.
#pragma once

#include <windows.h>

#include <string>

#include "analyze_host.h"
#include "../../tools/keyplan/keyplan.h"

// The plan read against the design (a copy of it written to a temporary
// file); false, with the reason, when a file cannot be written or read.
bool ReadPlanForDesign(HOSTINFO* design, const char* planPath, KEYPLAN* plan, std::string* why);
// Every change as an edit (a design line with mode 0); false when one was refused.
bool ApplyPlanEdits(HOSTINFO* design, const KEYPLAN& plan);
// "plan.csv" of "C:\\site\\plan.csv".
std::string PlanFileName(const char* path);

// The import window over owner ("Import key plan - plan.csv"): the list of
// changes, or of the errors; OK applies the changes and closes it, Cancel
// closes it. The open window is found by its class.
extern const char kImportWindowClass[];
HWND OpenImportWindow(HWND owner, HOSTINFO* design, const char* planPath, bool* applied = nullptr);
// The window run modally over owner; true when the plan was applied. A plan
// that cannot be read is said in a message box.
bool RunImportWindow(HWND owner, HOSTINFO* design, const char* planPath);
