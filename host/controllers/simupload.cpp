#include "simupload.h"

#include "../../base/text.h"
#include "../../base/banned.h"

bool ParseUploadRequest(const std::string& text, UPLOADREQUEST* request)
{
    std::vector<std::string> fields;
    size_t start = 0;
    for (int field = 0; field < 4; field++) {
        const size_t bar = text.find('|', start);
        if (bar == std::string::npos)
            return false;
        fields.push_back(text.substr(start, bar - start));
        start = bar + 1;
    }
    fields.push_back(text.substr(start));  // the password may hold anything
    UPLOADREQUEST parsed;
    if (!ParseInt(fields[0].c_str(), &parsed.console) || fields[1].empty() || fields[2].empty())
        return false;
    parsed.files = {fields[1], fields[2]};
    if (fields[3] != "None")
        parsed.files.push_back(fields[3]);
    parsed.password = fields[4];
    *request = parsed;
    return true;
}

UPLOADSTATE UploadStateAt(uint32_t elapsed, int fileCount, bool refused)
{
    if (elapsed < kUploadStartMs)
        return {1, 0, 0};
    if (refused)
        return {6, 5, 100};
    const uint32_t inFiles = elapsed - kUploadStartMs;
    const int file = (int)(inFiles / kUploadFileMs);
    if (file >= fileCount)
        return {5, 4, 100};
    const uint32_t at = inFiles % kUploadFileMs;
    // Erase, initialise, the chunks (with their percentage), done.
    if (at < kUploadFileMs / 10)
        return {2 + file, 1, 0};
    if (at < kUploadFileMs / 5)
        return {2 + file, 2, 0};
    if (at < kUploadFileMs * 9 / 10)
        return {2 + file, 3, (int)((at - kUploadFileMs / 5) * 100 / (kUploadFileMs * 7 / 10))};
    return {2 + file, 4, 100};
}
