// Resource ids of the plug-in: every dialog, menu, string and image id lives here.
#pragma once

// Small console faces (type "SMALLCONSOLE"), drawn on the device canvas.
#define IDR_SMALLCONSOLE_ORN 106
#define IDR_SMALLCONSOLE_148 148
#define IDR_SMALLCONSOLE_160 160
#define IDR_SMALLCONSOLE_KEYPAD 188
#define IDR_SMALLCONSOLE_ELK 194

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

// The configuration window.
#define IDC_CONFIGURATION_UPDATE 6063

// Strings.
#define IDS_NO_FIRMWARE 4
