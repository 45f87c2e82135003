// The console view's context menus as a test opens them: the menu is shown at
// a client point, its items are recorded, and one is chosen with the keys;
// and what the view and the control panel answer: hit tests and tooltips.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct MENURUN {
    std::string choice;               // the item to choose; anything else chooses nothing
    std::vector<std::string> items;   // "Clear (greyed)", "Not Used (checked)"; no separators
    bool opened = false;
};

// Opens the view's menu at the client point x, y; empty items when none opened.
MENURUN ViewMenuAt(HWND view, int x, int y, const std::string& choice);
// Opens the view's menu with a key stroke (Shift held when asked) and chooses as above.
MENURUN ViewMenuByKey(HWND view, UINT key, bool shift, const std::string& choice);
// The view's hit test (CVM_HITTEST): the key at a client point, or -1.
int ViewHitTest(HWND view, int x, int y);
// The text of the window's tool, from whichever tooltip window holds it.
std::string TooltipText(HWND view);
