// The design's controllers as the system manager sees them: those with a
// console module, their consoles, free addresses and zones, read through the
// host's objects.
#pragma once

#include <stdint.h>

#include <string>
#include <vector>

#include "analyze.h"

// One controller connection new consoles can be added to.
struct CONSOLETARGET {
    HOSTINFO* controller = nullptr;
    std::string name;          // the controller's object name
    std::string module;        // its console module's port name
    int consoles = 0;          // what ".NrOfZEL4010" reported, 0 when unread
    uint32_t freeAddresses = 0;  // bit n set: CAN address n is free
};

// The controllers of root's design by their names ("ORNCON_", then "ELKCON_"), each family by name.
std::vector<HOSTINFO*> FindControllers(HOSTINFO* root);
// Family-A controllers ("ORNCON") and then family-B ones ("ELKCON") of root's
// design that have a console module, each family by name.
std::vector<CONSOLETARGET> FindConsoleTargets(HOSTINFO* root);
// "CONTROLLER.NrOfZEL4010" of the controller; false when it cannot be read.
bool ReadConsoleCount(HOSTINFO* controller, const std::string& name, int* count);
// "ZEL4000.FreeAddresses" of the controller; false when it cannot be read.
bool ReadFreeAddresses(HOSTINFO* controller, uint32_t* freeAddresses);
// "Matrix.Zones" (a text list) of the object named by the connection text.
std::vector<std::string> ReadZones(const std::string& connection);

// The consoles of root's design connected through "CONTROLLER.MODULE", by address.
std::vector<HOSTINFO*> ConsolesOf(HOSTINFO* root, const std::string& connection);
