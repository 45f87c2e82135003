// A firmware upload as the simulated controller runs it: the overall state of
// "ZEL4000.FirmwareUpdateState" and the console's flash-program state and
// percent, as functions of host time. Platform-free.
#pragma once

#include <stdint.h>

#include <string>
#include <vector>

struct UPLOADREQUEST {
    int console = 0;                 // the console's number in the host
    std::vector<std::string> files;  // firmware, database and, unless "None", font
    std::string password;
};

// Splits "%d|%s|%s|%s|%s" (console, firmware, database, font, password).
bool ParseUploadRequest(const std::string& text, UPLOADREQUEST* request);

struct UPLOADSTATE {
    int overall;        // 0 idle, 1 starting, 2..4 file 1..3, 5 done, 6 failed
    int flashState;     // the console's "FlashProgramState" 0..6
    int flashPercent;   // its "FlashProgramPercent"
};

const uint32_t kUploadStartMs = 400;  // "Uploading files to device"
const uint32_t kUploadFileMs = 1000;  // each file: erase, initialise, chunks, done

// Where an upload of fileCount files stands elapsed ms after its start; one
// that is refused (bad password, missing file) fails once started.
UPLOADSTATE UploadStateAt(uint32_t elapsed, int fileCount, bool refused);
