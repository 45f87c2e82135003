// The two windows that show a console's keys, as the device's documentation
// gives their sizes, page buttons, pictures and tips.
#include <gtest/gtest.h>

#include <string.h>

#include "../../plugin/console/viewkinds.h"
#include "../../plugin/console/viewrules.h"

namespace {

void ExpectSizes(const PAGESIZES& sizes, int frame, int strip, int width, int height)
{
    EXPECT_EQ(sizes.frameWidth, frame);
    EXPECT_EQ(sizes.stripWidth, strip);
    EXPECT_EQ(sizes.window.width, width);
    EXPECT_EQ(sizes.window.height, height);
}

}  // namespace

TEST(ViewKinds, TheConsoleViewsPagesAndButtons)
{
    const VIEWKIND& view = kConsoleViewKind;
    ExpectSizes(view.sideBySide, 1019, 985, 505, 435);
    ExpectSizes(view.withPageButtons, 1069, 1035, 555, 435);
    EXPECT_FALSE(view.extensionsPage);
    EXPECT_TRUE(view.movesIntoFrame);
    EXPECT_STREQ(view.pageButtonClass, "CSAUTORADIOBUTTON");
    EXPECT_EQ(view.consoleButtonStyle, 0x54020000u);
    EXPECT_EQ(view.extensionButtonStyle, 0x50000000u);
    EXPECT_TRUE(view.designs);
    EXPECT_EQ(view.tooltip, KEYTIP_DETAILS);
}

TEST(ViewKinds, TheControlPanelsPagesAndButtons)
{
    const VIEWKIND& panel = kControlPanelKind;
    ExpectSizes(panel.sideBySide, 805, 805, 525, 455);
    ExpectSizes(panel.withPageButtons, 855, 855, 575, 455);
    EXPECT_TRUE(panel.extensionsPage);
    EXPECT_FALSE(panel.movesIntoFrame);
    EXPECT_STREQ(panel.pageButtonClass, "Button");
    EXPECT_EQ(panel.consoleButtonStyle, 0x54010009u);
    EXPECT_EQ(panel.extensionButtonStyle, 0x50001009u);
    EXPECT_TRUE(panel.scrollBarStays);
    EXPECT_FALSE(panel.designs);
    EXPECT_EQ(panel.tooltip, KEYTIP_LABEL);
    EXPECT_EQ(ExtensionsPageWidth(1), 836);
    EXPECT_EQ(ExtensionsPageWidth(5), 2080);
    EXPECT_EQ(SideBySideScrollMaximum(1), 834);
    EXPECT_EQ(SideBySideScrollMaximum(2), 1145);
}

TEST(ViewKinds, TheControlPanelShowsTheFrontOfItsType)
{
    EXPECT_EQ(ControlPanelPicture(5), 195);
    for (int type : {0, 2, 3, 4, 6})
        EXPECT_EQ(ControlPanelPicture(type), 196) << type;
}

TEST(ViewKinds, TheControlPanelShowsABoardAsTheFrontOfItsPicture)
{
    for (int type : {0, 2, 3, 4, 5, 6})
        EXPECT_EQ(FaceType(kConsoleViewKind, type), type) << type;
    EXPECT_EQ(FaceType(kControlPanelKind, 3), 4);
    EXPECT_EQ(FaceType(kControlPanelKind, 6), 4);
    for (int type : {0, 2, 4, 5})
        EXPECT_EQ(FaceType(kControlPanelKind, type), type) << type;
}

TEST(ViewKinds, TheControlPanelsTip)
{
    EXPECT_EQ(ControlPanelKeyTooltip("Hall", 0, "Select Zone"), "Key 'Hall' (0)\nSelect Zone");
    EXPECT_EQ(ControlPanelKeyTooltip("ESC", 116, "Empty"), "Key 'ESC' (116)\nEmpty");
    EXPECT_EQ(ControlPanelKeyTooltip(nullptr, 7, nullptr), "Key '' (7)\n");
}
