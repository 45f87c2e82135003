// The outputs of the design report. Each writes through a sink, a console at
// a time. Platform-free.
#pragma once

#include <string>

#include "designmodel.h"
#include "reporttext.h"

// One row per configured key, a header row first.
void WriteCsv(const DESIGNMODEL& model, TEXTSINK* out);

// Every key of every console that addresses the zone, group or message NAME
// (a destination's name or "CONTROLLER.NAME", a message's name or its
// "NAME|NUMBER" entry), a line each; answers how many.
size_t WriteWhere(const DESIGNMODEL& model, const std::string& name, TEXTSINK* out);

// One self-contained page: controllers, consoles, their keys and pictures,
// and the problems the check finds.
void WriteHtml(const DESIGNMODEL& model, const PROBLEMLIST& problems, TEXTSINK* out);

// The label strips at real size.
struct LABELSIZE {
    double width = 15.0;  // millimetres of an ordinary key's label window
    double height = 4.0;
};
// "WxH" in millimetres, each from 1 to 200.
bool ParseLabelSize(const char* text, LABELSIZE* size);
void WriteLabelStrips(const DESIGNMODEL& model, const LABELSIZE& size, TEXTSINK* out);
