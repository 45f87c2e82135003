// Unpacking firmware packages: the roles of the entries, sub-folders, time
// stamps, and every kind of hostile or broken package.
#include <gtest/gtest.h>

#include "testhost.h"

#include "zip.h"

#include "../../plugin/firmware/extraction.h"

namespace {

struct ENTRY {
    std::string name;
    std::string data;
};

// A package as a ZIP file, its entries stamped 2019-03-14 10:20:30.
std::string MakePackage(const std::string& folder, const char* file, const std::vector<ENTRY>& entries)
{
    const std::string path = folder + "\\" + file;
    zipFile zip = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
    for (const ENTRY& entry : entries) {
        zip_fileinfo info = {};
        info.tmz_date = {30, 20, 10, 14, 2, 2019};  // seconds, minutes, hours, day, month from 0, year
        zipOpenNewFileInZip64(zip, entry.name.c_str(), &info, NULL, 0, NULL, 0, NULL, Z_DEFLATED,
                              Z_DEFAULT_COMPRESSION, 0);
        zipWriteInFileInZip(zip, entry.data.data(), (unsigned)entry.data.size());
        zipCloseFileInZip(zip);
    }
    zipClose(zip, NULL);
    return path;
}

struct RESULT {
    int answer;
    char firmware[FIRMWAREPATH_SIZE] = "";
    char database[FIRMWAREPATH_SIZE] = "";
    char font[FIRMWAREPATH_SIZE] = "None";
    std::vector<std::string> written;
};

void Extract(const std::string& package, RESULT* r)
{
    r->answer = ExtractFirmwarePackage(package.c_str(), r->firmware, r->database, r->font, &r->written);
}

bool Exists(const std::string& path)
{
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string TempPath(const char* name)
{
    char folder[MAX_PATH];
    GetTempPathA(sizeof folder, folder);
    return std::string(folder) + name;
}

}  // namespace

TEST(Extraction, SortsTheEntriesIntoTheirRoles)
{
    const std::string folder = TempFolder();
    const std::string package = MakePackage(folder, "CST_GOOD.ZIP",
                                            {{"cst/CST_FW_3.4.2.bin", "firmware"},
                                             {"cst\\ZEL4k_DB_7.dat", "database"},
                                             {"ZEL4k_FONT_1.fnt", "font"}});
    RESULT r;
    Extract(package, &r);
    ASSERT_EQ(r.answer, 1);
    EXPECT_EQ(ReadFileBytes(r.firmware), "firmware");
    EXPECT_EQ(ReadFileBytes(r.database), "database");
    EXPECT_EQ(ReadFileBytes(r.font), "font");
    EXPECT_NE(std::string(r.firmware).find("cst"), std::string::npos);
    EXPECT_EQ(r.written.size(), 3u);

    // The archive's time stamp, not the time of extraction.
    WIN32_FILE_ATTRIBUTE_DATA attributes;
    ASSERT_TRUE(GetFileAttributesExA(r.firmware, GetFileExInfoStandard, &attributes));
    FILETIME local;
    SYSTEMTIME stamp;
    FileTimeToLocalFileTime(&attributes.ftLastWriteTime, &local);
    FileTimeToSystemTime(&local, &stamp);
    EXPECT_EQ(stamp.wYear, 2019);
    EXPECT_EQ(stamp.wMonth, 3);
    EXPECT_EQ(stamp.wDay, 14);
    EXPECT_EQ(stamp.wHour, 10);

    DeleteExtractedFiles(&r.written);
    EXPECT_FALSE(Exists(r.firmware));
}

TEST(Extraction, FontIsOptionalDatabaseIsNot)
{
    const std::string folder = TempFolder();
    RESULT fontless;
    Extract(MakePackage(folder, "CST_NOFONT.ZIP", {{"CST_FW.bin", "f"}, {"ZEL4k_DB_1.dat", "d"}}), &fontless);
    EXPECT_EQ(fontless.answer, 1);
    EXPECT_STREQ(fontless.font, "None");
    DeleteExtractedFiles(&fontless.written);

    RESULT firmwareOnly;
    Extract(MakePackage(folder, "CST_ONLY.ZIP", {{"CST_FW_ONLY.bin", "f"}}), &firmwareOnly);
    EXPECT_EQ(firmwareOnly.answer, 0);
    EXPECT_FALSE(Exists(firmwareOnly.firmware));  // deleted again
}

TEST(Extraction, HostileEntriesFailThePackageAndWriteNothingOutside)
{
    const std::string folder = TempFolder();
    const std::string longName(300, 'n');
    int number = 0;
    for (const char* hostile : {"../outside.bin", "..\\outside.bin", "/absolute.bin", "\\absolute.bin",
                                "C:\\outside.bin", "sub/../../outside.bin", "CON", "nul.bin", longName.c_str()}) {
        const std::string file = "CST_BAD" + std::to_string(++number) + ".ZIP";
        RESULT r;
        Extract(MakePackage(folder, file.c_str(),
                            {{"CST_FW.bin", "f"}, {"ZEL4k_DB_1.dat", "d"}, {hostile, "evil"}}),
                &r);
        EXPECT_EQ(r.answer, 0) << hostile;
        EXPECT_FALSE(Exists(r.firmware)) << hostile;  // what came before is deleted
    }
    EXPECT_FALSE(Exists(TempPath("..\\outside.bin")));
    EXPECT_FALSE(Exists("C:\\outside.bin"));
    EXPECT_FALSE(Exists("C:\\absolute.bin"));
}

TEST(Extraction, BrokenArchivesFail)
{
    const std::string folder = TempFolder();
    const std::string good = MakePackage(folder, "CST_CUT.ZIP", {{"CST_FW.bin", std::string(50000, 'x')},
                                                                 {"ZEL4k_DB_1.dat", "d"}});
    const std::string bytes = ReadFileBytes(good);
    const std::string truncated = folder + "\\CST_TRUNCATED.ZIP";
    FILE* cut = fopen(truncated.c_str(), "wb");
    fwrite(bytes.data(), 1, bytes.size() / 2, cut);
    fclose(cut);
    RESULT r;
    Extract(truncated, &r);
    EXPECT_EQ(r.answer, 0);

    std::string damaged = bytes;
    damaged[60] ^= 0x55;  // inside the first entry's compressed data
    const std::string corrupt = folder + "\\CST_CRC.ZIP";
    FILE* out = fopen(corrupt.c_str(), "wb");
    fwrite(damaged.data(), 1, damaged.size(), out);
    fclose(out);
    RESULT crc;
    Extract(corrupt, &crc);
    EXPECT_EQ(crc.answer, 0);

    RESULT missing;
    Extract(folder + "\\CST_NONE.ZIP", &missing);
    EXPECT_EQ(missing.answer, 0);
    RESULT empty;
    Extract(MakePackage(folder, "CST_EMPTY.ZIP", {}), &empty);
    EXPECT_EQ(empty.answer, 0);
}

TEST(Extraction, AnEntryNamedLikeAUsersTemporaryFileLeavesItUntouched)
{
    const std::string mine = TempPath("notes.txt");
    {
        FILE* file = fopen(mine.c_str(), "wb");
        ASSERT_NE(file, nullptr);
        fputs("the user's notes", file);
        fclose(file);
    }
    const std::string package = MakePackage(TempFolder(), "CST_NOTES.ZIP",
                                            {{"notes.txt", "firmware"}, {"ZEL4k_DB_1.dat", "database"}});
    RESULT r;
    Extract(package, &r);
    ASSERT_EQ(r.answer, 1);
    EXPECT_NE(std::string(r.firmware), mine);
    EXPECT_EQ(ReadFileBytes(r.firmware), "firmware");
    EXPECT_EQ(ReadFileBytes(mine), "the user's notes");
    DeleteExtractedFiles(&r.written);
    EXPECT_EQ(ReadFileBytes(mine), "the user's notes");
    DeleteFileA(mine.c_str());
}
