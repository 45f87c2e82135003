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
