#include "runfolder.h"

#include <windows.h>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

// "AnalyzeRun-PID-N": a run holds its lock file open while it lives, so a
// folder whose lock can be deleted belongs to a run that has ended.
const char kPrefix[] = "AnalyzeRun-";
const char kLockName[] = "run.lock";

struct RUNFOLDER {
    char path[MAX_PATH] = "";  // with its closing backslash
    HANDLE lock = INVALID_HANDLE_VALUE;
};

RUNFOLDER& Run()
{
    static RUNFOLDER run;
    return run;
}

// Deletes a folder with everything below it; links are removed, never followed.
void RemoveTree(const char* folder)
{
    char pattern[MAX_PATH];
    if (!FormatText(pattern, sizeof pattern, "%s\\*", folder))
        return;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(pattern, &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            if (strcmp(found.cFileName, ".") == 0 || strcmp(found.cFileName, "..") == 0)
                continue;
            char path[MAX_PATH];
            if (!FormatText(path, sizeof path, "%s\\%s", folder, found.cFileName))
                continue;
            const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) &&
                                  !(found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT);
            SetFileAttributesA(path, FILE_ATTRIBUTE_NORMAL);
            if (isFolder)
                RemoveTree(path);
            else if (!DeleteFileA(path))
                RemoveDirectoryA(path);
        } while (FindNextFileA(search, &found));
        FindClose(search);
    }
    RemoveDirectoryA(folder);
}

void RemoveStaleRuns(const char* temp)
{
    char pattern[MAX_PATH];
    if (!FormatText(pattern, sizeof pattern, "%s%s*", temp, kPrefix))
        return;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(pattern, &found);
    if (search == INVALID_HANDLE_VALUE)
        return;
    do {
        if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
            continue;
        char folder[MAX_PATH], lock[MAX_PATH];
        if (!FormatText(folder, sizeof folder, "%s%s", temp, found.cFileName) ||
            !FormatText(lock, sizeof lock, "%s\\%s", folder, kLockName))
            continue;
        // A living run holds its lock without sharing it: the delete fails.
        if (DeleteFileA(lock) || GetLastError() == ERROR_FILE_NOT_FOUND)
            RemoveTree(folder);
    } while (FindNextFileA(search, &found));
    FindClose(search);
}

}  // namespace

bool CreateRunFolder()
{
    RUNFOLDER& run = Run();
    if (run.path[0])
        return true;
    char temp[MAX_PATH];
    const DWORD length = GetTempPathA(sizeof temp, temp);
    if (length == 0 || length >= sizeof temp)
        return false;
    RemoveStaleRuns(temp);
    for (unsigned attempt = 0; attempt < 100; attempt++) {
        char folder[MAX_PATH];
        if (!FormatText(folder, sizeof folder, "%s%s%lu-%u", temp, kPrefix, GetCurrentProcessId(), attempt))
            return false;
        // Fails when the name exists: the folder is always one this run made.
        if (!CreateDirectoryA(folder, NULL))
            continue;
        char lock[MAX_PATH];
        FormatText(lock, sizeof lock, "%s\\%s", folder, kLockName);
        run.lock = CreateFileA(lock, GENERIC_WRITE, 0, NULL, CREATE_NEW, FILE_ATTRIBUTE_HIDDEN, NULL);
        if (run.lock == INVALID_HANDLE_VALUE) {
            RemoveTree(folder);
            continue;
        }
        FormatText(run.path, sizeof run.path, "%s\\", folder);
        return true;
    }
    return false;
}

void RemoveRunFolder()
{
    RUNFOLDER& run = Run();
    if (!run.path[0])
        return;
    if (run.lock != INVALID_HANDLE_VALUE)
        CloseHandle(run.lock);
    run.lock = INVALID_HANDLE_VALUE;
    char folder[MAX_PATH];
    CopyText(folder, run.path);
    folder[strlen(folder) - 1] = '\0';
    RemoveTree(folder);
    run.path[0] = '\0';
}

const char* RunFolder()
{
    return Run().path;
}
