#include "saveprompt.h"

#include "workbench.h"

#include "../../base/text.h"
#include "../../base/banned.h"

std::string DesignTitle(const WORKBENCH* bench)
{
    const std::string& path = bench->designPath;
    if (path.empty())
        return "Untitled";
    const size_t slash = path.find_last_of("\\/");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

bool ConfirmDropDesign(HWND owner, WORKBENCH* bench, SAVEDESIGNFUNCTION save)
{
    if (!bench->design || !a_IsModified(bench->design))
        return true;
    char question[MAX_PATH + 32];
    FormatText(question, sizeof question, "Save changes to %s?", DesignTitle(bench).c_str());
    switch (MessageBoxA(owner, question, "DOVRIXC Workbench", MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return save(owner, bench);
    case IDNO:
        return true;
    default:
        return false;
    }
}
