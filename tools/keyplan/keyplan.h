// A key plan: a spreadsheet's rows, a key each, checked against a design and
// turned into the design's key records through the plug-in's own codec, drop
// rules and the controllers' lists. Nothing is half-done: a plan with any
// error changes nothing. Platform-free.
#pragma once

#include <string>
#include <vector>

#include "plantable.h"
#include "../designreport/designmodel.h"

// One key the plan changes.
struct KEYCHANGE {
    size_t console = 0;       // index into the design's consoles
    std::string consoleName;  // full object name
    bool numeric = false;     // one of the twelve numeric keys
    int slot = 0;
    std::string caption;      // the key as printed on the device: "DEL", "Ext 2 / key 7", "Numeric 1"
    std::string keyword;      // the design's keyword: "key005", "NumericKey5"
    std::string oldRecord;    // "Empty" for a key without a function
    std::string newRecord;
    std::string oldLabel;
    std::string newLabel;
    bool recordChanged = false;
    bool labelChanged = false;
    int line = 0;             // the plan's row
};

struct KEYPLAN {
    std::vector<KEYCHANGE> changes;  // console by console in design order, then by key
    std::vector<PLANERROR> errors;   // in line order
    int rows = 0;                    // the plan's key rows
};

// Reads a plan (the file's bytes) against a design.
KEYPLAN ReadKeyPlan(const DESIGNMODEL& design, const std::string& planBytes);

// The difference, console by console and key by key; unchanged keys are not listed.
std::string FormatPlanDifference(const KEYPLAN& plan);
// "PLAN.csv(LINE): WHAT", a line each.
std::string FormatPlanErrors(const std::string& planName, const KEYPLAN& plan);

// The design lines that make the changes, "OBJECT*keyword=value" each, as
// edits or design-file lines (the label's keyword is "keylabelNNN").
std::vector<std::string> PlanDesignLines(const KEYPLAN& plan);
// The design's text with the plan applied: a key's line gets its new value in
// place, byte for byte otherwise; a key the design has no line for gets one
// after the console's last line.
std::string ApplyKeyPlan(const std::string& designText, const KEYPLAN& plan);
