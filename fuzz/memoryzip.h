// minizip reading a package from memory: the fuzz targets hand it bytes, not files.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "unzip.h"

struct MEMORYZIP {
    const uint8_t* data;
    size_t size;
    size_t position;
};

// Opens the bytes as a ZIP container; null when minizip refuses them.
unzFile OpenMemoryZip(MEMORYZIP* memory);
