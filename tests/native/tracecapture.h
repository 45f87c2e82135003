// Native tests collect the plug-in's Trace() lines here.
#pragma once

#include <string>
#include <vector>

std::vector<std::string>& TraceLines();
