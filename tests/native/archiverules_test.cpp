#include <gtest/gtest.h>

#include <string.h>

#include "../../plugin/firmware/archiverules.h"

namespace {
bool Safe(const char* name)
{
    std::string reason;
    return IsSafeEntryName(name, strlen(name), &reason);
}
}  // namespace

TEST(ArchiveRules, OrdinaryNamesAndSubFoldersPass)
{
    for (const char* name : {"CST_FW_1.2.3.bin", "ZEL4k_DB_7.dat", "fonts/ZEL4k_FONT_1.fnt", "a\\b\\c.bin",
                             "./firmware.bin", "console.2021"})
        EXPECT_TRUE(Safe(name)) << name;
}

TEST(ArchiveRules, HostileNamesAreRefused)
{
    const std::string longName(300, 'x');
    for (const char* name : {"", "/etc/passwd", "\\windows\\win.ini", "\\\\server\\share\\x", "C:\\x.bin", "c:x.bin",
                             "../x.bin", "a/../../x.bin", "a\\..\\x.bin", "a/..", "CON", "con.txt", "fonts/NUL.bin",
                             "LPT1", "com9.dat", "file.bin:stream", "trailing.", "blank ", "tab\tname",
                             longName.c_str()})
        EXPECT_FALSE(Safe(name)) << name;
    std::string reason;
    EXPECT_FALSE(IsSafeEntryName("a\0b", 3, &reason));
    EXPECT_FALSE(reason.empty());
    EXPECT_TRUE(Safe("COM10.bin"));  // only COM1 to COM9 are devices
}

TEST(ArchiveRules, RolesFoldersAndLimits)
{
    EXPECT_EQ(ClassifyFirmwareEntry("x/ZEL4k_DB_1.dat"), ROLE_DATABASE);
    EXPECT_EQ(ClassifyFirmwareEntry("ZEL4k_FONT_2.fnt"), ROLE_FONT);
    EXPECT_EQ(ClassifyFirmwareEntry("CST_FW.bin"), ROLE_FIRMWARE);
    EXPECT_STREQ(FirmwareFolderOf(6), "Firmware\\SOLVAN\\");
    EXPECT_STREQ(FirmwareFolderOf(4), "Firmware\\SOLVAN\\");
    EXPECT_STREQ(FirmwareFolderOf(3), "Firmware\\TX4400\\");
    EXPECT_STREQ(FirmwareFolderOf(5), "Firmware\\TX4400\\");
    EXPECT_TRUE(WithinExtractionLimits(1000, 256ull << 20));
    EXPECT_FALSE(WithinExtractionLimits(1001, 0));
    EXPECT_FALSE(WithinExtractionLimits(1, (256ull << 20) + 1));
}
