#include "partner.h"

#include "../../base/banned.h"

bool ReadVariable(HOSTINFO* partner, const char* name, void* result, int type)
{
    if (!partner || !name)
        return false;
    REQUEST lookup = {REQ_LOOKUP, 0, type, REQMODE_EDIT, const_cast<char*>(name), name, nullptr};
    partner->OnMessage(0, (LPARAM)&lookup);
    if (lookup.index == 0)
        return false;
    REQUEST read = {REQ_READ, lookup.index, type, REQMODE_EDIT, result, name, nullptr};
    partner->OnMessage(0, (LPARAM)&read);
    return true;
}

LRESULT WriteVariable(HOSTINFO* partner, const char* name, const void* value, int type)
{
    if (!partner || !name)
        return 0;
    REQUEST write = {REQ_WRITE, 0, type, REQMODE_EDIT, const_cast<void*>(value), name, nullptr};
    return partner->OnMessage(0, (LPARAM)&write);
}
