// Save Window: the picture's size from Width, Height, Units and Resolution, the map in its
// pixels, each file type read back, and the errors.

#include "base/bmp.h"
#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/render/gui_application.h"
#include "engine/render/save_window.h"
#include "engine/windows/window_manager.h"

#include <QImage>
#include <QImageReader>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <unistd.h>

namespace vellant::engine::testing {
namespace {

namespace fs = std::filesystem;

MbError errorOf(Engine& engine, const std::string& statement) {
    try {
        engine.run(statement);
    } catch (const MbError& e) {
        return e;
    }
    return MbError(0, "");
}

std::vector<std::uint8_t> bytesOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::uint32_t u32At(const std::vector<std::uint8_t>& b, std::size_t at) {
    return static_cast<std::uint32_t>(b.at(at) | (b.at(at + 1) << 8) | (b.at(at + 2) << 16) |
                                      (b.at(at + 3) << 24));
}

class SaveWindow : public ::testing::Test {
protected:
    void SetUp() override {
        ensureGuiApplication();
        folder = fs::temp_directory_path() /
                 ("vellant_save_window_" + std::to_string(::getpid()) + "_" +
                  ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(folder);
        fs::create_directories(folder);
        // A red square filling the middle of a map of its own.
        run("Create Table Shapes (Name Char(10))");
        run("Create Map For Shapes");
        run("Dim tobj as Object");
        run("Create Region Into Variable tobj 1 4 (-10,-10) (10,-10) (10,10) (-10,10) "
            "Pen (1,2,16711680) Brush (2,16711680,16711680)");
        run("Insert Into Shapes (Name, Obj) Values (\"Square\", tobj)");
        run("Map From Shapes");
        window = engine.windows().frontWindow();
        run("Set Map Window " + id() + " Center (0, 0) Zoom 3000 Units \"mi\"");
    }
    void TearDown() override { fs::remove_all(folder); }

    void run(const std::string& statement) { engine.run(statement); }
    std::string id() const { return std::to_string(window); }
    std::string file(const std::string& name) const { return (folder / name).string(); }

    Engine engine;
    int window = 0;
    fs::path folder;
};

TEST_F(SaveWindow, TheClientsStatementWritesA24BitBmpOfThePaperSize) {
    // As the program sends it: "Type" glued to Width, blanks doubled.
    run("Save Window  " + id() + " As \"" + file("sample.bmp") +
        "\" Type \"BMP\"Width  8 Units \"mm\" Height 4 Units \"mm\"");
    const auto bytes = bytesOf(folder / "sample.bmp");
    ASSERT_GT(bytes.size(), 54U);
    EXPECT_EQ(bytes[28], 24) << "bits per pixel";
    const auto bitmap = readBmpFile(file("sample.bmp"));
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(bitmap->width, 30); // 8 mm at 96 dpi
    EXPECT_EQ(bitmap->height, 15);
}

TEST_F(SaveWindow, ThePictureShowsTheMap) {
    run("Save Window " + id() + " As \"" + file("map.png") +
        "\" Type \"PNG\" Width 2 Units \"in\" Height 2 Units \"in\"");
    const QImage image(QString::fromStdString(file("map.png")));
    ASSERT_EQ(image.size(), QSize(192, 192));
    EXPECT_EQ(image.pixel(96, 96) & 0xFFFFFF, 0xFF0000U) << "the square's brush in the middle";
    EXPECT_EQ(image.pixel(2, 2) & 0xFFFFFF, 0xFFFFFFU) << "the background at a corner";
}

TEST_F(SaveWindow, SizesDefaultToTheWindowInTheSessionsPaperUnits) {
    run("Set Window " + id() + " Width 2 Units \"in\" Height 1 Units \"in\"");
    run("Save Window " + id() + " As \"" + file("default.png") + "\" Type \"PNG\"");
    EXPECT_EQ(QImage(QString::fromStdString(file("default.png"))).size(), QSize(192, 96));

    run("Set Paper Units \"cm\"");
    run("Save Window " + id() + " As \"" + file("cm.png") +
        "\" Type \"PNG\" Width 2.54 Resolution 300");
    EXPECT_EQ(QImage(QString::fromStdString(file("cm.png"))).size(), QSize(300, 300));
}

class SaveWindowTypes : public SaveWindow, public ::testing::WithParamInterface<const char*> {};

TEST_P(SaveWindowTypes, ReadBackAtTheirSize) {
    const std::string type = GetParam();
    const std::string name = file("picture." + type);
    run("Save Window " + id() + " As \"" + name + "\" Type \"" + type +
        "\" Width 40 Units \"mm\" Height 20 Units \"mm\"");
    QImageReader reader(QString::fromStdString(name));
    const QImage image = reader.read();
    ASSERT_FALSE(image.isNull()) << reader.errorString().toStdString();
    EXPECT_EQ(image.size(), QSize(151, 76));
}

INSTANTIATE_TEST_SUITE_P(Qt, SaveWindowTypes, ::testing::Values("BMP", "PNG", "JPEG", "TIFF"),
                         [](const ::testing::TestParamInfo<const char*>& row) {
                             return std::string(row.param);
                         });

TEST_F(SaveWindow, MetafilesHoldThePictureAsOneBitmap) {
    QImage image(30, 15, QImage::Format_RGB32);
    image.fill(QColor(255, 0, 0));
    image.setPixel(0, 0, qRgb(0, 0, 255));

    const std::vector<std::uint8_t> emf = encodeEmf(image, 96);
    EXPECT_EQ(u32At(emf, 0), 1U);
    EXPECT_EQ(u32At(emf, 40), 0x464D4520U);
    EXPECT_EQ(u32At(emf, 48), emf.size());
    EXPECT_EQ(u32At(emf, 88), 81U) << "EMR_STRETCHDIBITS follows the header";
    EXPECT_EQ(u32At(emf, emf.size() - 20), 14U) << "EMR_EOF ends it";
    // The bitmap inside, given a file header, is the picture.
    const std::size_t dib = 88 + u32At(emf, 88 + 48);
    std::vector<std::uint8_t> bmp = {'B', 'M'};
    const auto total = static_cast<std::uint32_t>(14 + u32At(emf, 88 + 52) + u32At(emf, 88 + 60));
    for (std::uint32_t v : {total, 0U, 54U})
        for (int i = 0; i < 4; ++i)
            bmp.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
    bmp.insert(bmp.end(), emf.begin() + static_cast<std::ptrdiff_t>(dib),
               emf.begin() + static_cast<std::ptrdiff_t>(dib + total - 14));
    const auto decoded = decodeBmp(bmp);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->width, 30);
    EXPECT_EQ(decoded->at(0, 0), 0x0000FFU);
    EXPECT_EQ(decoded->at(5, 5), 0xFF0000U);

