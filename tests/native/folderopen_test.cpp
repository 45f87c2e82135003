#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "../../plugin/entry/folderopen.h"

namespace {

// A file system of folders only, with both separators as on Windows: an open
// succeeds when the parent folder of the path exists; a folder is created
// when its own parent exists.
struct FAKEFS {
    std::set<std::string> folders;
    std::vector<std::string> log;

    static std::string Parent(const std::string& path)
    {
        const size_t slash = path.find_last_of("\\/");
        return slash == std::string::npos ? std::string() : path.substr(0, slash);
    }
    static void* Open(const char* path, const char* mode, void* context)
    {
        FAKEFS* fs = static_cast<FAKEFS*>(context);
        fs->log.push_back(std::string("open ") + path + " " + mode);
        return fs->folders.count(Parent(path)) ? fs : nullptr;
    }
    static void MakeFolder(const char* path, void* context)
    {
        FAKEFS* fs = static_cast<FAKEFS*>(context);
        const bool made = fs->folders.count(Parent(path)) > 0;
        fs->log.push_back(std::string(made ? "mkdir " : "mkdir-failed ") + path);
        if (made)
            fs->folders.insert(path);
    }
    FOLDEROPENOPS Ops() { return FOLDEROPENOPS{Open, MakeFolder, this}; }
};

}  // namespace

TEST(FolderOpen, CreatesEachMissingFolderThenOpens)
{
    FAKEFS fs;
    fs.folders = {"C:", "C:\\a"};
    EXPECT_EQ(OpenCreatingFolders("C:\\a", "b\\c\\d.txt", "wb", fs.Ops()), &fs);
    const std::vector<std::string> expected = {
        "open C:\\a\\b\\c\\d.txt wb", "mkdir C:\\a\\b",  "open C:\\a\\b\\c\\d.txt wb",
        "mkdir C:\\a\\b\\c",          "open C:\\a\\b\\c\\d.txt wb",
    };
    EXPECT_EQ(fs.log, expected);
}

TEST(FolderOpen, BackslashIsSearchedBeforeSlash)
{
    FAKEFS fs;
    fs.folders = {"C:", "C:\\a"};
    EXPECT_EQ(OpenCreatingFolders("C:\\a", "b/c\\d.txt", "wb", fs.Ops()), nullptr);
    // The first cut falls at the backslash; "b/c" cannot be made without "b",
    // and the slash before the cut is never used.
    const std::vector<std::string> expected = {
        "open C:\\a\\b/c\\d.txt wb",
        "mkdir-failed C:\\a\\b/c",
        "open C:\\a\\b/c\\d.txt wb",
    };
    EXPECT_EQ(fs.log, expected);
}

TEST(FolderOpen, SlashIsUsedWhenNoBackslashIsLeft)
{
    FAKEFS fs;
    fs.folders = {"C:", "C:\\a"};
    EXPECT_EQ(OpenCreatingFolders("C:\\a", "b/d.txt", "wb", fs.Ops()), &fs);
    EXPECT_EQ(fs.log.back(), "open C:\\a\\b\\d.txt wb");
}

TEST(FolderOpen, PathLongerThanItsBufferFailsWithoutTouchingTheDisk)
{
    FAKEFS fs;
    fs.folders = {"C:", "C:\\a"};
    const std::string longName(FOLDEROPEN_PATH_SIZE, 'x');
    EXPECT_EQ(OpenCreatingFolders("C:\\a", longName.c_str(), "wb", fs.Ops()), nullptr);
    EXPECT_TRUE(fs.log.empty());
}
