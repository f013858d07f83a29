// Samples as the host draws them: the BMP the host writes for each kind of style shows that
// style's colour, at the size the commands ask for, and leaves the temporary folder as it was.

#include "engine/engine.h"
#include "engine/windows/window_manager.h"
#include "platform/file_system_object.h"
#include "styles/sample_cells.h"
#include "styles/style_grid.h"
#include "styles/style_samples.h"

#include <filesystem>

namespace vellant::grid::testing {
namespace {

struct SampleCase {
    const char* name;
    std::int16_t kind;
    const char* clause;
    std::int16_t size;
    std::uint32_t colour;
    int width; // pixels at the screen's 96 dots an inch
    int height;
};

class StyleSample : public StyleGrid, public ::testing::WithParamInterface<SampleCase> {};

TEST_P(StyleSample, TheHostsBitmapShowsTheStylesColourAtTheSizeAskedFor) {
    const SampleCase& sample = GetParam();
    styles::exportfeaturesample(*session, sample.kind, sample.clause, sample.size);
    const std::optional<Bitmap> written = readBmpFile(session->gSampleFile);
    ASSERT_TRUE(written) << session->gSampleFile;
    EXPECT_EQ(written->width, sample.width);
    EXPECT_EQ(written->height, sample.height);
    EXPECT_GT(pixelsNear(*written, sample.colour), 8);
    EXPECT_GT(pixelsNear(*written, 0xFFFFFF), 8) << "the sample has room around it";
    EXPECT_EQ(log(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, StyleSample,
    ::testing::Values(SampleCase{"RedBrush", 0, kRedBrush, 0, kRed, 30, 15},
                      SampleCase{"BluePenAsALine", 1, "Pen (3,2,255)", 0, kBlue, 30, 15},
                      SampleCase{"GreenSymbol", 2, "Symbol (34,65280,10)", 10, kGreen, 30, 15},
                      // A font's points are read as millimetres, both ways.
                      SampleCase{"RedFont", 5, "Font (\"DejaVu Sans\",1,12,16711680)", 12, kRed, 45,
                                 45}),
    [](const ::testing::TestParamInfo<SampleCase>& tested) {
        return std::string(tested.param.name);
    });

TEST_F(StyleGrid, OneWindowServesTheSamplesOfABatchAndClosesAtItsEnd) {
    const std::size_t windows = engine->windows().count();
    styles::exportfeaturesample(*session, 0, kRedBrush, 0);
    styles::exportfeaturesample(*session, 1, "Pen (1,2,0)", 0);
    EXPECT_EQ(recorder->callsStartingWith("do map from vlStyle min").size(), 1U);
    EXPECT_EQ(engine->windows().count(), windows + 1);
    const int sampleWindow = session->gStyleWin;
    EXPECT_EQ(recorder->callsStartingWith("do Close window").size(), 0U);
    styles::closestylewin(*session);
    EXPECT_EQ(session->gStyleWin, 0);
    EXPECT_EQ(engine->windows().find(sampleWindow), nullptr);
    styles::closestylewin(*session);
    EXPECT_EQ(recorder->callsStartingWith("do Close window").size(), 1U);
}

TEST_F(StyleGrid, AnEmptyStyleDrawsNothing) {
    styles::exportfeaturesample(*session, 0, "", 0);
    EXPECT_TRUE(recorder->callsStartingWith("do Save Window").empty());
    EXPECT_TRUE(recorder->callsStartingWith("do insert").empty());
    // The host's dialogs stay with the form: nothing came to give them back.
    EXPECT_EQ(recorder->calls.back().rfind("do set window ", 0), 0U) << recorder->calls.back();
}

TEST_F(StyleGrid, ASampleThatCannotBeSavedKeepsTheOldPictureAndTheLayerStillTakesTheStyle) {
    load();
    onLayer(kLines);
    grid().setCol(col("override"));
    const platform::Picture before = grid().CellPicture();
    session->gFSO = std::make_shared<platform::FileSystemObject>(dir.file("no such folder"));
    session->gPendFirst = session->gPendLast = kLines;
    styles::updateMicell(*session, 1, "Pen (2,2,255)", false);
    EXPECT_TRUE(logged("Error from exportfeaturesample Unable to write file " +
                       session->gSampleFile + ": No such file or directory."))
        << log();
    EXPECT_EQ(grid().CellPicture(), before);
    EXPECT_EQ(display(kLines), 2);
    EXPECT_EQ(session->gLayer, kLines);
    // The next sample opens no second window: the failed batch's window is still there.
    EXPECT_NE(session->gStyleWin, 0);
}

TEST_F(StyleGrid, AScratchTableLeftOpenIsLoggedAndTheRestIsMade) {
    recorder->calls.clear();
    styles::initstylewin(*session);
    // Every create of a table still open is refused and logged; the settings still go out.
    EXPECT_EQ(recorder->calls.size(), 7U);
    EXPECT_TRUE(logged("Error from initstylewin Table vlStyle is already open.")) << log();
    EXPECT_TRUE(logged("Error from initstylewin Table vlBounds is already open.")) << log();
    styles::exportfeaturesample(*session, 0, kRedBrush, 0);
    EXPECT_TRUE(std::filesystem::exists(session->gSampleFile));
}

TEST_F(StyleGrid, TheScratchStyleTableGoesAtShutdownAndTheBoundsTableStays) {
    styles::exportfeaturesample(*session, 0, kRedBrush, 0);
    styles::closestylewin(*session);
    styles::dropstyletable(*session);
    EXPECT_EQ(recorder->calls.back(), "do UnDim tobj");
    EXPECT_FALSE(std::filesystem::exists(dir.file("vlstyle.tab")));
    EXPECT_TRUE(std::filesystem::exists(dir.file("vlbounds.tab")));
    EXPECT_THROW(app->eval("TableInfo(vlStyle,1)"), RuntimeError);
    EXPECT_EQ(eval("TableInfo(vlBounds,1)"), "vlBounds");
    EXPECT_THROW(app->Do("Create Point into variable tobj (1,1)"), RuntimeError);
}

} // namespace
} // namespace vellant::grid::testing
