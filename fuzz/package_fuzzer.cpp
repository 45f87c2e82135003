// Feeds arbitrary bytes to minizip as a firmware package, read as the
// extraction reads one: each entry's name length first, the name checked by
// the entry rules, the data read in chunks within the extraction limits, and
// the entry sorted into its role. Nothing may crash, a name that passes the
// rules is relative and never climbs out, and no entry yields more bytes
// than the limits allow.
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

#include "memoryzip.h"
#include "../plugin/firmware/archiverules.h"
#include "../base/trace.h"

void Trace(const char*, ...) {}

namespace {

bool ClimbsOut(const std::string& name)
{
    std::string path = name;
    for (char& c : path)
        if (c == '\\')
            c = '/';
    if (path.empty() || path[0] == '/' || path.find(':') != std::string::npos)
        return true;
    int depth = 0;
    size_t start = 0;
    while (start <= path.size()) {
        size_t end = path.find('/', start);
        if (end == std::string::npos)
            end = path.size();
        const std::string part = path.substr(start, end - start);
        if (part == "..")
            depth--;
        else if (!part.empty() && part != ".")
            depth++;
        if (depth < 0)
            return true;
        start = end + 1;
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    MEMORYZIP memory = {data, size, 0};
    unzFile zip = OpenMemoryZip(&memory);
    if (!zip)
        return 0;
    uint32_t entries = 0;
    uint64_t total = 0;
    std::vector<char> chunk(16384);
    for (int err = unzGoToFirstFile(zip); err == UNZ_OK; err = unzGoToNextFile(zip)) {
        unz_file_info64 info;
        if (unzGetCurrentFileInfo64(zip, &info, NULL, 0, NULL, 0, NULL, 0) != UNZ_OK)
            continue;
        char name[ENTRYNAME_SIZE] = {};
        if (info.size_filename >= sizeof name)
            break;  // refused: longer than its buffer
        if (unzGetCurrentFileInfo64(zip, &info, name, sizeof name, NULL, 0, NULL, 0) != UNZ_OK)
            continue;
        name[info.size_filename] = '\0';
        std::string reason;
        if (!IsSafeEntryName(name, info.size_filename, &reason))
            break;
        if (ClimbsOut(name))
            abort();
        if (!WithinExtractionLimits(++entries, total + info.uncompressed_size))
            break;
        ClassifyFirmwareEntry(name);
        if (unzOpenCurrentFile(zip) != UNZ_OK)
            break;
        uint64_t copied = 0;
        for (;;) {
            const int got = unzReadCurrentFile(zip, chunk.data(), (unsigned)chunk.size());
            if (got <= 0)
                break;
            copied += (uint64_t)got;
            total += (uint64_t)got;
            if (!WithinExtractionLimits(0, total))
                break;
            // A fuzz input cannot be worth more than a few chunks of inflation.
            if (copied > (1u << 20))
                break;
        }
        unzCloseCurrentFile(zip);
    }
    unzClose(zip);
    return 0;
}
