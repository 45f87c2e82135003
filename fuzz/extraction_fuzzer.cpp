// Extracts entries of arbitrary names into a scratch folder as the firmware
// extraction does: the entry rules first, then the folder-creating open
// (l_FileOpen) on the real file system. Every file and folder made must lie
// inside the scratch folder; one outside is a finding. Input: entry names, one
// a line.
#include <ftw.h>
#include <limits.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "../plugin/entry/folderopen.h"
#include "../plugin/firmware/archiverules.h"
#include "../base/trace.h"

void Trace(const char*, ...) {}

namespace {

std::string& Scratch()
{
    static std::string folder;
    if (folder.empty()) {
        char pattern[] = "/tmp/dovrixc-extraction-XXXXXX";
        const char* made = mkdtemp(pattern);
        if (!made)
            abort();
        char real[PATH_MAX];
        folder = realpath(made, real) ? real : made;
    }
    return folder;
}

// The Windows path as this file system sees it.
std::string Native(const char* path)
{
    std::string native = path;
    for (char& c : native)
        if (c == '\\')
            c = '/';
    return native;
}

// The nearest existing folder of path, resolved, lies in the scratch folder.
void CheckInside(const std::string& path)
{
    std::string existing = path;
    char real[PATH_MAX];
    while (!realpath(existing.c_str(), real)) {
        const size_t slash = existing.rfind('/');
        if (slash == std::string::npos || slash == 0)
            abort();
        existing.resize(slash);
    }
    const std::string& scratch = Scratch();
    if (strncmp(real, scratch.c_str(), scratch.size()) != 0 ||
        (real[scratch.size()] != '\0' && real[scratch.size()] != '/'))
        abort();
}

void* Open(const char* path, const char* mode, void*)
{
    const std::string native = Native(path);
    CheckInside(native);
    FILE* file = fopen(native.c_str(), mode);
    if (file)
        CheckInside(native);
    return file;
}

void MakeFolder(const char* path, void*)
{
    const std::string native = Native(path);
    CheckInside(native);
    mkdir(native.c_str(), 0700);
    CheckInside(native);
}

int RemoveOne(const char* path, const struct stat*, int, struct FTW*)
{
    return remove(path);
}

void EmptyScratch()
{
    nftw(Scratch().c_str(), RemoveOne, 16, FTW_DEPTH | FTW_PHYS);
    mkdir(Scratch().c_str(), 0700);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string input(reinterpret_cast<const char*>(data), size);
    const FOLDEROPENOPS ops = {Open, MakeFolder, nullptr};
    size_t start = 0;
    for (int entry = 0; entry < 8 && start < input.size(); entry++) {
        size_t end = input.find('\n', start);
        if (end == std::string::npos)
            end = input.size();
        const std::string name = input.substr(start, end - start);
        start = end + 1;
        std::string reason;
        if (name.size() >= ENTRYNAME_SIZE || !IsSafeEntryName(name.data(), name.size(), &reason))
            continue;
        if (name.back() == '/' || name.back() == '\\')
            continue;  // a folder: made when a file needs it
        if (FILE* file = static_cast<FILE*>(OpenCreatingFolders(Scratch().c_str(), name.c_str(), "w+b", ops))) {
            fputs("x", file);
            fclose(file);
        }
    }
    EmptyScratch();
    return 0;
}
