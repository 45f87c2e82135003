#include <gtest/gtest.h>

#include "../../plugin/device/canvastext.h"
#include "../../plugin/device/consolesettings.h"

namespace {
std::string Tooltip(int address, int model, int keypads)
{
    char text[512];
    FormatCanvasTooltip(text, sizeof text, "Desk", address, model, keypads, "Lobby");
    return text;
}
}  // namespace

TEST(CanvasText, TooltipLines)
{
    EXPECT_EQ(Tooltip(1, MODEL_ORN_15CST, 0), "Objectname: \tDesk\nAddress: \t1 (0x01)\nType: \t\tORN-15CST\nName: \t\tLobby");
    EXPECT_EQ(Tooltip(10, MODEL_ELK_15CST, 2),
              "Objectname: \tDesk\nAddress: \t10 (0x0a)\nType: \t\tELK-15CST, 2 ELK-20CSE\nName: \t\tLobby");
    EXPECT_EQ(Tooltip(3, MODEL_ORN_15CST, 1).find("ORN-15CST, 1 ORN-20CSE\n") != std::string::npos, true);
    EXPECT_EQ(Tooltip(3, MODEL_ORN_CSK, 4).find("Type: \t\tORN-CSK\n") != std::string::npos, true);
}

TEST(CanvasText, ModelAndFaceByName)
{
    EXPECT_EQ(ModelFromObjectName("ORNCST_1"), MODEL_ORN_15CST);
    EXPECT_EQ(ModelFromObjectName("ELKCST_1"), MODEL_ELK_15CST);
    EXPECT_EQ(ModelFromObjectName("ORNCSTX_1"), MODEL_ELK_15CST);
    EXPECT_EQ(ModelFromObjectName("Site*ORNCST_1"), MODEL_ELK_15CST);
    EXPECT_EQ(CanvasFaceImage(MODEL_ORN_15CST), 106);
    EXPECT_EQ(CanvasFaceImage(MODEL_ELK_15CST), 194);
    EXPECT_EQ(CanvasFaceImage(MODEL_ORN_CSK), 188);
    EXPECT_EQ(CanvasFaceImage(MODEL_ELK_CSK), 188);
    EXPECT_EQ(CanvasFaceImage(MODEL_ZEL4010), 194);
}
