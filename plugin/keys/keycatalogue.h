// The closed catalogue of key functions: names and ids, the editor page of
// each, the function tree, and the code tables of prechimes, alarm tones and
// call states. Platform-free.
#pragma once

#include <stdint.h>

#include <map>
#include <string>

enum { KEYFUNCTION_COUNT = 40 };

// An id is ten times the kind plus the variant (0 to Selection, 1 to Zone, 2 to Group).
enum KEYFUNCTIONID : int32_t {
    KF_EMPTY = 0,
    KF_SELECT_ZONE = 10,
    KF_TALK_TO_SELECTION = 20,
    KF_TOGGLE_ALL = 30,
    KF_SWITCH_ON = 40,
    KF_PUSH = 42,
    KF_INCREASE = 50,
    KF_MENU = 60,
    KF_CHIME_TO_SELECTION = 70,
    KF_ALARM_TO_SELECTION = 80,
    KF_STOP = 90,
    KF_ON = 110,
    KF_PROTECT = 120,
    KF_EVAC_TO_SELECTION = 130,
    KF_BUSINESS_TO_SELECTION = 140,
    KF_PTT_TO_SELECTION = 150,
    KF_SYSTEM_FAULTS = 160,
    KF_INDICATOR_TEST = 170,
};

// Families of the key record codec: id / 10 - 1 (the empty key has none).
enum KEYFAMILY {
    FAMILY_NONE = -1,
    FAMILY_SELECT = 0,
    FAMILY_TALK = 1,
    FAMILY_CLEAR = 2,
    FAMILY_LOGICAL = 3,
    FAMILY_ARITHMETIC = 4,
    FAMILY_MENU = 5,
    FAMILY_CHIME = 6,
    FAMILY_ALARM = 7,
    FAMILY_STOP = 8,
    FAMILY_UNUSED = 9,
    FAMILY_ON = 10,
    FAMILY_PROTECT = 11,
    FAMILY_EVAC = 12,
    FAMILY_BUSINESS = 13,
    FAMILY_PTT = 14,
    FAMILY_SYSTEMFAULTS = 15,
    FAMILY_INDICATOR = 16,
};

int KeyFamily(int32_t id);

// The six lookups; each scans the table from its first row.
int FindKeyFunctionIndex(int32_t id);      // first row with the id, else -1
int32_t KeyFunctionIdAt(int position);     // -1 past the table
const char* KeyFunctionNameAt(int position);// null past the table
const char* KeyFunctionName(int32_t id);   // "Types" for an id without a row
int32_t KeyFunctionId(const char* name);   // case-insensitive; 0 for an unknown name
int KeyFunctionPage(int32_t id);           // editor page; 182 for an id without one

// The key function view's tree, in the order it is built.
struct KEYFUNCTIONNODE {
    const char* label;
    int parent;     // index of the parent node, -1 for the root
    int32_t id;     // the id a drop assigns; -1 for a branch
    int image;      // image list index; -1 for the tree's default
};
enum { KEYFUNCTIONNODE_COUNT = 17 };
const KEYFUNCTIONNODE* KeyFunctionTree();

// Code-to-text tables, built on demand; "None" rows only when asked for.
std::map<int, std::string> PrechimeTable(bool withNone);
std::map<int, std::string> AlarmToneTable(bool withNone);
std::map<int, std::string> CallStateTable();
// The prechime text of a code, "No Prechime" for any code without a tone.
std::string PrechimeText(int code);
extern const char kNoPrechime[];

// "ALARMS", "CHIMES", "ANNOUNCEMENTS", "EVAC MESSAGES", "BUSINESS MESSAGES".
enum { MESSAGECATEGORY_COUNT = 5 };
extern const char* const kMessageCategories[MESSAGECATEGORY_COUNT];

// The item lists of the editor pages' combo boxes, by page and control.
struct CHOICELIST {
    int page;
    int control;
    const char* const* items;
    int count;
};
enum { CHOICELIST_COUNT = 12 };
const CHOICELIST* EditorChoiceLists();

// The keys every new console gets, and the record a new key of a function gets.
struct DEFAULTKEY {
    int key;
    const char* record;
};
enum { DEFAULTKEY_COUNT = 5 };
extern const DEFAULTKEY kDefaultKeys[DEFAULTKEY_COUNT];
const char* DefaultKeyRecord(int32_t id);  // null for a function without one
