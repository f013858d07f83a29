// The table behind each map's cosmetic layer: what TableInfo, Fetch and ObjectInfo answer for
// it, editing it through Create Into Window, Insert and Delete, Set Table, and its life with the
// window: it comes and goes with the map, follows the layer's name and is never numbered.

#include "engine/tables/table_errors.h"
#include "engine/windows/window_errors.h"
#include "engine/workspace/workspace_writer.h"
#include "window_test_support.h"

#include <algorithm>

namespace vellant::engine::testing {
namespace {

class CosmeticTable : public WindowTest {
protected:
    void SetUp() override {
        open("regions");
        open("points");
    }
    std::string info(const std::string& table, int code) {
        return eval("TableInfo(\"" + table + "\", " + std::to_string(code) + ")");
    }
};

TEST_F(CosmeticTable, AnEmptyLayerIsATemporaryMappableTableWithoutRowsOrColumns) {
    const int window = mapFrom("regions");
    EXPECT_EQ(eval("TableInfo(\"cosmetic1\", 1)"), "Cosmetic1") << "any letter case";
    EXPECT_EQ(eval("TableInfo(Cosmetic1, 3)"), "1") << "a bare name too; a base table";
    EXPECT_EQ(info("Cosmetic1", 4), "0");
    EXPECT_EQ(info("Cosmetic1", 5), "T");
    EXPECT_EQ(info("Cosmetic1", 6), "F");
    EXPECT_EQ(info("Cosmetic1", 7), "T");
    EXPECT_EQ(info("Cosmetic1", 8), "0");
    EXPECT_EQ(info("Cosmetic1", 9), "F");
    EXPECT_EQ(info("Cosmetic1", 10), "F");
    EXPECT_EQ(info("Cosmetic1", 11), "T");
    for (int code = 20; code <= 23; ++code)
        EXPECT_EQ(info("Cosmetic1", code), "0") << code;
    EXPECT_EQ(info("Cosmetic1", 29), eval("MapperInfo(" + id(window) + ", 17)"));

    run("Fetch First From Cosmetic1");
    EXPECT_EQ(eval("EOT(Cosmetic1)"), "T");
    const MbError noObject = evalError("ObjectInfo(Cosmetic1.obj, 1)");
    EXPECT_EQ(noObject.code(), kMbFetchFailed);
    EXPECT_STREQ(noObject.what(), "ObjectInfo: could not fetch object.");
}

TEST_F(CosmeticTable, ItIsNeitherCountedNorNumbered) {
    mapFrom("regions");
    EXPECT_EQ(eval("NumTables()"), "2");
    EXPECT_EQ(eval("TableInfo(2, 1)"), "points");
    EXPECT_EQ(evalError("TableInfo(3, 1)").code(), kMbArgRange);
    EXPECT_EQ(eval("TableInfo(0, 1)"), "points") << "0 is the last table opened, not the layer";
}

TEST_F(CosmeticTable, ItsRowsAreTheObjectsOfTheLayer) {
    const int window = mapFrom("regions");
    run("Create Point Into Window " + id(window) + " (10, 20)");
    run("Dim tobj As Object");
    run("Create Line Into Variable tobj (-3, 0) (5, 8)");
    run("Insert Into Cosmetic1 (Obj) Values (tobj)");
    EXPECT_EQ(info("Cosmetic1", 8), "2");
    EXPECT_EQ(info("Cosmetic1", 9), "T");
    EXPECT_EQ(info("Cosmetic1", 20), "-3");
    EXPECT_EQ(info("Cosmetic1", 23), "20");

    run("Fetch First From Cosmetic1");
    EXPECT_EQ(eval("ObjectInfo(Cosmetic1.obj, 1)"), "5");
    run("Fetch Next From Cosmetic1");
    EXPECT_EQ(eval("ObjectInfo(Cosmetic1.obj, 1)"), "3");

    // Deleted rows keep the later rows' numbers and drop out of the layer's extent.
    run("Delete From Cosmetic1 Where RowID = 1");
    run("Fetch First From Cosmetic1");
    EXPECT_EQ(eval("Cosmetic1.RowID"), "2");
    EXPECT_EQ(info("Cosmetic1", 22), "5");
    run("Set Map Window " + id(window) + " Zoom Entire Layer 0");
    EXPECT_DOUBLE_EQ(number("MapperInfo(" + id(window) + ", 3)"), 1);
    EXPECT_DOUBLE_EQ(number("MapperInfo(" + id(window) + ", 4)"), 4);
    run("Delete Object From Cosmetic1");
    run("Fetch First From Cosmetic1");
    EXPECT_EQ(eval("EOT(Cosmetic1)"), "T");

    // A row without an object would read as a deleted one.
    run("Dim nothing As Object");
    EXPECT_EQ(runError("Insert Into Cosmetic1 (Obj) Values (nothing)").code(), kMbCmdNotSupported);
    EXPECT_EQ(info("Cosmetic1", 8), "2");
    EXPECT_EQ(runError("Create Map For Cosmetic1").code(), kMbCmdNotSupported);
}

TEST_F(CosmeticTable, SetTableChangesOnlyThatMapsTable) {
    const int window = mapFrom("regions");
    run("Set Table Cosmetic1 FastEdit On Undo Off");
    EXPECT_EQ(info("Cosmetic1", 10), "T");
    EXPECT_EQ(info("Cosmetic1", 11), "F");

    run("Run Menu Command 811");
    EXPECT_EQ(info("Cosmetic2", 10), "F") << "a clone has a table of its own";

    run("Set Table Cosmetic1 ReadOnly");
    EXPECT_EQ(info("Cosmetic1", 6), "T");
    const MbError refused = runError("Create Point Into Window " + id(window) + " (1, 1)");
    EXPECT_EQ(refused.code(), kMbCmdNotSupported);
    EXPECT_STREQ(refused.what(), "Table Cosmetic1 is read only.");
    EXPECT_EQ(info("Cosmetic1", 8), "0");
}

TEST_F(CosmeticTable, ItLivesAsLongAsItsWindowAndFollowsTheLayersName) {
    const int first = mapFrom("regions");
    run("Create Point Into Window " + id(first) + " (1, 2)");
    run("Run Menu Command 811");
    const int clone = engine.windows().frontWindow();
    EXPECT_EQ(info("Cosmetic2", 8), "1") << "the clone's layer starts with the same objects";
    EXPECT_EQ(info("Cosmetic2", 9), "T") << "and they are not saved either";

    // What the layer is called is what the table is called.
    engine.windows().get(clone).map->cosmetic.name = "Cosmetic7";
    EXPECT_EQ(info("Cosmetic7", 1), "Cosmetic7");
    EXPECT_EQ(evalError("TableInfo(\"Cosmetic2\", 1)").code(), kMbTableNotFound);

    // Queries of the table, and windows showing only them, close with the map.
    run("Select * From Cosmetic1 Into picked");
    run("Browse * From picked");
    EXPECT_EQ(eval("NumTables()"), "3");
    run("Close Window " + id(first));
    const MbError gone = evalError("TableInfo(\"Cosmetic1\", 1)");
    EXPECT_EQ(gone.code(), kMbTableNotFound);
    EXPECT_STREQ(gone.what(), "Table Cosmetic1 is not open.");
    EXPECT_EQ(eval("NumTables()"), "2");
    EXPECT_EQ(eval("NumWindows()"), "1");

    // The number is free again for the next map.
    mapFrom("points");
    EXPECT_EQ(info("Cosmetic1", 1), "Cosmetic1");
}

TEST_F(CosmeticTable, ItsNameCannotBeTakenNorTheTableClosed) {
    mapFrom("regions");
    const MbError taken = runError("Open Table \"" + folder() + "/points.tab\" As Cosmetic1");
    EXPECT_EQ(taken.code(), kMbInvalidFormat);
    EXPECT_EQ(runError("Create Table cosmetic1 (a Integer)").code(), kMbInvalidFormat);
    const MbError closing = runError("Close Table Cosmetic1");
    EXPECT_EQ(closing.code(), kMbCmdNotSupported);
    EXPECT_STREQ(closing.what(), "Table Cosmetic1 cannot be closed.");
    EXPECT_EQ(info("Cosmetic1", 1), "Cosmetic1");

    // A table already open under the next name makes the next map skip it.
    run("Create Table Cosmetic2 (a Integer)");
    const int second = mapFrom("points");
    EXPECT_EQ(eval("LayerInfo(" + id(second) + ", 0, 1)"), "Cosmetic3");
    EXPECT_EQ(info("Cosmetic2", 3), "1");
    EXPECT_EQ(info("Cosmetic2", 5), "F");
}

TEST_F(CosmeticTable, AWorkspaceLeavesItsObjectsOutAndDoesNotOpenIt) {
    const int window = mapFrom("regions");
    run("Create Point Into Window " + id(window) + " (1, 2)");
    const SavedWorkspace saved = workspaceFor(engine, folder());
    EXPECT_EQ(saved.text.find("Open Table \"Cosmetic"), std::string::npos) << saved.text;
    EXPECT_EQ(saved.text.find("As Cosmetic1"), std::string::npos) << saved.text;
    const auto namesObjects = [](const SavedWorkspace& workspace) {
        return std::ranges::any_of(workspace.leftOut, [](const std::string& line) {
            return line.find("cosmetic layer") != std::string::npos;
        });
    };
    EXPECT_TRUE(namesObjects(saved));
    run("Delete From Cosmetic1");
    EXPECT_FALSE(namesObjects(workspaceFor(engine, folder()))) << "deleted objects are not lost";
}

} // namespace
} // namespace vellant::engine::testing
