// The properties objects that own the widgets of the configuration window's
// pages: the host keeps each page's widgets in the owner's table.
#pragma once

#include <initializer_list>

#include "analyze.h"

class PAGEOWNER : public HOSTINFO {
public:
    PAGEOWNER() = default;
    ~PAGEOWNER() { delete m_pChildTable; }
    BOOL HasHostinfoTable() override { return m_pChildTable != nullptr; }
    CHashTable* GetHostinfoTable() override { return m_pChildTable; }

private:
    PAGEOWNER(const PAGEOWNER&);
    PAGEOWNER& operator=(const PAGEOWNER&);
};

// The column of the "Configuration" tab.
class CONFIGURATIONPROPERTIES final : public PAGEOWNER {};

// The "Supervision" tab; the family-B keypads have their own copy.
class DIAGNOSTICSPROPERTIES : public PAGEOWNER {};
class ELKCSKDIAGNOSTICSPROPERTIES final : public DIAGNOSTICSPROPERTIES {};

// Gives every widget object of the page (kind not 1) its OnTimer.
void TimePageWidgets(HOSTINFO* owner);
// Sends one attribute string to a widget, when it has a widget object.
void SendWidgetAttribute(HWND widget, const char* attribute);
// Sends each attribute in order.
void SendWidgetAttributes(HWND widget, std::initializer_list<const char*> attributes);
