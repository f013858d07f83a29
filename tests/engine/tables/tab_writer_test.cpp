// Objects and styles written to a TAB through GDAL come back from GDAL as they were.

#include "engine/tables/column_type.h"
#include "engine/tables/gdal_table.h"
#include "engine/tables/memory_table.h"
#include "engine/tables/tab_writer.h"
#include "engine/tables/table_fixture.h"

namespace vellant::engine::testing {
namespace {

std::shared_ptr<const MapObject> object(ObjectKind kind, std::vector<std::vector<MapPoint>> parts,
                                        std::string pen = "", std::string brush = "",
                                        std::string symbol = "") {
    auto o = std::make_shared<MapObject>();
    o->kind = kind;
    o->parts = std::move(parts);
    o->pen = std::move(pen);
    o->brush = std::move(brush);
    o->symbol = std::move(symbol);
    return o;
}

class TabWriter : public ::testing::Test {
protected:
    TabWriter() : folder_("writer") {}
    std::filesystem::path tab(const std::string& name) const { return folder_.path() / name; }
    TableFolder folder_;
};

TEST_F(TabWriter, EveryKindAndStyleSurvivesTheRoundTrip) {
    const std::filesystem::path file = tab("kinds.tab");
    MemoryTable table("kinds", {{"Name", kColChar, 10, 0}, {"N", kColInteger, 0, 0}}, file);
    table.makeMappable("CoordSys Earth Projection 1, 104");

    auto text = std::make_shared<MapObject>();
    text->kind = ObjectKind::Text;
    text->text = "Ab \"quoted\"";
    text->parts = {{{1, 1}, {3, 2}}};
    text->font = "Font (\"Arial\",5,0,255,16777215)";

    const std::vector<std::shared_ptr<const MapObject>> objects{
        object(ObjectKind::Region, {{{0, 0}, {4, 0}, {4, 4}, {0, 0}}}, "Pen (3,2,255)",
               "Brush (8,65280,255)"),
        object(ObjectKind::Line, {{{0, 0}, {1, 1}}}, "Pen (3,5,16711680)"),
        object(ObjectKind::Polyline, {{{0, 0}, {1, 1}, {2, 0}}, {{5, 5}, {6, 6}}}, "Pen (1,2,0)"),
        object(ObjectKind::Point, {{{2, 2}}}, "", "", "Symbol (40,255,18)"),
        object(ObjectKind::Point, {{{3, 3}}}, "", "",
               "Symbol (66,16711680,14,\"Wingdings\",256,30)"),
        text,
        object(ObjectKind::Rect, {{{10, 10}, {12, 11}}}, "Pen (1,2,0)", "Brush (2,255)"),
    };
    for (std::size_t i = 0; i < objects.size(); ++i) {
        table.insertRow({MbValue::string("row" + std::to_string(i + 1)),
                         MbValue::integer(static_cast<std::int32_t>(i))},
                        objects[i]);
    }
    table.commit();

    const auto read = GdalTable::open(file.string(), "read");
    ASSERT_EQ(read->rowCount(), static_cast<std::int64_t>(objects.size()));
    const std::vector<ObjectKind> kinds{ObjectKind::Region, ObjectKind::Line,  ObjectKind::Polyline,
                                        ObjectKind::Point,  ObjectKind::Point, ObjectKind::Text,
                                        ObjectKind::Region};
    for (std::int64_t row = 1; row <= read->rowCount(); ++row) {
        SCOPED_TRACE(row);
        ASSERT_NE(read->object(row), nullptr);
        EXPECT_EQ(read->object(row)->kind, kinds[static_cast<std::size_t>(row - 1)]);
        EXPECT_EQ(read->value(row, 0).toEvalText(), "row" + std::to_string(row));
    }
    EXPECT_EQ(read->object(1)->pen, "Pen (3,2,255)");
    EXPECT_EQ(read->object(1)->brush, "Brush (8,65280,255)");
    EXPECT_EQ(read->object(2)->pen, "Pen (3,5,16711680)");
    EXPECT_EQ(read->object(3)->parts.size(), 2u);
    EXPECT_EQ(read->object(4)->symbol, "Symbol (40,255,18)");
    // GDAL keeps a font symbol's glyph, colour, size and font, not its style or angle.
    EXPECT_EQ(read->object(5)->symbol, "Symbol (66,16711680,14,\"Wingdings\",0,0)");
    EXPECT_EQ(read->object(6)->text, "Ab \"quoted\"");
    EXPECT_EQ(read->object(6)->font, "Font (\"Arial\",5,0,255,16777215)");
    EXPECT_NEAR(read->object(6)->parts[0][0].x, 1, 1e-6);
    EXPECT_NEAR(read->object(6)->parts[0][1].y, 2, 1e-3);
    EXPECT_EQ(read->object(7)->brush, "Brush (2,255)");
    ASSERT_TRUE(read->bounds().has_value());
    EXPECT_DOUBLE_EQ(read->bounds()->maxX, 12);
}

TEST_F(TabWriter, DeletedRowsAreLeftOutAndATableWithoutMapHasNone) {
    const std::filesystem::path file = tab("plain.tab");
    MemoryTable table("plain", {{"N", kColInteger, 0, 0}}, file);
    for (int i = 1; i <= 3; ++i)
        table.insertRow({MbValue::integer(i)}, nullptr);
    table.deleteRow(2);
    table.commit();
    const auto read = GdalTable::open(file.string(), "read");
    EXPECT_FALSE(read->isMappable());
    ASSERT_EQ(read->rowCount(), 2);
    EXPECT_EQ(read->value(2, 0).toEvalText(), "3");
}

TEST_F(TabWriter, NonEarthTablesGetBoundsAroundTheirObjects) {
    const std::filesystem::path file = tab("plan.tab");
    MemoryTable table("plan", {{"N", kColInteger, 0, 0}}, file);
    table.makeMappable("CoordSys NonEarth Units \"m\"");
    table.insertRow({MbValue::integer(1)},
                    object(ObjectKind::Point, {{{250000, 125000}}}, "", "", "Symbol (35,0,12)"));
    table.commit();
    const auto read = GdalTable::open(file.string(), "read");
    ASSERT_NE(read->object(1), nullptr);
    EXPECT_NEAR(read->object(1)->parts[0][0].x, 250000, 1e-3);
    ASSERT_TRUE(read->coordSysBounds().has_value());
    EXPECT_LE(read->coordSysBounds()->minX, 250000);
    EXPECT_GE(read->coordSysBounds()->maxX, 250000);
}

TEST_F(TabWriter, AFolderThatCannotBeWrittenIsAnError) {
    const MbError error = raisedBy([] {
        MemoryTable table("nowhere", {{"N", kColInteger, 0, 0}}, "/nonexistent/folder/nowhere.tab");
    });
    EXPECT_EQ(error.code(), kMbCantAccessFile);
}

} // namespace
} // namespace vellant::engine::testing
