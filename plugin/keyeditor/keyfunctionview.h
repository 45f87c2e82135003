// "DOVRIXKEYFUNCTIONVIEW": the tree of key functions that are dragged onto
// the keys of the console picture; and "KEYFUNCTIONVIEWWORKSPACE", the pane
// that can host an editor page.
#pragma once

#include <windows.h>

// Its own message (KFM_SETCONSOLE) is in protocol.h. While a drag ends,
// WM_LBUTTONUP answers 1 when the key took the dragged function.
LRESULT CALLBACK KeyFunctionViewWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK KeyFunctionWorkspaceWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
