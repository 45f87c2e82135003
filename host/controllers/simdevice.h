// The simulated paging console behind a controller port: the variables a real
// console reports and takes, by the words the controller names them with
// ("Buzzer", "FirmwareRevision5", "Faults3"). Platform-free.
#pragma once

#include <stdint.h>

#include <map>
#include <string>

class SIMDEVICE {
public:
    SIMDEVICE();

    // Whether the word names a variable of the device, and whether it can be
    // read or written ("WatchdogClear" is write only, "MasterFault" read only).
    static bool Knows(const std::string& word);
    static bool Readable(const std::string& word);
    static bool Writable(const std::string& word);

    // Reads a variable at host time now (ms); false for a word it does not know.
    bool Read(const std::string& word, uint32_t now, int* value) const;
    bool Write(const std::string& word, int value, uint32_t now);

    // Switched on: the device answers and its run time and watchdog count.
    bool IsOn() const { return m_on; }
    void SwitchOn(bool on, uint32_t now);

    // Any fault whose report switch is on (the seventh slot is the test fault).
    bool MasterFault() const;

    // The variables that differ from a new device, as "word=value" pairs joined
    // by blanks ("online=1" first when it is on), and back.
    std::string StateText() const;
    bool LoadStateText(const std::string& text, uint32_t now, std::string* error);

    // The key records the console sent (key number to record).
    std::map<int, std::string> keys;

    // A key of the console's face goes down or up. While held, its first LED
    // blinks fast and its second is lit; released, an idle key becomes
    // active (its first LED blinks slowly) and an active one goes idle.
    // False for a key number the face does not have.
    bool PressKey(int key, bool down);
    // The face's LEDs: one hexadecimal digit per key 0-127, the first LED's
    // mode in bits 0-1 and the second's in bits 2-3 (0 off, 1 slow blink,
    // 2 fast blink, 3 on).
    std::string LedText() const;
    enum { FACE_KEYS = 128 };

    // Where the console sits: filled by the controller while connected.
    bool connected = false;
    std::string port;
    int address = 0;
    int model = 0;

private:
    uint32_t Elapsed(uint32_t since, uint32_t now) const;

    std::map<std::string, int> m_values;  // the stored variables
    uint8_t m_leds[FACE_KEYS] = {};
    bool m_active[FACE_KEYS] = {};
    bool m_on = false;
    uint32_t m_onSince = 0;               // host time of switching on
    uint32_t m_watchdogSince = 0;         // host time of the last watchdog clear
    int m_runtimeBefore = 0;              // seconds run before the last switch-on
};
