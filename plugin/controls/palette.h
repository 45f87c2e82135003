// The flat look shared by every dialog and view of the plug-in.
#pragma once

#include <windows.h>

const COLORREF kFieldColour = RGB(0xFF, 0xFF, 0xCE);       // edit controls, combo boxes
const COLORREF kFaceColour = RGB(0xD4, 0xD0, 0xC8);        // buttons, dialogs, statics
const COLORREF kFrameLight = RGB(0xF1, 0xEF, 0xE2);
const COLORREF kFrameDark = RGB(0x71, 0x6F, 0x64);
const COLORREF kFrameShadow = RGB(0xAC, 0xA8, 0x99);       // also disabled text
const COLORREF kSpinInnerLight = RGB(0xE6, 0xE6, 0xE6);
const COLORREF kWhite = RGB(0xFF, 0xFF, 0xFF);
