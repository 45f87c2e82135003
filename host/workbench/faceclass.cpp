// The workbench's own window classes: pages and frames on the host's face colour.
#include "workbench.h"

#include "../../base/banned.h"

bool RegisterFaceClass(const char* name, WNDPROC procedure)
{
    WNDCLASSA wc = {};
    if (GetClassInfoA(GetModuleHandleA(NULL), name, &wc))
        return true;
    wc.lpfnWndProc = procedure;
    wc.hInstance = GetModuleHandleA(NULL);
    wc.hCursor = LoadCursor(NULL, IDC_ARROW);
    wc.hbrBackground = (HBRUSH)a_GetObject(HOSTOBJECT_FACEBRUSH);
    wc.lpszClassName = name;
    return RegisterClassA(&wc) != 0;
}
