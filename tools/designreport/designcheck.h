// The checks of a design against its system: what every key addresses, which
// keys the console cannot show, doubled keys, addresses, connections, labels
// and misspelt functions. Platform-free.
#pragma once

#include "designmodel.h"

// The reading's refused lines and every problem of the design, by line.
PROBLEMLIST CheckDesign(const DESIGNMODEL& model);
// "FILE(LINE): KIND: OBJECT: TEXT"
std::string FormatProblem(const std::string& fileName, const PROBLEM& problem);
