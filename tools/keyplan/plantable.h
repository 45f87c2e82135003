// A key plan as a spreadsheet saves it: CSV rows with comma or semicolon
// separators, RFC 4180 quoting, CR LF or LF, in UTF-8 (with or without its
// byte-order mark) or Windows-1252. Every cell comes out in Windows-1252, the
// design's own code page. Platform-free.
#pragma once

#include <string>
#include <vector>

struct PLANERROR {
    int line = 0;       // of the plan file, from 1
    std::string text;
};

struct PLANROW {
    int line = 0;                     // where the row begins
    std::vector<std::string> cells;   // Windows-1252 bytes
    bool broken = false;              // a cell could not be read; its error is listed
};

struct PLANTABLE {
    char separator = ',';
    bool utf8 = false;                // the file was read as UTF-8
    std::vector<PLANROW> rows;        // the header first; empty rows are left out
};

// Reads the whole file. Errors of a row (a quote out of place, a character
// Windows-1252 lacks, a byte sequence that is not UTF-8) are listed with its
// line and mark the row broken; the reading goes on with the next row.
PLANTABLE ReadPlanTable(const std::string& bytes, std::vector<PLANERROR>* errors);

// Whether the bytes are UTF-8 throughout (plain ASCII is).
bool IsUtf8(const std::string& bytes);
// UTF-8 to Windows-1252; false, with the first character that has no place
// there (or the bad sequence) in *why, when a character cannot be kept.
bool Utf8ToWindows1252(const std::string& text, std::string* out, std::string* why);
