// Layers of a MapX map over the engine: adding by file and by LayerInfo, the numbering after
// Move and Remove, temporary layers, and a file that cannot be opened.

#include "base/runtime_error.h"
#include "mapx/feature.h"
#include "mapx_fixture.h"

#include <fstream>

namespace vellant::mapx::testing {
namespace {

using Names = std::vector<std::string>;

class LayersTest : public MapXTest {
protected:
    // regions, lines, points, text, mixed: layer 1 to 5.
    void addFive() {
        for (const char* file : {"mixed.tab", "text.tab", "points.tab", "lines.tab", "regions.tab"})
            add(file);
    }
    int errorOf(const std::function<void()>& call) {
        try {
            call();
        } catch (const RuntimeError& e) {
            return e.number();
        }
        return 0;
    }
};

TEST_F(LayersTest, AddByFileInsertsAtThePositionAndShiftsTheRest) {
    add("regions.tab");
    add("points.tab", 1);
    add("lines.tab", 2);
    add("text.tab", 99); // past the last: appended
    EXPECT_EQ(names(), (Names{"points", "lines", "regions", "text"}));
    auto top = map->Layers()->Item(Variant(1));
    EXPECT_EQ(top->Type(), mx::miLayerTypeNormal);
    EXPECT_EQ(std::filesystem::path(top->FileSpec()), folder() / "points.tab");
    EXPECT_EQ(errorOf([&] { add("empty.tab", 0); }), kErrInvalidCall);
    EXPECT_EQ(map->Layers()->Count(), 4);
}

struct MoveCase {
    int from, to;
    Names order;
};

class LayersMoveTest : public LayersTest, public ::testing::WithParamInterface<MoveCase> {};

TEST_P(LayersMoveTest, TakesTheLayerOutAndPutsItIn) {
    addFive();
    EXPECT_TRUE(map->Layers()->Move(GetParam().from, GetParam().to));
    EXPECT_EQ(names(), GetParam().order);
}

INSTANTIATE_TEST_SUITE_P(
    Moves, LayersMoveTest,
    ::testing::Values(MoveCase{5, 2, {"regions", "mixed", "lines", "points", "text"}},
                      MoveCase{2, 5, {"regions", "points", "text", "mixed", "lines"}},
                      MoveCase{1, 5, {"lines", "points", "text", "mixed", "regions"}},
                      MoveCase{3, 3, {"regions", "lines", "points", "text", "mixed"}}),
    [](const auto& param) {
        return "From" + std::to_string(param.param.from) + "To" + std::to_string(param.param.to);
    });

TEST_F(LayersTest, MoveOutsideTheLayersIsAnErrorAndChangesNothing) {
    addFive();
    EXPECT_EQ(errorOf([&] { map->Layers()->Move(2, 6); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { map->Layers()->Move(0, 1); }), kErrSubscript);
    EXPECT_EQ(names(), (Names{"regions", "lines", "points", "text", "mixed"}));
}

TEST_F(LayersTest, RemoveByNumberOrNameShiftsLaterLayersUp) {
    addFive();
    add("regions.tab", 4); // a second layer of the same name, below the first
    map->Layers()->Remove(Variant(2));
    EXPECT_EQ(names(), (Names{"regions", "points", "regions", "text", "mixed"}));
    map->Layers()->Remove(Variant("REGIONS")); // the first of that name
    EXPECT_EQ(names(), (Names{"points", "regions", "text", "mixed"}));
    EXPECT_EQ(errorOf([&] { map->Layers()->Remove(Variant("nowhere")); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { map->Layers()->Remove(Variant(5)); }), kErrSubscript);
}

TEST_F(LayersTest, TheSameJournalOnTwoMapsGivesTheSameOrder) {
    auto other = create<hostmodel::MXMap>("MapX.Map.4");
    for (auto* target : {map.get(), other.get()}) {
        for (const char* file : {"mixed.tab", "text.tab", "points.tab", "lines.tab"})
            target->Layers()->Add(Variant(table(file)), 1);
        target->Layers()->Move(4, 1);
        target->Layers()->Add(Variant(table("regions.tab")), 3);
        target->Layers()->Remove(Variant(2));
        target->Layers()->Move(1, 4);
    }
    const Names first = names();
    map = other;
    EXPECT_EQ(names(), first);
    EXPECT_EQ(first, (Names{"regions", "points", "text", "mixed"}));
}

TEST_F(LayersTest, ALayerTakenOffItsMapKeepsItsValuesButNotItsTable) {
    add("regions.tab");
    auto layer = map->Layers()->Item(Variant(1));
    layer->setVisible(kFalse);
    const std::string alias = dynamic_cast<Layer&>(*layer).table().name();
    map->Layers()->RemoveAll();
    EXPECT_EQ(map->Layers()->Count(), 0);
    EXPECT_FALSE(layer->Visible());
    EXPECT_EQ(engine.catalog().find(alias), nullptr);
    EXPECT_EQ(errorOf([&] { layer->AllFeatures(); }), kErrObjectNotSet);
}

TEST_F(LayersTest, AFileThatCannotBeOpenedIsAnErrorAndAddsNoLayer) {
    add("regions.tab");
    const int catalogued = engine.catalog().count();
    EXPECT_EQ(errorOf([&] { add("gone.tab"); }), engine::kMbCantAccessFile);
    // A file whose contents are no table.
    const std::string damaged = table("damaged.tab");
    std::ofstream(damaged) << "!table\n!version 300\nDefinition Table\n  Fields -4\n";
    EXPECT_NE(errorOf([&] { map->Layers()->Add(Variant(damaged), 1); }), 0);
    auto info = create<hostmodel::MXLayerInfo>("MapX.LayerInfo.4");
    info->AddParameter("FileSpec", Variant(table("gone.tab")));
    EXPECT_EQ(errorOf([&] { map->Layers()->Add(Variant(info), 1); }), engine::kMbCantAccessFile);
    EXPECT_EQ(names(), (Names{"regions"}));
    EXPECT_EQ(engine.catalog().count(), catalogued);
}

TEST_F(LayersTest, ALayerInfoOpensItsFileSpecUnderItsName) {
    auto info = create<hostmodel::MXLayerInfo>("MapX.LayerInfo.4");
    info->setType(mx::miLayerInfoTypeTab);
    info->AddParameter("name", Variant("Streets"));
    info->AddParameter("FILESPEC", Variant(table("lines.tab")));
    auto layer = map->Layers()->Add(Variant(info), 1);
    EXPECT_EQ(layer->Name(), "Streets");
    EXPECT_EQ(layer->AllFeatures()->Count(), 4);
    info->setType(99);
    EXPECT_EQ(errorOf([&] { map->Layers()->Add(Variant(info), 1); }), kErrInvalidProperty);
}

TEST_F(LayersTest, ATemporaryLayerCopiesTheFeaturesWithTheirValues) {
    auto source = add("points.tab");
    auto info = create<hostmodel::MXLayerInfo>("MapX.LayerInfo.4");
    info->setType(mx::miLayerInfoTypeTemp);
    info->AddParameter("Name", Variant("Copy"));
    info->AddParameter("Features", Variant(source->AllFeatures()));
    auto copy = map->Layers()->Add(Variant(info), 2);

    EXPECT_EQ(copy->Name(), "Copy");
    EXPECT_EQ(copy->Type(), mx::miLayerTypeNormal);
    EXPECT_NE(copy->FileSpec().find('~'), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(copy->FileSpec()));
    auto features = std::dynamic_pointer_cast<Features>(copy->AllFeatures());
    ASSERT_EQ(features->Count(), 5);
    EXPECT_EQ(features->records()[2].values[0].asString(), "P3");
    EXPECT_EQ(features->records()[2].object->parts,
              (std::vector<std::vector<engine::MapPoint>>{{{0, 5}}}));
    EXPECT_EQ(copy->PredominantFeatureType(), mx::miFeatureTypeSymbol);

    // The source can go: the copy holds its own features.
    map->Layers()->Remove(Variant(1));
    EXPECT_EQ(map->Layers()->Item(Variant(1))->AllFeatures()->Count(), 5);
}

TEST_F(LayersTest, CreateLayerMakesAnEmptyLayerThatTakesFeatures) {
    add("regions.tab");
    auto scratch = map->Layers()->CreateLayer("Scratch", "", 1);
    EXPECT_EQ(names(), (Names{"Scratch", "regions"}));
    EXPECT_NE(scratch->FileSpec().find('~'), std::string::npos);
    EXPECT_EQ(scratch->AllFeatures()->Count(), 0);
    EXPECT_EQ(scratch->PredominantFeatureType(), mx::miFeatureTypeNull);

    auto rectangle = create<hostmodel::MXRectangle>("MapX.Rectangle.4");
    rectangle->Set(30, 12, 0, 0);
    auto style = create<hostmodel::MXStyle>("MapX.Style.4");
    style->setRegionPattern(mx::miPatternNoFill);
    style->setRegionBorderColor(255);
    auto feature = map->FeatureFactory()->CreateRegion(*rectangle, *style);
    EXPECT_EQ(feature->Type(), mx::miFeatureTypeRegion);
    scratch->AddFeature(*feature);
    EXPECT_EQ(scratch->AllFeatures()->Count(), 1);
    EXPECT_EQ(scratch->PredominantFeatureType(), mx::miFeatureTypeRegion);
    auto bounds = scratch->Bounds();
    EXPECT_DOUBLE_EQ(bounds->XMax(), 30);
    EXPECT_DOUBLE_EQ(bounds->YMin(), 0);
}

TEST_F(LayersTest, CreateLayerWithAFileWritesATableThatOpensAgain) {
    add("regions.tab");
    const std::string file = table("drawn.tab");
    auto drawn = map->Layers()->CreateLayer("Drawn", file, 1);
    auto rectangle = create<hostmodel::MXRectangle>("MapX.Rectangle.4");
    rectangle->Set(1, 1, 2, 2);
    auto style = create<hostmodel::MXStyle>("MapX.Style.4");
    drawn->AddFeature(*map->FeatureFactory()->CreateRegion(*rectangle, *style));
    EXPECT_EQ(std::filesystem::path(drawn->FileSpec()), std::filesystem::path(file));

    auto reopened = map->Layers()->Add(Variant(file), 1);
    EXPECT_EQ(reopened->AllFeatures()->Count(), 1);
    EXPECT_EQ(reopened->PredominantFeatureType(), mx::miFeatureTypeRegion);
}

TEST_F(LayersTest, FeaturesAndBoundsComeFromTheTable) {
    auto regions = add("regions.tab");
    EXPECT_EQ(regions->AllFeatures()->Count(), 3);
    EXPECT_EQ(regions->NoFeatures()->Count(), 0);
    auto bounds = regions->Bounds();
    EXPECT_DOUBLE_EQ(bounds->XMin(), 0);
    EXPECT_DOUBLE_EQ(bounds->YMin(), 0);
    EXPECT_DOUBLE_EQ(bounds->XMax(), 30);
    EXPECT_DOUBLE_EQ(bounds->YMax(), 12);
    EXPECT_EQ(regions->AllFeatures()->Item(3)->Type(), mx::miFeatureTypeRegion);
    EXPECT_EQ(errorOf([&] { regions->AllFeatures()->Item(4); }), kErrSubscript);
    auto coordSys = regions->CoordSys();
    EXPECT_EQ(coordSys->Type(), 1);
    EXPECT_EQ(coordSys->Units(), mx::miUnitDegree);
}

TEST_F(LayersTest, FeatureTypeAndLayerTypeFollowWhatTheTableHolds) {
    EXPECT_EQ(add("mixed.tab")->PredominantFeatureType(), mx::miFeatureTypeMixed);
    EXPECT_EQ(add("empty.tab")->PredominantFeatureType(), mx::miFeatureTypeNull);
    EXPECT_EQ(add("lines.tab")->PredominantFeatureType(), mx::miFeatureTypeLine);
    EXPECT_EQ(add("text.tab")->PredominantFeatureType(), mx::miFeatureTypeText);
    auto raster = add("raster.tab");
    EXPECT_EQ(raster->Type(), mx::miLayerTypeRaster);
    EXPECT_EQ(raster->PredominantFeatureType(), mx::miFeatureTypeUnknown);
    // A raster has no features; its bounds are those of its image.
    EXPECT_EQ(raster->AllFeatures()->Count(), 0);
    auto image = raster->Bounds();
    EXPECT_DOUBLE_EQ(image->XMin(), 10);
    EXPECT_DOUBLE_EQ(image->YMin(), 48);
    EXPECT_DOUBLE_EQ(image->XMax(), 14);
    EXPECT_DOUBLE_EQ(image->YMax(), 50);
}

TEST_F(LayersTest, FeaturesFromAnotherCoordinateSystemAreMovedIntoTheLayers) {
    // The map is in longitude/latitude; the lines table is UTM.
    add("regions.tab");
    auto lines = add("lines.tab", 2);
    auto scratch = map->Layers()->CreateLayer("Scratch", "", 1);
    scratch->AddFeature(*lines->AllFeatures()->Item(1));
    auto bounds = scratch->Bounds();
    EXPECT_NEAR(bounds->XMin(), 3.0, 0.1); // 500000 m east in zone 31 is 3 degrees east
    EXPECT_NEAR(bounds->YMin(), 45.1, 0.1);
}

} // namespace
} // namespace vellant::mapx::testing
