// The design text of the add-consoles dialog, letter for letter.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../../plugin/manager/consolebatch.h"

namespace {

const uint32_t kAllFree = 0x1FFFE;  // addresses 1 to 16

CONSOLEBATCH Batch(const char* type, int count, int start, int extensions, std::vector<std::string> zones = {})
{
    CONSOLEBATCH batch;
    batch.type = type;
    batch.count = count;
    batch.start = start;
    batch.extensions = extensions;
    batch.connection = "ORNCON_1.DOVRIXCSTModule";
    batch.controller = "ORNCON_1";
    batch.zones = zones;
    batch.freeAddresses = kAllFree;
    return batch;
}

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

std::vector<std::string> ControlLines(const std::string& text)
{
    std::vector<std::string> controls;
    for (const std::string& line : Lines(text))
        if (line.compare(0, 8, "control=") == 0)
            controls.push_back(line);
    return controls;
}

std::vector<std::string> Zones(int count)
{
    std::vector<std::string> zones;
    for (int i = 1; i <= count; i++)
        zones.push_back("Zone" + std::to_string(i));
    return zones;
}

}  // namespace

TEST(ConsoleBatch, OneConsoleWithoutExtensions)
{
    const std::string text = GenerateConsoles(Batch("ORN-15CST", 1, 3, 0, {"Hall", "Canteen"}));
    EXPECT_EQ(text,
              "control=0 DOVRIXC \"ORNCST_3\" 0x54000000 0,20,20x20\n"
              "ORNCST_3*type=ORN-15CST\n"
              "ORNCST_3*address=3\n"
              "ORNCST_3*connection=ORNCON_1.DOVRIXCSTModule\n"
              "ORNCST_3*key117=On,40,0\n"
              "ORNCST_3*key116=Menu,0\n"
              "ORNCST_3*key118=Stop,0,0,0,91,91,\n"
              "ORNCST_3*key115=Toggle All,0\n"
              "ORNCST_3*key119=Talk to Selection,0,0,0,50,0,0,1,\n"
              "ORNCST_3*BgmMenuActive=0\n"
              "ORNCST_3*ShowLineMonitoring=0\n"
              "ORNCST_3*key000=Select Zone,0,ORNCON_1.Hall\n"
              "ORNCST_3*key001=Select Zone,0,ORNCON_1.Canteen\n");
}

// The extension count runs on into the types, which fill the slots from the first.
TEST(ConsoleBatch, ExtensionsFillTheSlotsFromTheFirst)
{
    const char* const lines[6] = {nullptr,
                                  "ELKCST_1*ExtensionCount=1ELKCST_1*extensionTypes=1,0,0,0,0,\n",
                                  "ELKCST_1*ExtensionCount=2ELKCST_1*extensionTypes=1,1,0,0,0,\n",
                                  "ELKCST_1*ExtensionCount=3ELKCST_1*extensionTypes=1,1,1,0,0,\n",
                                  "ELKCST_1*ExtensionCount=4ELKCST_1*extensionTypes=1,1,1,1,0,\n",
                                  "ELKCST_1*ExtensionCount=5ELKCST_1*extensionTypes=1,1,1,1,1,\n"};
    for (int extensions = 1; extensions <= 5; extensions++) {
        const std::string text = GenerateConsoles(Batch("ELK-15CST", 1, 1, extensions, {"Lobby"}));
        EXPECT_NE(text.find(std::string("ELKCST_1*ShowLineMonitoring=0\n") + lines[extensions] +
                            "ELKCST_1*key000=Select Zone,0,ORNCON_1.Lobby\n"),
                  std::string::npos)
            << text;
    }
}

