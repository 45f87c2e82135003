// The keyword families against the console's keyword list: names, flags, and
// each member's thin handler reaching its family's handler with its number.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "../../plugin/device/keywordfamilies.h"
#include "familyrecorder.h"

namespace {

const uint32_t S = KEYWORD_SAVED;
const uint32_t L = KEYWORD_LISTED;
const uint32_t SL = KEYWORD_SAVED | KEYWORD_LISTED;

std::string Numbered(const char* stem, int n, int digits)
{
    char number[8];
    snprintf(number, sizeof number, "%0*d", digits, n);
    return std::string(stem) + number;
}

// Every family keyword of the console with its flags, written out from the
// console's keyword list rather than from the family table.
std::map<std::string, uint32_t> ExpectedFamilyKeywords()
{
    std::map<std::string, uint32_t> expected;
    for (int n = 1; n <= 10; n++)
        expected[Numbered("Faults", n, 1)] = L;
    for (const char* mask : {"FaultMask1", "FaultMask2", "FaultMask3", "FaultMask4", "FaultMask5", "FaultMask6",
                             "FaultMaskTest", "FaultMask8", "FaultMask9", "FaultMask10"})
        expected[mask] = SL;
    for (int n = 1; n <= 8; n++)
        expected[Numbered("StateFlags", n, 1)] = L;
    for (int key = 0; key <= 127; key++) {
        expected[Numbered("key", key, 3)] = S;
        expected[Numbered("keylabel", key, 3)] = S;
    }
    for (const char* option : {"key0120OptionState", "key0121OptionState", "key0122OptionState"})
        expected[option] = S;
    for (int n = 0; n <= 11; n++)
        expected[Numbered("NumericKey", n, 1)] = S;
    for (const char* setting : {"preChimeActive", "reportFaults", "Compressor", "ShowDate", "Buzzer", "CANTermination",
                                "BgmMenuActive", "ShowLineMonitoring", "ShowPowerManagementStates"})
        expected[setting] = SL;
    return expected;
}

KEYWORDTABLE AllFamilies()
{
    KEYWORDTABLE table;
    for (int family = 0; family < KEYWORDFAMILY_COUNT; family++)
        AddKeywordFamily(table, static_cast<KEYWORDFAMILYID>(family));
    return table;
}

}  // namespace

TEST(KeywordFamilies, NameEveryFamilyKeywordWithItsFlags)
{
    const KEYWORDTABLE table = AllFamilies();
    std::map<std::string, uint32_t> found;
    for (size_t i = 0; i < table.Count(); i++) {
        const KEYWORDENTRY& entry = table.Entry(i);
        EXPECT_TRUE(found.emplace(entry.keyword, entry.flags).second) << "twice: " << entry.keyword;
        EXPECT_EQ(entry.parameter, 0u) << entry.keyword;
        EXPECT_NE(entry.handler, nullptr) << entry.keyword;
    }
    EXPECT_EQ(found, ExpectedFamilyKeywords());
    EXPECT_EQ(table.Count(), 308u);  // of the 341 keywords, 33 stand alone
}

// Each keyword's own handler passes its member number to its family's handler.
TEST(KeywordFamilies, ThinHandlersPassTheirMemberNumber)
{
    const std::vector<std::pair<std::string, FAMILYCALL>> cases = {
        {"Faults1", {"Faults", 1}},           {"Faults10", {"Faults", 10}},
        {"FaultMask1", {"FaultMask", 1}},     {"FaultMaskTest", {"FaultMask", 7}},
        {"FaultMask8", {"FaultMask", 8}},     {"FaultMask10", {"FaultMask", 10}},
        {"StateFlags8", {"StateFlags", 8}},   {"key000", {"Key", 0}},
        {"key127", {"Key", 127}},             {"key0120OptionState", {"OptionState", 120}},
        {"key0122OptionState", {"OptionState", 122}}, {"keylabel005", {"KeyLabel", 5}},
        {"NumericKey11", {"NumericKey", 11}}, {"preChimeActive", {"Mirrored", 0}},
        {"ShowPowerManagementStates", {"Mirrored", 8}},
    };
    KEYWORDTABLE table = AllFamilies();
    table.Finish();
    std::set<KEYWORDHANDLER> distinct;
    for (size_t i = 0; i < table.Count(); i++)
        distinct.insert(table.Entry(i).handler);
    EXPECT_EQ(distinct.size(), table.Count());
    for (const auto& c : cases) {
        const uint16_t index = table.Lookup(c.first.c_str());
        ASSERT_NE(index, 0) << c.first;
        FamilyCalls().clear();
        EXPECT_EQ(table.Entry(index).handler(nullptr, nullptr), 1);
        ASSERT_EQ(FamilyCalls().size(), 1u) << c.first;
        EXPECT_EQ(FamilyCalls()[0].family, c.second.family) << c.first;
        EXPECT_EQ(FamilyCalls()[0].member, c.second.member) << c.first;
    }
}

TEST(KeywordFamilies, MirroredSettingsAreNamedInTheirSettingOrder)
{
    char keyword[32];
    ASSERT_TRUE(FamilyKeyword(KEYWORDFAMILY_MIRRORED, MIRRORED_BGMMENU, keyword, sizeof keyword));
    EXPECT_STREQ(keyword, "BgmMenuActive");
    ASSERT_TRUE(FamilyKeyword(KEYWORDFAMILY_MIRRORED, MIRRORED_CANTERMINATION, keyword, sizeof keyword));
    EXPECT_STREQ(keyword, "CANTermination");
    EXPECT_FALSE(FamilyKeyword(KEYWORDFAMILY_MIRRORED, MIRRORED_COUNT, keyword, sizeof keyword));
}
