// The host framework's request record and its codes. Free of windows.h so that
// platform-free logic (keyword tables, parsers) can use it.
#pragma once

#include <stdint.h>

// One property or host-variable access. Seven fields, in this order; the
// three pointers are 32-bit in the product and pointer-sized elsewhere.
struct REQUEST {
    int32_t operation;   // REQ_READ, REQ_WRITE or REQ_LOOKUP
    int32_t index;       // keyword-table index, 0 = not resolved yet
    int32_t type;        // REQTYPE_*
    int32_t mode;        // REQMODE_DESIGNFILE when the write comes from loading
    void* value;         // the value (byte, int or text by type); on lookup
                         // also the keyword when name is empty
    const char* name;    // keyword or variable name, or null
    const char* prefix;  // optional: the keyword looked up is prefix "." name
};

enum {
    REQ_READ = 1,
    REQ_WRITE = 2,
    REQ_LOOKUP = 4,
};

enum {
    REQTYPE_BYTE = 2,
    REQTYPE_INT = 5,
    REQTYPE_FLAG = 6,
    REQTYPE_TEXT = 11,
    REQTYPE_TEXTLIST = 46,
};

// A text value buffer (type 11) holds at least this many bytes; whoever fills
// one writes no more. A value as long as a design line allows (the layer list
// of a design with many layers) fits, so saving never cuts one.
enum { REQUEST_TEXT_SIZE = 4096 };

enum {
    REQMODE_EDIT = 0,
    REQMODE_DESIGNFILE = 1,
};
