// The host's widgets: labels, edit fields, toggles, push buttons and LEDs
// created from control lines, configured by attribute strings and bound to a
// variable of a design object. Internal to Analyze.dll.
#pragma once

#include <string>

#include "analyze_host.h"
#include "widgetattributes.h"

class WIDGET final : public HOSTINFO {
public:
    WIDGET(WIDGETKIND kind, HOSTINFO* owner, const char* name);
    ~WIDGET();

    // One attribute string; a refused one is traced and ignored.
    LRESULT OnLoad(WPARAM, LPARAM attribute) override;
    // The page's owner times its widgets: the bound value is read again.
    LRESULT OnTimer(WPARAM, LPARAM) override
    {
        ReadBoundValue();
        return 0;
    }

    // Reads the bound variable of the connected object into `shown`.
    void ReadBoundValue();
    // Writes text to a variable of the connected object, then reads back.
    bool WriteVariable(const std::string& variable, const std::string& text);
    // The text drawn on the widget: its value, its fixed text or its caption.
    std::string Label() const;
    // What the widget shows, as a script reads it: a toggle's or LED's state
    // ("0", "1", "?" when not known), else its label.
    std::string Text() const;
    // A toggle's state: 0 off, 1 on, 2 not known.
    int ToggleState() const;

    WIDGETKIND kind;
    WIDGETATTRIBUTES attributes;
    std::string shown;      // the bound variable's text, as last read
    bool known = false;     // whether it was read
    bool pressed = false;   // a button held down
    HBITMAP face = NULL;    // the bitmap of attributes.bitmap
    HWND editor = NULL;     // BEDIT: the edit control inside
};

WIDGET* WidgetOf(HWND window);
void RegisterWidgetClasses();
