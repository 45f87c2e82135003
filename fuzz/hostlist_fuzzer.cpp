// Feeds arbitrary bytes to what the key editor reads of the controller: the
// list of recorded messages (and any comma-separated list), matched against
// a stored message, and chosen into a key's text fields. Nothing may crash or
// overrun a field; what a page stores is a message entry that reads back
// with the number it was written with.
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

#include "../plugin/keyeditor/pagetable.h"
#include "../plugin/keys/keyrecord.h"
#include "../base/trace.h"

void Trace(const char*, ...) {}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // The first line is the stored text, the rest the controller's list.
    const std::string input(reinterpret_cast<const char*>(data), size);
    const size_t end = input.find('\n');
    const std::string stored = input.substr(0, end);
    const std::string list = end == std::string::npos ? std::string() : input.substr(end + 1);
    const std::vector<MESSAGEENTRY> entries = ParseMessageList(list.c_str());
    const int match = MatchMessage(entries, stored.c_str());
    if (match < -1 || match >= (int)entries.size())
        abort();
    SplitItems(list.c_str());
    KEYSLOT slot = EmptyKeySlot();
    ParseKeyRecord("EVAC Messages to Zone,0,0,0,0,0,0,0,,", &slot);
    const PAGECONTROL* message = FindPageControl(FindKeyPage(163), 2000);
    for (const MESSAGEENTRY& entry : entries) {
        if (entry.name.find('|') != std::string::npos || entry.name.find(',') != std::string::npos)
            abort();
        StorePageControlText(*message, &slot, FormatMessageEntry(entry).c_str());
        if (memchr(slot.text2, '\0', KEYTEXT_SIZE) == nullptr)
            abort();
        MESSAGEENTRY back;
        const std::string full = FormatMessageEntry(entry);
        if (full.size() < KEYTEXT_SIZE && (!ParseMessageEntry(slot.text2, &back) || back.number != entry.number))
            abort();
    }
    StoreDestination(&slot, 8, DESTINATION_ZONE, stored.c_str());
    if (memchr(slot.text1, '\0', KEYTEXT_SIZE) == nullptr)
        abort();
    return 0;
}
