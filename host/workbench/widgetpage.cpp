// A page of every widget kind bound to one object, built from control lines
// and attribute strings as the plug-in's pages are: for looking at the
// widgets and for driving them from scripts.
#include "workbench.h"

#include <stdio.h>

#include "../../plugin/protocol.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char kPageClass[] = "DovrixcWidgetPage";

struct WIDGETSPEC {
    const char* line;
    const char* attributes[6];
};

const char* const kLabel[] = {"textcolor=0", "backgroundcolor=0xc8d0d4", "alignment=left"};

// The widgets, as a configuration page describes them; labels get kLabel first.
const WIDGETSPEC kWidgets[] = {
    {"0 BSTATIC \"header\" 0x54000000 10,10,380x16", {"fmt=CONFIGURATION PARAMETERS", "textcolor=0xffffff", "backgroundcolor=0x4c4c4c"}},
    {"0 BSTATIC \"namelabel\" 0x54000000 10,34,110x16", {"fmt=NAME"}},
    {"0x00000200 BEDIT \"name\" 0x54000000 130,34,150x18", {"textcolor=0", "backgroundcolor=0x00c8ffff", "datatype=s", "function=name"}},
    {"0 BSTATIC \"addresslabel\" 0x54000000 10,60,110x16", {"fmt=CAN ADDRESS"}},
    {"0x00000200 BEDIT \"address\" 0x54000000 130,60,50x18", {"textcolor=0", "backgroundcolor=0x00c8ffff", "datatype=s", "function=address"}},
    {"0 BTRISTATEBUTTON \"Find\" 0x54000000 190,60,90x16", {"caption=FIND", "bitmap=.\\Controls\\_ZELButtonFIND.bmp", "function=Find"}},
    {"0 BSTATIC \"buzzerlabel\" 0x54000000 10,86,110x16", {"fmt=BUZZER"}},
    {"0 BTRISTATEBUTTON \"buzzer\" 0x54000000 130,86,90x16", {"caption=", "bitmap=.\\Controls\\_ZELButton.bmp", "function=Buzzer"}},
    {"0 BSTATIC \"decadeSelectlabel\" 0x54000000 10,112,110x16", {"fmt=DECADIC SELECT", "textcolor=0x9caaad"}},
    {"0 BTRISTATEBUTTON \"decadeselect\" 0x54000000 130,112,90x16", {"caption=", "bitmap=.\\Controls\\_ZELButtonDisabled.bmp", "function=DecadicSelectionActive"}},
    {"0 BSTATIC \"firmwarelabel\" 0x54000000 10,138,110x16", {"fmt=FIRMWARE"}},
    {"0 BSTATIC \"firmware\" 0x54000000 130,138,100x16", {"textcolor=0x00ccff", "backgroundcolor=0", "datatype=s", "function=Firmware.Revision"}},
    {"0 BSTATIC \"baudratelabel\" 0x54000000 10,164,110x16", {"fmt=BAUDRATE"}},
    {"0 BSTATIC \"baudrate\" 0x54000000 130,164,100x16", {"textcolor=0x00ccff", "backgroundcolor=0", "datatype=s", "function=baudrate"}},
    {"0 BSTATIC \"watchdoglabel\" 0x54000000 10,190,110x16", {"fmt=WATCHDOG"}},
    {"0 BSTATIC \"watchdog\" 0x54000000 130,190,60x16", {"textcolor=0x00ccff", "backgroundcolor=0", "datatype=s", "function=Watchdog.Counter"}},
    {"0 BBUTTON \"WatchDogClear\" 0x54000000 200,187,118x22", {"caption=CLEAR", "bitmap=.\\Controls\\PUSHBUTTON_118_22.bmp", "textcolorwhenpressed= 0x0", "click=Watchdog.Clear=1"}},
    {"0 BSTATIC \"masklabel\" 0x54000000 10,218,110x16", {"fmt=FAULT MASK 1"}},
    {"0 BTRISTATEBUTTON \"FaultMask1\" 0x54000000 130,219,39x13", {"caption=", "bitmap=.\\Controls\\radiobutton_am_39x13.bmp", "value=1", "function=FaultMask1"}},
    {"0 BSTATIC \"onlinelabel\" 0x54000000 10,244,110x16", {"fmt=ONLINE"}},
    {"0x00000000 LED \"online\" 0x50000000 130,247,11x11", {"bitmap=.\\templates\\Userpanel\\online.bmp", "function=online"}},
    {"0 BSTATIC \"slotlabel\" 0x54000000 200,244,110x16", {"fmt=SLOT", "textcolor=0xc8d0d4"}},
};

