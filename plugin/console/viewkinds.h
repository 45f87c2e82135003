// What differs between the two windows that show a console's keys: the
// console view, in which a console is designed, and the control panel, a
// small floating window in which it is operated. Everything else (the key
// building, the press path, blinking, scrolling, painting) is one code for
// both. Platform-free: styles are plain numbers.
#pragma once

#include <stdint.h>

struct WINDOWSIZE {
    int width, height;
};

// The sizes a page gives the parent frame (800 high), the frame's child 1001
// (22 high) and the window itself.
struct PAGESIZES {
    int frameWidth;
    int stripWidth;
    WINDOWSIZE window;
};

enum KEYTIP {
    KEYTIP_DETAILS,  // the id, the function and, on the boards, the pins
    KEYTIP_LABEL,    // the label, the id and the function
};

struct VIEWKIND {
    PAGESIZES sideBySide;         // page 0: the console and every extension
    PAGESIZES withPageButtons;    // page 1: the console beside its page buttons
    bool extensionsPage;          // page 2: the extensions alone
    bool movesIntoFrame;          // stands at (18, 26) of its frame; else stays where it is
    bool frontPicture;            // shows the operator's front picture of the type
    const char* pageButtonClass;
    uint32_t consoleButtonStyle;
    uint32_t extensionButtonStyle;
    bool scrollBarStays;          // a scroll bar without room to scroll is greyed, not hidden
    bool designs;                 // selection, label boxes, label editor, key menus, toolbar
    bool viewHeader;              // the view's four header controls: shown by the device's name and
                                  // placed by the picture's margins; else the panel's two, always shown
    KEYTIP tooltip;
};

extern const VIEWKIND kConsoleViewKind;
extern const VIEWKIND kControlPanelKind;

// Page 2's window width: every extension and the console's room.
int ExtensionsPageWidth(int extensions);
// The horizontal scroll maximum of page 0 with extensions.
int SideBySideScrollMaximum(int extensions);
// The front picture the control panel shows for a console type.
int ControlPanelPicture(int type);
// The console type whose face a window lays out and paints. The control
// panel shows a front: a board (types 3 and 6) appears as the front its
// picture is, type 4's, not as connector pins over a front.
int FaceType(const VIEWKIND& kind, int type);
