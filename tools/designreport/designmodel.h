// What a design report needs of a design file: its controllers with the
// lists they offer and the consoles with their keys, labels and identity,
// each value with the line it came from. Platform-free.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <map>
#include <string>
#include <vector>

enum {
    REPORT_KEY_SLOTS = 128,
    REPORT_NUMERIC_KEYS = 12,
    REPORT_LABEL_LENGTH = 31,     // what the device shows of a label
    REPORT_KEPT_TEXT = 512,       // longer values are kept cut, their length noted
    REPORT_LINE_LIMIT = 65536,    // longer lines are refused unread
    REPORT_PROBLEM_LIMIT = 10000, // problems beyond are counted only
};

// One value of the design with its line number (0: the design has none).
struct LINEVALUE {
    std::string text;
    size_t length = 0;  // of the value as the line held it, text may be cut
    int line = 0;
};

// The controller's lists of what its keys may address: "zones", "groups",
// "messages" ("NAME|NUMBER"), "inputs" and "logic", each a line such as
// "ORNCON_1*zones=Hall,Lobby,Car park".
enum OFFERKIND { OFFER_ZONES, OFFER_GROUPS, OFFER_MESSAGES, OFFER_INPUTS, OFFER_LOGIC, OFFER_COUNT };
const char* OfferKeyword(OFFERKIND kind);

struct OFFERLIST {
    bool present = false;  // the design carries the list
    int line = 0;
    std::vector<std::string> names;
    bool Has(const std::string& name) const;
};

struct CONTROLLERDESIGN {
    std::string name;
    std::string className;  // "ORNCON" or "ELKCON"
    int controlLine = 0;
    OFFERLIST offers[OFFER_COUNT];
    std::map<std::string, bool> onlineAtSave;  // console name to "online=1" of its "device=" line
};

// A key slot's record as the design gave it.
struct KEYLINE {
    int slot = 0;       // 0-127, or 0-11 of the numeric keys
    LINEVALUE record;
};

struct CONSOLEDESIGN {
    std::string name;   // full name, parent path included
    int controlLine = 0;
    int model = 0;      // console type: from the object name, then "type"
    LINEVALUE type;
    LINEVALUE displayName;
    LINEVALUE address;
    int addressNumber = 0;
    LINEVALUE connection;
    bool hasConnection = false;
    LINEVALUE extensionCount;
    int extensions = 0;  // 0-5
    bool numericKeys = false;
    int specialModes[3] = {};  // keys 120-122: 0 not used, 1 alarm button, 2 key switch
    // Only the configured keys and the labels that hold text, in slot order.
    std::vector<KEYLINE> keys;
    std::vector<KEYLINE> numericKeyRecords;
    std::vector<KEYLINE> labels;
    std::string Controller() const;  // of the connection; empty without one
    const KEYLINE* Label(int slot) const;
};

// A line that the report could not take, or a problem that --check finds.
enum PROBLEMKIND {
    PROBLEM_LINE,              // malformed, too long, unknown or refused object
    PROBLEM_DESTINATION,       // not a zone or group the controller offers
    PROBLEM_MESSAGE,
    PROBLEM_INPUT,
    PROBLEM_LOGIC,
    PROBLEM_HIDDEN_KEY,        // beyond the console's extensions, still sent
    PROBLEM_SECOND_PROTECT,
    PROBLEM_SECOND_INDICATOR_TEST,
    PROBLEM_NO_DESTINATION,
    PROBLEM_ADDRESS_TAKEN,
    PROBLEM_NO_CONNECTION,
    PROBLEM_LONG_LABEL,
    PROBLEM_UNKNOWN_FUNCTION,
    PROBLEMKIND_COUNT,
};
const char* ProblemKindText(PROBLEMKIND kind);

struct PROBLEM {
    int line = 0;
    PROBLEMKIND kind = PROBLEM_LINE;
    std::string object;
    std::string text;
};

struct PROBLEMLIST {
    std::vector<PROBLEM> items;
    size_t dropped = 0;  // beyond REPORT_PROBLEM_LIMIT
    void Add(int line, PROBLEMKIND kind, const std::string& object, const std::string& text);
};

struct DESIGNMODEL {
    std::string fileName;  // as reports name it
    std::vector<CONTROLLERDESIGN> controllers;
    std::vector<CONSOLEDESIGN> consoles;
    std::map<std::string, size_t> controllerIndex;
    std::map<std::string, size_t> consoleIndex;
    PROBLEMLIST lineProblems;  // what the reading refused
    int lines = 0;

    const CONTROLLERDESIGN* FindController(const std::string& name) const;
};

// Reads a design line by line; a line is handed over without its line end.
class DESIGNREADER {
public:
    explicit DESIGNREADER(DESIGNMODEL* model) : m_model(model) {}
    void Line(const char* text, size_t length);
    // A line longer than REPORT_LINE_LIMIT: counted and reported, not read.
    void LongLine(size_t length);

private:
    void ControlLine(const std::string& parent, const std::string& value);
    // The value is the line's own, and a kept record takes it over.
    void ObjectLine(const std::string& object, const std::string& keyword, std::string&& value,
                    size_t valueLength);
    void ConsoleLine(CONSOLEDESIGN* console, const std::string& keyword, std::string&& value,
                     size_t valueLength);
    void ControllerLine(CONTROLLERDESIGN* controller, const std::string& keyword, const std::string& value);

    DESIGNMODEL* m_model;
    // The object of the last object line found, as its lines come together.
    std::string m_lastObject;
    CONSOLEDESIGN* m_lastConsole = nullptr;
    CONTROLLERDESIGN* m_lastController = nullptr;
    std::map<std::string, bool> m_refused;  // objects whose control line was refused
    std::map<std::string, bool> m_others;   // objects of other classes
};

// Reads a whole text held in memory (tests, fuzzing).
DESIGNMODEL ReadDesignText(const std::string& text, const std::string& fileName);
// Reads a file in chunks, so a file of any size is read in bounded memory;
// false when it cannot be opened or read.
bool ReadDesignFile(const char* path, const std::string& fileName, DESIGNMODEL* model);
