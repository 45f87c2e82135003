// The key record layouts field by field: each number of each family is fed a
// value above 65535 and must come back cut to its own width (16 or 8 bits),
// the others untouched; the shared cells hold across families.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../../plugin/keys/keyrecord.h"
#include "keyrecordtesting.h"

namespace {

struct LAYOUT {
    const char* name;
    bool leadingText;          // the logic or arithmetic variable comes first
    bool reals;                // three reals after the variable
    std::vector<int> widths;   // the numbers in record order, in bits
    int texts;                 // texts after the numbers
};

const LAYOUT kLayouts[] = {
    {"Select Zone", false, false, {16}, 1},
    {"Select Group", false, false, {16}, 1},
    {"Talk to Selection", false, false, {16, 8, 8, 16, 8, 8, 8, 8, 8, 8, 8, 8, 16, 8, 8}, 3},
    {"Talk to Group", false, false, {16, 8, 8, 16, 8, 8, 8, 8, 8, 8, 8, 8, 16, 8, 8}, 3},
    {"Select All", false, false, {8}, 0},
    {"Switch Off", true, false, {8, 8, 8}, 0},
    {"LED Ignition only", true, false, {8, 8, 8}, 0},
    {"Decrease", true, true, {16, 8}, 0},
    {"Program", false, false, {16}, 0},
    {"Chime to Group", false, false, {16, 8, 8, 16, 16, 8, 8}, 2},
    {"Alarm to Selection", false, false, {16, 8, 8, 16, 16}, 2},
    {"Stop", false, false, {8, 16, 8, 16, 16}, 1},
    {"On", false, false, {16, 8}, 0},
    {"EVAC Messages to Group", false, false, {16, 16, 8, 8, 8, 8, 8}, 2},
    {"Business Messages to Selection", false, false, {16, 16, 8, 8, 8}, 2},
    {"PTT to Group", false, false, {16, 8, 8, 16, 8, 8, 8, 8, 8}, 2},
    {"Indicator Test", false, false, {8, 8}, 0},
};

// The record with number field `field` set to `value` and the others to 0.
std::string Record(const LAYOUT& layout, int field, long long value)
{
    std::string record = layout.name;
    if (layout.leadingText)
        record += ",Var";
    if (layout.reals)
        record += ",1.500000,-2.250000,0.125000";
    for (size_t n = 0; n < layout.widths.size(); n++)
        record += "," + std::to_string((int)n == field ? value : 0);
    const char* const texts[3] = {"First", "Second", "Third"};
    for (int n = 0; n < layout.texts; n++)
        record += std::string(",") + texts[n];
    return record;
}

// The slot's numbers written as another function: which cells it shares.
std::string As(KEYSLOT slot, int32_t functionId)
{
    slot.functionId = functionId;
    slot.variant = (uint8_t)(functionId % 10);
    return FormatKeyRecord(slot);
}

}  // namespace

TEST(RecordWidths, EveryNumberOfEveryFamilyKeepsItsWidth)
{
    // 65836 = 0x1012C: 300 in 16 bits, 44 in 8 bits.
    for (const LAYOUT& layout : kLayouts) {
        for (size_t field = 0; field < layout.widths.size(); field++) {
            SCOPED_TRACE(testing::Message() << layout.name << " number " << field + 1);
            const int kept = layout.widths[field] == 16 ? 300 : 44;
            EXPECT_EQ(RoundTrip(Record(layout, (int)field, 65836)), Record(layout, (int)field, kept));
            EXPECT_EQ(RoundTrip(Record(layout, (int)field, layout.widths[field] == 16 ? 65535 : 255)),
                      Record(layout, (int)field, layout.widths[field] == 16 ? 65535 : 255));
            EXPECT_EQ(RoundTrip(Record(layout, (int)field, 256)),
                      Record(layout, (int)field, layout.widths[field] == 16 ? 256 : 0));
        }
    }
}

TEST(RecordWidths, EmptyAndBareNames)
{
    for (const char* bare : {"Empty", "Protect", "System Faults"}) {
        EXPECT_EQ(RoundTrip(bare), bare);
        EXPECT_EQ(RoundTrip(std::string(bare) + ",65836,1,Text"), bare);
    }
    const KEYSLOT empty = EmptyKeySlot();
    EXPECT_EQ(empty.functionId, 0);
    EXPECT_EQ(empty.variant, 0);
    for (int cell = 0; cell < KEYSLOT_CELLS; cell++)
        EXPECT_EQ(empty.cells[cell], 0) << cell;
    for (int real = 0; real < KEYSLOT_REALS; real++)
        EXPECT_EQ(empty.reals[real], 0.0f) << real;
    EXPECT_STREQ(empty.text1, "");
    EXPECT_STREQ(empty.text2, "");
    EXPECT_STREQ(empty.text3, "");
    EXPECT_EQ(FormatKeyRecord(empty), "Empty");
}

