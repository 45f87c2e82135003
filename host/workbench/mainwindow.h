// The workbench's frame: the design surface, the output pane, menus and a
// status bar.
#pragma once

#include "workbench.h"

// Creates the frame (hidden) with its surface and output pane, and fills
// bench->surface and bench->output.
HWND CreateMainWindow(HINSTANCE instance, WORKBENCH* bench);
// Shows the frame and runs the message loop until it closes.
int RunMainWindow(HWND frame);
