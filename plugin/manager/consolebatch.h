// The design text that adds several consoles of one type to a controller in
// one step: control lines, identity, the fixed keys, extensions and one
// "Select Zone" key per zone of the controller. Platform-free.
#pragma once

#include <stdint.h>

#include <string>
#include <vector>

// What the add-consoles dialog hands the generation.
struct CONSOLEBATCH {
    std::string type;                // "ORN-15CST", "ORN-CSK", "ELK-15CST" or "ELK-CSK"
    int count = 0;                   // how many consoles
    int start = 0;                   // the first console's CAN address
    int extensions = 0;              // 0 ("none") to 5
    std::string connection;          // "CONTROLLER.MODULE"
    std::string controller;          // the controller's object name (the zones' owner)
    std::vector<std::string> zones;  // the controller's zones, in order
    uint32_t freeAddresses = 0;      // bit n set: CAN address n is free
};

// "ORNCST" or "ELKCST" by the type's family; null for a type of neither.
const char* ConsolePrefix(const std::string& type);
// Keypads take no extensions.
bool IsKeypadType(const std::string& type);
// The address the console after the one at address gets: the first free one
// above it (restarting at 0 above 16); above 16 when none is left.
int NextConsoleAddress(int address, uint32_t freeAddresses);
// How many consoles fit at the free addresses from start up to 16.
int ConsoleCapacity(uint32_t freeAddresses, int start);
// The lines of every new console, each ending in a line feed (but for the
// extension count, which runs into the extension types as the device's tools
// always wrote it). Stops early when the addresses run out.
std::string GenerateConsoles(const CONSOLEBATCH& batch);
