// Feeds arbitrary bytes to the several-keys clipboard codec as a block read
// from the clipboard: nothing may crash, a refused block leaves the keys as
// they were, and an accepted one is written and read back unchanged.
#include <stdint.h>
#include <stdlib.h>

#include <string>
#include <vector>

#include "../plugin/keys/keyblock.h"
#include "../base/trace.h"

void Trace(const char*, ...) {}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::vector<BLOCKKEY> keys = {{0, "kept", ""}};
    std::string error;
    if (!DecodeKeyBlock(reinterpret_cast<const char*>(data), size, &keys, &error)) {
        if (keys.size() != 1 || keys[0].record != "kept" || error.empty())
            abort();
        return 0;
    }
    std::string text;
    if (!EncodeKeyBlock(keys, &text, &error))
        abort();
    std::vector<BLOCKKEY> again;
    if (!DecodeKeyBlock(text.data(), text.size(), &again, &error) || again.size() != keys.size())
        abort();
    for (size_t i = 0; i < keys.size(); ++i)
        if (again[i].offset != keys[i].offset || again[i].record != keys[i].record || again[i].label != keys[i].label)
            abort();
    for (int target : {0, 61, 123})
        if (PlaceKeyBlock(keys, target).size() != keys.size())
            abort();
    return 0;
}
