// Feeds arbitrary bytes to the simulated controller's parsers: the upload
// request the plug-in writes ("%d|%s|%s|%s|%s"), the state text of its
// "device=" lines, its "ports" list and a console's port position. A request
// that parses formats back into one that parses the same; a state text and a
// port list that load are fixed points after one round.
#include <stdint.h>
#include <stdlib.h>

#include <string>
#include <vector>

#include "../host/controllers/portlist.h"
#include "../host/controllers/simdevice.h"
#include "../host/controllers/simupload.h"
#include "../base/trace.h"

void Trace(const char*, ...) {}

namespace {

void CheckUploadRequest(const std::string& text)
{
    UPLOADREQUEST request;
    if (!ParseUploadRequest(text, &request))
        return;
    if (request.files.size() < 2 || request.files.size() > 3)
        abort();
    // Fields hold no bar but the password, which is last.
    std::string again = std::to_string(request.console) + "|" + request.files[0] + "|" + request.files[1] + "|" +
                        (request.files.size() == 3 ? request.files[2] : std::string("None")) + "|" + request.password;
    UPLOADREQUEST reparsed;
    if (!ParseUploadRequest(again, &reparsed) || reparsed.console != request.console ||
        reparsed.files != request.files || reparsed.password != request.password)
        abort();
}

void CheckStateText(const std::string& text)
{
    SIMDEVICE device;
    std::string error;
    if (!device.LoadStateText(text, 0, &error))
        return;
    const std::string once = device.StateText();
    SIMDEVICE again;
    if (!again.LoadStateText(once, 0, &error) || again.StateText() != once)
        abort();
}

void CheckPorts(const std::string& text)
{
    std::vector<std::string> ports;
    if (SplitPorts(text, &ports)) {
        std::vector<std::string> again;
        if (JoinPorts(ports) != text || !SplitPorts(JoinPorts(ports), &again) || again != ports)
            abort();
    }
    std::vector<std::string> zones;
    if (SplitZones(text, &zones)) {
        std::vector<std::string> again;
        if (JoinZones(zones) != text || !SplitZones(JoinZones(zones), &again) || again != zones)
            abort();
    }
    std::string port;
    int address = 0, model = 0;
    ParsePortPosition(text.c_str(), &port, &address, &model);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    CheckUploadRequest(text);
    CheckStateText(text);
    CheckPorts(text);
    return 0;
}
