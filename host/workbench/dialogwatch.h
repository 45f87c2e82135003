// Dialogs and message boxes of this thread, for whatever drives or answers
// them (the workbench's script, the tests). Each is found when it is made
// (HCBT_CREATEWND) and handed to the watches once it shows, from a timer in
// its own message loop: by then a dialog has had WM_INITDIALOG and a message
// box has its text. Nothing waits for a window to be activated: a window need
// not be (no window manager, a fresh Wine prefix, another program in front).
#pragma once

#include <windows.h>

#include <functional>
#include <string>

class DIALOGWATCH {
public:
    // Called with every top-level dialog of the thread (message boxes
    // included) once it shows, while this watch lives. Watches are called
    // oldest first, each only while the dialog is still shown.
    typedef std::function<void(HWND dialog)> SHOWN;
    explicit DIALOGWATCH(SHOWN shown);
    ~DIALOGWATCH();
    DIALOGWATCH(const DIALOGWATCH&) = delete;
    DIALOGWATCH& operator=(const DIALOGWATCH&) = delete;

    void Shown(HWND dialog) const { m_shown(dialog); }

private:
    SHOWN m_shown;
};

std::string WindowCaption(HWND window);
