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

// The key-123 (PTT) function names by the key's variant.
#define IDS_PTT_SELECTION 150
#define IDS_PTT_ZONE 151
#define IDS_PTT_GROUP 152

// The Supervision page: the consoles' copy and the family-B keypads' copy.
#define IDD_DIAGNOSTICS 139
#define IDD_DIAGNOSTICS_ELKCSK 188
#define IDB_LAMP_UNKNOWN 140
#define IDB_LAMP_OK 141
#define IDB_LAMP_FAULT 142
#define IDC_DIAG_MONITORINGHEADER 1028
#define IDC_DIAG_STATEHEADER 1029
#define IDC_DIAG_NOTIFICATIONHEADER 1043
#define IDC_DIAG_CONTROLSHEADER 1044
#define IDC_DIAG_INTERNAL 1091
#define IDC_DIAG_MASTER 1060
#define IDC_DIAG_INPUTLABEL 40008
#define IDC_DIAG_EXTENSIONLABEL 1087
#define IDC_DIAG_ALARMLABEL 1094
#define IDC_DIAG_COMBINEDLABEL 40009
#define IDC_DIAG_COMBINEDLAMP 1042
#define IDC_DIAG_LAMP_CONNECTED 1031
#define IDC_DIAG_LAMP_INPUT 1033
#define IDC_DIAG_LAMP_MEMORY 1036
#define IDC_DIAG_LAMP_WATCHDOG 1034
#define IDC_DIAG_LAMP_FIRMWARE 1038
#define IDC_DIAG_LAMP_EXTENSION 1041
#define IDC_DIAG_LAMP_MICROPHONE 1032
#define IDC_DIAG_LAMP_ALARM 1037
#define IDC_DIAG_LAMP_POWER 1035

// The configuration window's online indicator.
#define IDB_ONLINEINDICATOR_ON 207
#define IDB_ONLINEINDICATOR_OFF 208

// The key-function editor: the tree's drag cursors and images.
#define IDR_CURSOR_DROP 105             // type CURSOR: a drop is taken here
#define IDR_CURSOR_NODROP 111           // a drop is refused here
#define IDB_KEYFUNCTIONTREE 214         // eight 16 x 16 images on magenta

// The editor pages, one per key function family (dialogs with their combo
// boxes' item lists in dialog-initialisation resources of the same id).
#define IDD_KEYPAGE_SELECT 120
#define IDD_KEYPAGE_PTT 152
#define IDD_KEYPAGE_ON 158
#define IDD_KEYPAGE_DECADIC 159
#define IDD_KEYPAGE_PROTECT 161
#define IDD_KEYPAGE_FAULTDISPLAY 162
#define IDD_KEYPAGE_EVAC 163
#define IDD_KEYPAGE_TALK 167
#define IDD_KEYPAGE_LOGICAL 169
#define IDD_KEYPAGE_MENU 171
#define IDD_KEYPAGE_CLEAR 174
#define IDD_KEYPAGE_EMPTY 176
#define IDD_KEYPAGE_NONE 182
#define IDD_KEYPAGE_ARITHMETIC 183
#define IDD_KEYPAGE_CHIME 184
#define IDD_KEYPAGE_ALARM 185
#define IDD_KEYPAGE_STOP 186
#define IDD_KEYPAGE_BUSINESS 193
#define IDD_KEYPAGE_SYSTEMFAULTS 205
#define IDD_KEYPAGE_INDICATOR 208
// Their controls; a number serves one role a page.
#define IDC_KEY_DESTINATION 1008        // destination, parameter
#define IDC_KEY_BROWSE 1014             // "..."
#define IDC_KEY_TRIGGER 1015
#define IDC_KEY_LOCKED 1016             // active when locked (protected; the talk key's locked behaviour)
#define IDC_KEY_PRECHIME 1017
#define IDC_KEY_AUDIOINPUT 1018
#define IDC_KEY_MIN 1019
#define IDC_KEY_MAX 1021
#define IDC_KEY_TONE 1022               // "Chime", "Alarm"
#define IDC_KEY_STEP 1023               // "Step Size"; the alarm page's "Input Channel"
#define IDC_KEY_REPEAT 1024
#define IDC_KEY_MODE 1025
#define IDC_KEY_ON 1026
#define IDC_KEY_OFF 1027                // "Off"; the stop page's "Stop Type"
#define IDC_KEY_STOPPAGING 1028
#define IDC_KEY_STOPCHIME 1029
#define IDC_KEY_STOPALARM 1030
#define IDC_KEY_STOPTEXT 1031
#define IDC_KEY_JUMPTO 1053
#define IDC_KEY_PRIORITY 1065
#define IDC_KEY_PRIORITYSPIN 1066
#define IDC_KEY_SWITCHPRIORITY 1067     // "Switch on priority", "Stop Priority"
#define IDC_KEY_SWITCHSPIN 1068         // its spin; the PTT page's "LINE IN used as PTT input "
#define IDC_EVAC_BROWSE 1096
#define IDC_EVAC_PRIORITY 1097
#define IDC_EVAC_PRIORITYSPIN 1098
#define IDC_EVAC_TRIGGER 1999
#define IDC_EVAC_MESSAGE 2000
#define IDC_EVAC_LOCKED 2003
#define IDC_BUSINESS_BROWSE 2004
#define IDC_BUSINESS_PRIORITY 2005
#define IDC_BUSINESS_PRIORITYSPIN 2006
#define IDC_BUSINESS_TRIGGER 2007
#define IDC_BUSINESS_MESSAGE 2008
#define IDC_BUSINESS_LOCKED 2009
#define IDC_LOGIC_LOCKED 2012
#define IDC_ARITHMETIC_LOCKED 2013
#define IDC_KEY_LOCKEDFLAG 2014         // the "On" and indicator test pages' "Active when locked"
#define IDC_TALK_LOCKEDTRIGGER 2019
#define IDC_TALK_LOCKEDPRECHIME 2020
#define IDC_TALK_LOCKEDPRIORITY 2021
#define IDC_TALK_LOCKEDSPIN 2022

// The pickers: destinations (zones and groups) and logic parameters.
#define IDD_DESTINATIONPICKER 121
#define IDC_DESTINATION_LIST 1009
#define IDD_LOGICPICKER 143
#define IDC_LOGIC_LIST 1042
