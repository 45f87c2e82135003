// Headless, nobody can click a message box: each is printed as
// "messagebox: CAPTION: TEXT" and answered at once with its default button.
#include "workbench.h"

#include "dialogwatch.h"
#include "messagebox.h"

#include <stdio.h>

#include "../../base/banned.h"

namespace {

void Answer(HWND box)
{
    if (!IsMessageBox(box))
        return;
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
    static DIALOGWATCH boxes(Answer);  // for the whole run
}
