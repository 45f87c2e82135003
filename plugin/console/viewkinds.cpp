// The console view and the control panel as data.
#include "viewkinds.h"

#include "keygeometry.h"
#include "../resources/resource.h"

#include "../../base/banned.h"

const VIEWKIND kConsoleViewKind = {
    {1019, 985, {505, 435}},
    {1069, 1035, {555, 435}},
    false,
    true,
    false,
    "CSAUTORADIOBUTTON",
    0x54020000,
    0x50000000,
    false,
    true,
    true,
    KEYTIP_DETAILS,
};

const VIEWKIND kControlPanelKind = {
    {805, 805, {525, 455}},
    {855, 855, {575, 455}},
    true,
    false,
    true,
    "Button",
    0x54010009,  // an auto radio button that takes the tab stop
    0x50001009,  // auto radio buttons drawn as push buttons
    true,
    false,
    false,
    KEYTIP_LABEL,
};

int ExtensionsPageWidth(int extensions)
{
    return EXTENSION_STRIP_WIDTH * extensions + 525;
}

int SideBySideScrollMaximum(int extensions)
{
    return EXTENSION_STRIP_WIDTH * extensions + 523;
}

int FaceType(const VIEWKIND& kind, int type)
{
    return kind.frontPicture && IsBoardView(type) ? 4 : type;
}

int ControlPanelPicture(int type)
{
    return type == 5 ? IDR_CONSOLE_FRONT_ELK15 : IDR_CONSOLE_FRONT_ORN15;
}
