// A file of the source tree, read whole (empty when it cannot be read).
#pragma once

#include <fstream>
#include <sstream>
#include <string>

inline std::string SourceFile(const char* path)
{
    std::ifstream file(std::string(DOVRIXC_SOURCE_DIR) + "/" + path, std::ios::binary);
    std::stringstream content;
    content << file.rdbuf();
    return content.str();
}
