// The key-function editor pages as data: for every page, its controls, what
// kind of value each shows, which field of the key's record it edits, its
// item list when the page builds it, and the rule it follows besides. One
// page procedure (keypage.cpp) runs every page from this table. Platform-free.
#pragma once

#include <stdint.h>

#include <string>
#include <vector>

#include "../keys/keyrecord.h"

enum PAGECONTROLKIND {
    PC_COMBO,     // the selection index is the number
    PC_CHECK,     // checked is 1, clear 0
    PC_RADIO,     // checked while the number is `extra`; a click stores `extra`
    PC_BIT,       // checked while bit `extra` of the number is set
    PC_NUMBER,    // an edit with a whole number (a spin may stand beside it)
    PC_REAL,      // an edit with a real number
    PC_TEXT,      // an edit with a text field (a destination, a variable)
    PC_SPIN,      // the up-down control of the edit `extra`; no field of its own
    PC_PICKER,    // "...": picker `extra` (resource id) fills the text field and the edit 1008
    PC_MESSAGE,   // recorded messages, the text field holds "NAME|NUMBER"
    PC_PRECHIME,  // the prechime texts, the text field holds the text
    PC_TONE,      // the alarm tones, the number is the tone's code
    PC_INPUT,     // the system's audio inputs, the text field holds the input's name
};

// What a control does besides storing its value.
enum PAGEHOOK {
    HOOK_NONE,
    HOOK_AUDIOINPUT,     // the number is the input plus one; talk and PTT inputs must not clash
    HOOK_PTTLINEIN,      // the PTT key's line input must not clash with a talk key's
    HOOK_ALARMTONE,      // a tone other than "Extern" disables and clears the input channel
    HOOK_PRECHIMEFLAG,   // the number `flag` tells whether a message is chosen
    HOOK_ARITHMETICMODE, // the mode is the function: "Up" Increase, "Down" Decrease
};

struct PAGECONTROL {
    int control;
    PAGECONTROLKIND kind;
    int field;           // record position (1 = first after the name), 0 for none
    const char* items;   // comma-separated items the page builds, null for the resource's list
    PAGEHOOK hook;
    int extra;           // PC_RADIO, PC_BIT: the value; PC_SPIN: the buddy; PC_PICKER: the picker;
                         // HOOK_ALARMTONE: the input channel's position
    int flag;            // HOOK_PRECHIMEFLAG: the record position of the flag
};

struct KEYPAGE {
    int page;
    const PAGECONTROL* controls;
    int count;
    int forcedField;     // a field the page sets whenever it shows a key (0 none) ...
    int forcedValue;     // ... to this value
};

enum { KEYPAGE_COUNT = 20 };
const KEYPAGE* KeyPages();
// The page of a resource id, or null.
const KEYPAGE* FindKeyPage(int page);
// The page a key shows: "No Key selected !" without a key (-1), the decadic
// page for the numeric keys while the console uses them as its keypad, else
// the page of the key's function.
int EditorPageOf(int key, int32_t functionId, bool numericKeypad);
const PAGECONTROL* FindPageControl(const KEYPAGE* page, int control);

// What the control shows for the key (combo index, check state, number);
// the value a text control shows is KeyFieldText of its field.
double PageControlValue(const PAGECONTROL& control, const KEYSLOT& slot);
// Stores what the control now shows; false when the control has no number to store.
bool StorePageControlValue(const PAGECONTROL& control, KEYSLOT* slot, double value);

// The whole numbers a number control (or a spin, by its edit) may store: the
// width of the record field it writes, 0 to 255 or 0 to 65535. False for a
// control that stores no whole number.
bool PageControlRange(const KEYPAGE* page, const PAGECONTROL& control, int32_t functionId, int* low, int* high);

// What a number control's text is: nothing yet (empty: the user is typing),
// a number within the range, or anything else, which the page refuses.
enum PAGENUMBER { PAGENUMBER_EMPTY, PAGENUMBER_TAKEN, PAGENUMBER_REFUSED };
PAGENUMBER ReadPageNumber(const char* text, int low, int high, int* value);
// The refusal's message: "70000 is out of range.\nEnter a number from 0 to 65535."
std::string PageNumberRefusal(const char* text, int low, int high);

// The arithmetic modes after "Up" and "Down" have no function of their own
// (the record has no place for them): the message that refuses one, naming
// the mode the key keeps. Empty for "Up" and "Down" (0 and 1).
std::string ArithmeticModeRefusal(int mode, const char* chosen, const KEYSLOT& slot);

// Stores a text control's text (cut to its field), and the flag that goes with it.
bool StorePageControlText(const PAGECONTROL& control, KEYSLOT* slot, const char* text);

// Items of a comma-separated list ("Push,Toggle"); host lists use the same form.
std::vector<std::string> SplitItems(const char* list);

// A recorded message "NAME|NUMBER" ("%s|%u"), and its parts read as
// "%[^|]|%u"; false when the text holds no number.
struct MESSAGEENTRY {
    std::string name;
    unsigned number = 0;
};
bool ParseMessageEntry(const char* text, MESSAGEENTRY* entry);
std::string FormatMessageEntry(const MESSAGEENTRY& entry);
// The entries of the host's message list (entries that hold no number are left out).
std::vector<MESSAGEENTRY> ParseMessageList(const char* list);
// The index of the entry whose number the stored text names, or -1.
int MatchMessage(const std::vector<MESSAGEENTRY>& entries, const char* stored);

// The destination a key's picker chose: the current selection, a zone or a
// group. It chooses the function's variant: "Talk to Selection", "Talk to
// Zone", "Talk to Group" (the tree carries the first of each family), and
// "Select Zone" or "Select Group".
enum DESTINATIONKIND { DESTINATION_SELECTION = 0, DESTINATION_ZONE = 1, DESTINATION_GROUP = 2 };
// The text the destination field shows for a "to Selection" key, and for a
// zone or group key that has no destination yet.
extern const char kCurrentSelection[];  // "Current Slection", the system's own spelling
extern const char kNoCaption[];         // "(no caption)"
// Whether the key's function has the three destination variants.
bool HasDestinationVariants(int32_t functionId);
// Gives the key the variant of the destination (and the destination); false
// when the function cannot take it (a selection key takes no selection).
bool StoreDestination(KEYSLOT* slot, int position, DESTINATIONKIND kind, const char* destination);
// What the destination field shows.
std::string DestinationShown(const KEYSLOT& slot, int position);

// Whether the console model offers a talk key's audio input (stored plus
// one): the keypad boards (3 and 6) have the microphone and line inputs, the
// consoles their internal microphone alone.
bool ConsoleOffersAudioInput(int consoleType, int storedInput);

// The talk and PTT inputs clash: a talk key on the external line while the
// PTT key (key 123) takes the line input. The messages, null when it is fine.
enum { PTT_KEY = 123, AUDIOINPUT_EXTERNAL_LINE = 3 };
const char* TalkInputClash(const KEYSLOT* keys, int count, int key, int storedInput);
const char* PttLineInClash(const KEYSLOT* keys, int count, int key, bool lineIn);
