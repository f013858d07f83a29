// The desktop program's command line: --screenshot draws the main window into a picture.

#include "host_window_fixture.h"

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <set>

namespace vellant::qtui::testing {
namespace {

struct ProgramRun {
    int exitCode;
    std::string errors;
};

ProgramRun vellant(const QStringList& arguments) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    process.setProcessEnvironment(environment);
    process.start(VELLANT_EXECUTABLE, arguments);
    if (!process.waitForFinished(120000)) return {-1, "did not finish"};
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardError().toStdString()};
}

std::string workspaceWithMap() {
    const auto file = sampleFolder() / "screenshot.wor";
    std::ofstream(file) << "!Workspace\n!Version 950\n!Charset Neutral\n" << kRegionsMap;
    return file.string();
}

TEST(VellantProgram, ScreenshotWritesAPictureOfTheRequestedSizeWithAMapInIt) {
    const auto picture = sampleFolder() / "shot.png";
    std::filesystem::remove(picture);
    const ProgramRun run =
        vellant({"--screenshot", QString::fromStdString(picture.string()), "--size", "640x480",
                 QString::fromStdString(workspaceWithMap())});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    const QImage image(QString::fromStdString(picture.string()));
    ASSERT_EQ(image.size(), QSize(640, 480));
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); y += 4)
        for (int x = 0; x < image.width(); x += 4)
            colours.insert(image.pixel(x, y));
    // Frame, tool bar, map background and the regions' fills at the least.
    EXPECT_GT(colours.size(), 8u);
}

TEST(VellantProgram, ScreenshotOfABadWorkspaceFailsWithAMessage) {
    const auto picture = sampleFolder() / "bad.png";
    const ProgramRun run =
        vellant({"--screenshot", QString::fromStdString(picture.string()),
                 QString::fromStdString((sampleFolder() / "absent.wor").string())});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.errors.find("825"), std::string::npos) << run.errors;
}

TEST(VellantProgram, BadArgumentsAreRefusedAndHelpPrintsUsage) {
    EXPECT_EQ(vellant({"--help"}).exitCode, 0);
    const ProgramRun badSize = vellant({"--screenshot", "x.png", "--size", "wide"});
    EXPECT_EQ(badSize.exitCode, 2);
    EXPECT_NE(badSize.errors.find("--size"), std::string::npos);
}

} // namespace
} // namespace vellant::qtui::testing
