#include <gtest/gtest.h>

#include <objidl.h>
#include <gdiplus.h>

#include "testhost.h"

int main(int argc, char** argv)
{
    // As a host does: GDI+ first, then the plug-in may load.
    ULONG_PTR gdiplus = 0;
    Gdiplus::GdiplusStartupInput startup;
    Gdiplus::GdiplusStartup(&gdiplus, &startup, NULL);
    testing::InitGoogleTest(&argc, argv);
    CloseEveryMessageBox();
    const int result = RUN_ALL_TESTS();
    Gdiplus::GdiplusShutdown(gdiplus);
    return result;
}
