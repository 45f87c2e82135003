// The console view's image table.
#include "viewimages.h"

#include "../entry/imageloader.h"
#include "../resources/resource.h"

#include "../../base/banned.h"

namespace {

struct VIEWIMAGE {
    int id;
    const char* type;  // null: a bitmap resource
    Gdiplus::GpImage* image;
};

// Written only while attaching; read-only afterwards.
VIEWIMAGE g_viewImages[] = {
    {IDR_CONSOLE_FRONT, "CONSOLEIMAGE", nullptr},
    {IDR_CONSOLE_FRONT_ORN15, "CONSOLEIMAGE", nullptr},
    {IDR_CONSOLE_FRONT_ELK15, "CONSOLEIMAGE", nullptr},
    {IDR_CONSOLE_BOARD_ELK, "CONSOLEIMAGE", nullptr},
    {IDR_CONSOLE_BOARD_ORN, "CONSOLEIMAGE", nullptr},
    {IDR_EXTENSION, "CONSOLEIMAGE", nullptr},
    {IDR_EXTENSION_ORN15, "CONSOLEIMAGE", nullptr},
    {IDR_EXTENSION_ELK15, "CONSOLEIMAGE", nullptr},
    {IDR_KEY, "KEY", nullptr},
    {IDR_KEY_15CST, "KEY", nullptr},
    {IDR_RETURNKEY, "RETURNKEY", nullptr},
    {IDR_RETURNKEY_ORN15, "RETURNKEY", nullptr},
    {IDR_RETURNKEY_ELK15, "RETURNKEY", nullptr},
    {IDB_SPECIALKEYS, nullptr, nullptr},
    {IDB_SPECIALKEYS_BOARD, nullptr, nullptr},
    {IDB_LED_GREEN, nullptr, nullptr},
    {IDB_LED_YELLOW, nullptr, nullptr},
    {IDB_LED_RED, nullptr, nullptr},
    {IDB_LEDBAR_TALL, nullptr, nullptr},
    {IDB_LEDBAR_SHORT, nullptr, nullptr},
    {IDB_SELECTIONMARK, nullptr, nullptr},
};

Gdiplus::GpImage* LoadBitmapImage(HINSTANCE instance, int id)
{
    HBITMAP bitmap = (HBITMAP)LoadImageA(instance, MAKEINTRESOURCEA(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    if (!bitmap)
        return nullptr;
    Gdiplus::GpBitmap* image = nullptr;
    if (Gdiplus::DllExports::GdipCreateBitmapFromHBITMAP(bitmap, NULL, &image) != Gdiplus::Ok)
        image = nullptr;
    DeleteObject(bitmap);  // GDI+ keeps its own copy of the pixels
    return image;
}

const VIEWIMAGE* Find(int id)
{
    for (const VIEWIMAGE& entry : g_viewImages)
        if (entry.id == id)
            return &entry;
    return nullptr;
}

}  // namespace

void LoadConsoleViewImages(HINSTANCE instance)
{
    for (VIEWIMAGE& entry : g_viewImages) {
        if (entry.image)
            continue;  // the view and the control panel share the table
        entry.image = entry.type ? LoadResourceImage(instance, entry.id, entry.type) : LoadBitmapImage(instance, entry.id);
    }
}

Gdiplus::GpImage* ConsoleViewImage(int resourceId)
{
    const VIEWIMAGE* entry = Find(resourceId);
    return entry ? entry->image : nullptr;
}

void ConsoleViewImageSize(int resourceId, int* width, int* height)
{
    UINT w = 0, h = 0;
    Gdiplus::GpImage* image = ConsoleViewImage(resourceId);
    if (!image || Gdiplus::DllExports::GdipGetImageWidth(image, &w) != Gdiplus::Ok)
        w = 0;
    if (!image || Gdiplus::DllExports::GdipGetImageHeight(image, &h) != Gdiplus::Ok)
        h = 0;
    *width = (int)w;
    *height = (int)h;
}
