#include <gtest/gtest.h>

#include <string.h>

#include "../../host/analyze/designtext.h"

namespace {
DESIGNLINE Split(const char* line)
{
    return SplitDesignLine(line, strlen(line));
}
}  // namespace

TEST(DesignLine, KindsAndParts)
{
    DESIGNLINE control = Split("Site*Floor1*control=0 DOVRIXC \"Desk\" 0x54000000 0,20,20x20\r");
    EXPECT_EQ(control.kind, DESIGNLINE_CONTROL);
    EXPECT_EQ(control.object, "Site*Floor1*");

    DESIGNLINE property = Split("Site*Floor1*Desk*name=a=b*c");
    EXPECT_EQ(property.kind, DESIGNLINE_OBJECT);
    EXPECT_EQ(property.object, "Site*Floor1*Desk");
    EXPECT_EQ(property.keyword, "name");
    EXPECT_EQ(property.value, "a=b*c");

    DESIGNLINE host = Split("projectversion=V 3.9.0");
    EXPECT_EQ(host.kind, DESIGNLINE_HOST);
    EXPECT_EQ(host.keyword, "projectversion");

    EXPECT_EQ(Split("").kind, DESIGNLINE_EMPTY);
    EXPECT_EQ(Split("\r\n").kind, DESIGNLINE_EMPTY);
    EXPECT_EQ(Split("no equals sign").kind, DESIGNLINE_MALFORMED);
    EXPECT_EQ(Split("=value").kind, DESIGNLINE_MALFORMED);
    EXPECT_EQ(Split("*name=x").kind, DESIGNLINE_MALFORMED);
    EXPECT_EQ(Split("Desk*=x").kind, DESIGNLINE_MALFORMED);
    // "mycontrol" is an ordinary keyword, not a control line.
    EXPECT_EQ(Split("Desk*mycontrol=1").kind, DESIGNLINE_OBJECT);
}

TEST(ControlSpec, BothExtendedStyleFormsAndEscapedQuotes)
{
    CONTROLSPEC spec;
    std::string error;
    ASSERT_TRUE(ParseControlSpec("0x00000200 DOVRIXC \"ORN\\\"CST_1\" 0x56000000 -5,20,48x56", &spec, &error));
    EXPECT_EQ(spec.exStyle, 0x200u);
    EXPECT_EQ(spec.className, "DOVRIXC");
    EXPECT_EQ(spec.name, "ORN\"CST_1");
    EXPECT_EQ(spec.style, 0x56000000u);
    EXPECT_EQ(spec.x, -5);
    EXPECT_EQ(spec.cy, 56);

    ASSERT_TRUE(ParseControlSpec("0 DOVRIXC \"ORNCST_3\" 0x54000000 150,79,20x20", &spec, &error));
    EXPECT_EQ(spec.exStyle, 0u);
    EXPECT_EQ(spec.x, 150);
}

TEST(ControlSpec, RefusesEachBrokenField)
{
    CONTROLSPEC spec;
    std::string error;
    const struct {
        const char* value;
        const char* field;
    } cases[] = {
        {"00 DOVRIXC \"a\" 0x0 0,0,1x1", "extended style"},
        {"0x123456789 DOVRIXC \"a\" 0x0 0,0,1x1", "extended style"},
        {"0 DOV-RIXC \"a\" 0x0 0,0,1x1", "class name"},
        {"0 DOVRIXC \"unterminated 0x0 0,0,1x1", "window name"},
        {"0 DOVRIXC \"\" 0x0 0,0,1x1", "window name"},
        {"0 DOVRIXC \"a\" 12 0,0,1x1", "style"},
        {"0 DOVRIXC \"a\" 0x0 0,0,1", "rectangle"},
        {"0 DOVRIXC \"a\" 0x0 0,0,-1x1", "rectangle"},
        {"0 DOVRIXC \"a\" 0x0 0,0,1x1 trailing", "rectangle"},
        {"0 DOVRIXC \"a\" 0x0 99999999999,0,1x1", "rectangle"},
    };
    for (const auto& c : cases) {
        error.clear();
        EXPECT_FALSE(ParseControlSpec(c.value, &spec, &error)) << c.value;
        EXPECT_EQ(error, c.field) << c.value;
    }
}

TEST(RectString, RoundTrip)
{
    EXPECT_EQ(FormatRectString(10, 20, 48, 56), "10,20,48x56");
    int x, y, cx, cy;
    ASSERT_TRUE(ParseRectString("10,20,48x56", &x, &y, &cx, &cy));
    EXPECT_EQ(FormatRectString(x, y, cx, cy), "10,20,48x56");
    // An empty rectangle is one; a negative size or another form is not.
    ASSERT_TRUE(ParseRectString("-5,-7,0x0 \t", &x, &y, &cx, &cy));
    EXPECT_EQ(FormatRectString(x, y, cx, cy), "-5,-7,0x0");
    for (const char* bad : {"1,2,-3x4", "1,2,3x-4", "1,2,3,4", "1,2,3x4x", "1,2x3x4", ""})
        EXPECT_FALSE(ParseRectString(bad, &x, &y, &cx, &cy)) << bad;
}

TEST(LineHalves, KeyAndValueAreBounded)
{
    char key[8], value[8];
    EXPECT_TRUE(CopyLineKey("name=Desk\r\n", key, sizeof key));
    EXPECT_STREQ(key, "name");
    EXPECT_TRUE(CopyLineValue("name=Desk\r\n", value, sizeof value));
    EXPECT_STREQ(value, "Desk");
    EXPECT_FALSE(CopyLineValue("name=a value too long", value, sizeof value));
    EXPECT_STREQ(value, "a value");
    EXPECT_TRUE(CopyLineValue("no equals", value, sizeof value));
    EXPECT_STREQ(value, "");
}

TEST(ObjectNames, OnlyNamesThatCanBeWrittenBackAreAccepted)
{
    std::string why;
    for (const char* local : {"ORNCST_1", "ORNCST_a\\b c", "ORNCST_\xc3\xa9", " lead", "a\\\\b"})
        EXPECT_TRUE(IsWritableObjectName("Site*Floor 1*", local, &why)) << local;
    EXPECT_FALSE(IsWritableObjectName("", "ORNCST_\"Q", &why));
    EXPECT_EQ(why, "a double quote");
    EXPECT_FALSE(IsWritableObjectName("", "ORNCST_=E", &why));
    EXPECT_EQ(why, "\"=\"");
    EXPECT_FALSE(IsWritableObjectName("", "A*B", &why));
    EXPECT_FALSE(IsWritableObjectName("", "ORNCST_1\\", &why));
    EXPECT_FALSE(IsWritableObjectName("Si\"te*", "ORNCST_1", &why));
    EXPECT_FALSE(IsWritableObjectName("Si=te*", "ORNCST_1", &why));
}
