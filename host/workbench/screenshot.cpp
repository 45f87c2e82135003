// Screenshots of the design surface, for the scripted tour and for tests.
#include "workbench.h"

#include <objidl.h>  // gdiplus.h needs PROPID
#include <gdiplus.h>

#include <vector>

#include "../../base/banned.h"

namespace {

bool PngEncoder(CLSID* clsid)
{
    UINT count = 0, size = 0;
    if (Gdiplus::GetImageEncodersSize(&count, &size) != Gdiplus::Ok || size == 0)
        return false;
    std::vector<BYTE> buffer(size);
    Gdiplus::ImageCodecInfo* codecs = reinterpret_cast<Gdiplus::ImageCodecInfo*>(buffer.data());
    if (Gdiplus::GetImageEncoders(count, size, codecs) != Gdiplus::Ok)
        return false;
    for (UINT i = 0; i < count; i++) {
        if (wcscmp(codecs[i].MimeType, L"image/png") == 0) {
            *clsid = codecs[i].Clsid;
            return true;
        }
    }
    return false;
}

void PumpMessages()
{
    MSG msg;
    for (int round = 0; round < 3; round++) {
        while (PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE)) {
            TranslateMessage(&msg);
            DispatchMessageA(&msg);
        }
        Sleep(20);  // lets the X server deliver exposures between rounds
    }
}

}  // namespace

bool SaveScreenshot(HWND window, const char* path)
{
    HWND top = GetAncestor(window, GA_ROOT);
    if (!IsWindowVisible(top))
        ShowWindow(top, SW_SHOWNOACTIVATE);
    RedrawWindow(top, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    PumpMessages();

    RECT client;
    GetClientRect(window, &client);
    const int width = client.right, height = client.bottom;
    if (width <= 0 || height <= 0)
        return false;
    HDC source = GetDC(window);
    HDC memory = CreateCompatibleDC(source);
    HBITMAP bitmap = CreateCompatibleBitmap(source, width, height);
    HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, source, 0, 0, SRCCOPY);
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(window, source);

    bool saved = false;
    CLSID png;
    if (PngEncoder(&png)) {
        Gdiplus::Bitmap image(bitmap, NULL);
        wchar_t widePath[MAX_PATH];
        if (MultiByteToWideChar(CP_ACP, 0, path, -1, widePath, MAX_PATH) > 0)
            saved = image.Save(widePath, &png, NULL) == Gdiplus::Ok;
    }
    DeleteObject(bitmap);
    if (!saved)
        fprintf(stderr, "workbench: cannot write the screenshot %s\n", path);
    return saved;
}
