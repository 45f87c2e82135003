#include "folderopen.h"

#include <string.h>

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/banned.h"

void* OpenCreatingFolders(const char* folder, const char* relative, const char* mode, const FOLDEROPENOPS& ops)
{
    if (!folder || !relative || !mode)
        return nullptr;
    char path[FOLDEROPEN_PATH_SIZE];
    if (!FormatText(path, sizeof path, "%s\\%s", folder, relative)) {
        Trace("l_FileOpen: path too long: %s\\%.64s...\n", folder, relative);
        return nullptr;
    }
    char* search = path + strlen(folder) + 1;
    for (;;) {
        if (void* stream = ops.open(path, mode, ops.context))
            return stream;
        char* separator = strchr(search, '\\');
        if (!separator)
            separator = strchr(search, '/');
        if (!separator)
            return nullptr;
        *separator = '\0';
        ops.makeFolder(path, ops.context);
        *separator = '\\';
        search = separator + 1;
    }
}
