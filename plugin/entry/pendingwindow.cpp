#include "pendingwindow.h"

#include "../../base/trace.h"
#include "../../base/banned.h"

LRESULT CALLBACK PendingWindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE) {
        char className[64] = "";
        GetClassNameA(hwnd, className, sizeof className);
        Trace("%s: this window is not implemented yet\n", className);
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}