TEST(RecordWidths, VariantIsTheIdModuloTen)
{
    struct ROW {
        const char* record;
        int id, variant;
    };
    const ROW rows[] = {
        {"Select Group,0,X", 11, 1},     {"Talk to Zone,0,0,0,50,0,0,1,", 21, 1}, {"Clear All,0", 32, 2},
        {"LED Ignition only,V,0,0,0", 44, 4}, {"Monitoring,0", 62, 2},          {"Alarm to Group,0,0,0,0,0,,", 82, 2},
        {"Stop,0,0,0,91,91,", 90, 0},    {"Business Messages to Zone,0,0,0,0,0,,", 141, 1},
        {"PTT to Group,0,0,0,0,0,0,0,0,0,,", 152, 2}, {"Indicator Test,0,0", 170, 0},
    };
    for (const ROW& row : rows) {
        const KEYSLOT slot = Parsed(row.record);
        EXPECT_EQ(slot.functionId, row.id) << row.record;
        EXPECT_EQ(slot.variant, row.variant) << row.record;
    }
}

TEST(RecordWidths, SharedCellsAcrossFamilies)
{
    // Talk, PTT, chime and alarm begin with the same four numbers.
    const KEYSLOT talk = Parsed("Talk to Zone,1000,2,3,4000,5,6,1,8,9,10,11,12,13000,14,15,Dest,Pre,Lock");
    EXPECT_EQ(As(talk, 151), "PTT to Zone,1000,2,3,4000,5,6,1,8,9,Dest,Pre");
    EXPECT_EQ(As(talk, 71).substr(0, 28), "Chime to Zone,1000,2,3,4000,");
    EXPECT_EQ(As(talk, 81).substr(0, 28), "Alarm to Zone,1000,2,3,4000,");

    // Chime and alarm share their fifth number with the stop's fifth.
    const KEYSLOT alarm = Parsed("Alarm to Zone,11,1,2,33,7777,Zone,Input");
    EXPECT_EQ(As(alarm, 90).substr(0, 5), "Stop,");
    EXPECT_NE(As(alarm, 90).find(",7777,"), std::string::npos) << As(alarm, 90);
    EXPECT_EQ(As(alarm, 71), "Chime to Zone,11,1,2,33,7777,0,0,Zone,Input");
    const KEYSLOT stop = Parsed("Stop,1,2000,2,91,6000,Kept");
    EXPECT_EQ(As(stop, 80).substr(As(stop, 80).rfind(",6000,"), 6), ",6000,");

    // The message families begin with the talk family's first and fourth number.
    const KEYSLOT evac = Parsed("EVAC Messages to Zone,1111,2222,3,4,5,1,7,Zone,Msg|4");
    EXPECT_EQ(As(evac, 21).substr(0, 27), "Talk to Zone,1111,0,0,2222,");
    EXPECT_EQ(As(evac, 141), "Business Messages to Zone,1111,2222,3,4,5,Zone,Msg|4");
}

TEST(RecordWidths, ArithmeticRealsAreWrittenWithSixDecimals)
{
    EXPECT_EQ(RoundTrip("Increase,Volume,1.5,-2,0.0000001,300,1"), "Increase,Volume,1.500000,-2.000000,0.000000,300,1");
    const KEYSLOT slot = Parsed("Increase,Volume,1.5,-2,3.25,300,1");
    EXPECT_FLOAT_EQ(slot.reals[0], 1.5f);
    EXPECT_FLOAT_EQ(slot.reals[1], -2.0f);
    EXPECT_FLOAT_EQ(slot.reals[2], 3.25f);
    EXPECT_STREQ(slot.text1, "Volume");
    // The largest float is kept; only beyond it a real becomes infinite.
    EXPECT_EQ(RoundTrip("Increase,V,3.40282346638528859812e+38,-3.40282346638528859812e+38,1e39,0,0"),
              "Increase,V,340282346638528859811704183484516925440.000000,"
              "-340282346638528859811704183484516925440.000000,inf,0,0");
    // The logic variable is the first text.
    const KEYSLOT logical = Parsed("Switch On,Lamp,1,2,3");
    EXPECT_STREQ(logical.text1, "Lamp");
    EXPECT_STREQ(logical.text2, "");
}

TEST(RecordWidths, OldestTalkPrechimeCodes)
{
    const char* const texts[] = {"1-Tone", "2-Tone", "3-Tone", "4-Tone", "2x2-Tone", "2-Tone Pre-Chime"};
    for (int code = -1; code <= 8; code++) {
        const KEYSLOT slot = Parsed("Talk to Zone,0," + std::to_string(code) + ",0,50,0,0,1,Hall");
        EXPECT_STREQ(slot.text2, code >= 0 && code <= 5 ? texts[code] : "No Prechime") << code;
        EXPECT_STREQ(slot.text1, "Hall") << code;
        EXPECT_EQ(slot.cells[3], 50) << code;
    }
}
