// The several-keys clipboard block: what is written reads back, what another
// program may leave is refused with a reason and changes nothing.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "../../plugin/keys/keyblock.h"

namespace {

std::vector<BLOCKKEY> ThreeKeys()
{
    return {{0, "Talk to Zone,1,0,0,50,ORNCON_1.Hall,", "Hall"},
            {1, "Chime,2,1,0,3,", "Gong\ttab"},
            {3, "Stop,0,0,0,91,91,", "C:\\path\nnext"}};
}

std::vector<BLOCKKEY> Decoded(const std::string& text, std::string* error = nullptr)
{
    std::vector<BLOCKKEY> keys = {{7, "kept", "kept"}};
    std::string reason;
    if (!DecodeKeyBlock(text.data(), text.size(), &keys, &reason)) {
        EXPECT_EQ(keys.size(), 1u) << "a refused block changed the keys";
        EXPECT_FALSE(reason.empty());
        if (error)
            *error = reason;
        return {};
    }
    return keys;
}

void ExpectSame(const std::vector<BLOCKKEY>& a, const std::vector<BLOCKKEY>& b)
{
    ASSERT_EQ(a.size(), b.size());
    for (size_t i = 0; i < a.size(); ++i) {
        EXPECT_EQ(a[i].offset, b[i].offset) << i;
        EXPECT_EQ(a[i].record, b[i].record) << i;
        EXPECT_EQ(a[i].label, b[i].label) << i;
    }
}

const char kHeader[] = "DOVRIXC key block 1\n";

}  // namespace

TEST(KeyBlock, WrittenBlocksReadBackWithTabsNewlinesAndBackslashes)
{
    std::string text;
    ASSERT_TRUE(EncodeKeyBlock(ThreeKeys(), &text, nullptr));
    EXPECT_EQ(text.find('\r'), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4);  // the header and a line a key
    ExpectSame(Decoded(text), ThreeKeys());
    // As the clipboard hands it back: a block longer than its text, or CR LF lines.
    std::string padded = text + std::string(40, '\0');
    ExpectSame(Decoded(padded), ThreeKeys());
    std::string crlf;
    for (char c : text)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    ExpectSame(Decoded(crlf), ThreeKeys());
    // A last line without its line feed.
    ExpectSame(Decoded(text.substr(0, text.size() - 1)), ThreeKeys());
}

TEST(KeyBlock, NegativeOffsetsAndTheLimitsRoundTrip)
{
    const std::vector<BLOCKKEY> keys = {{0, std::string(255, 'r'), std::string(31, 'l')}, {-123, "", ""}, {123, "x", ""}};
    std::string text;
    ASSERT_TRUE(EncodeKeyBlock(keys, &text, nullptr));
    ExpectSame(Decoded(text), keys);
}

TEST(KeyBlock, EncodingRefusesWhatCouldNotBePasted)
{
    std::string text = "untouched", error;
    EXPECT_FALSE(EncodeKeyBlock({}, &text, &error));
    EXPECT_FALSE(EncodeKeyBlock({{1, "a", ""}}, &text, &error));                // first offset not 0
    EXPECT_FALSE(EncodeKeyBlock({{0, "a", ""}, {0, "b", ""}}, &text, &error));  // twice
    EXPECT_FALSE(EncodeKeyBlock({{0, "a", ""}, {124, "b", ""}}, &text, &error));
    EXPECT_FALSE(EncodeKeyBlock({{0, std::string(256, 'r'), ""}}, &text, &error));
    EXPECT_FALSE(EncodeKeyBlock({{0, "a", std::string(32, 'l')}}, &text, &error));
    EXPECT_FALSE(EncodeKeyBlock({{0, std::string("a\0b", 3), ""}}, &text, &error));
    EXPECT_EQ(text, "untouched");
}

TEST(KeyBlock, MalformedBlocksAreRefusedWithAReason)
{
    const std::string refused[] = {
        "",
        "DOVRIXC key block 2\n0\ta\t\n",
        kHeader,                                                     // no key
        std::string(kHeader) + "0\ta\n",                             // two fields
        std::string(kHeader) + "0\ta\tb\tc\n",                       // four
        std::string(kHeader) + "1\ta\tb\n",                          // first not 0
        std::string(kHeader) + "0\ta\tb\n0\tc\td\n",                 // twice
        std::string(kHeader) + "0\ta\tb\n124\tc\td\n",               // out of range
        std::string(kHeader) + "0\ta\tb\n-124\tc\td\n",
        std::string(kHeader) + "0\ta\tb\n+5\tc\td\n",
        std::string(kHeader) + "x\ta\tb\n",
        std::string(kHeader) + "\ta\tb\n",
        std::string(kHeader) + "-\ta\tb\n",
        std::string(kHeader) + "0000\ta\tb\n",
        std::string(kHeader) + "0\ta\tb\n0005\tc\td\n",             // four digits
        std::string(kHeader) + "0\ta\\x\tb\n",                       // unknown escape
        std::string(kHeader) + "0\ta\tb\\\n",                        // escape cut off
        std::string(kHeader) + "0\t" + std::string(256, 'r') + "\tb\n",
        std::string(kHeader) + "0\ta\t" + std::string(32, 'l') + "\n",
        std::string(kHeader) + "0\ta\tb\n\n",                        // an empty line
    };
    for (const std::string& text : refused) {
        std::string error;
        EXPECT_TRUE(Decoded(text, &error).empty()) << text;
        EXPECT_FALSE(error.empty()) << text;
    }
}

TEST(KeyBlock, TheReasonNamesTheLineThatIsWrong)
{
    std::string error;
    Decoded(std::string(kHeader) + "0\ta\tb\n2\tc\n", &error);
    EXPECT_NE(error.find("line 3"), std::string::npos) << error;
}

TEST(KeyBlock, AFullConsoleIsTheMostABlockHolds)
{
    std::string text = kHeader;
    for (int offset = 0; offset <= 123; ++offset)
        text += std::to_string(offset) + "\tStop,0,0,0,91,91,\t\n";
    EXPECT_EQ(Decoded(text).size(), 124u);
    std::string error;
    EXPECT_TRUE(Decoded(text + "-1\ta\tb\n", &error).empty());
    std::string escaped = "a";
    for (int i = 0; i < 127; ++i)
        escaped += "\\\\";  // 255 characters written, 128 once read
    EXPECT_EQ(Decoded(std::string(kHeader) + "0\t" + escaped + "\t\n").at(0).record.size(), 128u);
}

TEST(KeyBlock, APastePlacesEachKeyAtItsOffsetOrNowhere)
{
    const std::vector<BLOCKKEY> keys = {{0, "", ""}, {1, "", ""}, {2, "", ""}, {-6, "", ""}};
    EXPECT_EQ(PlaceKeyBlock(keys, 5), (std::vector<int>{5, 6, 7, -1}));
    EXPECT_EQ(PlaceKeyBlock(keys, 6), (std::vector<int>{6, 7, 8, 0}));
    EXPECT_EQ(PlaceKeyBlock(keys, 122), (std::vector<int>{122, 123, -1, 116}));
}
