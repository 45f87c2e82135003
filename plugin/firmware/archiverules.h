// The rules a firmware package's entries must follow before anything is
// written, and the roles the entries play. Platform-free.
//
// A package is untrusted input: an entry is written only below the temporary
// folder, under a name Windows takes as it stands, and a package may hold at
// most kMaxEntries entries and kMaxTotalBytes of data (firmware packages are a
// few MiB).
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <string>

enum { ENTRYNAME_SIZE = 256 };  // the name buffer of an entry

const uint32_t kMaxEntries = 1000;
const uint64_t kMaxTotalBytes = 256ull * 1024 * 1024;

enum FIRMWAREROLE {
    ROLE_FIRMWARE,  // the firmware image: neither of the others
    ROLE_DATABASE,  // "ZEL4k_DB_" in the name
    ROLE_FONT,      // "ZEL4k_FONT_" in the name
};

FIRMWAREROLE ClassifyFirmwareEntry(const char* name);

// "Firmware\SOLVAN\" for device types 4 and 6, "Firmware\TX4400\" for all others.
const char* FirmwareFolderOf(int deviceType);

// Whether an entry name may be written below the target folder: not empty,
// shorter than its buffer, relative (no leading separator, no drive letter
// or other colon), no ".." component under either separator, no DOS device
// name (CON, NUL, COM1 ... with or without an extension), no control
// character, and no component Windows would change (ending in a dot or a
// blank). Says why in reason when it is refused.
bool IsSafeEntryName(const char* name, size_t length, std::string* reason);

// Whether a package with this many entries and bytes so far is still within bounds.
bool WithinExtractionLimits(uint32_t entries, uint64_t totalBytes);
