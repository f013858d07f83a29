#include "base/runtime_error.h"
#include "prefs/map_slots.h"
#include "support/session_fixture.h"

#include <functional>

namespace vellant::prefs {
namespace {

using testing::readBytes;

int errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

TEST(MapPrefName, DropsAColonAndOneOrTwoCharactersAtTheEnd) {
    EXPECT_EQ(mapprefname("World"), "World");
    EXPECT_EQ(mapprefname("World:2"), "World");
    EXPECT_EQ(mapprefname("World:12"), "World");
    EXPECT_EQ(mapprefname("World:ab"), "World");
    EXPECT_EQ(mapprefname("World:123"), "World:123");
    EXPECT_EQ(mapprefname("a:b"), "a");
    EXPECT_EQ(mapprefname("abc"), "abc");
}

TEST(MapPrefName, TitlesShorterThanThreeCharactersRaiseErrorFive) {
    EXPECT_EQ(errorOf([] { (void)mapprefname("ab"); }), kErrInvalidCall);
    EXPECT_EQ(errorOf([] { (void)mapprefname("a"); }), kErrInvalidCall);
    EXPECT_EQ(errorOf([] { (void)mapprefname(""); }), kErrInvalidCall);
}

TEST(SlotRecords, LieAtTheirDocumentedNumbersWithTheOverlapIntoTheNextSlot) {
    EXPECT_EQ(slotTitleRecord(1), 101);
    EXPECT_EQ(slotLayerCountRecord(1), 102);
    EXPECT_EQ(slotLayerNameRecord(1, 1), 110);
    EXPECT_EQ(slotLayerGroupRecord(1, 1), 111);
    EXPECT_EQ(slotLayerUserInfoRecord(1, 1), 112);
    EXPECT_EQ(slotLayerUserInfoRecord(1, 30), 199);
    // Layer 31: its group is the next slot's title, its user info the next slot's count.
    EXPECT_EQ(slotLayerNameRecord(1, 31), 200);
    EXPECT_EQ(slotLayerGroupRecord(1, 31), slotTitleRecord(2));
    EXPECT_EQ(slotLayerUserInfoRecord(1, 31), slotLayerCountRecord(2));
    EXPECT_EQ(slotLayerUserInfoRecord(1, 33), 208);
    EXPECT_EQ(slotTitleRecord(327), 32701);
}

TEST(SlotRecords, SixteenBitArithmeticOverflowsFromSlot328) {
    EXPECT_EQ(errorOf([] { (void)slotTitleRecord(328); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { (void)slotLayerNameRecord(327, 31); }), kErrOverflow);
    EXPECT_EQ(slotLayerUserInfoRecord(327, 19), 32766);
    EXPECT_EQ(errorOf([] { (void)slotLayerUserInfoRecord(327, 20); }), kErrOverflow);
}

class MapSlotFile : public ::testing::Test {
protected:
    void SetUp() override { file.open(dir.file("Vellant.prf"), RecordFile::Access::ReadWrite); }
    std::string bytesAt(std::int64_t record, size_t count) {
        file.close();
        const auto bytes = readBytes(dir.file("Vellant.prf"));
        file.open(dir.file("Vellant.prf"), RecordFile::Access::ReadWrite);
        const auto at = static_cast<size_t>((record - 1) * 100);
        return {bytes.begin() + static_cast<long>(at),
                bytes.begin() + static_cast<long>(at + count)};
    }
    testing::TempDir dir;
    RecordFile file;
};

TEST_F(MapSlotFile, WritesTitleCountAndLayersByteForByte) {
    writeSlotHeader(file, 1, "World", 2);
    writeSlotLayer(file, 1, 1, {"Cosmetic Layer", "", "%LAYERNAME%"});
    writeSlotLayer(file, 1, 2, {"Roads", " Group  5", "  Obj  "});
    EXPECT_EQ(bytesAt(101, 100), "World" + std::string(95, ' '));
    EXPECT_EQ(bytesAt(102, 100), std::string("\x02\x00", 2) + std::string(98, '\0'));
    EXPECT_EQ(bytesAt(111, 100), std::string(100, ' '));
    EXPECT_EQ(bytesAt(114, 100), " Group  5" + std::string(91, ' '));

    EXPECT_EQ(readSlotTitle(file, 1), "World");
    EXPECT_EQ(readSlotLayerCount(file, 1), 2);
    EXPECT_EQ(readSlotLayerName(file, 1, 2), "Roads");
    EXPECT_EQ(readSlotLayerGroup(file, 1, 1), "");
    EXPECT_EQ(readSlotLayerGroup(file, 1, 2), " Group  5");
    EXPECT_EQ(readSlotLayerUserInfo(file, 1, 2), "Obj");
}

TEST_F(MapSlotFile, LongTextsAreCutAtOneHundredCharacters) {
    const std::string longGroup(130, 'g');
    writeSlotLayer(file, 1, 1, {"x", longGroup, "y"});
    EXPECT_EQ(readSlotLayerGroup(file, 1, 1), longGroup.substr(0, 100));
    EXPECT_EQ(readSlotLayerUserInfo(file, 1, 1), "y");
}

TEST_F(MapSlotFile, TheThirtyThirdLayerDamagesTheNextSlotAndTheLastWriterWins) {
    writeSlotHeader(file, 2, "Second map", 4);
    writeSlotHeader(file, 1, "First map", kMaxStoredLayers);
    for (std::int16_t i = 1; i <= kMaxStoredLayers; ++i)
        writeSlotLayer(file, 1, i, {"L" + std::to_string(i), "G" + std::to_string(i), ""});
    EXPECT_EQ(readSlotTitle(file, 2), "G31");
    EXPECT_EQ(readSlotLayerCount(file, 2), 0x2020); // two blanks of layer 31's empty user info
    EXPECT_EQ(findSlot(file, 2, "Second map"), 0);

    writeSlotHeader(file, 2, "Second map", 4);
    EXPECT_EQ(findSlot(file, 2, "Second map"), 2);
    EXPECT_EQ(readSlotLayerGroup(file, 1, 31), "Second map");
}

TEST_F(MapSlotFile, FindSlotComparesWholeTitlesWithLetterCase) {
    writeSlotHeader(file, 1, "World", 0);
    writeSlotHeader(file, 2, "world", 0);
    writeSlotHeader(file, 3, "World", 0);
    EXPECT_EQ(findSlot(file, 3, "World"), 1);
    EXPECT_EQ(findSlot(file, 3, "world"), 2);
    EXPECT_EQ(findSlot(file, 3, "Worl"), 0);
    EXPECT_EQ(findSlot(file, 1, "world"), 0);
    EXPECT_EQ(findSlot(file, 0, "World"), 0);
}

TEST_F(MapSlotFile, ReadsBeyondTheEndAreBlankAndReadOnlyFilesRefuseWrites) {
    EXPECT_EQ(readSlotTitle(file, 5), "");
    EXPECT_EQ(readSlotLayerCount(file, 5), 0);
    file.close();
    file.open(dir.file("Vellant.prf"), RecordFile::Access::Read);
    EXPECT_EQ(errorOf([&] { writeSlotHeader(file, 1, "x", 1); }), kErrBadFileMode);
    EXPECT_EQ(errorOf([&] { file.open(dir.file("Vellant.prf"), RecordFile::Access::Read); }),
              kErrFileAlreadyOpen);
    EXPECT_EQ(errorOf([&] { (void)file.readInt16(0); }), kErrBadRecordNumber);
    file.close();
    EXPECT_EQ(errorOf([&] { (void)file.readInt16(1); }), kErrBadFileNumber);
}

} // namespace
} // namespace vellant::prefs
