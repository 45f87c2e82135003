// The plug-in's flat controls: owner-drawn push buttons, the dialog colours,
// the flat combo box and the spin control.
#pragma once

#include <windows.h>

// WM_DRAWITEM of an owner-drawn push button (the dialogs' OK and Cancel).
void DrawOwnerPushButton(const DRAWITEMSTRUCT* item);

// WM_CTLCOLOREDIT, WM_CTLCOLORBTN, WM_CTLCOLORSTATIC, WM_CTLCOLORDLG of a
// dialog: the colour set on the DC and the host's brush; 0 for other messages.
LRESULT DialogColours(UINT message, HDC hdc);

// The flat look of a dialog: its owner-drawn buttons and its colours. True
// with the dialog procedure's answer in result when the message was one of them.
bool FlatDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, INT_PTR* result);

// The module's standard font height (a cell height in pixels, about a combo
// box's height): the flat combo box and the console selector write 8 below it.
int ReferenceFontHeight();

// Paints a combo box flat: yellow field, selection text, arrow button.
void PaintFlatCombo(HWND combo, HDC hdc);

// Draws a spin control over itself with its frame and two spin buttons;
// unsubclasses itself when the control is destroyed.
bool SubclassSpin(HWND spin);

// Whether the spin's parent class is a prefix of "SysDateTimePick32" (the
// comparison takes the length of the parent's class name).
bool IsDateTimePickerClass(const char* parentClass);
