// The folder-creating open behind l_FileOpen, with the file system passed in
// so that its separator rules can be tested without one. Platform-free.
#pragma once

#include <stddef.h>

struct FOLDEROPENOPS {
    void* (*open)(const char* path, const char* mode, void* context);  // null on failure
    void (*makeFolder)(const char* path, void* context);               // failures are ignored
    void* context;
};

enum { FOLDEROPEN_PATH_SIZE = 4096 };

// Opens "folder\relative", creating missing folders on the way: after each
// failed open the path is cut at the next separator after the folder part (a
// backslash if one is left, else a forward slash), that folder is created,
// the separator restored as a backslash, and the open tried again. Returns
// null when no separator is left or the path does not fit its buffer.
void* OpenCreatingFolders(const char* folder, const char* relative, const char* mode, const FOLDEROPENOPS& ops);
