// The configuration window's column of device parameters: one row per host
// widget, in the order the widgets are made. Platform-free.
#pragma once

#include <stddef.h>

#include <string>
#include <vector>

enum COLUMNROLE {
    COLUMN_HEADER,  // white on dark grey, a fixed text
    COLUMN_LABEL,   // black on the page grey, a fixed text, left aligned
    COLUMN_EDIT,    // an edited value on pale yellow
    COLUMN_TOGGLE,  // an on/off switch of a device setting
    COLUMN_VALUE,   // a read-only value, amber on black
};

struct COLUMNROW {
    const char* name;
    const char* keyword;    // BSTATIC, BEDIT, BTRISTATEBUTTON
    const char* exStyle;    // "0" or "0x00000200"
    int x, y, width, height;
    COLUMNROLE role;
    const char* text;       // the fmt= of labels and headers, the function= of the others
    // What this row does differently: attributes that replace the role's of
    // the same keyword (or join before function=), "!keyword" drops one.
    const char* deviations[3];
    bool startsDisabled;
};

struct COLUMNTABLE {
    const COLUMNROW* first;
    size_t count;
    const COLUMNROW* begin() const { return first; }
    const COLUMNROW* end() const { return first + count; }
};

COLUMNTABLE ConfigurationColumn();
// The row of a widget name; null when there is none.
const COLUMNROW* FindColumnRow(const char* name);
// "0 BSTATIC \"namelabel\" 0x54000000 764,90,90x16"
std::string ColumnControlLine(const COLUMNROW& row);
// The attribute strings of a row in the order they are sent (function= last).
std::vector<std::string> ColumnAttributes(const COLUMNROW& row);
