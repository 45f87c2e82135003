#include "pendingwindow.h"

#include "../../base/trace.h"
#include "../../base/window.h"
#include "../../base/banned.h"

namespace {

LRESULT Pending_Dispatch(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE) {
        char className[64] = "";
        GetClassNameA(hwnd, className, sizeof className);
        Trace("%s: this window is not implemented yet\n", className);
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

}  // namespace

LRESULT CALLBACK PendingWindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return GuardedWindowProc<Pending_Dispatch>(hwnd, message, wParam, lParam);
}
