// A file name in the test's temporary folder that no other test process uses
// at the same time.
#pragma once

#include <unistd.h>

#include <string>

#include <gtest/gtest.h>

inline std::string TempPath(const char* name)
{
    return testing::TempDir() + "native" + std::to_string((long)getpid()) + "_" + name;
}