    const std::vector<std::uint8_t> wmf = encodeWmf(image, 96);
    EXPECT_EQ(u32At(wmf, 0), 0x9AC6CDD7U);
    EXPECT_EQ(u32At(wmf, 22 + 6) * 2, wmf.size() - 22) << "the size in words";
    EXPECT_EQ(wmf[wmf.size() - 6], 3) << "META_EOF ends it";

    run("Save Window " + id() + " As \"" + file("map.wmf") + "\" Type \"WMF\"");
    run("Save Window " + id() + " As \"" + file("map.emf") + "\" Type \"EMF\"");
    EXPECT_EQ(u32At(bytesOf(folder / "map.wmf"), 0), 0x9AC6CDD7U);
    EXPECT_EQ(u32At(bytesOf(folder / "map.emf"), 40), 0x464D4520U);
}

TEST_F(SaveWindow, AProblemDrawingTheMapIsRaisedAndNoFileIsWritten) {
    // Accepted when set (only names and syntax are checked), failing for the row when drawn.
    run("Set Map Window " + id() + " Layer 1 Label Auto On With Str$(1 / (Len(Name) - 6))");
    const MbError e =
        errorOf(engine, "Save Window " + id() + " As \"" + file("x.png") + "\" Type \"PNG\"");
    EXPECT_EQ(e.code(), kMbFloatDomain) << e.what();
    EXPECT_FALSE(fs::exists(folder / "x.png"));
}

TEST_F(SaveWindow, BadRequestsGiveTheHostsErrorsAndWriteNothing) {
    const std::string missing = file("no/such/folder/x.bmp");
    MbError e = errorOf(engine, "Save Window " + id() + " As \"" + missing + "\" Type \"BMP\"");
    EXPECT_EQ(e.code(), kMbCantAccessFile) << e.what();
    EXPECT_NE(std::string(e.what()).find(missing), std::string::npos) << e.what();

    // A folder where the file should go.
    fs::create_directories(folder / "taken.bmp");
    e = errorOf(engine, "Save Window " + id() + " As \"" + file("taken.bmp") + "\" Type \"BMP\"");
    EXPECT_EQ(e.code(), kMbCantAccessFile) << e.what();

    e = errorOf(engine, "Save Window " + id() + " As \"" + file("x.gif") + "\" Type \"GIF\"");
    EXPECT_EQ(e.code(), kMbArgRange);
    EXPECT_STREQ(e.what(), "Save Window cannot write pictures of type GIF.");
    EXPECT_FALSE(fs::exists(folder / "x.gif"));

    EXPECT_EQ(errorOf(engine, "Save Window 12345 As \"" + file("x.bmp") + "\" Type \"BMP\"").code(),
              kMbBadWindow);
    run("Browse * From Shapes");
    const int browser = engine.windows().frontWindow();
    EXPECT_EQ(errorOf(engine, "Save Window " + std::to_string(browser) + " As \"" + file("x.bmp") +
                                  "\" Type \"BMP\"")
                  .code(),
              kMbWantMapperWindow);
    for (const char* clauses : {" Width 0", " Width -1 Units \"in\"", " Resolution 0",
                                " Width 1000 Units \"in\" Resolution 600"}) {
        EXPECT_EQ(errorOf(engine, "Save Window " + id() + " As \"" + file("x.bmp") +
                                      "\" Type \"BMP\"" + clauses)
                      .code(),
                  kMbArgRange)
            << clauses;
    }
    EXPECT_EQ(errorOf(engine,
                      "Save Window " + id() + " As \"" + file("x.bmp") + "\" Type \"BMP\" Colour 3")
                  .code(),
              kMbSyntax);
    EXPECT_EQ(errorOf(engine, "Save Window " + id() + " \"" + file("x.bmp") + "\"").code(),
              kMbSyntax);
    EXPECT_FALSE(fs::exists(folder / "x.bmp"));
}

} // namespace
} // namespace vellant::engine::testing
