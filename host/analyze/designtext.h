// The text forms of a design file: line kinds, control lines, rectangle and
// connection strings. Platform-free, so the parser is unit-tested and fuzzed.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <string>

enum DESIGNLINEKIND {
    DESIGNLINE_EMPTY,     // blank line
    DESIGNLINE_CONTROL,   // "[PARENT*]control=..."
    DESIGNLINE_OBJECT,    // "OBJECT*keyword=value"
    DESIGNLINE_HOST,      // "variable=value", a setting of the design itself
    DESIGNLINE_MALFORMED, // no "=", or an empty key
};

struct DESIGNLINE {
    DESIGNLINEKIND kind = DESIGNLINE_EMPTY;
    std::string object;  // object lines: full object name;
                         // control lines: the parent prefix up to its last "*"
    std::string keyword; // object and host lines
    std::string value;   // everything after the first "="
};

// Classifies one line (without its line end; a trailing CR is ignored).
DESIGNLINE SplitDesignLine(const char* line, size_t length);

struct CONTROLSPEC {
    uint32_t exStyle = 0;
    std::string className;
    std::string name;  // local name, quotes and escapes removed
    uint32_t style = 0;
    int x = 0, y = 0, cx = 0, cy = 0;
};

// Parses the value of a control line: EXSTYLE CLASS "NAME" STYLE X,Y,WxH.
// EXSTYLE is "0" or "0x" with up to 8 hex digits, STYLE "0x" with up to 8 hex
// digits. On failure error names the field that was refused.
bool ParseControlSpec(const std::string& value, CONTROLSPEC* spec, std::string* error);

// "%d,%d,%dx%d" of left, top, width and height.
std::string FormatRectString(int left, int top, int width, int height);
bool ParseRectString(const char* text, int* x, int* y, int* cx, int* cy);

// "key=value" split at the first "="; false when there is none.
bool SplitKeyValue(const std::string& line, std::string* key, std::string* value);

// The two halves of a "key=value" line; false when the buffer was too small
// (the buffer then holds the truncated text).
bool CopyLineKey(const char* line, char* key, size_t size);
bool CopyLineValue(const char* line, char* value, size_t size);

// Whether an object named parent + local can be written back: its control
// line quotes the local name and its property lines are split at the first
// "=" and the last "*" before it. So the local name holds no double quote,
// "=" or "*" and does not end in a backslash (which would escape the closing
// quote), and the parent path holds no double quote or "=". On refusal why
// says what the name holds.
bool IsWritableObjectName(const std::string& parent, const std::string& local, std::string* why);
