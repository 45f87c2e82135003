// The texts of the device canvas: its tooltip and its face. Platform-free.
#pragma once

#include <stddef.h>

// "Objectname: \t...\nAddress: \t...\nType: \t\t...\nName: \t\t..."; the type
// line names the extension keypads of the family-A and family-B consoles.
void FormatCanvasTooltip(char* text, size_t size, const char* windowText, int address, int model, int keypads,
                         const char* displayName);

// The image id of the console face of a model (images 106, 188, 194).
int CanvasFaceImage(int model);

// 4 for an object name that is "ORNCST" up to its first "_", else 5.
int ModelFromObjectName(const char* name);
