// The attribute strings that configure a host widget ("textcolor=0x00ccff",
// "function=Firmware.Revision", "click=Watchdog.Clear=1"). Platform-free.
#pragma once

#include <stdint.h>

#include <string>

enum WIDGETKIND {
    WIDGET_NONE,
    WIDGET_STATIC,     // BSTATIC: label, header or read-only value
    WIDGET_EDIT,       // BEDIT: editable text field
    WIDGET_TRISTATE,   // BTRISTATEBUTTON: bitmap toggle, off / on / indeterminate
    WIDGET_BUTTON,     // BBUTTON: bitmap push button
    WIDGET_LED,        // LED: bitmap indicator
};

// The class keyword of a control line, or WIDGET_NONE.
WIDGETKIND WidgetKindOf(const std::string& keyword);
// The window class of a widget kind ("BSTATIC" ...).
const char* WidgetClassOf(WIDGETKIND kind);

enum : uint32_t { WIDGETCOLOUR_UNSET = 0xFFFFFFFF };

// Everything the attributes can set. Colours are 0x00BBGGRR.
struct WIDGETATTRIBUTES {
    std::string function;    // the bound variable, relative to the connection
    std::string fmt;         // fixed text
    std::string caption;     // button text
    std::string bitmap;      // face bitmap, relative to the host's folder
    uint32_t textColour = 0x000000;
    uint32_t pressedTextColour = WIDGETCOLOUR_UNSET;
    uint32_t backgroundColour = WIDGETCOLOUR_UNSET;
    bool alignLeft = false;
    bool textValue = false;  // datatype s / string
    std::string fontFace;
    int fontPoints = 0;
    int interval = 0;        // ms between reads of the bound variable; 0 = the host's default
    std::string clickVariable;
    std::string clickValue;
    int value = 0;           // a toggle's value until the bound variable is read
    bool hasValue = false;
    std::string connection;  // the host object the names are relative to
};

// "0", "0xffffff", "0x00C8FFFF", " 0x0": hexadecimal after "0x", or a bare 0.
bool ParseColour(const std::string& text, uint32_t* colour);

// Applies one "keyword=value" string. False, with the reason in error, for a
// string without "=", an unknown keyword or a value that does not parse; the
// attributes are then unchanged.
bool ApplyWidgetAttribute(const std::string& attribute, WIDGETATTRIBUTES* attributes, std::string* error);
