// The skeleton every window and dialog of the plug-in is written on: its
// state object in the window's user data, made when the window is created and
// freed when it is destroyed, and a window procedure that nothing thrown
// inside leaves (the host's message loop would not survive it).
#pragma once

#include <windows.h>
#include <commctrl.h>

#include "trace.h"

// ---- State in the window's user data ---------------------------------------
// A window keeps its state in GWLP_USERDATA, a dialog in DWLP_USER.

template <class STATE>
STATE* StateIn(HWND hwnd, int slot)
{
    return reinterpret_cast<STATE*>(GetWindowLongPtrA(hwnd, slot));
}

// Keeps state in the window (at WM_CREATE or WM_INITDIALOG); returns it.
template <class STATE>
STATE* AttachStateIn(HWND hwnd, int slot, STATE* state)
{
    SetWindowLongPtrA(hwnd, slot, reinterpret_cast<LONG_PTR>(state));
    return state;
}

// Takes the state out of the window and frees it (at WM_DESTROY): messages
// that come later find none.
template <class STATE>
void FreeStateIn(HWND hwnd, int slot)
{
    STATE* state = StateIn<STATE>(hwnd, slot);
    SetWindowLongPtrA(hwnd, slot, 0);
    delete state;
}

template <class STATE>
STATE* WindowState(HWND hwnd) { return StateIn<STATE>(hwnd, GWLP_USERDATA); }
template <class STATE>
STATE* AttachWindowState(HWND hwnd, STATE* state) { return AttachStateIn(hwnd, GWLP_USERDATA, state); }
template <class STATE>
void FreeWindowState(HWND hwnd) { FreeStateIn<STATE>(hwnd, GWLP_USERDATA); }

template <class STATE>
STATE* DialogState(HWND dialog) { return StateIn<STATE>(dialog, DWLP_USER); }
template <class STATE>
STATE* AttachDialogState(HWND dialog, STATE* state) { return AttachStateIn(dialog, DWLP_USER, state); }
template <class STATE>
void FreeDialogState(HWND dialog) { FreeStateIn<STATE>(dialog, DWLP_USER); }

// ---- Guarded procedures ------------------------------------------------------

// What a window answers when handling a message failed: creation fails
// (WM_NCCREATE FALSE, WM_CREATE -1), anything else gets the default answer.
inline LRESULT FailedMessageAnswer(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    char className[64] = "";
    GetClassNameA(hwnd, className, sizeof className);
    Trace("%s: message 0x%04x failed\n", className, message);
    if (message == WM_NCCREATE)
        return FALSE;
    if (message == WM_CREATE)
        return -1;
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

// The window procedure of a class: DISPATCH is its one switch.
template <LRESULT (*DISPATCH)(HWND, UINT, WPARAM, LPARAM)>
LRESULT CALLBACK GuardedWindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    try {
        return DISPATCH(hwnd, message, wParam, lParam);
    } catch (...) {
        return FailedMessageAnswer(hwnd, message, wParam, lParam);
    }
}

// A subclass procedure (SetWindowSubclass): a failure goes to the next one.
template <LRESULT (*DISPATCH)(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR)>
LRESULT CALLBACK GuardedSubclassProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                     DWORD_PTR data)
{
    try {
        return DISPATCH(hwnd, message, wParam, lParam, id, data);
    } catch (...) {
        Trace("subclass %u: message 0x%04x failed\n", (unsigned)id, message);
        return DefSubclassProc(hwnd, message, wParam, lParam);
    }
}

// A dialog procedure: a failure leaves the message to the dialog manager.
template <INT_PTR (*DISPATCH)(HWND, UINT, WPARAM, LPARAM)>
INT_PTR CALLBACK GuardedDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    try {
        return DISPATCH(dialog, message, wParam, lParam);
    } catch (...) {
        Trace("dialog: message 0x%04x failed\n", message);
        return FALSE;
    }
}
