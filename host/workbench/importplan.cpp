#include "importplan.h"

#include <stdio.h>

#include "../../tools/designreport/designmodel.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

bool ReadBytes(const char* path, std::string* bytes)
{
    FILE* file = fopen(path, "rb");
    if (!file)
        return false;
    char chunk[1 << 16];
    size_t got;
    while ((got = fread(chunk, 1, sizeof chunk, file)) > 0)
        bytes->append(chunk, got);
    const bool ok = !ferror(file);
    fclose(file);
    return ok;
}

}  // namespace

std::string PlanFileName(const char* path)
{
    const std::string text = path ? path : "";
    const size_t slash = text.find_last_of("\\/");
    return slash == std::string::npos ? text : text.substr(slash + 1);
}

bool ReadPlanForDesign(HOSTINFO* design, const char* planPath, KEYPLAN* plan, std::string* why)
{
    std::string planBytes;
    if (!ReadBytes(planPath, &planBytes)) {
        *why = FormatString("Cannot read the key plan %s", planPath);
        return false;
    }
    char folder[MAX_PATH] = "", copy[MAX_PATH] = "";
    if (!GetTempPathA(sizeof folder, folder) || !GetTempFileNameA(folder, "kpl", 0, copy)) {
        *why = "Cannot make a temporary file for the design";
        return false;
    }
    std::string designText;
    const bool read = a_SaveCopy(design, copy) && ReadBytes(copy, &designText);
    DeleteFileA(copy);
    if (!read) {
        *why = "Cannot write the design for the key plan";
        return false;
    }
    *plan = ReadKeyPlan(ReadDesignText(designText, "design"), planBytes);
    return true;
}

bool ApplyPlanEdits(HOSTINFO* design, const KEYPLAN& plan)
{
    bool all = true;
    for (const std::string& line : PlanDesignLines(plan))
        all = a_LoadLine(design, line.c_str(), 0) && all;
    return all;
}
