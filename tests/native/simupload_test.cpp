#include <gtest/gtest.h>

#include "../../host/controllers/simupload.h"

TEST(SimUpload, RequestFields)
{
    UPLOADREQUEST request;
    ASSERT_TRUE(ParseUploadRequest("3|C:\\t\\fw.bin|C:\\t\\ZEL4k_DB_1.dat|None|se|cret", &request));
    EXPECT_EQ(request.console, 3);
    EXPECT_EQ(request.files, (std::vector<std::string>{"C:\\t\\fw.bin", "C:\\t\\ZEL4k_DB_1.dat"}));
    EXPECT_EQ(request.password, "se|cret");
    ASSERT_TRUE(ParseUploadRequest("1|a|b|c|", &request));
    EXPECT_EQ(request.files.size(), 3u);
    for (const char* bad : {"", "1|a|b", "x|a|b|None|p", "1||b|None|p"})
        EXPECT_FALSE(ParseUploadRequest(bad, &request)) << bad;
}

TEST(SimUpload, StatesOverTime)
{
    EXPECT_EQ(UploadStateAt(0, 2, false).overall, 1);
    const UPLOADSTATE first = UploadStateAt(kUploadStartMs + kUploadFileMs / 2, 2, false);
    EXPECT_EQ(first.overall, 2);
    EXPECT_EQ(first.flashState, 3);
    EXPECT_GT(first.flashPercent, 0);
    EXPECT_LT(first.flashPercent, 100);
    EXPECT_EQ(UploadStateAt(kUploadStartMs + kUploadFileMs + 1, 2, false).overall, 3);
    EXPECT_EQ(UploadStateAt(kUploadStartMs + 2 * kUploadFileMs, 2, false).overall, 5);
    EXPECT_EQ(UploadStateAt(kUploadStartMs, 3, true).overall, 6);
}
