// The picture of a console and its extensions as SVG, drawn from the key
// geometry the console view uses: keys, label boxes with their labels, the
// alarm and EVAC keys marked. Platform-free.
#pragma once

#include <string>
#include <vector>

#include "designmodel.h"
#include "keyrows.h"

void AppendConsolePicture(const CONSOLEDESIGN& console, const std::vector<KEYROW>& rows, std::string* out);
