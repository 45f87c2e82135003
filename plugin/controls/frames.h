// Frames, arrow glyphs and button parts of the flat controls.
#pragma once

#include <windows.h>

// Button states: 0-2 raised (1 normal, 2 disabled combo arrow), 3 pressed
// combo arrow, 4-6 sunken, 7 raised spin button, 8 pressed spin button,
// 9 disabled spin button.
enum {
    PART_NORMAL = 1,
    PART_DISABLED = 2,
    PART_PRESSED = 3,
    PART_SUNKEN = 5,
    PART_SPIN = 7,
    PART_SPIN_PRESSED = 8,
    PART_SPIN_DISABLED = 9,
};

// The state of a combo arrow (spin false) or a spin button: the mouse button
// is read as it is now.
int ButtonPartState(bool spin, bool disabled, bool buttonDown, bool cursorInside);

// Draws the frame of a state on rect; answers whether it drew an inner frame.
bool DrawStateFrame(HDC hdc, const RECT& rect, int state);

// One "Marlett" glyph ("t" "u" vertical pair, "w" "8" horizontal pair),
// centred, embossed when disabled. firstHalf moves it as its half requires.
void DrawArrowGlyph(HDC hdc, RECT rect, char glyph, int height, bool enabled, bool firstHalf, bool horizontal);

// A combo arrow or spin half: frame, face and glyph, through a memory bitmap.
void PaintButtonPart(HDC hdc, const RECT& part, int state, COLORREF face, char glyph, int glyphHeight, bool firstHalf,
                     bool horizontal);
