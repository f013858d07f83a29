#include "base/bmp.h"

#include <gtest/gtest.h>

namespace vellant {
namespace {

std::uint32_t le32(const std::vector<std::uint8_t>& b, size_t at) {
    return b[at] | b[at + 1] << 8 | b[at + 2] << 16 | static_cast<std::uint32_t>(b[at + 3]) << 24;
}

Bitmap sample(int w, int h) {
    Bitmap bm(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            bm.set(x, y, static_cast<std::uint32_t>((x * 40) << 16 | (y * 60) << 8 | (x + y) * 7));
    return bm;
}

TEST(Bmp, TwentyFourBitRowsArePaddedAndStoredBottomUp) {
    Bitmap bm(3, 2, 0x000000);
    bm.set(0, 0, 0xFF0000); // top-left red
    const auto bytes = encodeBmp24(bm);
    ASSERT_EQ(bytes.size(), 54u + 12u * 2u); // 3 pixels * 3 bytes, padded to 12
    EXPECT_EQ(le32(bytes, 2), bytes.size());
    EXPECT_EQ(le32(bytes, 10), 54u);
    EXPECT_EQ(bytes[28], 24);
    // The top row is the second one stored; its first pixel is blue, green, red.
    EXPECT_EQ(bytes[54 + 12], 0x00);
    EXPECT_EQ(bytes[54 + 12 + 2], 0xFF);
    EXPECT_EQ(decodeBmp(bytes), bm);
}

TEST(Bmp, EightBitPaletteRoundTripsAndRefusesTooManyColours) {
    const Bitmap bm = sample(5, 4);
    const auto bytes = encodeBmp8(bm);
    ASSERT_FALSE(bytes.empty());
    EXPECT_EQ(bytes[28], 8);
    EXPECT_EQ(decodeBmp(bytes), bm);

    Bitmap rich(20, 20);
    for (int i = 0; i < 400; ++i)
        rich.pixels[static_cast<size_t>(i)] = static_cast<std::uint32_t>(i);
    EXPECT_TRUE(encodeBmp8(rich).empty());
    EXPECT_EQ(decodeBmp(encodeBmp24(rich)), rich);
}

TEST(Bmp, ReadsTopDownAndLowBitDepths) {
    // 2x2, 1 bit per pixel, top-down (negative height), palette black/white.
    std::vector<std::uint8_t> b = {'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 62, 0, 0, 0};
    auto put32 = [&](std::uint32_t v) {
        for (int i = 0; i < 4; ++i)
            b.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
    };
    put32(40);
    put32(2);
    put32(static_cast<std::uint32_t>(-2));
    b.insert(b.end(), {1, 0, 1, 0});
    for (int i = 0; i < 6; ++i)
        put32(0);
    put32(0x000000);
    put32(0xFFFFFF);
    b.insert(b.end(), {0x40, 0, 0, 0}); // row 0: black, white
    b.insert(b.end(), {0x80, 0, 0, 0}); // row 1: white, black
    const auto bm = decodeBmp(b);
    ASSERT_TRUE(bm);
    EXPECT_EQ(bm->at(0, 0), 0x000000u);
    EXPECT_EQ(bm->at(1, 0), 0xFFFFFFu);
    EXPECT_EQ(bm->at(0, 1), 0xFFFFFFu);
    EXPECT_EQ(bm->at(1, 1), 0x000000u);
}

TEST(Bmp, DamagedDataGivesNoPicture) {
    auto bytes = encodeBmp24(sample(4, 4));
    EXPECT_FALSE(decodeBmp({}));
    EXPECT_FALSE(decodeBmp({'B', 'M', 1, 2}));
    auto truncated = bytes;
    truncated.resize(bytes.size() - 5);
    EXPECT_FALSE(decodeBmp(truncated));
    auto huge = bytes;
    huge[18] = 0xFF;
    huge[19] = 0xFF;
    huge[20] = 0xFF;
    huge[21] = 0x7F;
    EXPECT_FALSE(decodeBmp(huge));
    auto badBits = bytes;
    badBits[28] = 13;
    EXPECT_FALSE(decodeBmp(badBits));
}

TEST(Bmp, FilesRoundTrip) {
    const std::string path = ::testing::TempDir() + "/vellant_bmp_test.bmp";
    const Bitmap bm = sample(7, 3);
    ASSERT_TRUE(writeBmpFile(path, encodeBmp24(bm)));
    EXPECT_EQ(readBmpFile(path), bm);
    EXPECT_FALSE(readBmpFile(path + ".missing"));
}

} // namespace
} // namespace vellant
