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
    // Binary search over the byte-wise order Finish gave; of equal keywords
    // the first in the table answers. The blank sentinel sorts first, so a
    // match there answers 0 as well.
    if (keyword) {
        const auto first = std::lower_bound(m_entries.begin(), m_entries.end(), keyword,
                                            [](const KEYWORDENTRY& entry, const char* wanted) {
                                                return strcmp(entry.keyword.c_str(), wanted) < 0;
                                            });
        const size_t index = (size_t)(first - m_entries.begin());
        if (first != m_entries.end() && index <= UINT16_MAX && first->keyword == keyword)
            return (uint16_t)index;
    }
    Trace("Console Keyword not found: %s\n", keyword ? keyword : "");
    return 0;
}
