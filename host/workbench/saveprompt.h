// Asking before a changed design is dropped (File > Open, New, Exit and
// closing the window), as Windows programs do. Headless runs never ask.
#pragma once

#include <windows.h>

#include <string>

struct WORKBENCH;

// Saves the design where the user wants it; false when it was not saved.
typedef bool (*SAVEDESIGNFUNCTION)(HWND owner, WORKBENCH* bench);

// The name the question uses: the design file's name, or "Untitled".
std::string DesignTitle(const WORKBENCH* bench);
// True when the design may be dropped: nothing changed, the user chose No,
// or chose Yes and the design was saved. False on Cancel or a failed save.
bool ConfirmDropDesign(HWND owner, WORKBENCH* bench, SAVEDESIGNFUNCTION save);
