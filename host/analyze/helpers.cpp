// Small exported helpers: line halves, rectangle strings, paths, host objects.
#include "designtext.h"
#include "design.h"
#include "runfolder.h"

#include <map>
#include <string>

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

// Below the run's own folder, never the shared one: a name cannot reach a user's file.
LPSTR a_MakeFullTempPathName(LPCSTR name, LPSTR path, int size)
{
    if (!path || size <= 0)
        return path;
    CreateRunFolder();
    const char* folder = RunFolder();
    if (!folder[0] || !FormatText(path, (size_t)size, "%s%s", folder, name ? name : ""))
        path[0] = '\0';
    return path;
}

HINSTANCE AnalyzeInstance()
{
    HMODULE module = NULL;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCSTR>(&AnalyzeInstance), &module);
    return module;
}

HGDIOBJ a_GetObject(int id)
{
    // The host's shared GDI objects live as long as the process.
    static HBRUSH field = CreateSolidBrush(RGB(0xFF, 0xFF, 0xCE));
    static HBRUSH face = CreateSolidBrush(RGB(0xD4, 0xD0, 0xC8));
    switch (id) {
    case HOSTOBJECT_BACKGROUNDBRUSH:
        return field;
    case HOSTOBJECT_FACEBRUSH:
        return face;
    default:
        return NULL;
    }
}

HFONT a_GetFont(LPCSTR spec)
{
    static std::map<std::string, HFONT> fonts;  // kept for the process's lifetime
    const std::string key = spec ? spec : "";
    auto found = fonts.find(key);
    if (found != fonts.end())
        return found->second;
    std::string size = key;
    int weight = FW_NORMAL;
    const std::string bold = ",bold";
    if (size.size() > bold.size() && _stricmp(size.c_str() + size.size() - bold.size(), bold.c_str()) == 0) {
        size.resize(size.size() - bold.size());
        weight = FW_BOLD;
    }
    const size_t comma = size.rfind(',');
    int points = 0;
    if (comma == std::string::npos || !ParseInt(size.c_str() + comma + 1, &points) || points <= 0)
        return (HFONT)GetStockObject(DEFAULT_GUI_FONT);
    HDC screen = GetDC(NULL);
    const int height = -MulDiv(points, GetDeviceCaps(screen, LOGPIXELSY), 72);
    ReleaseDC(NULL, screen);
    const std::string face = size.substr(0, comma);
    HFONT font = CreateFontA(height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                             CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_SWISS, face.c_str());
    fonts[key] = font;
    return font;
}
