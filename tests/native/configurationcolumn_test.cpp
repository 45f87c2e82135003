// The configuration window's column against the table of the device's
// documentation: names, classes, places, texts and attributes in order.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../../plugin/config/columntable.h"
#include "../../plugin/config/configurationrules.h"

namespace {

struct EXPECTEDROW {
    const char* line;
    std::vector<std::string> attributes;
};


std::vector<std::string> Label(const char* fmt)
{
    return {"textcolor=0", "backgroundcolor=0xc8d0d4", std::string("fmt=") + fmt, "alignment=left"};
}
std::vector<std::string> Toggle(const char* function)
{
    return {"caption=", "bitmap=.\\Controls\\_ZELButton.bmp", std::string("function=") + function};
}
std::vector<std::string> Value(const char* function)
{
    return {"textcolor=0x00ccff", "backgroundcolor=0", "datatype=s", std::string("function=") + function};
}
std::vector<std::string> Header(const char* fmt)
{
    return {"textcolor=0xffffff", "backgroundcolor=0x4c4c4c", std::string("fmt=") + fmt};
}

const std::vector<EXPECTEDROW>& Expected()
{
    static const std::vector<EXPECTEDROW> rows = {
        {"0 BSTATIC \"configurationlabel\" 0x54000000 764,68,227x16", Header("CONFIGURATION PARAMETERS")},
        {"0 BSTATIC \"namelabel\" 0x54000000 764,90,90x16", Label("NAME")},
        {"0x00000200 BEDIT \"name\" 0x54000000 891,90,100x18",
         {"textcolor=0", "backgroundcolor=0x00c8ffff", "datatype=s", "function=name"}},
        {"0 BSTATIC \"addresslabel\" 0x54000000 764,117,90x16", Label("CAN ADDRESS")},
        {"0x00000200 BEDIT \"address\" 0x54000000 891,117,50x18",
         {"textcolor=0", "backgroundcolor=0x00c8ffff", "datatype=s", "function=address"}},
        {"0 BTRISTATEBUTTON \"Find\" 0x54000000 950,117,90x16",
         {"caption=FIND", "bitmap=.\\Controls\\_ZELButtonFIND.bmp", "function=Find"}},
        {"0 BSTATIC \"terminationlabel\" 0x54000000 764,143,125x16", Label("CAN TERMINATION")},
        {"0 BTRISTATEBUTTON \"cantermination\" 0x54000000 891,143,90x16", Toggle("CANTermination")},
        {"0 BSTATIC \"baudratelabel\" 0x54000000 764,169,90x16", Label("BAUDRATE")},
        {"0 BSTATIC \"baudrate\" 0x54000000 891,169,100x16", Value("baudrate")},
        {"0 BSTATIC \"connectionlabel\" 0x54000000 764,195,90x16", Label("CONNECTION")},
        {"0 BSTATIC \"connection\" 0x54000000 891,195,100x16", Value("connection")},
        {"0 BSTATIC \"slotlabel\" 0x54000000 764,195,90x16",
         {"textcolor=0xc8d0d4", "backgroundcolor=0xc8d0d4", "fmt=SLOT", "alignment=left"}},
        {"0 BSTATIC \"slot\" 0x54000000 891,195,100x16",
         {"textcolor=0xc8d0d4", "backgroundcolor=0xc8d0d4", "datatype=s", "function=slot"}},
        {"0 BSTATIC \"extqtylabel\" 0x54000000 764,221,100x16", Label("EXTENSIONS")},
        {"0 BSTATIC \"extensioncount\" 0x54000000 891,221,100x16", Value("ExtensionCount")},
        {"0 BSTATIC \"compressorlabel\" 0x54000000 764,247,90x16", Label("COMPRESSOR")},
        {"0 BTRISTATEBUTTON \"compressor\" 0x54000000 891,247,90x16", Toggle("Compressor")},
        {"0 BSTATIC \"pilottonelabel\" 0x54000000 764,273,90x16", Label("PILOT TONE")},
        {"0 BTRISTATEBUTTON \"pilottone\" 0x54000000 891,273,90x16", Toggle("generatePilot")},
        {"0 BSTATIC \"faultmessageslabel\" 0x54000000 764,299,90x16", Label("FAULT MSG")},
        {"0 BTRISTATEBUTTON \"faultmessages\" 0x54000000 891,299,90x16", Toggle("reportFaults")},
        {"0 BSTATIC \"buzzerlabel\" 0x54000000 764,325,90x16", Label("BUZZER")},
        {"0 BTRISTATEBUTTON \"buzzer\" 0x54000000 891,325,90x16", Toggle("Buzzer")},
        {"0 BSTATIC \"bgmlabel\" 0x54000000 764,351,90x16", Label("PROGRAM")},
        {"0 BTRISTATEBUTTON \"bgm\" 0x54000000 891,351,90x16", Toggle("BgmMenuActive")},
        {"0 BSTATIC \"decadeSelectlabel\" 0x54000000 764,377,100x16", Label("NUMERIC KEYS")},
        {"0 BTRISTATEBUTTON \"decadeselect\" 0x54000000 891,377,90x16", Toggle("DecadicSelectionActive")},
        {"0 BSTATIC \"lcdlinemonlabel\" 0x54000000 764,403,100x16",
         {"textcolor=0x9caaad", "backgroundcolor=0xc8d0d4", "fmt=LCD LINE MON.", "alignment=left"}},
        {"0 BTRISTATEBUTTON \"lcdlinemon\" 0x54000000 891,403,90x16",
         {"caption=", "bitmap=.\\Controls\\_ZELButtonDisabled.bmp", "function=ShowLineMonitoring"}},
        {"0 BSTATIC \"lcdpowermanlabel\" 0x54000000 764,429,100x16", Label("LCD POWER MAN.")},
        {"0 BTRISTATEBUTTON \"lcdpowerman\" 0x54000000 891,429,90x16", Toggle("ShowPowerManagementStates")},
        {"0 BSTATIC \"lcdFireEmergencyMonitoringlabel\" 0x54000000 764,455,100x16", Label("MONITORING")},
        {"0 BTRISTATEBUTTON \"lcdFireEmergencyMonitoring\" 0x54000000 891,455,90x16", Toggle("FireEmergencyMonitoring")},
        {"0 BSTATIC \"EmergencyCSTLabel\" 0x54000000 764,481,100x16", Label("EMG KEY SET")},
        {"0 BTRISTATEBUTTON \"EmergencyCSTKeys\" 0x54000000 891,481,90x16", Toggle("EmergencyCSTKeys")},
        {"0 BSTATIC \"properties\" 0x54000000 238,529,505x16", Header("PROPERTIES")},
        {"0 BSTATIC \"lbdgenfunandinfo\" 0x54000000 764,529,227x16", Header("CST FIRMWARE")},
        {"0 BSTATIC \"lbdfirmware\" 0x54000000 764,557,100x16", Label("FIRMWARE")},
        {"0 BSTATIC \"firmware\" 0x54000000 891,549,100x16",
         {"textcolor=0x00ccff", "datatype=s", "caption=", "function=Firmware.Revision"}},
    };
    return rows;
}

TEST(ConfigurationColumn, EveryRowInOrderWithItsLineAndAttributes)
{
    const COLUMNTABLE column = ConfigurationColumn();
    ASSERT_EQ(column.count, Expected().size());
    size_t i = 0;
    for (const COLUMNROW& row : column) {
        EXPECT_EQ(ColumnControlLine(row), Expected()[i].line) << row.name;
        EXPECT_EQ(ColumnAttributes(row), Expected()[i].attributes) << row.name;
        i++;
    }
}

TEST(ConfigurationColumn, OnlyTheLineMonitoringToggleStartsDisabled)
{
    for (const COLUMNROW& row : ConfigurationColumn())
        EXPECT_EQ(row.startsDisabled, std::string(row.name) == "lcdlinemon") << row.name;
}

TEST(ConfigurationColumn, RowsAreFoundByName)
{
    ASSERT_NE(FindColumnRow("decadeselect"), nullptr);
    EXPECT_EQ(FindColumnRow("decadeselect")->y, 377);
    EXPECT_EQ(FindColumnRow("nothing"), nullptr);
}

TEST(ConfigurationRules, SelectorListsOneFamily)
{
    EXPECT_STREQ(SharedConsoleFamily("ORNCST_1", "ORNCST_2"), "ORNCST_");
    EXPECT_STREQ(SharedConsoleFamily("ELKCST_1", "ELKCST_7"), "ELKCST_");
    EXPECT_EQ(SharedConsoleFamily("ORNCST_1", "ELKCST_2"), nullptr);
    EXPECT_EQ(SelectorDropHeight(0), 20);
    EXPECT_EQ(SelectorDropHeight(3), 240);
}

TEST(ConfigurationRules, FirmwareHeaderByKind)
{
    EXPECT_STREQ(FirmwareHeader("ORNCST_ZEL1", 0), "ZEL FIRMWARE");
    EXPECT_STREQ(FirmwareHeader("ELKCST_1", 3), "CSK FIRMWARE");
    EXPECT_STREQ(FirmwareHeader("ORNCST_1", 6), "CSK FIRMWARE");
    EXPECT_STREQ(FirmwareHeader("ORNCST_1", 4), "CST FIRMWARE");
}

TEST(ConfigurationRules, PttKeyLineTakesTheNameOfItsVariant)
{
    const char* const names[3] = {"PTT to Selection", "PTT to Zone", "PTT to Group"};
    KEYSLOT key = EmptyKeySlot();
    EXPECT_EQ(PttKeyLine(key, names), "key123=PTT to Selection,0,0,0,0,0,0,0,0,0,,");
    ParseKeyRecord("PTT to Group,1,2,3,50,1,0,1,0,0,ORNCON_1.Zone 1,tone", &key);
    EXPECT_EQ(PttKeyLine(key, names), "key123=PTT to Group,1,2,3,50,1,0,1,0,0,ORNCON_1.Zone 1,tone");
    key.functionId = 154;  // a remainder beyond the three names
    EXPECT_EQ(PttKeyLine(key, names).substr(0, 8), "key123=,");
}

}  // namespace
