#include "controldescriptor.h"
#include "pageowners.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

HOSTINFO* WidgetObject(HWND widget)
{
    return widget && IsWindow(widget) ? reinterpret_cast<HOSTINFO*>(GetWindowLongPtrA(widget, GWLP_USERDATA)) : nullptr;
}

BOOL SendConnection(LPCSTR, void* widget, void* text)
{
    HOSTINFO* obj = WidgetObject(static_cast<HWND>(widget));
    if (obj && obj->m_wKind != 1)
        obj->OnLoad(0, (LPARAM)text);
    return TRUE;
}

BOOL SendTimer(LPCSTR, void* widget, void*)
{
    HOSTINFO* obj = WidgetObject(static_cast<HWND>(widget));
    if (obj && obj->m_wKind != 1)
        obj->OnTimer(0, 0);
    return TRUE;
}

HOSTINFO* AskedWidgetObject(HWND widget)
{
    return widget && IsWindow(widget) ? reinterpret_cast<HOSTINFO*>(SendMessageA(widget, WM_HOST_GETHOSTINFO, 0, 0))
                                      : nullptr;
}

HWND CreateWidget(HOSTINFO* owner, HWND parent, const char* line, std::initializer_list<const char*> attributes,
                  HOSTINFO* (*objectOf)(HWND), HOSTINFO** object)
{
    char buffer[4096] = {};
    CopyText(buffer, line);
    HWND widget = a_CreateControl(1, owner, parent, buffer);
    HOSTINFO* obj = objectOf(widget);
    if (object)
        *object = obj;
    if (!obj)
        return widget;
    for (const char* attribute : attributes) {
        char text[64 + 4096];
        CopyText(text, attribute);
        obj->OnLoad(0, (LPARAM)text);
    }
    return widget;
}

}  // namespace

void TimePageWidgets(HOSTINFO* owner)
{
    if (owner && owner->m_pChildTable)
        owner->m_pChildTable->Enumerate(SendTimer, nullptr);
}

void SendWidgetAttribute(HWND widget, const char* attribute)
{
    HOSTINFO* obj = WidgetObject(widget);
    if (!obj)
        return;
    char text[64 + 4096];
    CopyText(text, attribute);
    obj->OnLoad(0, (LPARAM)text);
}

void SendWidgetAttributes(HWND widget, std::initializer_list<const char*> attributes)
{
    for (const char* attribute : attributes)
        SendWidgetAttribute(widget, attribute);
}

HWND CreateHostWidget(HOSTINFO* owner, HWND parent, const char* line, std::initializer_list<const char*> attributes)
{
    return CreateWidget(owner, parent, line, attributes, WidgetObject, nullptr);
}

HWND CreatePanelWidget(HOSTINFO* owner, HWND parent, const char* line, std::initializer_list<const char*> attributes,
                       HOSTINFO** object)
{
    return CreateWidget(owner, parent, line, attributes, AskedWidgetObject, object);
}

void BindPage(HOSTINFO* owner, const char* objectName)
{
    char text[HOSTNAME_SIZE + 16];
    FormatText(text, sizeof text, "connection=%s", objectName);
    if (owner && owner->m_pChildTable)
        owner->m_pChildTable->Enumerate(SendConnection, text);
}
