// Export...Sample: the style's sample drawn by the renderer, on the clipboard or in a file.

#include "base/bmp.h"
#include "base/runtime_error.h"
#include "mapx/style.h"
#include "mapx_fixture.h"

namespace vellant::mapx::testing {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kRed = 0xFF0000; // as a Bitmap holds it, 0x00RRGGBB
constexpr std::uint32_t kBlue = 0x0000FF;

class StyleSamplesTest : public MapXTest {
protected:
    void SetUp() override {
        MapXTest::SetUp();
        style = create<hostmodel::MXStyle>("MapX.Style.4");
    }

    std::shared_ptr<hostmodel::MXStyle> style;

    Bitmap clipboard() {
        const platform::Picture picture = toolkit.ClipboardGetPicture();
        if (!picture.bitmap) return {};
        return *picture.bitmap;
    }
    static int count(const Bitmap& bitmap, std::uint32_t colour) {
        return static_cast<int>(std::count(bitmap.pixels.begin(), bitmap.pixels.end(), colour));
    }
};

TEST_F(StyleSamplesTest, ARegionSampleShowsItsFillInsideItsBorder) {
    style->setRegionColor(0x0000FF);       // OLE red
    style->setRegionBorderColor(0xFF0000); // OLE blue
    style->ExportRegionSample("CLIPBOARD", mx::miFormatBMP, 40, 20);
    const Bitmap sample = clipboard();
    ASSERT_EQ(sample.width, 40);
    ASSERT_EQ(sample.height, 20);
    EXPECT_EQ(sample.at(20, 10), kRed);
    EXPECT_EQ(sample.at(2, 10), kBlue);
    EXPECT_EQ(sample.at(0, 0), kWhite);
    EXPECT_EQ(toolkit.ClipboardGetPicture().widthTwips, 40 * 15);
}

TEST_F(StyleSamplesTest, ALineSampleCrossesThePictureInItsColour) {
    style->setLineColor(0x0000FF);
    style->setLineWidth(3);
    style->ExportLineSample("clipboard", mx::miFormatBMP, 30, 12);
    const Bitmap sample = clipboard();
    EXPECT_EQ(sample.at(15, 6), kRed);
    EXPECT_EQ(sample.at(15, 1), kWhite);
    EXPECT_GE(count(sample, kRed), 26 * 2);
}

TEST_F(StyleSamplesTest, ASymbolSampleIsCentredAtItsSize) {
    style->setSymbolVectorColor(0xFF0000);
    style->setSymbolCharacter(34); // a filled circle
    style->setSymbolVectorSize(12);
    style->ExportSymbolSample("CLIPBOARD", mx::miFormatBMP, 24, 24);
    const Bitmap sample = clipboard();
    EXPECT_EQ(sample.at(12, 12), kBlue);
    EXPECT_EQ(sample.at(0, 0), kWhite);
}

TEST_F(StyleSamplesTest, ATextSampleWritesItsTextOnTheGroundGiven) {
    style->setTextFontColor(0x0000FF);
    style->TextFont()->setSize(16);
    style->ExportTextSample("CLIPBOARD", mx::miFormatBMP, 40, 24, "Ab", 0x00FF00);
    const Bitmap sample = clipboard();
    EXPECT_EQ(sample.at(0, 0), 0x00FF00u);
    EXPECT_GT(count(sample, kRed), 10);
    // A larger font covers more of the picture.
    style->TextFont()->setSize(8);
    style->ExportTextSample("CLIPBOARD", mx::miFormatBMP, 40, 24, "Ab", 0x00FF00);
    EXPECT_LT(count(clipboard(), kRed), count(sample, kRed));
}

TEST_F(StyleSamplesTest, ASampleGoesToAFileAsABmp) {
    const std::string file = table("sample.bmp");
    style->setRegionColor(0x0000FF);
    style->ExportRegionSample(file, mx::miFormatBMP, 16, 8);
    const std::optional<Bitmap> written = readBmpFile(file);
    ASSERT_TRUE(written);
    EXPECT_EQ(written->at(8, 4), kRed);
    EXPECT_TRUE(toolkit.ClipboardGetPicture().empty());
}

TEST_F(StyleSamplesTest, ASampleTheHostCannotMakeIsAnError) {
    auto errorOf = [](const std::function<void()>& call) {
        try {
            call();
        } catch (const RuntimeError& e) {
            return e.number();
        }
        return 0;
    };
    EXPECT_EQ(errorOf([&] { style->ExportRegionSample("CLIPBOARD", 2, 16, 8); }),
              kErrInvalidProperty);
    EXPECT_EQ(errorOf([&] { style->ExportRegionSample("CLIPBOARD", 1, 0, 8); }),
              kErrInvalidProperty);
    EXPECT_EQ(errorOf([&] { style->ExportLineSample("CLIPBOARD", 1, 16, 1e9); }),
              kErrInvalidProperty);
    EXPECT_EQ(errorOf([&] { style->ExportRegionSample(table("no/such/dir/x.bmp"), 1, 16, 8); }),
              kErrPathFileAccess);
    MapXRuntime bare(engine, nullptr, nullptr);
    Style lonely(bare);
    EXPECT_EQ(errorOf([&] { lonely.ExportRegionSample("CLIPBOARD", 1, 16, 8); }), kErrObjectNotSet);
    EXPECT_TRUE(toolkit.ClipboardGetPicture().empty());
}

} // namespace
} // namespace vellant::mapx::testing
