// Table statements and functions as the program and workspaces send them.

#include "engine/tables/catalog.h"
#include "engine/tables/table_fixture.h"

#include <gdal.h>
#include <ogr_api.h>

namespace vellant::engine::testing {
namespace {

class TableLanguage : public ::testing::Test {
protected:
    static void SetUpTestSuite() { folder_ = std::make_unique<TableFolder>("language"); }
    static void TearDownTestSuite() { folder_.reset(); }

    void open(const std::string& file, const std::string& as = "") {
        engine_.run("Open Table \"" + folder_->file(file) + "\"" + (as.empty() ? "" : " As " + as));
    }
    std::string eval(const std::string& expression) {
        return engine_.evaluate(expression).toEvalText();
    }
    MbError errorOf(const std::string& statement) {
        return raisedBy([&] { engine_.run(statement); });
    }
    MbError evalErrorOf(const std::string& expression) {
        return raisedBy([&] { engine_.evaluate(expression); });
    }

    static std::unique_ptr<TableFolder> folder_;
    Engine engine_;
};
std::unique_ptr<TableFolder> TableLanguage::folder_;

TEST_F(TableLanguage, TableInfoAnswersTheFacadeQueriesOfAnOpenTable) {
    open("regions.tab");
    open("lines.tab");
    EXPECT_EQ(eval("numtables()"), "2");
    EXPECT_EQ(eval("tableinfo( 2,1)"), "lines");
    EXPECT_EQ(eval("tableinfo( 1,5)"), "T");
    EXPECT_EQ(eval("TableInfo(\"REGIONS\",1)"), "regions");
    EXPECT_EQ(eval("TableInfo(\"regions\",3)"), "1");
    EXPECT_EQ(eval("TableInfo(\"regions\",4)"), "2");
    EXPECT_EQ(eval("TableInfo(\"regions\",8)"), "3");
    EXPECT_EQ(eval("TableInfo(\"regions\" ,20)"), "0");
    EXPECT_EQ(eval("TableInfo(\"regions\" ,22)"), "30");
    EXPECT_EQ(eval("TableInfo(\"regions\" ,21)"), "0");
    EXPECT_EQ(eval("TableInfo(\"regions\" ,23)"), "12");
    EXPECT_EQ(eval("TableInfo(\"lines\",29)"),
              "CoordSys Earth Projection 8, 104, \"m\", 3, 0, 0.9996, 500000, 0");
    EXPECT_EQ(eval("TableInfo(\"regions\",19)"), folder_->file("regions.tab"));
    EXPECT_EQ(eval("TableInfo(0,1)"), "lines");
    EXPECT_EQ(eval("TableInfo(\"regions\",9)"), "F");
    EXPECT_EQ(eval("ColumnInfo(\"regions\",\"Col1\",1)"), "Name");
    EXPECT_EQ(eval("ColumnInfo(\"regions\",\"Col2\",3)"), "3");
    EXPECT_EQ(eval("ColumnInfo(\"regions\",\"name\",4)"), "20");
    EXPECT_EQ(eval("ColumnInfo(\"regions\",\"obj\",3)"), "7");
    // The information column asks every code from 1 to 31.
    for (int code = 1; code <= 37; ++code) {
        EXPECT_NO_THROW(eval("TableInfo(\"regions\"," + std::to_string(code) + ")")) << code;
    }
}

TEST_F(TableLanguage, BadTableReferencesGiveTheHostsErrors) {
    open("regions.tab");
    MbError error = evalErrorOf("TableInfo(\"vlStyle\",1)");
    EXPECT_EQ(error.code(), kMbTableNotFound);
    EXPECT_STREQ(error.what(), "Table vlStyle is not open.");
    EXPECT_EQ(evalErrorOf("TableInfo(\"regions\",38)").code(), kMbArgRange);
    EXPECT_STREQ(evalErrorOf("TableInfo(\"regions\",0)").what(),
                 "Argument 2 of TableInfo out of range.");
    EXPECT_EQ(evalErrorOf("TableInfo(5,1)").code(), kMbArgRange);
    EXPECT_EQ(evalErrorOf("ColumnInfo(\"regions\",\"Col9\",1)").code(), kMbNoField);
    EXPECT_EQ(evalErrorOf("regions.nothing").code(), kMbNoField);
    EXPECT_EQ(errorOf("Fetch first from nowhere").code(), kMbTableNotFound);
    EXPECT_EQ(errorOf("Fetch sideways from regions").code(), kMbSyntax);
    EXPECT_EQ(errorOf("Open Table \"" + folder_->file("missing.tab") + "\"").code(),
              kMbCantAccessFile);
}

TEST_F(TableLanguage, FetchFirstAndObjectInfoGiveThePredominantKind) {
    const std::vector<std::pair<std::string, std::string>> kinds{
        {"regions", "7"}, {"lines", "4"}, {"points", "5"}, {"text", "10"}, {"mixed", "7"}};
    for (const auto& [name, kind] : kinds) {
        open(name + ".tab");
        engine_.run("Fetch first from " + name);
        EXPECT_EQ(eval("ObjectInfo(" + name + ".obj,1)"), kind) << name;
    }
    EXPECT_EQ(eval("ObjectInfo(text.obj,3)"), "Alpha");
    EXPECT_EQ(eval("ObjectInfo(points.obj,2)"), "Symbol (34,16711680,12)");
    EXPECT_EQ(eval("StyleAttr(ObjectInfo(regions.obj,3),1)"), "2");
    EXPECT_EQ(eval("ObjectInfo(regions.obj,20)"), "4");
}

TEST_F(TableLanguage, FetchWalksTheRowsAndEotTellsTheEnd) {
    open("points.tab");
    EXPECT_EQ(eval("EOT(\"points\")"), "F");
    engine_.run("Fetch First From points");
    EXPECT_EQ(eval("points.Name"), "P1");
    engine_.run("Fetch Next From points");
    EXPECT_EQ(eval("points.Name + points.col2"), "P22");
    engine_.run("Fetch Last From points");
    EXPECT_EQ(eval("points.rowid"), "5");
    engine_.run("Fetch Prev From points");
    EXPECT_EQ(eval("points.Name"), "P4");
    engine_.run("Fetch Rec 2 From points");
    EXPECT_EQ(eval("points.Name"), "P2");
    engine_.run("Fetch Last From points");
    engine_.run("Fetch Next From points");
    EXPECT_EQ(eval("EOT(\"points\")"), "T");
    EXPECT_EQ(eval("points.Name"), "");
    EXPECT_STREQ(evalErrorOf("ObjectInfo(points.obj,1)").what(),
                 "ObjectInfo: could not fetch object.");
    engine_.run("Fetch Rec 99 From points");
    EXPECT_EQ(eval("EOT(\"points\")"), "T");
}

TEST_F(TableLanguage, AnEmptyTableIsAtItsEndAtOnce) {
    engine_.run("Create Table scratch (n integer)");
    engine_.run("Create Map For scratch");
    engine_.run("Fetch first from scratch");
    EXPECT_EQ(eval("EOT(\"scratch\")"), "T");
    EXPECT_EQ(evalErrorOf("ObjectInfo(scratch.obj,1)").code(), kMbFetchFailed);
}

TEST_F(TableLanguage, OpenTableTakesAliasesAndKeepsNamesUnique) {
    open("regions.tab", "World");
    EXPECT_EQ(eval("TableInfo(1,1)"), "World");
    open("regions.tab", "World"); // the same file again: nothing happens
    EXPECT_EQ(eval("NumTables()"), "1");
    EXPECT_EQ(errorOf("Open Table \"" + folder_->file("lines.tab") + "\" As World").code(), 643);
    engine_.run("Open Table \"" + folder_->file("lines.tab") + "\" As World Interactive");
    EXPECT_EQ(eval("TableInfo(2,1)"), "World_2");
    engine_.run("Open Table \"" + folder_->file("points.tab") + "\" ReadOnly");
    EXPECT_EQ(eval("TableInfo(\"points\",6)"), "T");
}

TEST_F(TableLanguage, OpenTableReadsPathsRelativeToTheCurrentFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder_->path());
    EXPECT_NO_THROW(engine_.run("Open Table \"points\" As P"));
    std::filesystem::current_path(before);
    EXPECT_EQ(eval("TableInfo(\"P\",8)"), "5");
}

TEST_F(TableLanguage, SetTableFlagsShowInTableInfoAndReadOnlyStays) {
    open("regions.tab");
    engine_.run("set table \"regions\" Fastedit on");
    EXPECT_EQ(eval("TableInfo(\"regions\",10)"), "T");
    engine_.run("set table \"regions\" Undo off");
    EXPECT_EQ(eval("TableInfo(\"regions\",11)"), "F");
    engine_.run("Set Table regions User_Browse Off UserClose off");
    EXPECT_EQ(eval("TableInfo(\"regions\",14)"), "F");
    EXPECT_EQ(eval("TableInfo(\"regions\",15)"), "F");
    engine_.run("set table \"regions\" Readonly");
    EXPECT_EQ(eval("TableInfo(\"regions\",6)"), "T");
    engine_.run("set table \"regions\" Fastedit off");
    EXPECT_EQ(eval("TableInfo(\"regions\",6)"), "T");
    // A flag sent without its word changes nothing.
    EXPECT_EQ(errorOf("set table \"regions\" Fastedit ").code(), kMbSyntax);
    EXPECT_EQ(eval("TableInfo(\"regions\",10)"), "F");
    EXPECT_EQ(errorOf("set table \"regions\" Undo on Colour off").code(), kMbSyntax);
    EXPECT_EQ(eval("TableInfo(\"regions\",11)"), "F");
}

std::int64_t gdalFeatureCount(const std::string& path) {
    GDALAllRegister();
    GDALDatasetH dataset = GDALOpenEx(path.c_str(), GDAL_OF_VECTOR, nullptr, nullptr, nullptr);
    if (dataset == nullptr) return -1;
    const std::int64_t count = OGR_L_GetFeatureCount(GDALDatasetGetLayer(dataset, 0), TRUE);
    GDALClose(dataset);
    return count;
}

TEST_F(TableLanguage, TheStyleSampleTableLivesAsTheProgramUsesIt) {
    const std::string dir = (folder_->path() / "appdir").string();
    std::filesystem::create_directories(dir);
    engine_.run("create table vlStyle (stylex integer) File \"" + dir + "\\vlstyle\"");
    EXPECT_TRUE(std::filesystem::exists(dir + "/vlstyle.tab"));
    engine_.run("create map for vlstyle");
    EXPECT_EQ(eval("TableInfo(\"vlStyle\",5)"), "T");
    EXPECT_EQ(eval("TableInfo(\"vlStyle\",29)"), "CoordSys Earth Projection 1, 0");
    engine_.run("set table vlStyle fastedit on undo off usermap off userbrowse off useredit off "
                "userdisplaymap off userremovemap off");
    EXPECT_EQ(eval("TableInfo(\"vlStyle\",10)"), "T");
    EXPECT_EQ(eval("TableInfo(\"vlStyle\",11)"), "F");
    for (int code = 13; code <= 18; ++code) {
        const bool userClose = code == 15; // not in the command
        EXPECT_EQ(eval("TableInfo(\"vlStyle\"," + std::to_string(code) + ")"),
                  userClose ? "T" : "F")
            << code;
    }
    engine_.run("Dim tobj as object");
    engine_.run("Create Region into variable tobj 1 4 (1,0) (2,0) (2.5,1) (1, 0.5)");
    engine_.run("insert into vlStyle (obj) Values (tobj)");
    EXPECT_EQ(eval("TableInfo(\"vlStyle\",8)"), "1");
    EXPECT_EQ(eval("TableInfo(\"vlStyle\",9)"), "T");
    engine_.run("Fetch first from vlStyle");
    EXPECT_EQ(eval("ObjectInfo(vlStyle.obj,1)"), "7");
    engine_.run("Delete from vlstyle");
    engine_.run("Fetch first from vlStyle");
    EXPECT_EQ(eval("EOT(\"vlStyle\")"), "T");
    engine_.run("insert into vlStyle (obj) Values (tobj)");
    engine_.run("Fetch first from vlStyle");
    EXPECT_EQ(eval("vlStyle.rowid"), "2");

    engine_.run("drop table vlStyle");
    EXPECT_EQ(evalErrorOf("TableInfo(\"vlStyle\",1)").code(), kMbTableNotFound);
    EXPECT_FALSE(std::filesystem::exists(dir + "/vlstyle.tab"));
    EXPECT_FALSE(std::filesystem::exists(dir + "/vlstyle.map"));
}

TEST_F(TableLanguage, BoundsRectanglesAreWrittenToTheirTabAtCommit) {
    const std::string dir = (folder_->path() / "bounds").string();
    std::filesystem::create_directories(dir);
    const std::string tab = dir + "/vlbounds.tab";
    engine_.run("create table vlBounds (Name char(30)) File \"" + dir + "\\vlbounds\"");
    engine_.run("create map for vlBounds");
    engine_.run("Dim tobj as object");
    engine_.run("Create Region into variable tobj 1 4 (0,0) (30,0) (30,12) (0,12)  pen (1, 2, "
                "255 )   brush (01, 0, 0) ");
    engine_.run("insert into vlBounds (obj,name) Values (tobj,\"regions\")");
    engine_.run("insert into vlBounds (obj,name) Values (tobj,\"lines\")");
    EXPECT_EQ(gdalFeatureCount(tab), 0); // edits wait for the commit
    engine_.run("Commit Table vlBounds");
    EXPECT_EQ(eval("TableInfo(\"vlBounds\",9)"), "F");
    EXPECT_EQ(gdalFeatureCount(tab), 2);

    engine_.run("Fetch first from vlBounds");
    EXPECT_EQ(eval("vlBounds.name"), "regions");
    EXPECT_EQ(eval("ObjectInfo(vlBounds.obj,2)"), "Pen (1,2,255)");
    EXPECT_EQ(eval("ObjectInfo(vlBounds.obj,3)"), "Brush (1,0,0)");

    // What was written reads back as the same table.
    engine_.run("Open Table \"" + tab + "\" As Written");
    engine_.run("Fetch last from Written");
    EXPECT_EQ(eval("Written.Name"), "lines");
    EXPECT_EQ(eval("ObjectInfo(Written.obj,1)"), "7");
    EXPECT_EQ(eval("ObjectInfo(Written.obj,2)"), "Pen (1,2,255)");
    EXPECT_EQ(eval("ObjectInfo(Written.obj,3)"), "Brush (1,0,0)");
    EXPECT_EQ(eval("TableInfo(\"Written\",22)"), "30");
}

TEST_F(TableLanguage, DropTableDeletesTheFilesOfAFileTable) {
    const std::filesystem::path dir = folder_->path() / "drop";
    std::filesystem::create_directories(dir);
    for (const char* ext : {".tab", ".dat", ".map", ".id"}) {
        std::filesystem::copy_file(folder_->path() / (std::string("points") + ext),
                                   dir / (std::string("points") + ext),
                                   std::filesystem::copy_options::overwrite_existing);
    }
    engine_.run("Open Table \"" + (dir / "points.tab").string() + "\" As Doomed");
    engine_.run("Drop Table Doomed");
    EXPECT_EQ(eval("NumTables()"), "0");
    EXPECT_FALSE(std::filesystem::exists(dir / "points.tab"));
    EXPECT_FALSE(std::filesystem::exists(dir / "points.map"));
}

TEST_F(TableLanguage, EditingRulesFollowTheTable) {
    open("regions.tab");
    engine_.run("Dim o as object");
    engine_.run("Create Point into variable o (1,1)");
    EXPECT_EQ(errorOf("insert into regions (obj) Values (o)").code(), kMbCmdNotSupported);
    engine_.run("Create Table notes (Name char(5), n smallint, d decimal(6,2))");
    EXPECT_EQ(errorOf("insert into notes (obj) Values (o)").code(), kMbNoField);
    EXPECT_EQ(errorOf("insert into notes (colour) Values (1)").code(), kMbNoField);
    EXPECT_EQ(errorOf("insert into notes (Name, n) Values (\"a\")").code(), kMbSyntax);
    engine_.run("insert into notes Values (\"abcdefgh\", 7.6, 3.14159)");
    engine_.run("Fetch first from notes");
    EXPECT_EQ(eval("notes.Name"), "abcde");
    EXPECT_EQ(eval("notes.n"), "8");
    EXPECT_EQ(eval("notes.d"), "3.14");
    EXPECT_EQ(eval("TableInfo(\"notes\",7)"), "T");
    EXPECT_EQ(errorOf("create table notes (x integer)").code(), 643);
    EXPECT_EQ(errorOf("create table bad (x char(0))").code(), kMbSyntax);
    EXPECT_EQ(errorOf("create table bad (x colour)").code(), kMbSyntax);
    engine_.run("set table notes ReadOnly");
    EXPECT_EQ(errorOf("insert into notes (n) Values (1)").code(), kMbCmdNotSupported);
    EXPECT_EQ(errorOf("Delete from notes").code(), kMbCmdNotSupported);
    EXPECT_EQ(errorOf("drop table notes").code(), kMbCmdNotSupported);
}

TEST_F(TableLanguage, SelectMakesQueryTablesThatCloseWithTheirBase) {
    open("regions.tab");
    engine_.run("Select * From regions Where Value > 1");
    EXPECT_EQ(eval("TableInfo(\"Query1\",3)"), "2");
    EXPECT_EQ(eval("TableInfo(\"Query1\",8)"), "2");
    EXPECT_EQ(eval("TableInfo(\"Query1\",12)"), "regions");
    engine_.run("Fetch first from Query1");
    EXPECT_EQ(eval("Query1.Name"), "Beta");
    EXPECT_EQ(eval("ObjectInfo(Query1.obj,1)"), "7");
    engine_.run("Select Name From regions Where Name = \"gamma\" Into Picked");
    EXPECT_EQ(eval("TableInfo(\"Picked\",4)"), "1");
    EXPECT_EQ(eval("TableInfo(\"Picked\",8)"), "1");
    engine_.run("Select Name From regions Where regions.Value = 1 Into Picked");
    engine_.run("Fetch first from Picked");
    EXPECT_EQ(eval("Picked.Name"), "Alpha");
    EXPECT_EQ(errorOf("Select colour From regions").code(), kMbNoField);
    EXPECT_EQ(errorOf("Select * From regions Into regions").code(), 643);
    engine_.run("Close Table regions");
    EXPECT_EQ(eval("NumTables()"), "0");
}

TEST_F(TableLanguage, DeleteWhereRemovesOnlyTheRowsItNames) {
    engine_.run("Create Table items (n integer)");
    for (int i = 1; i <= 4; ++i)
        engine_.run("insert into items (n) Values (" + std::to_string(i) + ")");
    engine_.run("Delete From items Where n = 2 or RowID = 4");
    engine_.run("Select * From items Into Left");
    EXPECT_EQ(eval("TableInfo(\"Left\",8)"), "2");
    EXPECT_EQ(eval("TableInfo(\"items\",8)"), "4"); // deleted rows keep their numbers
    engine_.run("Fetch first from items");
    engine_.run("Fetch next from items");
    EXPECT_EQ(eval("items.n"), "3");
}

} // namespace
} // namespace vellant::engine::testing
