#include "keywordfamilies.h"

#include <array>
#include <utility>

#include "handlers.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const uint32_t S = KEYWORD_SAVED;
const uint32_t L = KEYWORD_LISTED;
const uint32_t SL = KEYWORD_SAVED | KEYWORD_LISTED;

// The seventh mask is the test fault's; there is no FaultMask7.
constexpr const char* kFaultMaskKeywords[] = {
    "FaultMask1", "FaultMask2", "FaultMask3", "FaultMask4", "FaultMask5",
    "FaultMask6", "FaultMaskTest", "FaultMask8", "FaultMask9", "FaultMask10",
};
static_assert(sizeof kFaultMaskKeywords / sizeof kFaultMaskKeywords[0] == FAULTMASK_COUNT, "one keyword per mask");

// In the order of MIRROREDSETTING.
constexpr const char* kMirroredKeywords[] = {
    "preChimeActive", "reportFaults", "Compressor", "ShowDate", "Buzzer",
    "CANTermination", "BgmMenuActive", "ShowLineMonitoring", "ShowPowerManagementStates",
};
static_assert(sizeof kMirroredKeywords / sizeof kMirroredKeywords[0] == MIRRORED_COUNT, "one keyword per setting");

constexpr KEYWORDFAMILY kFamilies[] = {
    {"Faults%d", nullptr, 1, 10, L, FaultsHandler},
    {nullptr, kFaultMaskKeywords, 1, FAULTMASK_COUNT, SL, FaultMaskHandler},
    {"StateFlags%d", nullptr, 1, 8, L, StateFlagsHandler},
    {"key%03d", nullptr, 0, CONSOLE_KEY_COUNT - 1, S, KeyHandler},
    {"key%04dOptionState", nullptr, 120, 122, S, OptionStateHandler},  // the special keys, four digits
    {"keylabel%03d", nullptr, 0, CONSOLE_KEY_COUNT - 1, S, KeyLabelHandler},
    {"NumericKey%d", nullptr, 0, CONSOLE_NUMERICKEY_COUNT - 1, S, NumericKeyHandler},
    {nullptr, kMirroredKeywords, 0, MIRRORED_COUNT - 1, SL, MirroredSettingHandler},
};
static_assert(sizeof kFamilies / sizeof kFamilies[0] == KEYWORDFAMILY_COUNT, "one entry per family");

// One thin handler per member, made by the compiler from the table above.
template <size_t Family, int Member>
int MemberHandler(REQUEST* request, CONSOLEPROPERTIES* console)
{
    return kFamilies[Family].handler(request, console, Member);
}

template <size_t Family, int... Offsets>
constexpr std::array<KEYWORDHANDLER, sizeof...(Offsets)> MemberHandlers(std::integer_sequence<int, Offsets...>)
{
    return {{&MemberHandler<Family, kFamilies[Family].first + Offsets>...}};
}

template <size_t Family>
constexpr auto kMemberHandlers =
    MemberHandlers<Family>(std::make_integer_sequence<int, kFamilies[Family].last - kFamilies[Family].first + 1>());

template <size_t... Families>
constexpr std::array<const KEYWORDHANDLER*, sizeof...(Families)> FamilyHandlers(std::index_sequence<Families...>)
{
    return {{kMemberHandlers<Families>.data()...}};
}

constexpr auto kFamilyHandlers = FamilyHandlers(std::make_index_sequence<KEYWORDFAMILY_COUNT>());

bool IsMember(const KEYWORDFAMILY& family, int member)
{
    return member >= family.first && member <= family.last;
}

}  // namespace

const KEYWORDFAMILY& KeywordFamily(KEYWORDFAMILYID family)
{
    return kFamilies[family];
}

bool FamilyKeyword(KEYWORDFAMILYID id, int member, char* keyword, size_t size)
{
    const KEYWORDFAMILY& family = kFamilies[id];
    if (!IsMember(family, member))
        return false;
    if (family.names)
        return CopyText(keyword, size, family.names[member - family.first]);
    return FormatText(keyword, size, family.format, member);
}

KEYWORDHANDLER FamilyMemberHandler(KEYWORDFAMILYID id, int member)
{
    const KEYWORDFAMILY& family = kFamilies[id];
    return IsMember(family, member) ? kFamilyHandlers[id][member - family.first] : nullptr;
}

void AddKeywordFamily(KEYWORDTABLE& table, KEYWORDFAMILYID id)
{
    const KEYWORDFAMILY& family = kFamilies[id];
    for (int member = family.first; member <= family.last; member++) {
        char keyword[32];
        if (FamilyKeyword(id, member, keyword, sizeof keyword))
            table.Add(keyword, FamilyMemberHandler(id, member), 0, family.flags);
    }
}
