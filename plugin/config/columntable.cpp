#include "columntable.h"

#include <string.h>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char kToggleFace[] = "bitmap=.\\Controls\\_ZELButton.bmp";

// In creation order; the connection and slot rows share one place on
// purpose, only one pair of them shows at a time.
const COLUMNROW kColumn[] = {
    {"configurationlabel", "BSTATIC", "0", 764, 68, 227, 16, COLUMN_HEADER, "CONFIGURATION PARAMETERS", {}, false},
    {"namelabel", "BSTATIC", "0", 764, 90, 90, 16, COLUMN_LABEL, "NAME", {}, false},
    {"name", "BEDIT", "0x00000200", 891, 90, 100, 18, COLUMN_EDIT, "name", {}, false},
    {"addresslabel", "BSTATIC", "0", 764, 117, 90, 16, COLUMN_LABEL, "CAN ADDRESS", {}, false},
    {"address", "BEDIT", "0x00000200", 891, 117, 50, 18, COLUMN_EDIT, "address", {}, false},
    {"Find", "BTRISTATEBUTTON", "0", 950, 117, 90, 16, COLUMN_TOGGLE, "Find",
     {"caption=FIND", "bitmap=.\\Controls\\_ZELButtonFIND.bmp"}, false},
    {"terminationlabel", "BSTATIC", "0", 764, 143, 125, 16, COLUMN_LABEL, "CAN TERMINATION", {}, false},
    {"cantermination", "BTRISTATEBUTTON", "0", 891, 143, 90, 16, COLUMN_TOGGLE, "CANTermination", {}, false},
    {"baudratelabel", "BSTATIC", "0", 764, 169, 90, 16, COLUMN_LABEL, "BAUDRATE", {}, false},
    {"baudrate", "BSTATIC", "0", 891, 169, 100, 16, COLUMN_VALUE, "baudrate", {}, false},
    {"connectionlabel", "BSTATIC", "0", 764, 195, 90, 16, COLUMN_LABEL, "CONNECTION", {}, false},
    {"connection", "BSTATIC", "0", 891, 195, 100, 16, COLUMN_VALUE, "connection", {}, false},
    {"slotlabel", "BSTATIC", "0", 764, 195, 90, 16, COLUMN_LABEL, "SLOT", {"textcolor=0xc8d0d4"}, false},
    {"slot", "BSTATIC", "0", 891, 195, 100, 16, COLUMN_VALUE, "slot",
     {"textcolor=0xc8d0d4", "backgroundcolor=0xc8d0d4"}, false},
    {"extqtylabel", "BSTATIC", "0", 764, 221, 100, 16, COLUMN_LABEL, "EXTENSIONS", {}, false},
    {"extensioncount", "BSTATIC", "0", 891, 221, 100, 16, COLUMN_VALUE, "ExtensionCount", {}, false},
    {"compressorlabel", "BSTATIC", "0", 764, 247, 90, 16, COLUMN_LABEL, "COMPRESSOR", {}, false},
    {"compressor", "BTRISTATEBUTTON", "0", 891, 247, 90, 16, COLUMN_TOGGLE, "Compressor", {}, false},
    {"pilottonelabel", "BSTATIC", "0", 764, 273, 90, 16, COLUMN_LABEL, "PILOT TONE", {}, false},
    {"pilottone", "BTRISTATEBUTTON", "0", 891, 273, 90, 16, COLUMN_TOGGLE, "generatePilot", {}, false},
    {"faultmessageslabel", "BSTATIC", "0", 764, 299, 90, 16, COLUMN_LABEL, "FAULT MSG", {}, false},
    {"faultmessages", "BTRISTATEBUTTON", "0", 891, 299, 90, 16, COLUMN_TOGGLE, "reportFaults", {}, false},
    {"buzzerlabel", "BSTATIC", "0", 764, 325, 90, 16, COLUMN_LABEL, "BUZZER", {}, false},
    {"buzzer", "BTRISTATEBUTTON", "0", 891, 325, 90, 16, COLUMN_TOGGLE, "Buzzer", {}, false},
    {"bgmlabel", "BSTATIC", "0", 764, 351, 90, 16, COLUMN_LABEL, "PROGRAM", {}, false},
    {"bgm", "BTRISTATEBUTTON", "0", 891, 351, 90, 16, COLUMN_TOGGLE, "BgmMenuActive", {}, false},
    {"decadeSelectlabel", "BSTATIC", "0", 764, 377, 100, 16, COLUMN_LABEL, "NUMERIC KEYS", {}, false},
    {"decadeselect", "BTRISTATEBUTTON", "0", 891, 377, 90, 16, COLUMN_TOGGLE, "DecadicSelectionActive", {}, false},
    {"lcdlinemonlabel", "BSTATIC", "0", 764, 403, 100, 16, COLUMN_LABEL, "LCD LINE MON.", {"textcolor=0x9caaad"}, false},
    {"lcdlinemon", "BTRISTATEBUTTON", "0", 891, 403, 90, 16, COLUMN_TOGGLE, "ShowLineMonitoring",
     {"bitmap=.\\Controls\\_ZELButtonDisabled.bmp"}, true},
    {"lcdpowermanlabel", "BSTATIC", "0", 764, 429, 100, 16, COLUMN_LABEL, "LCD POWER MAN.", {}, false},
    {"lcdpowerman", "BTRISTATEBUTTON", "0", 891, 429, 90, 16, COLUMN_TOGGLE, "ShowPowerManagementStates", {}, false},
    {"lcdFireEmergencyMonitoringlabel", "BSTATIC", "0", 764, 455, 100, 16, COLUMN_LABEL, "MONITORING", {}, false},
    {"lcdFireEmergencyMonitoring", "BTRISTATEBUTTON", "0", 891, 455, 90, 16, COLUMN_TOGGLE, "FireEmergencyMonitoring",
     {}, false},
    {"EmergencyCSTLabel", "BSTATIC", "0", 764, 481, 100, 16, COLUMN_LABEL, "EMG KEY SET", {}, false},
    {"EmergencyCSTKeys", "BTRISTATEBUTTON", "0", 891, 481, 90, 16, COLUMN_TOGGLE, "EmergencyCSTKeys", {}, false},
    {"properties", "BSTATIC", "0", 238, 529, 505, 16, COLUMN_HEADER, "PROPERTIES", {}, false},
    {"lbdgenfunandinfo", "BSTATIC", "0", 764, 529, 227, 16, COLUMN_HEADER, "CST FIRMWARE", {}, false},
    {"lbdfirmware", "BSTATIC", "0", 764, 557, 100, 16, COLUMN_LABEL, "FIRMWARE", {}, false},
    // The value stands 8 pixels above its label, as the device's tool always drew it.
    {"firmware", "BSTATIC", "0", 891, 549, 100, 16, COLUMN_VALUE, "Firmware.Revision",
     {"!backgroundcolor", "caption="}, false},
};

