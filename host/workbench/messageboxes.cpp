// Headless, nobody can click a message box: each is printed as
// "messagebox: CAPTION: TEXT" and answered at once with its default button.
#include "workbench.h"

#include "messagebox.h"

#include <stdio.h>

#include "../../base/banned.h"

namespace {

HHOOK& Hook()
{
    static HHOOK hook = NULL;
    return hook;
}

void Answer(HWND box);

// A task-modal box is activated before it has its text (Wine): it is read
// once the box's own loop runs.
void CALLBACK AnswerLater(HWND box, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(box, timer);
    Answer(box);
}

LRESULT CALLBACK AnswerMessageBox(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HCBT_ACTIVATE) {
        HWND box = (HWND)wParam;
        if (IsMessageBox(box)) {
            if (GetWindowTextLengthA(GetDlgItem(box, 0xFFFF)) == 0)
                SetTimer(box, 1, USER_TIMER_MINIMUM, AnswerLater);
            else
                Answer(box);
        }
    }
    return CallNextHookEx(Hook(), code, wParam, lParam);
}

void Answer(HWND box)
{
    char caption[256] = "", text[2048] = "";
    GetWindowTextA(box, caption, sizeof caption);
    GetDlgItemTextA(box, 0xFFFF, text, sizeof text);
    printf("messagebox: %s: %s\n", caption, text);
    fflush(stdout);
    const LRESULT defaultId = SendMessageA(box, DM_GETDEFID, 0, 0);
    const WORD button = HIWORD(defaultId) == DC_HASDEFID ? LOWORD(defaultId) : IDOK;
    PostMessageA(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
}

}  // namespace

void AnswerMessageBoxes()
{
    if (!Hook())
        Hook() = SetWindowsHookExA(WH_CBT, AnswerMessageBox, NULL, GetCurrentThreadId());
}
