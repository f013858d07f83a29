// Tables as users bring them: TABs whose map has no objects yet, maps whose header is damaged,
// names in another letter case than the files, text in the charsets of other machines.

#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/tables/map_header.h"
#include "engine/tables/table_path.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <unistd.h>
#include <vector>

namespace vellant::engine {
namespace {

class TempFolder {
public:
    explicit TempFolder(const std::string& name)
        : path_(std::filesystem::temp_directory_path() /
                ("vellant_real_" + name + "_" + std::to_string(::getpid()))) {
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

std::string eval(Engine& engine, const std::string& expression) {
    return engine.evaluate(expression).toEvalText();
}

// A table given a map and committed without a single object, as a new drawing layer is saved.
void writeEmptyMappable(const std::string& file, const std::string& coordSys) {
    Engine engine;
    engine.run("Create Table Drawing (Name Char(20), Height Float) File \"" + file + "\"");
    engine.run("Create Map For Drawing " + coordSys);
    engine.run("Commit Table Drawing");
}

struct CoordSysCase {
    const char* name;
    const char* clause;
};

// Failures name the case.
std::ostream& operator<<(std::ostream& out, const CoordSysCase& c) {
    return out << c.name;
}

class EmptyMapTest : public ::testing::TestWithParam<CoordSysCase> {};

TEST_P(EmptyMapTest, AnEmptyTabWithAMapOpensMappableInItsCoordinateSystem) {
    TempFolder folder(std::string("empty_") + GetParam().name);
    const std::string file = folder.file("drawing.tab");
    writeEmptyMappable(file, GetParam().clause);

    // What the table answered before it was closed is what it answers when it comes back.
    Engine before;
    before.run("Create Table Drawing (Name Char(20), Height Float)");
    before.run(std::string("Create Map For Drawing ") + GetParam().clause);

    Engine engine;
    engine.run("Open Table \"" + file + "\"");
    EXPECT_EQ(eval(engine, "TableInfo(Drawing, 5)"), "T");
    EXPECT_EQ(eval(engine, "TableInfo(Drawing, 8)"), "0");
    EXPECT_EQ(eval(engine, "TableInfo(Drawing, 29)"), eval(before, "TableInfo(Drawing, 29)"));
    EXPECT_EQ(eval(engine, "ColumnInfo(Drawing, \"Col2\", 1)"), "Height");
    engine.run("Map From Drawing");
    EXPECT_EQ(eval(engine, "MapperInfo(FrontWindow(), 9)"), "1");
    EXPECT_EQ(eval(engine, "LayerInfo(FrontWindow(), 1, 1)"), "drawing");
    EXPECT_EQ(eval(engine, "LayerInfo(FrontWindow(), 1, 24)"), "0");
    EXPECT_EQ(eval(engine, "LayerInfo(FrontWindow(), 1, 9)"), "1");

    // Objects drawn into it and committed read back through GDAL as any other table's.
    engine.run("Close Table Drawing");
    engine.run("Open Table \"" + file + "\"");
    EXPECT_EQ(eval(engine, "TableInfo(Drawing, 29)"), eval(before, "TableInfo(Drawing, 29)"));
}

INSTANTIATE_TEST_SUITE_P(
    CoordinateSystems, EmptyMapTest,
    ::testing::Values(
        CoordSysCase{"LongLatWgs84", "CoordSys Earth Projection 1, 104"},
        CoordSysCase{"Utm31North", "CoordSys Earth Projection 8, 104, \"m\", 3, 0, 0.9996, "
                                   "500000, 0"},
        CoordSysCase{"Lambert93", "CoordSys Earth Projection 3, 33, \"m\", 3, 46.5, 44, 49, "
                                  "700000, 6600000"},
        CoordSysCase{"NonEarthMetres", "CoordSys NonEarth Units \"m\" Bounds (0, 0) (1000, 500)"}),
    [](const ::testing::TestParamInfo<CoordSysCase>& c) { return c.param.name; });

TEST(EmptyMap, NonEarthBoundsComeFromTheHeader) {
    TempFolder folder("empty_bounds");
    const std::string file = folder.file("plan.tab");
    writeEmptyMappable(file, "CoordSys NonEarth Units \"m\" Bounds (0, 0) (1000, 500)");
    Engine engine;
    engine.run("Open Table \"" + file + "\" As Plan");
    const std::string clause = eval(engine, "TableInfo(Plan, 29)");
    EXPECT_NE(clause.find("NonEarth"), std::string::npos) << clause;
    EXPECT_NEAR(engine.evaluate("TableInfo(Plan, 25)").asNumber(), 0, 1e-3);
    EXPECT_NEAR(engine.evaluate("TableInfo(Plan, 28)").asNumber(), 500, 1e-3);
}

// Ways a .MAP header is damaged: each is patched into a good one.
struct Damage {
    const char* name;
    std::size_t at; // where the bytes go; npos cuts the file at `size` bytes instead
    std::vector<unsigned char> bytes;
    std::size_t size = 0;
};

// Failures name the case.
std::ostream& operator<<(std::ostream& out, const Damage& c) {
    return out << c.name;
}

class DamagedMapTest : public ::testing::TestWithParam<Damage> {};

TEST_P(DamagedMapTest, ADamagedHeaderIsAClearErrorAndLeavesNothingOpen) {
    TempFolder folder(std::string("damaged_") + GetParam().name);
    const std::string file = folder.file("drawing.tab");
    writeEmptyMappable(file, "CoordSys Earth Projection 1, 104");
    const std::filesystem::path map = folder.path() / "drawing.map";
    const Damage& damage = GetParam();
    if (damage.at == std::string::npos) {
        std::filesystem::resize_file(map, damage.size);
    } else {
        std::fstream out(map, std::ios::binary | std::ios::in | std::ios::out);
        out.seekp(static_cast<std::streamoff>(damage.at));
        out.write(reinterpret_cast<const char*>(damage.bytes.data()),
                  static_cast<std::streamsize>(damage.bytes.size()));
    }

    Engine engine;
    try {
        engine.run("Open Table \"" + file + "\"");
        FAIL() << "the table opened";
    } catch (const MbError& e) {
        EXPECT_EQ(e.code(), kMbCantAccessFile);
        const std::string message = e.what();
        EXPECT_EQ(message.rfind("Unable to open table " + file + ": its map file ", 0), 0u)
            << message;
        EXPECT_NE(message.find("is damaged"), std::string::npos) << message;
    }
    EXPECT_EQ(eval(engine, "NumTables()"), "0");
}

INSTANTIATE_TEST_SUITE_P(
    Headers, DamagedMapTest,
    ::testing::Values(
        Damage{"CutShort", std::string::npos, {}, 300},
        Damage{"NoMagicNumber", 0x100, {1, 2, 3, 4}},
        Damage{"BlockLargerThanFile", 0x106, {0x00, 0x40}}, // 16384 bytes in a 1024-byte file
        Damage{"BlockNotWhole", 0x106, {0x10, 0x02}}, Damage{"UnknownUnits", 0x16f, {99}},
        Damage{"ScaleNotANumber", 0x170, {0, 0, 0, 0, 0, 0, 0xf8, 0x7f}},
        Damage{"UnknownProjection", 0x16d, {250}}),
    [](const ::testing::TestParamInfo<Damage>& c) { return c.param.name; });

TEST(EmptyMap, ATabWithoutAMapFileStaysUnmappable) {
    TempFolder folder("no_map");
    const std::string file = folder.file("list.tab");
    {
        Engine engine;
        engine.run("Create Table List (Name Char(10)) File \"" + file + "\"");
        engine.run("Commit Table List");
    }
    ASSERT_FALSE(std::filesystem::exists(folder.path() / "list.map"));
    Engine engine;
    engine.run("Open Table \"" + file + "\"");
    EXPECT_EQ(eval(engine, "TableInfo(List, 5)"), "F");
    EXPECT_FALSE(readMapFileCoordSys(file).has_value());
}

TEST(TableFiles, NamesDifferingOnlyInCaseOpenTheFirstInSortedOrder) {
    TempFolder folder("case");
    // Two tables whose files differ only in letter case, as copied from a Windows share.
    for (const std::string stem : {"roads", "ROADS"}) {
        const std::filesystem::path made = folder.path() / ("made_" + stem);
        std::filesystem::create_directories(made);
        Engine engine;
        engine.run("Create Table T (Name Char(10)) File \"" + (made / "t.tab").string() + "\"");
        engine.run("Insert Into T (Name) Values (\"" + stem + "\")");
        engine.run("Commit Table T");
        for (const char* extension : {".tab", ".dat"})
            std::filesystem::copy_file(made / (std::string("t") + extension),
                                       folder.path() / (stem + extension));
    }
    const auto found = findTableFile(folder.file("Roads.TAB"));
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->filename(), "ROADS.tab");
    Engine engine;
    engine.run("Open Table \"" + folder.file("Roads.TAB") + "\" As R");
    engine.run("Fetch First From R");
    EXPECT_EQ(eval(engine, "R.Col1"), "ROADS");
    // The exact name wins over the sorted order.
    engine.run("Open Table \"" + folder.file("roads.tab") + "\" As Exact");
    engine.run("Fetch First From Exact");
    EXPECT_EQ(eval(engine, "Exact.Name"), "roads");
}

TEST(TableFiles, BackslashesAndFolderNamesInAnyCase) {
    TempFolder folder("backslash");
    std::filesystem::create_directories(folder.path() / "Data" / "GIS");
    {
        Engine engine;
        engine.run("Create Table T (Name Char(10)) File \"" +
                   (folder.path() / "Data" / "GIS" / "Rivers.tab").string() + "\"");
        engine.run("Commit Table T");
    }
    Engine engine;
    engine.run("Open Table \"" + folder.path().string() + "\\data\\gis\\RIVERS\"");
    EXPECT_EQ(eval(engine, "TableInfo(1, 1)"), "Rivers");
}

// Text in Create Table and the rows goes to the TAB in a charset MapInfo reads, and comes back
// as the same UTF-8.
TEST(TableCharsets, NonAsciiNamesAndValuesRoundTripThroughTheFile) {
    TempFolder folder("charsets");
    struct Case {
        std::string table, column, value, charsetClause, header;
    };
    const std::vector<Case> cases{
        {"Города", "Назва", "Київ", "", "WindowsCyrillic"},
        {"Städte", "Straße", "Größe", "", "WindowsLatin1"},
        {"Poleis", "Onoma", "Αθήνα", " Charset \"WindowsGreek\"", "WindowsGreek"},
        {"Plain", "Name", "Paris", "", "Neutral"},
    };
    for (const Case& c : cases) {
        const std::string file = folder.file(c.table + ".tab");
        {
            Engine engine;
            engine.run("Create Table " + c.table + " (" + c.column + " Char(20)) File \"" + file +
                       "\"" + c.charsetClause);
            engine.run("Insert Into " + c.table + " (" + c.column + ") Values (\"" + c.value +
                       "\")");
            engine.run("Commit Table " + c.table);
        }
        std::ifstream tab(file, std::ios::binary);
        const std::string header((std::istreambuf_iterator<char>(tab)), {});
        EXPECT_NE(header.find("Charset \"" + c.header + "\""), std::string::npos)
            << c.table << ": " << header;
        Engine engine;
        engine.run("Open Table \"" + file + "\"");
        EXPECT_EQ(eval(engine, "TableInfo(1, 1)"), c.table);
        EXPECT_EQ(eval(engine, "ColumnInfo(" + c.table + ", \"COL1\", 1)"), c.column);
        engine.run("Fetch First From " + c.table);
        EXPECT_EQ(eval(engine, c.table + "." + c.column), c.value);
    }
}

TEST(TableCharsets, AnUnknownCharsetIsRefused) {
    Engine engine;
    try {
        engine.run("Create Table T (Name Char(10)) Charset \"Klingon\"");
        FAIL() << "accepted";
    } catch (const MbError& e) {
        EXPECT_EQ(std::string(e.what()), "Unrecognized charset: Klingon.");
    }
}

} // namespace
} // namespace vellant::engine