std::vector<std::string> RoleAttributes(const COLUMNROW& row)
{
    const std::string text = row.text;
    switch (row.role) {
    case COLUMN_HEADER:
        return {"textcolor=0xffffff", "backgroundcolor=0x4c4c4c", "fmt=" + text};
    case COLUMN_LABEL:
        return {"textcolor=0", "backgroundcolor=0xc8d0d4", "fmt=" + text, "alignment=left"};
    case COLUMN_EDIT:
        return {"textcolor=0", "backgroundcolor=0x00c8ffff", "datatype=s", "function=" + text};
    case COLUMN_TOGGLE:
        return {"caption=", kToggleFace, "function=" + text};
    case COLUMN_VALUE:
        return {"textcolor=0x00ccff", "backgroundcolor=0", "datatype=s", "function=" + text};
    }
    return {};
}

std::string KeywordOf(const std::string& attribute)
{
    return attribute.substr(0, attribute.find('='));
}

}  // namespace

COLUMNTABLE ConfigurationColumn()
{
    return COLUMNTABLE{kColumn, sizeof kColumn / sizeof kColumn[0]};
}

const COLUMNROW* FindColumnRow(const char* name)
{
    for (const COLUMNROW& row : kColumn)
        if (strcmp(row.name, name) == 0)
            return &row;
    return nullptr;
}

std::string ColumnControlLine(const COLUMNROW& row)
{
    char line[256];
    FormatText(line, sizeof line, "%s %s \"%s\" 0x54000000 %d,%d,%dx%d", row.exStyle, row.keyword, row.name, row.x, row.y,
               row.width, row.height);
    return line;
}

std::vector<std::string> ColumnAttributes(const COLUMNROW& row)
{
    std::vector<std::string> attributes = RoleAttributes(row);
    for (const char* deviation : row.deviations) {
        if (!deviation)
            break;
        if (deviation[0] == '!') {
            for (size_t i = 0; i < attributes.size(); i++)
                if (KeywordOf(attributes[i]) == deviation + 1)
                    attributes.erase(attributes.begin() + (long)i--);
            continue;
        }
        const std::string keyword = KeywordOf(deviation);
        bool replaced = false;
        for (std::string& attribute : attributes)
            if (KeywordOf(attribute) == keyword) {
                attribute = deviation;
                replaced = true;
            }
        if (replaced)
            continue;
        // A new attribute goes before function=, which always comes last.
        size_t at = attributes.size();
        if (at > 0 && KeywordOf(attributes.back()) == "function")
            at--;
        attributes.insert(attributes.begin() + (long)at, deviation);
    }
    return attributes;
}
