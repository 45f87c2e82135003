// Families of like keywords (fault words, fault masks, key slots, key labels,
// the mirrored settings ...): each member has a thin handler of its own in the
// keyword table, whose parameter word stays 0, and the thin handler passes its
// member number to the one handler of its family. Platform-free.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "keywordtable.h"

// A family's handler: the request for one member, by its member number.
typedef int (*FAMILYHANDLER)(REQUEST* request, CONSOLEPROPERTIES* console, int member);

struct KEYWORDFAMILY {
    const char* format;        // the keyword of member n ("Faults%d"), or null with names
    const char* const* names;  // keywords of members first .. last, where no format fits them all
    int first, last;           // member numbers, both included
    uint32_t flags;            // KEYWORD_SAVED, KEYWORD_LISTED
    FAMILYHANDLER handler;
};

enum KEYWORDFAMILYID {
    KEYWORDFAMILY_FAULTS,        // Faults1 .. Faults10
    KEYWORDFAMILY_FAULTMASKS,    // FaultMask1 .. FaultMask10, the seventh named FaultMaskTest
    KEYWORDFAMILY_STATEFLAGS,    // StateFlags1 .. StateFlags8
    KEYWORDFAMILY_KEYS,          // key000 .. key127
    KEYWORDFAMILY_OPTIONSTATES,  // key0120OptionState .. key0122OptionState
    KEYWORDFAMILY_KEYLABELS,     // keylabel000 .. keylabel127
    KEYWORDFAMILY_NUMERICKEYS,   // NumericKey0 .. NumericKey11
    KEYWORDFAMILY_MIRRORED,      // the settings the device mirrors, by MIRROREDSETTING
    KEYWORDFAMILY_COUNT,
};

const KEYWORDFAMILY& KeywordFamily(KEYWORDFAMILYID family);

// The keyword of a member; false for a number outside the family.
bool FamilyKeyword(KEYWORDFAMILYID family, int member, char* keyword, size_t size);

// The member's thin handler, or null for a number outside the family.
KEYWORDHANDLER FamilyMemberHandler(KEYWORDFAMILYID family, int member);

// Adds every member with its keyword, its thin handler, parameter 0 and the
// family's flags.
void AddKeywordFamily(KEYWORDTABLE& table, KEYWORDFAMILYID family);
