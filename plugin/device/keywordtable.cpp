#include "keywordtable.h"

#include <string.h>

#include <algorithm>

#include "../../base/trace.h"
#include "../../base/banned.h"

bool KEYWORDTABLE::Add(const char* keyword, KEYWORDHANDLER handler, uint32_t parameter, uint32_t flags)
{
    if (!keyword)
        return false;
    m_entries.push_back(KEYWORDENTRY{keyword, handler, parameter, flags});
    return true;
}

void KEYWORDTABLE::Finish()
{
    std::stable_sort(m_entries.begin(), m_entries.end(), [](const KEYWORDENTRY& a, const KEYWORDENTRY& b) {
        return strcmp(a.keyword.c_str(), b.keyword.c_str()) < 0;
    });
}

uint16_t KEYWORDTABLE::Lookup(const char* keyword) const
{
    // The blank sentinel sorts first, so a match there answers 0 as well.
    for (size_t i = 0; keyword && i < m_entries.size() && i <= UINT16_MAX; i++)
        if (m_entries[i].keyword == keyword)
            return (uint16_t)i;
    Trace("Console Keyword not found: %s\n", keyword ? keyword : "");
    return 0;
}
