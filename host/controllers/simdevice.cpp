#include "simdevice.h"

#include <stdio.h>

#include <vector>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

struct DEFAULTVALUE {
    const char* word;
    int value;
};

// A new console: boot firmware 1.0.5, firmware V3.4.2, the fault report
// switches of a new console, everything else 0 but the date display.
const DEFAULTVALUE kDefaults[] = {
    {"FirmwareRevision1", 1},   {"FirmwareRevision2", 5},   {"FirmwareRevision3", 0},  {"FirmwareRevision4", 1},
    {"FirmwareRevision5", 1},   {"FirmwareRevision6", 2},   {"FirmwareRevision7", 4},  {"FirmwareRevision8", 3},
    {"FirmwareRevision9", 0},   {"State", 1},               {"OperatingMode", 0},      {"Faults1", 0},
    {"Faults2", 0},             {"Faults3", 0},             {"Faults4", 0},            {"Faults5", 0},
    {"Faults6", 0},             {"Faults7", 0},             {"Faults8", 0},            {"Faults9", 0},
    {"Faults10", 0},            {"FaultMask1", 1},          {"FaultMask2", 1},         {"FaultMask3", 1},
    {"FaultMask4", 0},          {"FaultMask5", 0},          {"FaultMask6", 0},         {"FaultMaskTest", 0},
    {"FaultMask8", 1},          {"FaultMask9", 1},          {"FaultMask10", 1},        {"DeviceErrorsFlags1", 0},
    {"DeviceErrorsFlags2", 0},  {"DeviceErrorsFlags3", 0},  {"DeviceErrorsFlags4", 0}, {"DeviceErrorsFlags5", 0},
    {"DeviceErrorsFlags6", 0},  {"DeviceErrorsFlags7", 0},  {"DeviceErrorsFlags8", 0}, {"FlashProgramState", 0},
    {"FlashProgramPercent", 0}, {"Buzzer", 0},              {"CANTermination", 0},     {"BGM_Menu", 0},
    {"ShowLineMonitoring", 0},  {"ShowPowerManagementStates", 0}, {"ShowDate", 1},     {"Compressor", 0},
    {"ReportFaults", 0},        {"PreChimeAllowed", 0},     {"Find", 0},               {"BaudrateFreeze", 0},
};

const char* const kReadOnly[] = {"MasterFault", "Runtime", "WatchdogCounter"};
const char kWriteOnly[] = "WatchdogClear";

bool IsStored(const std::string& word)
{
    for (const DEFAULTVALUE& entry : kDefaults)
        if (word == entry.word)
            return true;
    return false;
}

bool IsReadOnly(const std::string& word)
{
    for (const char* name : kReadOnly)
        if (word == name)
            return true;
    return false;
}

// The mask that switches the report of fault word n.
const char* MaskOf(int n)
{
    static const char* const masks[] = {"",           "FaultMask1", "FaultMask2",    "FaultMask3",
                                        "FaultMask4", "FaultMask5", "FaultMask6",    "FaultMaskTest",
                                        "FaultMask8", "FaultMask9", "FaultMask10"};
    return masks[n];
}

}  // namespace

SIMDEVICE::SIMDEVICE()
{
    for (const DEFAULTVALUE& entry : kDefaults)
        m_values[entry.word] = entry.value;
}

bool SIMDEVICE::Knows(const std::string& word)
{
    return IsStored(word) || IsReadOnly(word) || word == kWriteOnly;
}

bool SIMDEVICE::Readable(const std::string& word)
{
    return IsStored(word) || IsReadOnly(word);
}

bool SIMDEVICE::Writable(const std::string& word)
{
    return IsStored(word) || word == kWriteOnly;
}

uint32_t SIMDEVICE::Elapsed(uint32_t since, uint32_t now) const
{
    return m_on ? now - since : 0;
}

bool SIMDEVICE::MasterFault() const
{
    for (int n = 1; n <= 10; n++) {
        char fault[16];
        FormatText(fault, sizeof fault, "Faults%d", n);
        if (m_values.at(fault) != 0 && m_values.at(MaskOf(n)) != 0)
            return true;
    }
    return false;
}

bool SIMDEVICE::Read(const std::string& word, uint32_t now, int* value) const
{
    if (word == "MasterFault")
        *value = MasterFault() ? 1 : 0;
    else if (word == "Runtime")
        *value = m_runtimeBefore + (int)(Elapsed(m_onSince, now) / 1000);
    else if (word == "WatchdogCounter")
        *value = (int)((Elapsed(m_watchdogSince, now) / 1000) % 256);
    else if (IsStored(word))
        *value = m_values.at(word);
    else
        return false;
    return true;
}

bool SIMDEVICE::Write(const std::string& word, int value, uint32_t now)
{
    if (word == kWriteOnly) {
        m_watchdogSince = now;
        return true;
    }
    if (!IsStored(word))
        return false;
    m_values[word] = value;
    return true;
}

void SIMDEVICE::SwitchOn(bool on, uint32_t now)
{
    if (on == m_on)
        return;
    if (!on)
        m_runtimeBefore += (int)((now - m_onSince) / 1000);
    m_on = on;
    m_onSince = now;
    m_watchdogSince = now;
}

std::string SIMDEVICE::StateText() const
{
    std::string text = m_on ? "online=1" : "";
    for (const DEFAULTVALUE& entry : kDefaults) {
        const int value = m_values.at(entry.word);
        if (value == entry.value)
            continue;
        char pair[64];
        FormatText(pair, sizeof pair, "%s%s=%d", text.empty() ? "" : " ", entry.word, value);
        text += pair;
    }
    return text;
}

bool SIMDEVICE::LoadStateText(const std::string& text, uint32_t now, std::string* error)
{
    // Checked whole before anything changes: a bad pair refuses the line.
    std::vector<std::pair<std::string, int>> pairs;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find(' ', start);
        if (end == std::string::npos)
            end = text.size();
        const std::string pair = text.substr(start, end - start);
        start = end + 1;
        if (pair.empty())
            continue;
        const size_t equals = pair.find('=');
        int value = 0;
        const std::string word = pair.substr(0, equals);
        if (equals == std::string::npos || !ParseInt(pair.substr(equals + 1).c_str(), &value) ||
            (word != "online" && !IsStored(word))) {
            *error = pair;
            return false;
        }
        pairs.emplace_back(word, value);
    }
    for (const auto& pair : pairs) {
        if (pair.first == "online")
            SwitchOn(pair.second != 0, now);
        else
            m_values[pair.first] = pair.second;
    }
    return true;
}

bool SIMDEVICE::PressKey(int key, bool down)
{
    enum { SLOW_BLINK = 1, FAST_BLINK = 2, LIT = 3 };
    if (key < 0 || key >= FACE_KEYS)
        return false;
    if (down) {
        m_leds[key] = (uint8_t)(FAST_BLINK | LIT << 2);
        return true;
    }
    m_active[key] = !m_active[key];
    m_leds[key] = m_active[key] ? (uint8_t)SLOW_BLINK : 0;
    return true;
}

std::string SIMDEVICE::LedText() const
{
    static const char kDigits[] = "0123456789abcdef";
    std::string text(FACE_KEYS, '0');
    for (int key = 0; key < FACE_KEYS; key++)
        text[(size_t)key] = kDigits[m_leds[key] & 15];
    return text;
}
