// The stored settings of one console: what the design file keeps and the
// device mirrors. Platform-free; the defaults are those of a new console.
#pragma once

#include <stdint.h>

enum {
    CONSOLE_KEY_COUNT = 128,
    CONSOLE_NUMERICKEY_COUNT = 12,
    CONSOLE_EXTENSION_SLOTS = 5,
    FAULTMASK_COUNT = 10,
    FAULTMASK_TEST = 7,  // the seventh mask slot is the test fault
    KEYLABEL_SIZE = 32,  // 31 characters
    DISPLAYNAME_SIZE = 129,
    SHORTTEXT_SIZE = 128,
};

enum CONSOLEMODEL {
    MODEL_ZEL4010 = 0,
    MODEL_ZEL4020 = 1,
    MODEL_ELK_CSK = 3,
    MODEL_ORN_15CST = 4,
    MODEL_ELK_15CST = 5,
    MODEL_ORN_CSK = 6,
    MODEL_COUNT = 7,
};

// "ZEL4010" ... "ORN-CSK" by model index; index 2 has no name.
const char* ModelText(int model);
// The model index of a model name, or -1.
int ModelFromText(const char* text);

struct CONSOLESETTINGS {
    uint8_t bgmMenuActive = 0;
    uint8_t buzzer = 0;
    uint8_t canTermination = 0;
    uint8_t compressor = 0;
    // [1..10]; [FAULTMASK_TEST] is the test fault's switch.
    uint8_t faultMask[FAULTMASK_COUNT + 1] = {0, 1, 1, 1, 0, 0, 0, 0, 1, 1, 1};
    uint8_t showDate = 1;
    uint8_t showLineMonitoring = 0;
    uint8_t showPowerManagementStates = 0;
    uint8_t reportFaults = 0;
    uint8_t preChimeActive = 0;
    uint8_t find = 0;
    uint8_t generatePilot = 0;
    uint8_t decadicSelectionActive = 0;
    uint8_t pttActive = 0;
    uint8_t fireEmergencyMonitoring = 0;
    int16_t priority = 0;
    int32_t address = 0;
    // Extension presence, kept here only: a byte per slot, which the console
    // view's toolbar marks directly, and the count the design file keeps. An
    // "extensionTypes" line reaches the slots only through the count.
    int32_t extensionCount = 0;
    uint8_t extensionSlots[CONSOLE_EXTENSION_SLOTS] = {};
    char emergencyCstKeys[SHORTTEXT_SIZE] = {};
    char configuration[SHORTTEXT_SIZE] = {};   // the configuration as a whole
    char inputChannels[SHORTTEXT_SIZE] = {};   // the input channel list
    char keyLabels[CONSOLE_KEY_COUNT][KEYLABEL_SIZE] = {};
};
