// The controller's text forms of its ports: the "ports" list of its design
// line and the "PORT,ADDRESS[,MODEL]" position a console connects at.
// Platform-free, so they are fuzzed.
#pragma once

#include <string>
#include <vector>

// "PORT,ADDRESS[,MODEL]"; the model is 0 when absent.
bool ParsePortPosition(const char* params, std::string* port, int* address, int* model);

// The port names joined by ","; every name holds "CST" and no "." or ",".
std::string JoinPorts(const std::vector<std::string>& ports);
bool SplitPorts(const std::string& text, std::vector<std::string>* ports);
