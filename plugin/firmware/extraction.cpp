#include "extraction.h"

#include <windows.h>

#include "unzip.h"

#include "archiverules.h"
#include "analyze.h"
#include "../entry/folderopen.h"

#include "../../base/text.h"
#include "../../base/trace.h"
#include "../../base/banned.h"

namespace {

const size_t kChunkSize = 16384;

void* OpenStream(const char* path, const char* mode, void*)
{
    return fopen(path, mode);
}

void MakeFolder(const char* path, void*)
{
    CreateDirectoryA(path, NULL);
}

// The temporary folder without its closing backslash.
void TemporaryFolder(char* folder, size_t size)
{
    a_MakeFullTempPathName("", folder, (int)size);
    const size_t length = strlen(folder);
    if (length > 0 && (folder[length - 1] == '\\' || folder[length - 1] == '/'))
        folder[length - 1] = '\0';
}

// The archive keeps local DOS times; the file gets them as creation, access and write time.
void StampFile(const char* path, uLong dosDate)
{
    FILETIME local, stamp;
    if (!DosDateTimeToFileTime(HIWORD(dosDate), LOWORD(dosDate), &local) || !LocalFileTimeToFileTime(&local, &stamp))
        return;
    HANDLE file = CreateFileA(path, FILE_WRITE_ATTRIBUTES, 0, NULL, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, NULL);
    if (file == INVALID_HANDLE_VALUE)
        return;
    SetFileTime(file, &stamp, &stamp, &stamp);
    CloseHandle(file);
}

// Copies the open entry in chunks; false when the archive cannot be read, the
// entry gives another size than it declares (unzCloseCurrentFile checks the
// CRC only of an entry read to its declared end), or the package grows past
// its bound.
bool CopyEntry(unzFile zip, FILE* out, uint64_t declared, uint64_t* total)
{
    std::vector<char> chunk(kChunkSize);
    uint64_t copied = 0;
    for (;;) {
        const int got = unzReadCurrentFile(zip, chunk.data(), (unsigned)chunk.size());
        if (got == 0)
            return copied == declared;
        if (got < 0)
            return false;
        copied += (uint64_t)got;
        *total += (uint64_t)got;
        if (!WithinExtractionLimits(0, *total) || fwrite(chunk.data(), 1, (size_t)got, out) != (size_t)got)
            return false;
    }
}

struct PACKAGE {
    const char* path;
    char folder[MAX_PATH];
    char* roles[3];  // firmware, database, font
    std::vector<std::string>* written;
    uint32_t entries = 0;
    uint64_t total = 0;
};

// One entry: checked, written, stamped and sorted. False fails the package.
bool ExtractEntry(unzFile zip, PACKAGE* package)
{
    unz_file_info64 info;
    // The name's length first: unzGetCurrentFileInfo does not end a name that does not fit.
    int err = unzGetCurrentFileInfo64(zip, &info, NULL, 0, NULL, 0, NULL, 0);
    if (err != UNZ_OK) {
        Trace("error %d with zipfile %s in unzGetCurrentFileInfo\n", err, package->path);
        return true;
    }
    char name[ENTRYNAME_SIZE] = {};
    std::string reason;
    if (info.size_filename >= sizeof name) {
        Trace("Refused entry of %s: name longer than its buffer\n", package->path);
        return false;
    }
    err = unzGetCurrentFileInfo64(zip, &info, name, sizeof name, NULL, 0, NULL, 0);
    if (err != UNZ_OK) {
        Trace("error %d with zipfile %s in unzGetCurrentFileInfo\n", err, package->path);
        return true;
    }
    name[info.size_filename] = '\0';
    if (!IsSafeEntryName(name, info.size_filename, &reason)) {
        Trace("Refused entry %s: %s\n", name, reason.c_str());
        return false;
    }
    if (!WithinExtractionLimits(++package->entries, package->total + info.uncompressed_size)) {
        Trace("Refused package %s: more than %u entries or %llu bytes\n", package->path, kMaxEntries,
              (unsigned long long)kMaxTotalBytes);
        return false;
    }
    const size_t length = strlen(name);
    if (name[length - 1] == '/' || name[length - 1] == '\\')
        return true;  // a folder: made when a file needs it

    Trace("%s (%d)\n", name, (int)info.uncompressed_size);
    err = unzOpenCurrentFile(zip);
    if (err != UNZ_OK) {
        Trace("error %d with zipfile in unzOpenCurrentFile\n", err);
        return false;
    }
    char path[FIRMWAREPATH_SIZE];
    FormatText(path, sizeof path, "%s\\%s", package->folder, name);
    FILE* out = OpenFileCreatingFolders(package->folder, name, "w+b");
    bool ok = true;
    if (!out) {
        Trace("fopen\n");
    } else {
        package->written->push_back(path);
        ok = CopyEntry(zip, out, info.uncompressed_size, &package->total);
        if (!ok)
            Trace("error reading %s from %s\n", name, package->path);
        fclose(out);
        StampFile(path, info.dosDate);
        CopyText(package->roles[ClassifyFirmwareEntry(path)], FIRMWAREPATH_SIZE, path);
    }
    err = unzCloseCurrentFile(zip);
    if (err != UNZ_OK) {
        Trace("error %d with zipfile in unzCloseCurrentFile\n", err);
        return false;  // a CRC mismatch or a truncated entry
    }
    return ok;
}

}  // namespace

FILE* OpenFileCreatingFolders(const char* folder, const char* relative, const char* mode)
{
    const FOLDEROPENOPS ops = {OpenStream, MakeFolder, nullptr};
    return static_cast<FILE*>(OpenCreatingFolders(folder, relative, mode, ops));
}

void DeleteExtractedFiles(std::vector<std::string>* written)
{
    for (const std::string& path : *written)
        DeleteFileA(path.c_str());
    written->clear();
}

int ExtractFirmwarePackage(const char* package, char* firmware, char* database, char* font,
                           std::vector<std::string>* written)
{
    PACKAGE p;
    p.path = package;
    p.roles[ROLE_FIRMWARE] = firmware;
    p.roles[ROLE_DATABASE] = database;
    p.roles[ROLE_FONT] = font;
    p.written = written;
    TemporaryFolder(p.folder, sizeof p.folder);
    if (!p.folder[0]) {
        Trace("no temporary folder to extract %s into\n", package);
        return 0;
    }

    unzFile zip = unzOpen64(package);
    if (!zip) {
        Trace("Can not open %s\n", package);
        return 0;
    }
    bool ok = true;
    int err = unzGoToFirstFile(zip);
    if (err != UNZ_OK)
        Trace("no file found in the zipfile\n");
    while (err == UNZ_OK && ok) {
        ok = ExtractEntry(zip, &p);
        err = unzGoToNextFile(zip);
    }
    if (ok && err != UNZ_END_OF_LIST_OF_FILE && err != UNZ_OK)
        ok = false;  // the central directory breaks off
    if (unzClose(zip) != UNZ_OK) {
        Trace("Error in closing %s\n", package);
        ok = false;
    }
    if (ok && firmware[0] && database[0])
        return 1;
    DeleteExtractedFiles(written);
    return 0;
}
