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

// The controller's zones, as its design line "zones=" lists them: the names
// joined by ","; a name is not empty and holds no "," or "." (a key names a
// zone as "CONTROLLER.ZONE"). The empty text is the empty list.
std::string JoinZones(const std::vector<std::string>& zones);
bool SplitZones(const std::string& text, std::vector<std::string>* zones);
