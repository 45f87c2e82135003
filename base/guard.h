// Entry points the host calls directly (exported functions, HOSTINFO
// overrides, DllMain): nothing thrown inside may reach the host, which was
// not written for exceptions. What failed is traced and the entry answers
// its failure value.
#pragma once

#include <exception>

#include "trace.h"

template <class RESULT, class BODY>
RESULT GuardedCall(const char* entry, RESULT failure, BODY body)
{
    try {
        return body();
    } catch (const std::exception& error) {
        Trace("%s failed: %s\n", entry, error.what());
    } catch (...) {
        Trace("%s failed\n", entry);
    }
    return failure;
}