TEST(ConsoleBatch, TwelveConsolesStandInTwoColumns)
{
    const std::string text = GenerateConsoles(Batch("ORN-15CST", 12, 1, 0));
    const std::vector<std::string> controls = ControlLines(text);
    const std::vector<std::string> expected = {
        "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,20,20x20",
        "control=0 DOVRIXC \"ORNCST_2\" 0x54000000 0,79,20x20",
        "control=0 DOVRIXC \"ORNCST_3\" 0x54000000 0,138,20x20",
        "control=0 DOVRIXC \"ORNCST_4\" 0x54000000 0,197,20x20",
        "control=0 DOVRIXC \"ORNCST_5\" 0x54000000 0,256,20x20",
        "control=0 DOVRIXC \"ORNCST_6\" 0x54000000 0,315,20x20",
        "control=0 DOVRIXC \"ORNCST_7\" 0x54000000 0,374,20x20",
        "control=0 DOVRIXC \"ORNCST_8\" 0x54000000 0,433,20x20",
        "control=0 DOVRIXC \"ORNCST_9\" 0x54000000 0,492,20x20",
        "control=0 DOVRIXC \"ORNCST_10\" 0x54000000 0,551,20x20",
        "control=0 DOVRIXC \"ORNCST_11\" 0x54000000 150,20,20x20",
        "control=0 DOVRIXC \"ORNCST_12\" 0x54000000 150,79,20x20",
    };
    EXPECT_EQ(controls, expected);
    // Each console: the control line, type, address, connection, five keys and two settings.
    EXPECT_EQ(Lines(text).size(), 12u * 11u);
    EXPECT_EQ(text.find('\r'), std::string::npos);
    EXPECT_EQ(text.back(), '\n');
}

TEST(ConsoleBatch, WithoutExtensionsAtMostFifteenZoneKeys)
{
    const std::string text = GenerateConsoles(Batch("ORN-15CST", 1, 1, 0, Zones(40)));
    EXPECT_NE(text.find("ORNCST_1*key014=Select Zone,0,ORNCON_1.Zone15\n"), std::string::npos);
    EXPECT_EQ(text.find("key015"), std::string::npos);
    EXPECT_EQ(text.find("ExtensionCount"), std::string::npos);
    EXPECT_EQ(text.find("extensionTypes"), std::string::npos);
}

TEST(ConsoleBatch, EachExtensionTakesTwentyZoneKeysMore)
{
    const std::string two = GenerateConsoles(Batch("ORN-15CST", 1, 1, 2, Zones(80)));
    EXPECT_NE(two.find("ORNCST_1*key054=Select Zone,0,ORNCON_1.Zone55\n"), std::string::npos);
    EXPECT_EQ(two.find("key055="), std::string::npos);
    // Fewer zones than keys: one key per zone.
    const std::string few = GenerateConsoles(Batch("ORN-15CST", 1, 1, 2, Zones(3)));
    EXPECT_NE(few.find("ORNCST_1*key002=Select Zone,0,ORNCON_1.Zone3\n"), std::string::npos);
    EXPECT_EQ(few.find("key003="), std::string::npos);
}

TEST(ConsoleBatch, KeypadsNeverGetExtensions)
{
    for (const char* type : {"ORN-CSK", "ELK-CSK"}) {
        const std::string text = GenerateConsoles(Batch(type, 2, 1, 3, Zones(40)));
        EXPECT_EQ(text.find("ExtensionCount"), std::string::npos) << type;
        EXPECT_EQ(text.find("key015"), std::string::npos) << type;
        EXPECT_NE(text.find(std::string("*type=") + type + "\n"), std::string::npos) << type;
        EXPECT_TRUE(IsKeypadType(type));
    }
    EXPECT_FALSE(IsKeypadType("ORN-15CST"));
    EXPECT_FALSE(IsKeypadType("ELK-15CST"));
    EXPECT_NE(GenerateConsoles(Batch("ORN-CSK", 1, 1, 0)).find("\"ORNCST_1\""), std::string::npos);
    EXPECT_NE(GenerateConsoles(Batch("ELK-CSK", 1, 1, 0)).find("\"ELKCST_1\""), std::string::npos);
}

TEST(ConsoleBatch, PrefixByFamily)
{
    EXPECT_STREQ(ConsolePrefix("ORN-15CST"), "ORNCST");
    EXPECT_STREQ(ConsolePrefix("ORN-CSK"), "ORNCST");
    EXPECT_STREQ(ConsolePrefix("ELK-15CST"), "ELKCST");
    EXPECT_STREQ(ConsolePrefix("ELK-CSK"), "ELKCST");
    EXPECT_EQ(ConsolePrefix("ZEL4010"), nullptr);
    EXPECT_EQ(GenerateConsoles(Batch("ZEL4010", 3, 1, 0)), "");
}

