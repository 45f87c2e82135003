// A widget's properties object: its attributes and its bound variable.
#include "widget.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

// How often a bound widget reads its variable unless "interval" says otherwise.
const UINT kDefaultInterval = 500;
const UINT_PTR kRefreshTimer = 1;

HOSTINFO* ConnectedObject(const WIDGET* w)
{
    return w->attributes.connection.empty() ? nullptr : a_FindHostinfo(w->attributes.connection.c_str());
}

HBITMAP LoadFaceBitmap(const std::string& relative)
{
    if (relative.empty())
        return NULL;
    char path[MAX_PATH];
    a_MakeFullPathName(relative.c_str(), path, sizeof path);
    HBITMAP bitmap = (HBITMAP)LoadImageA(NULL, path, IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE);
    if (!bitmap)
        TRACE("Widget bitmap not found: %s\n", path);
    return bitmap;
}

}  // namespace

WIDGET::WIDGET(WIDGETKIND kind_, HOSTINFO* owner, const char* name) : kind(kind_)
{
    m_pHost = owner;
    CopyText(m_szName, name);
    if (kind == WIDGET_EDIT)
        attributes.backgroundColour = 0xCEFFFF;  // the input fields' pale yellow
}

WIDGET::~WIDGET()
{
    if (face)
        DeleteObject(face);
}

WIDGET* WidgetOf(HWND window)
{
    char className[32] = "";
    if (!window || !GetClassNameA(window, className, sizeof className))
        return nullptr;
    for (int kind = WIDGET_STATIC; kind <= WIDGET_LED; kind++)
        if (strcmp(className, WidgetClassOf((WIDGETKIND)kind)) == 0)
            return reinterpret_cast<WIDGET*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    return nullptr;
}

LRESULT WIDGET::OnLoad(WPARAM, LPARAM lParam)
{
    const char* attribute = reinterpret_cast<const char*>(lParam);
    std::string error;
    const WIDGETATTRIBUTES before = attributes;
    if (!attribute || !ApplyWidgetAttribute(attribute, &attributes, &error)) {
        TRACE("Widget %s: %s\n", m_szName, error.c_str());
        return 0;
    }
    if (attributes.bitmap != before.bitmap) {
        if (face)
            DeleteObject(face);
        face = LoadFaceBitmap(attributes.bitmap);
    }
    if (attributes.hasValue && !known) {
        shown = std::to_string(attributes.value);
    }
    if (attributes.function != before.function || attributes.connection != before.connection ||
        attributes.interval != before.interval) {
        known = false;
        ReadBoundValue();
        const bool bound = !attributes.function.empty() && !attributes.connection.empty();
        if (bound)
            SetTimer(m_hWnd, kRefreshTimer, attributes.interval > 0 ? (UINT)attributes.interval : kDefaultInterval,
                     NULL);
        else
            KillTimer(m_hWnd, kRefreshTimer);
    }
    if (editor && GetFocus() != editor)
        SetWindowTextA(editor, Label().c_str());
    InvalidateRect(m_hWnd, NULL, TRUE);
    return 0;
}

void WIDGET::ReadBoundValue()
{
    HOSTINFO* obj = ConnectedObject(this);
    if (!obj || attributes.function.empty())
        return;
    char value[REQUEST_TEXT_SIZE] = "";
    REQUEST read = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, value, attributes.function.c_str(), nullptr};
    obj->OnMessage(0, (LPARAM)&read);
    // A read that answers 0 may still have filled the text ("No Connection");
    // a value that is only echoed back answers 0 too ("name", "address").
    const bool changed = !known || shown != value;
    known = true;
    shown = value;
    if (changed) {
        if (editor && GetFocus() != editor)
            SetWindowTextA(editor, value);
        InvalidateRect(m_hWnd, NULL, TRUE);
    }
}

bool WIDGET::WriteVariable(const std::string& variable, const std::string& text)
{
    HOSTINFO* obj = ConnectedObject(this);
    if (!obj || variable.empty())
        return false;
    char value[REQUEST_TEXT_SIZE];
    CopyText(value, text.c_str());
    REQUEST write = {REQ_WRITE, 0, REQTYPE_TEXT, REQMODE_EDIT, value, variable.c_str(), nullptr};
    const bool written = obj->OnMessage(0, (LPARAM)&write) != 0;
    if (!written)
        EDITTRACE(obj, "%s refused %s=%s", obj->m_szName, variable.c_str(), text.c_str());
    ReadBoundValue();
    // The field shows what the object holds now, a refused text included:
    // it shows the stored value again.
    if (editor && variable == attributes.function)
        SetWindowTextA(editor, Label().c_str());
    return written;
}

std::string WIDGET::Label() const
{
    if (kind == WIDGET_BUTTON || kind == WIDGET_TRISTATE)
        return attributes.caption;
    if (!attributes.function.empty())
        return shown;
    return attributes.fmt;
}

std::string WIDGET::Text() const
{
    if (kind == WIDGET_TRISTATE || kind == WIDGET_LED) {
        const int state = ToggleState();
        return state == 2 ? "?" : std::to_string(state);
    }
    return Label();
}

int WIDGET::ToggleState() const
{
    if (!known && !attributes.hasValue)
        return 2;
    int value = 0;
    if (!ParseInt(shown.c_str(), &value))
        return 2;
    return value != 0 ? 1 : 0;
}
