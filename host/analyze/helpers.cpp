// Small exported helpers: line halves, rectangle strings, paths, host objects.
#include "designtext.h"
#include "analyze.h"

#include "../../base/text.h"
#include "../../base/banned.h"

BOOL a_GetKeyword(LPCSTR line, LPSTR key, int size)
{
    if (!line || !key || size <= 0)
        return FALSE;
    return CopyLineKey(line, key, (size_t)size);
}

BOOL a_GetParameter(LPCSTR line, LPSTR value, int size)
{
    if (!line || !value || size <= 0)
        return FALSE;
    return CopyLineValue(line, value, (size_t)size);
}

LPSTR a_GetRectString(const RECT* rect, LPSTR text, int size)
{
    if (!text || size <= 0)
        return text;
    if (!rect) {
        text[0] = '\0';
        return text;
    }
    CopyText(text, (size_t)size,
             FormatRectString(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top).c_str());
    return text;
}

namespace {

// The folder of the host application, ending in a backslash.
bool HostFolder(char* folder, size_t size)
{
    char path[MAX_PATH];
    DWORD length = GetModuleFileNameA(NULL, path, sizeof path);
    if (length == 0 || length >= sizeof path)
        return false;
    char* slash = strrchr(path, '\\');
    if (slash)
        slash[1] = '\0';
    return CopyText(folder, size, path);
}

}  // namespace

LPSTR a_MakeFullPathName(LPCSTR name, LPSTR path, int size)
{
    if (!path || size <= 0)
        return path;
    char folder[MAX_PATH];
    if (!HostFolder(folder, sizeof folder) || !FormatText(path, (size_t)size, "%s%s", folder, name ? name : ""))
        path[0] = '\0';
    return path;
}

LPSTR a_MakeFullTempPathName(LPCSTR name, LPSTR path, int size)
{
    if (!path || size <= 0)
        return path;
    char folder[MAX_PATH];
    DWORD length = GetTempPathA(sizeof folder, folder);
    if (length == 0 || length >= sizeof folder || !FormatText(path, (size_t)size, "%s%s", folder, name ? name : ""))
        path[0] = '\0';
    return path;
}

HGDIOBJ a_GetObject(int id)
{
    // The host's shared GDI objects live as long as the process.
    static HBRUSH background = CreateSolidBrush(RGB(0xF0, 0xF0, 0xF0));
    switch (id) {
    case HOSTOBJECT_BACKGROUNDBRUSH:
        return background;
    default:
        return NULL;
    }
}
