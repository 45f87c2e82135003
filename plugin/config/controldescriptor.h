// Pages of host widgets: a widget from its control line and attribute
// strings, and the binding of a whole page to the object it shows.
#pragma once

#include <initializer_list>

#include "analyze.h"

// Creates the widget of a control line ("0 BSTATIC \"namelabel\" 0x54000000
// 764,90,90x16") and sends it the attribute strings in order. Answers its
// window; without a widget object the attributes are skipped.
HWND CreateHostWidget(HOSTINFO* owner, HWND parent, const char* line, std::initializer_list<const char*> attributes);
// The same for the panels of the console view and the control panel, which
// ask the widget's window for its object (WM_HOST_GETHOSTINFO) instead of
// reading its user data. Answers the window; *object gets the widget's object.
HWND CreatePanelWidget(HOSTINFO* owner, HWND parent, const char* line, std::initializer_list<const char*> attributes,
                       HOSTINFO** object);

// Sends "connection=OBJECT" to every widget of the page whose kind is not 1.
void BindPage(HOSTINFO* owner, const char* objectName);
