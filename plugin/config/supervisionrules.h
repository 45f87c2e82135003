// What the Supervision page shows: its nine fault rows, the lamps of a
// refresh, the texts that change with the console type. Platform-free.
#pragma once

#include <stdint.h>

enum { SUPERVISION_ROWS = 9 };

enum LAMP {
    LAMP_UNKNOWN,  // grey: the state is not known
    LAMP_OK,       // no fault
    LAMP_FAULT,
};

// The fault number (variables Faults n, FaultMask n) each row shows and masks.
int FaultOfRow(int row);
// Row 5 (EXTENSION) exists only for device types 0, 4 and 5.
bool SupervisionRowExists(int type, int row);
// The y of row i's mask toggle, in pixels.
int MaskToggleY(int row);

// What a refresh knows of the device.
struct FAULTSNAPSHOT {
    int type = 0;
    bool faultData = false;     // the device answered its fault words
    bool online = false;        // the connection answered "online" with a non-zero value
    uint8_t faults[11] = {};    // by fault number 1..10
    uint8_t masterFault = 0;
    bool furtherFault = false;  // the master fault kept from the last poll
};

struct LAMPSET {
    LAMP rows[SUPERVISION_ROWS];
    LAMP combined;
};

LAMPSET RefreshLamps(const FAULTSNAPSHOT& snapshot);

// The texts of the page's four relabelled statics by device type.
struct SUPERVISIONTEXTS {
    const char* monitoringHeader;  // id 1028
    const char* notificationHeader;  // id 1043
    const char* inputNumber;       // id 40008
    const char* combined;          // id 40009
    const char* alarmButton;       // id 1094
};
SUPERVISIONTEXTS SupervisionTexts(int type);
