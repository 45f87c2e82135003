// Stand-ins for the family handlers of the plug-in: they note who was called
// with which member number, so the family table is tested on its own.
#pragma once

#include <string>
#include <vector>

#include "../../plugin/device/handlers.h"

struct FAMILYCALL {
    std::string family;
    int member;
};

std::vector<FAMILYCALL>& FamilyCalls();
