// Text rules of a console object's design-file lines. Platform-free.
#pragma once

#include <stddef.h>

#include <string>
#include <vector>

// Splits a full object name at its last "*": prefix gets everything up to and
// including it (empty when there is none), the result points at the local name.
const char* SplitObjectName(const char* fullName, char* prefix, size_t prefixSize);

// Old projects had no test fault mask: their FaultMask7..9 are today's
// FaultMask8..10. Rewrites key in place and answers true when it was shifted.
bool ShiftOldFaultMaskKey(char* key, size_t size);

// Whether a "projectversion" text names a project older than the test fault
// mask ("V %d.%d.%d", missing parts 0; empty text is not old).
bool IsOldProjectVersion(const char* version);

// "%d,%d" of a screen position, as "hostrect" carries it; refuses numbers
// that do not fit an int.
bool ParsePosition(const char* text, int* x, int* y);

// Pulls a position back so that position + extent stays at most limit,
// without overflowing whatever the three values are.
int PullBackInside(int position, int extent, int limit);

// a + b, held at INT_MIN and INT_MAX instead of wrapping.
int AddSaturated(int a, int b);

// "extensionTypes": up to count comma-separated decimals, stopping at the
// first that does not parse; answers how many of them are not 0.
int CountExtensionTypes(const char* text, int count);

// "layer": the layer names joined by ","; empty names are dropped and each
// is cut to nameSize - 1 characters.
std::vector<std::string> SplitLayerList(const char* text, size_t nameSize);

// "CONTROLLER.PORT" of a console's connection.
struct CONNECTIONTEXT {
    std::string controller;
    std::string port;
    bool valid = false;  // a controller of either family and a console port
};
CONNECTIONTEXT SplitConnection(const char* text);