TEST(ConsoleBatch, AddressesSkipThoseInUse)
{
    CONSOLEBATCH batch = Batch("ORN-15CST", 4, 2, 0);
    batch.freeAddresses = kAllFree & ~((1u << 3) | (1u << 4) | (1u << 6));
    const std::string text = GenerateConsoles(batch);
    EXPECT_NE(text.find("\"ORNCST_2\" 0x54000000 0,20,"), std::string::npos);
    EXPECT_NE(text.find("\"ORNCST_5\" 0x54000000 0,79,"), std::string::npos);
    EXPECT_NE(text.find("\"ORNCST_7\" 0x54000000 0,138,"), std::string::npos);
    EXPECT_NE(text.find("\"ORNCST_8\" 0x54000000 0,197,"), std::string::npos);
    EXPECT_NE(text.find("ORNCST_5*address=5\n"), std::string::npos);
    EXPECT_EQ(ControlLines(text).size(), 4u);
}

TEST(ConsoleBatch, NextAddressIsTheFirstFreeAboveAndWrapsAboveSixteen)
{
    EXPECT_EQ(NextConsoleAddress(1, kAllFree), 2);
    EXPECT_EQ(NextConsoleAddress(15, kAllFree), 16);
    EXPECT_EQ(NextConsoleAddress(2, kAllFree & ~(1u << 3)), 4);
    EXPECT_EQ(NextConsoleAddress(16, kAllFree), 1);  // restarts at 0, which is no address
    EXPECT_EQ(NextConsoleAddress(16, 1u << 5), 5);
    EXPECT_EQ(NextConsoleAddress(14, 1u << 2), 17);  // none left
    EXPECT_EQ(NextConsoleAddress(16, 0), 17);
    EXPECT_EQ(NextConsoleAddress(16, 1u | (1u << 5)), 5);  // bit 0 is no address
    EXPECT_EQ(NextConsoleAddress(16, 1u), 17);
}

TEST(ConsoleBatch, CapacityCountsTheFreeAddressesFromTheStart)
{
    EXPECT_EQ(ConsoleCapacity(kAllFree, 1), 16);
    EXPECT_EQ(ConsoleCapacity(kAllFree, 5), 12);
    EXPECT_EQ(ConsoleCapacity(kAllFree, 16), 1);
    EXPECT_EQ(ConsoleCapacity(kAllFree & ~(1u << 16), 16), 0);
    EXPECT_EQ(ConsoleCapacity(kAllFree & ~((1u << 5) | (1u << 7)), 5), 10);
    EXPECT_EQ(ConsoleCapacity(0, 1), 0);
    EXPECT_EQ(ConsoleCapacity(kAllFree | 1u, 0), 16);  // bit 0 is no address
}

TEST(ConsoleBatch, GenerationStopsWhenTheAddressesRunOut)
{
    CONSOLEBATCH batch = Batch("ORN-15CST", 5, 15, 0);
    // 15 and 16, then the count restarts low: 1, 2 and 3.
    const std::string wrapped = GenerateConsoles(batch);
    EXPECT_EQ(ControlLines(wrapped).size(), 5u);
    EXPECT_NE(wrapped.find("\"ORNCST_16\" 0x54000000 0,79,"), std::string::npos);
    EXPECT_NE(wrapped.find("\"ORNCST_1\" 0x54000000 0,138,"), std::string::npos);
    batch.freeAddresses = (1u << 15) | (1u << 16);
    EXPECT_EQ(ControlLines(GenerateConsoles(batch)).size(), 2u);  // never an address twice
    batch.freeAddresses = (1u << 3) | (1u << 15) | (1u << 16);
    const std::string three = GenerateConsoles(batch);
    EXPECT_EQ(ControlLines(three).size(), 3u);
    EXPECT_NE(three.find("\"ORNCST_3\" 0x54000000 0,138,"), std::string::npos);
    batch.start = 0;
    EXPECT_EQ(GenerateConsoles(batch), "");
    batch.start = 17;
    EXPECT_EQ(GenerateConsoles(batch), "");
}
