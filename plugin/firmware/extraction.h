// Unpacking a firmware package into the host's temporary folder.
#pragma once

#include <stdio.h>

#include <string>
#include <vector>

enum { FIRMWAREPATH_SIZE = 4096 };

// Opens "folder\relative", creating the missing folders on the way (the
// plug-in exports it as l_FileOpen).
FILE* OpenFileCreatingFolders(const char* folder, const char* relative, const char* mode);

// Unpacks every entry of the package below the temporary folder and sorts the
// files into the three roles: firmware and database (both required) and font
// ("None" when the package has none; the font buffer holds "None" on entry).
// Answers 1 on success, 0 on failure; the reasons are traced. Every file
// written is listed in written; after a failure they are already deleted.
int ExtractFirmwarePackage(const char* package, char* firmware, char* database, char* font,
                           std::vector<std::string>* written);

// Deletes the files of an extraction (its clean-up after an upload).
void DeleteExtractedFiles(std::vector<std::string>* written);
