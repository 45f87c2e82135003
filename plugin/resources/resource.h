// Resource ids of the plug-in: every dialog, menu, string and image id lives
// here (ids of windows and commands made in code: protocol.h).
#pragma once

// Small console faces (type "SMALLCONSOLE"), drawn on the device canvas.
#define IDR_SMALLCONSOLE_103 103
#define IDR_SMALLCONSOLE_ORN 106
#define IDR_SMALLCONSOLE_148 148
#define IDR_SMALLCONSOLE_160 160
#define IDR_SMALLCONSOLE_KEYPAD 188
#define IDR_SMALLCONSOLE_ELK 194

// Console pictures (type "CONSOLEIMAGE"): fronts, boards, extensions.
#define IDR_CONSOLE_FRONT 105          // type 0 and unlisted types
#define IDR_CONSOLE_FRONT_ORN15 196    // type 4
#define IDR_CONSOLE_FRONT_ELK15 195    // type 5
#define IDR_CONSOLE_BOARD_ELK 189      // type 3
#define IDR_CONSOLE_BOARD_ORN 206      // type 6
#define IDR_EXTENSION 102
#define IDR_EXTENSION_ORN15 202
#define IDR_EXTENSION_ELK15 201

// Key strips: three frames each (blank, at rest, held down).
#define IDR_KEY 107                    // type "KEY"
#define IDR_KEY_15CST 197
#define IDR_RETURNKEY 108              // type "RETURNKEY"
#define IDR_RETURNKEY_ORN15 198
#define IDR_RETURNKEY_ELK15 199

// Bitmaps of the console view.
#define IDB_SPECIALKEYS 156            // five frames: empty, alarm button x2, key switch x2
#define IDB_SPECIALKEYS_BOARD 193
#define IDB_LED_GREEN 109              // two frames: off, on
#define IDB_LED_YELLOW 112
#define IDB_LED_RED 111
#define IDB_LEDBAR_TALL 110
#define IDB_LEDBAR_SHORT 200
#define IDB_SELECTIONMARK 115
#define IDB_VIEWTOOLBAR 116
#define IDB_ZELLOGO 203

// The console view's key menus and their commands.
#define IDR_KEYMENU 131
#define IDR_SPECIALKEYMENU 154
#define IDM_KEY_CLEAR 40001
#define IDM_KEY_COPY 40002
#define IDM_KEY_PASTE 40003
#define IDM_SPECIAL_NOTUSED 40004
#define IDM_SPECIAL_ALARMBUTTON 40005
#define IDM_SPECIAL_KEYSWITCH 40006

// Dialogs.
#define IDD_CALLSTATIONDIALOG 165
#define IDD_PASSWORD 204
#define IDC_PASSWORD 2016

// The firmware update dialog.
#define IDD_FIRMWAREUPDATE 149
#define IDC_FIRMWARE_LABEL 1038
#define IDC_FIRMWARE_LIST 1054
#define IDC_FIRMWARE_LOCATION 1059
#define IDC_FIRMWARE_FOLDER 1057
#define IDC_FIRMWARE_STATELABEL 1095
#define IDC_FIRMWARE_STATE 1029
#define IDC_FIRMWARE_PROGRESS 1056
#define IDC_FIRMWARE_WARNING 1096
#define IDC_FIRMWARE_NOTICE 1067
#define IDC_FIRMWARE_START 1058

// Strings.
#define IDS_NO_FIRMWARE 4
