#include "supervisionrules.h"

#include "../../base/banned.h"

namespace {

// Fault 7 has no row: it is the test fault, switched by "TEST".
const int kFaultOfRow[SUPERVISION_ROWS] = {8, 10, 1, 2, 9, 6, 5, 4, 3};

bool IsKeypad(int type)
{
    return type == 3 || type == 6;
}

LAMP FaultLamp(bool fault)
{
    return fault ? LAMP_FAULT : LAMP_OK;
}

}  // namespace

int FaultOfRow(int row)
{
    return row >= 0 && row < SUPERVISION_ROWS ? kFaultOfRow[row] : 0;
}

bool SupervisionRowExists(int type, int row)
{
    return row != 5 || type == 0 || type == 4 || type == 5;
}

int MaskToggleY(int row)
{
    return 102 + 29 * row;
}

LAMPSET RefreshLamps(const FAULTSNAPSHOT& s)
{
    LAMPSET lamps;
    for (LAMP& lamp : lamps.rows)
        lamp = LAMP_UNKNOWN;
    lamps.combined = LAMP_UNKNOWN;
    if (s.faultData) {
        for (int row = 0; row < SUPERVISION_ROWS; row++)
            lamps.rows[row] = row == 5 && IsKeypad(s.type) ? LAMP_UNKNOWN : FaultLamp(s.faults[kFaultOfRow[row]] != 0);
        lamps.combined = FaultLamp(s.masterFault != 0);
    } else if (s.online) {
        lamps.rows[0] = FaultLamp(s.faults[8] != 0);
        lamps.combined = lamps.rows[0] == LAMP_OK ? LAMP_OK : FaultLamp(s.furtherFault);
    }
    return lamps;
}

SUPERVISIONTEXTS SupervisionTexts(int type)
{
    SUPERVISIONTEXTS texts = {"FAULT MONITORING", "NOTIFICATION", "INPUT NUMBER", "COMBINED FAULT STATE", "ALARM BUTTON"};
    if (type == 0) {
        texts.monitoringHeader = "ERROR DETECTION";
        texts.notificationHeader = "DETECT";
        texts.inputNumber = "SLOT POSITION";
        texts.combined = " COLLECTED ERROR STATE: ZEL DEVICE";
    }
    if (IsKeypad(type))
        texts.alarmButton = "PTT/ALARM BUTTON";
    return texts;
}
