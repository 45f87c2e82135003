#include "projectversion.h"

#include "analyze.h"
#include "../device/designlines.h"

#include "../../base/banned.h"

bool IsOldProject(HOSTINFO* obj)
{
    HOSTINFO* host = obj ? obj->m_pHost : nullptr;
    if (!host)
        return false;
    char name[] = "projectversion";
    REQUEST lookup = {REQ_LOOKUP, 0, REQTYPE_INT, REQMODE_EDIT, name, nullptr, nullptr};
    host->OnMessage(0, (LPARAM)&lookup);
    char version[260] = {};
    REQUEST read = {REQ_READ, lookup.index, REQTYPE_TEXT, REQMODE_EDIT, version, name, nullptr};
    host->OnMessage(0, (LPARAM)&read);
    version[sizeof version - 1] = '\0';
    return IsOldProjectVersion(version);
}
