// Feeds arbitrary bytes to the key record codec: nothing may crash or overrun
// a field, and a record that was parsed and formatted once is a fixed point:
// parsing and formatting it again gives the same record.
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <string>

#include "../plugin/keys/keyrecord.h"
#include "../base/trace.h"

void Trace(const char*, ...) {}

namespace {

void CheckTerminated(const char* text)
{
    if (memchr(text, '\0', KEYTEXT_SIZE) == nullptr)
        abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string record(reinterpret_cast<const char*>(data), size);
    KEYSLOT slot;
    ParseKeyRecord(record.c_str(), &slot);
    CheckTerminated(slot.text1);
    CheckTerminated(slot.text2);
    CheckTerminated(slot.text3);
    const std::string once = FormatKeyRecord(slot);

    KEYSLOT again;
    ParseKeyRecord(once.c_str(), &again);
    const std::string twice = FormatKeyRecord(again);
    if (once != twice)
        abort();
    return 0;
}
