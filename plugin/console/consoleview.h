// "DOVRIXCONSOLEVIEW": the console picture with its keys, LED marks and label
// boxes, in which keys are selected, labelled, cleared, copied, pasted and,
// on a connected console, pressed.
#pragma once

#include <windows.h>

// The view's own messages.
enum {
    CVM_SETPAGE = WM_USER + 2,           // lParam: 0 side by side, 1 with page buttons
    CVM_HITTEST = WM_USER + 10,          // wParam: int* key id; lParam: client point
    CVM_CONSOLECHANGED = WM_USER + 12,
    CVM_KEYCHANGED = WM_USER + 13,       // lParam: key id
    CVM_REFRESHLEDS = WM_USER + 14,
    CVM_SETEDITMODE = WM_USER + 16,      // lParam low byte: 1 designing, 0 operating
};

// The in-place label editor's notification (WM_COMMAND high word).
const WORD LABELEDITOR_ENTER = 1111;

LRESULT CALLBACK ConsoleViewWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