LRESULT CALLBACK PageWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CLOSE:
        ShowWindow(hwnd, SW_HIDE);  // the page lives as long as the design
        return 0;
    case WM_PRINTCLIENT:
        SendMessageA(hwnd, WM_ERASEBKGND, wParam, 0);
        return 0;
    default:
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
}

struct BINDING {
    const char* text;
};

BOOL Bind(LPCSTR, void* value, void* context)
{
    HWND widget = (HWND)value;
    HOSTINFO* obj = IsWindow(widget) ? reinterpret_cast<HOSTINFO*>(GetWindowLongPtrA(widget, GWLP_USERDATA)) : nullptr;
    if (obj && obj->m_wKind != 1)
        obj->OnLoad(0, (LPARAM) static_cast<BINDING*>(context)->text);
    return TRUE;
}

}  // namespace

WIDGETPAGE* OpenWidgetPage(WORKBENCH* bench, const std::string& object)
{
    auto found = bench->pages.find(object);
    if (found != bench->pages.end())
        return found->second.get();
    if (!a_FindHostinfo(object.c_str()) || !RegisterFaceClass(kPageClass, PageWndProc))
        return nullptr;
    auto page = std::make_unique<WIDGETPAGE>();
    char title[HOSTNAME_SIZE + 16];
    FormatText(title, sizeof title, "Widgets - %s", object.c_str());
    page->window = CreateWindowExA(WS_EX_TOOLWINDOW, kPageClass, title, WS_POPUP | WS_CAPTION | WS_SYSMENU, 80, 80,
                                   420, 300, bench->frame, NULL, GetModuleHandleA(NULL), NULL);
    for (const WIDGETSPEC& spec : kWidgets) {
        char line[256];
        CopyText(line, spec.line);
        HWND widget = a_CreateControl(1, &page->owner, page->window, line);
        HOSTINFO* properties = widget ? reinterpret_cast<HOSTINFO*>(GetWindowLongPtrA(widget, GWLP_USERDATA)) : nullptr;
        if (!properties)
            continue;  // the host refused it: go on with the next widget
        if (strstr(spec.line, "BSTATIC") && strstr(spec.line, "label"))
            for (const char* attribute : kLabel)
                properties->OnLoad(0, (LPARAM)attribute);
        for (const char* attribute : spec.attributes)
            if (attribute)
                properties->OnLoad(0, (LPARAM)attribute);
    }
    EnableWindow(a_FindHwnd(&page->owner, "decadeselect"), FALSE);
    // The plug-in's flat page buttons, as the console view shows them.
    const char* const pages[] = {"Console", "Ext 1", "Ext 2"};
    for (int i = 0; i < 3; i++)
        CreateWindowExA(0, "CSAUTORADIOBUTTON", pages[i], WS_CHILD | WS_VISIBLE | (i == 0 ? WS_GROUP : 0),
                        290 + 0, 34 + i * 26, 100, 22, page->window, (HMENU)(INT_PTR)(500 + i),
                        GetModuleHandleA(NULL), NULL);
    SendMessageA(GetDlgItem(page->window, 500), RBM_SETSTATE, 1, 0);  // the console's page is checked
    const std::string connection = "connection=" + object;
    BINDING binding = {connection.c_str()};
    if (page->owner.m_pChildTable)
        page->owner.m_pChildTable->Enumerate(Bind, &binding);
    WIDGETPAGE* opened = page.get();
    bench->pages[object] = std::move(page);
    return opened;
}

void CloseWidgetPages(WORKBENCH* bench)
{
    for (auto& page : bench->pages) {
        DestroyWindow(page.second->window);
        a_CleanHostinfo(&page.second->owner);
    }
    bench->pages.clear();
}

HWND PageWidget(WORKBENCH* bench, const std::string& object, const std::string& name)
{
    WIDGETPAGE* page = OpenWidgetPage(bench, object);
    HWND widget = page ? a_FindHwnd(&page->owner, name.c_str()) : NULL;
    if (!widget)
        fprintf(stderr, "workbench: no widget %s of %s\n", name.c_str(), object.c_str());
    return widget;
}
