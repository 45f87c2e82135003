// The design document: the root object of a design and what the host keeps
// for it. Internal to Analyze.dll.
#pragma once

#include "analyze_host.h"
#include "orderedset.h"

#include <string>
#include <utility>
#include <vector>

class DESIGN final : public HOSTINFO {
public:
    DESIGN(HWND surface, HWND output);
    ~DESIGN();

    // "OBJECT*keyword=value" lines of the running system (the key presses of
    // console views), loaded as the design file's lines are.
    LRESULT OnLoad(WPARAM mode, LPARAM line) override;
    // Serves the design's host variables ("projectversion") to plug-ins.
    LRESULT OnMessage(WPARAM, LPARAM request) override;
    // Every object of the design, by name: how plug-ins walk a design.
    BOOL HasHostinfoTable() override { return TRUE; }
    CHashTable* GetHostinfoTable() override { return &byName; }

    void AppendOutput(const char* line);
    // What an object reports while the host hands it a line is said with the
    // object's name and, while a design file loads, the file and line number.
    struct REPORTER {
        std::string object;
        std::string file;
        int line = 0;
    };
    std::string Attributed(const char* text) const;
    LRESULT ChangeAlarmSources(REQUEST* request, bool add);
    bool SetVariable(const std::string& name, const std::string& value);
    // The host lines as saved: "projectversion" first in the host's own version.
    std::vector<std::pair<std::string, std::string>> SavedVariables() const;

    HWND surface;
    HWND outputWindow;
    ORDEREDSET<HOSTINFO> objects;    // in creation order: the order of saving
    CHashTable byName;               // objects that told the host they exist
    std::vector<std::pair<std::string, std::string>> variables;
    std::string hostVersion;         // the host's project version; empty: save as loaded
    std::vector<std::string> output;
    REPORTER reporter;               // empty object: the host speaks for itself
    HOSTINFO* selection = nullptr;   // the object the user selected
    WORD mode = 0;                   // the objects' mode word: 0 run, 1 design
    int objectsAdded = 0;            // numbers the objects: their m_nConsoleNumber
    std::vector<std::string> alarmSources;  // "Matrix.AddAlarmID": "CONSOLE.keyN" of alarm keys
    LOADPHASES lastLoad = {};        // where the last a_LoadFile spent its time
    double registering = 0;          // ms in a_AddHostinfo and a_HostinfoCreated, which objects call while their windows are made
};

// A steady clock in milliseconds, for the phases of a load.
double HostMilliseconds();

// "Matrix.AddAlarmID": where alarm keys announce themselves.
extern const char kAddAlarmId[];
extern const char kRemoveAlarmId[];

// The module handle of Analyze.dll, for its window classes.
HINSTANCE AnalyzeInstance();

// The open design whose root is root, or null.
DESIGN* FindDesign(HOSTINFO* root);
// The open design obj belongs to, or null.
DESIGN* DesignOf(HOSTINFO* obj);
// Every open design, oldest first.
std::vector<DESIGN*>& OpenDesigns();
