#include "prefs/settings.h"
#include "support/session_fixture.h"

#include <filesystem>

namespace vellant::prefs {
namespace {

using testing::readBytes;
using testing::writeBytes;

class Settings : public testing::SessionFixture {
protected:
    void setAll(session::Session& s) {
        s.gImmediate = -1;
        s.gDocked = 0;
        s.gSaveUserPosition = -1;
        s.gShowMIStatusbar = 0;
        s.gDockedHeight = 2835;
        s.gPrefReserved6 = -32768;
        s.gPrefReserved7 = 32767;
        s.gOnTop = -1;
        s.gMapPrefCount = 12;
    }
    std::vector<std::int16_t> all(const session::Session& s) {
        return {s.gImmediate,       s.gDocked,       s.gSaveUserPosition,
                s.gShowMIStatusbar, s.gDockedHeight, s.gPrefReserved6,
                s.gPrefReserved7,   s.gOnTop,        s.gMapPrefCount};
    }
    std::string prf() const { return dir.file("Vellant.prf"); }
};

TEST_F(Settings, FirstStartLogsTheFailedOpenAndKeepsEverySettingZero) {
    getotherprefs(*session);
    EXPECT_EQ(log(), "\"Error from getotherprefs #99 File not found\"\r\n");
    EXPECT_EQ(all(*session), std::vector<std::int16_t>(9, 0));
    EXPECT_FALSE(std::filesystem::exists(prf()));
}

TEST_F(Settings, WrittenFileHoldsNineLittleEndianSettingsAndReadsBack) {
    setAll(*session);
    writeprefs(*session);
    const auto bytes = readBytes(prf());
    ASSERT_EQ(bytes.size(), 900u);
    const std::vector<std::uint16_t> expected = {0xFFFF, 0,      0xFFFF, 0, 2835,
                                                 0x8000, 0x7FFF, 0xFFFF, 12};
    for (size_t record = 0; record < 9; ++record) {
        const size_t at = record * 100;
        EXPECT_EQ(bytes[at] | bytes[at + 1] << 8, expected[record]) << "record " << record + 1;
        for (size_t k = 2; k < 100; ++k)
            ASSERT_EQ(bytes[at + k], 0) << at + k;
    }

    auto next = nextSession();
    getotherprefs(*next);
    EXPECT_EQ(all(*next), all(*session));
    EXPECT_EQ(log(), "");
}

TEST_F(Settings, WritingKeepsTheRestOfEachRecordAndTheSlotsBehind) {
    std::vector<unsigned char> old(12345);
    for (size_t i = 0; i < old.size(); ++i)
        old[i] = static_cast<unsigned char>(i * 7 + 3);
    writeBytes(prf(), old);
    setAll(*session);
    writeprefs(*session);
    const auto bytes = readBytes(prf());
    ASSERT_EQ(bytes.size(), old.size());
    for (size_t i = 0; i < bytes.size(); ++i) {
        const bool setting = i < 900 && i % 100 < 2;
        if (!setting) {
            ASSERT_EQ(bytes[i], old[i]) << "byte " << i;
        }
    }
    EXPECT_EQ(bytes[800], 12);
    EXPECT_EQ(bytes[801], 0);
}

TEST_F(Settings, ShortAndEmptyFilesReadAsZeroWithoutALogLine) {
    std::vector<unsigned char> shortFile(201, 0);
    shortFile[0] = 0xFF;
    shortFile[1] = 0xFF; // immediate
    shortFile[100] = 0xFF;
    shortFile[101] = 0xFF; // docked
    shortFile[200] = 0x05; // save position: one byte of two
    writeBytes(prf(), shortFile);
    session->gOnTop = -1;
    getotherprefs(*session);
    EXPECT_EQ(session->gImmediate, -1);
    EXPECT_EQ(session->gDocked, -1);
    EXPECT_EQ(session->gSaveUserPosition, 5);
    EXPECT_EQ(session->gOnTop, 0);
    EXPECT_EQ(session->gMapPrefCount, 0);

    writeBytes(prf(), {});
    auto next = nextSession();
    getotherprefs(*next);
    EXPECT_EQ(all(*next), std::vector<std::int16_t>(9, 0));
    EXPECT_EQ(log(), "");
}

TEST_F(Settings, OversizedGarbageFileIsReadWithoutHarm) {
    std::vector<unsigned char> garbage(2 * 1024 * 1024);
    std::uint32_t x = 12345;
    for (auto& b : garbage) {
        x = x * 1103515245 + 12345;
        b = static_cast<unsigned char>(x >> 16);
    }
    writeBytes(prf(), garbage);
    getotherprefs(*session);
    EXPECT_EQ(session->gMapPrefCount, static_cast<std::int16_t>(garbage[800] | garbage[801] << 8));
    EXPECT_EQ(log(), "");
}

TEST_F(Settings, AnUnusablePreferenceFileCostsTheSettingsAndALogLine) {
    std::filesystem::create_directory(prf()); // neither readable nor writable as a file
    session->gDocked = -1;
    getotherprefs(*session);
    EXPECT_EQ(session->gDocked, -1);
    writeprefs(*session);
    EXPECT_EQ(log(), "\"Error from getotherprefs #99 Path/File access error\"\r\n"
                     "\"Error from writeprefs Path/File access error\"\r\n");
}

TEST_F(Settings, WithoutALogNothingIsReadAndNothingBreaks) {
    session::Session lost(toolkit, dir.file("no/such/dir"));
    lost.gOnTop = -1;
    getotherprefs(lost);
    writeprefs(lost);
    EXPECT_EQ(lost.gOnTop, -1);
    EXPECT_EQ(lost.gTrace, "#1");
    EXPECT_FALSE(std::filesystem::exists(dir.file("no")));
}

TEST_F(Settings, LogLinesAreQuotedWithCrLfAndAccumulateAcrossSessions) {
    getotherprefs(*session);
    session->gRestart = -1;
    vlog(*session, "From load_grid .0057 Overflow");
    EXPECT_EQ(session->gRestart, 0);
    closelog(*session);

    auto next = nextSession();
    writeprefs(*next); // creates the file, no log line
    getotherprefs(*next);
    vlog(*next, "second");
    EXPECT_EQ(log(), "\"Error from getotherprefs #99 File not found\"\r\n"
                     "\"From load_grid .0057 Overflow\"\r\n"
                     "\"second\"\r\n");
    EXPECT_TRUE(toolkit.messages().empty());
}

TEST_F(Settings, DeveloperMachinesSeeEachLineAndKeepTheRestart) {
    toolkit.setComputerName("BUILD-01");
    auto dev = nextSession();
    dev->developerMachines = {"build-01"};
    getotherprefs(*dev);
    dev->gRestart = -1;
    vlog(*dev, "hello");
    EXPECT_EQ(dev->gRestart, -1);
    ASSERT_EQ(toolkit.messages().size(), 2u);
    EXPECT_EQ(toolkit.messages().back().prompt, "hello");
}

TEST_F(Settings, LoggingWithoutAnOpenLogRaisesToTheCaller) {
    try {
        vlog(*session, "x");
        FAIL() << "no error";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), kErrBadFileNumber);
    }
}

} // namespace
} // namespace vellant::prefs
