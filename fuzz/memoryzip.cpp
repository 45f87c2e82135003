#include "memoryzip.h"

#include <string.h>

namespace {

voidpf Open(voidpf opaque, const void*, int)
{
    MEMORYZIP* memory = static_cast<MEMORYZIP*>(opaque);
    memory->position = 0;
    return memory;
}

uLong Read(voidpf, voidpf stream, void* buffer, uLong size)
{
    MEMORYZIP* memory = static_cast<MEMORYZIP*>(stream);
    const size_t left = memory->size - memory->position;
    const size_t count = size < left ? size : left;
    memcpy(buffer, memory->data + memory->position, count);
    memory->position += count;
    return (uLong)count;
}

uLong Write(voidpf, voidpf, const void*, uLong)
{
    return 0;
}

ZPOS64_T Tell(voidpf, voidpf stream)
{
    return static_cast<MEMORYZIP*>(stream)->position;
}

long Seek(voidpf, voidpf stream, ZPOS64_T offset, int origin)
{
    MEMORYZIP* memory = static_cast<MEMORYZIP*>(stream);
    ZPOS64_T base = 0;
    if (origin == ZLIB_FILEFUNC_SEEK_CUR)
        base = memory->position;
    else if (origin == ZLIB_FILEFUNC_SEEK_END)
        base = memory->size;
    else if (origin != ZLIB_FILEFUNC_SEEK_SET)
        return -1;
    if (offset > memory->size || base + offset > memory->size)
        return -1;
    memory->position = (size_t)(base + offset);
    return 0;
}

int Close(voidpf, voidpf)
{
    return 0;
}

int Error(voidpf, voidpf)
{
    return 0;
}

}  // namespace

unzFile OpenMemoryZip(MEMORYZIP* memory)
{
    zlib_filefunc64_def functions = {};
    functions.zopen64_file = Open;
    functions.zread_file = Read;
    functions.zwrite_file = Write;
    functions.ztell64_file = Tell;
    functions.zseek64_file = Seek;
    functions.zclose_file = Close;
    functions.zerror_file = Error;
    functions.opaque = memory;
    return unzOpen2_64("memory", &functions);
}
