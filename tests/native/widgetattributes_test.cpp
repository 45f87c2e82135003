#include <gtest/gtest.h>

#include "../../host/analyze/designtext.h"
#include "../../host/analyze/widgetattributes.h"

TEST(WidgetAttributes, ColoursInEveryForm)
{
    uint32_t colour = 1;
    for (const auto& [text, expected] : std::vector<std::pair<const char*, uint32_t>>{
             {"0", 0x000000}, {"0xffffff", 0xffffff}, {"0x00ccff", 0x00ccff}, {"0x00c8ffff", 0xc8ffff},
             {"0xc8d0d4", 0xc8d0d4}, {"0x99A8AC", 0x99a8ac}, {" 0x0", 0x000000}, {"0X4C4C4C", 0x4c4c4c}}) {
        ASSERT_TRUE(ParseColour(text, &colour)) << text;
        EXPECT_EQ(colour, expected) << text;
    }
    for (const char* bad : {"", "red", "0x", "0xfffffffff", "ffffff", "0xgg", "12"})
        EXPECT_FALSE(ParseColour(bad, &colour)) << bad;
}

TEST(WidgetAttributes, EveryKeyword)
{
    WIDGETATTRIBUTES a;
    std::string error;
    for (const char* attribute :
         {"function=Firmware.Revision", "fmt=CAN ADDRESS", "caption=FIND", "bitmap=.\\Controls\\_ZELButtonFIND.bmp",
          "textcolor=0x00ccff", "textcolorwhenpressed= 0x0", "backgroundcolor=0xc8d0d4", "alignment=left",
          "datatype=s", "font=ms sans serif,8", "interval=2000", "click=Watchdog.Clear=1", "value=1",
          "connection=ORNCST_1"})
        EXPECT_TRUE(ApplyWidgetAttribute(attribute, &a, &error)) << attribute << ": " << error;
    EXPECT_EQ(a.function, "Firmware.Revision");
    EXPECT_EQ(a.fmt, "CAN ADDRESS");
    EXPECT_EQ(a.bitmap, ".\\Controls\\_ZELButtonFIND.bmp");
    EXPECT_EQ(a.textColour, 0x00ccffu);
    EXPECT_EQ(a.pressedTextColour, 0u);
    EXPECT_TRUE(a.alignLeft);
    EXPECT_TRUE(a.textValue);
    EXPECT_EQ(a.fontFace, "ms sans serif");
    EXPECT_EQ(a.fontPoints, 8);
    EXPECT_EQ(a.interval, 2000);
    EXPECT_EQ(a.clickVariable, "Watchdog.Clear");
    EXPECT_EQ(a.clickValue, "1");
    EXPECT_TRUE(a.hasValue);
    EXPECT_EQ(a.connection, "ORNCST_1");

    EXPECT_TRUE(ApplyWidgetAttribute("caption=", &a, &error));
    EXPECT_TRUE(ApplyWidgetAttribute("fmt=", &a, &error));
    EXPECT_TRUE(ApplyWidgetAttribute("connection=", &a, &error));
    EXPECT_EQ(a.caption, "");
    EXPECT_EQ(a.fmt, "");
    EXPECT_EQ(a.connection, "");
    EXPECT_TRUE(ApplyWidgetAttribute("datatype=string", &a, &error));
    EXPECT_TRUE(a.textValue);
}

TEST(WidgetAttributes, RefusalsChangeNothing)
{
    WIDGETATTRIBUTES a;
    std::string error;
    ApplyWidgetAttribute("textcolor=0x123456", &a, &error);
    for (const char* bad : {"textcolor", "textcolor=blue", "colour=0", "font=8", "font=ms sans serif,x",
                            "interval=-5", "click=Watchdog.Clear", "value=on", "alignment=middle"}) {
        error.clear();
        EXPECT_FALSE(ApplyWidgetAttribute(bad, &a, &error)) << bad;
        EXPECT_FALSE(error.empty()) << bad;
    }
    EXPECT_EQ(a.textColour, 0x123456u);
}

TEST(WidgetAttributes, ControlLinesOfThePages)
{
    CONTROLSPEC spec;
    std::string error;
    ASSERT_TRUE(ParseControlSpec("0 BSTATIC \"namelabel\" 0x54000000 764,90,90x16", &spec, &error));
    EXPECT_EQ(WidgetKindOf(spec.className), WIDGET_STATIC);
    ASSERT_TRUE(ParseControlSpec("0x00000200 BEDIT \"name\" 0x54000000 891,90,100x18", &spec, &error));
    EXPECT_EQ(spec.exStyle, 0x200u);
    EXPECT_EQ(WidgetKindOf(spec.className), WIDGET_EDIT);
    ASSERT_TRUE(ParseControlSpec("0x00000000 LED \"online\" 0x50000000 12,40,11x11", &spec, &error));
    EXPECT_EQ(WidgetKindOf(spec.className), WIDGET_LED);
    ASSERT_TRUE(ParseControlSpec("0 BBUTTON \"WatchDogClear\" 0x54000000 390,60,188x22", &spec, &error));
    EXPECT_STREQ(WidgetClassOf(WidgetKindOf(spec.className)), "BBUTTON");
    EXPECT_EQ(WidgetKindOf("BLISTBOX"), WIDGET_NONE);
    EXPECT_FALSE(ParseControlSpec("0 BSTATIC \"x\" 0x54000000", &spec, &error));
    EXPECT_FALSE(ParseControlSpec("0 BSTATIC 0x54000000 1,2,3x4", &spec, &error));
}
