#include "imageloader.h"

#include "../../base/trace.h"
#include "../../base/banned.h"

Gdiplus::GpImage* LoadResourceImage(HINSTANCE instance, int resourceId, const char* type)
{
    HRSRC resource = FindResourceA(instance, MAKEINTRESOURCEA(resourceId), type);
    if (!resource)
        return nullptr;
    const DWORD size = SizeofResource(instance, resource);
    HGLOBAL loaded = LoadResource(instance, resource);
    const void* bytes = loaded ? LockResource(loaded) : nullptr;
    if (!bytes || size == 0)
        return nullptr;

    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size);
    if (!block) {
        FreeResource(loaded);
        return nullptr;
    }
    if (void* copy = GlobalLock(block)) {
        CopyMemory(copy, bytes, size);
        GlobalUnlock(block);
    }

    Gdiplus::GpImage* image = nullptr;
    IStream* stream = nullptr;
    // The stream frees the block when it is released.
    if (CreateStreamOnHGlobal(block, TRUE, &stream) != S_OK) {
        Trace("CreateStreamOnHGlobal\n");
        GlobalFree(block);
        FreeResource(loaded);
        return nullptr;
    }
    if (Gdiplus::DllExports::GdipLoadImageFromStream(stream, &image) != Gdiplus::Ok)
        image = nullptr;
    stream->Release();
    FreeResource(loaded);
    return image;
}
