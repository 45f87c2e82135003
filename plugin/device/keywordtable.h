// The sorted table of a console object's keywords: handler and flags of every
// property name. Platform-free.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <string>
#include <vector>

#include "analyze_request.h"

class CONSOLEPROPERTIES;

// Answers one request for one keyword: non-zero when served.
typedef int (*KEYWORDHANDLER)(REQUEST* request, CONSOLEPROPERTIES* console);

enum : uint32_t {
    KEYWORD_SAVED = 0x2000,   // written to the design file
    KEYWORD_LISTED = 0x8000,  // shown in the host's property list
};

struct KEYWORDENTRY {
    std::string keyword;
    KEYWORDHANDLER handler;  // may be null: the keyword is known but not served
    uint32_t parameter;
    uint32_t flags;
};

class KEYWORDTABLE {
public:
    bool Add(const char* keyword, KEYWORDHANDLER handler, uint32_t parameter, uint32_t flags);
    // Sorts byte-wise; indexes are positions in the sorted table.
    void Finish();
    // Binary search of the finished table, exact match; 0 (the blank
    // sentinel's index) when unknown.
    uint16_t Lookup(const char* keyword) const;

    size_t Count() const { return m_entries.size(); }
    const KEYWORDENTRY& Entry(size_t index) const { return m_entries[index]; }

private:
    std::vector<KEYWORDENTRY> m_entries;
};
