// A layer's own values, its labels and its datasets, reached as the program reaches them:
// through the interfaces both hosts share, and through the MapX host's own.

#include "base/runtime_error.h"
#include "mapx_fixture.h"

namespace vellant::mapx::testing {
namespace {

class LayerDataTest : public MapXTest {
protected:
    int errorOf(const std::function<void()>& call) {
        try {
            call();
        } catch (const RuntimeError& e) {
            return e.number();
        }
        return 0;
    }
};

TEST_F(LayerDataTest, TheSharedLayerMembersRoundTripThroughTheCommonInterface) {
    add("regions.tab");
    std::shared_ptr<hostmodel::ILayer> lyr = map->Layers()->Item(Variant(1));
    lyr->setVisible(kFalse);
    lyr->setSelectable(kFalse);
    lyr->setShownodes(kTrue);
    lyr->setShowlinedirection(kTrue);
    lyr->setShowCentroids(kTrue);
    lyr->setAutolabel(kTrue);
    lyr->setZoomLayer(kTrue);
    lyr->setZoomMin(2.5);
    lyr->setZoomMax(1.5); // no cross-check: the limits are kept as given
    lyr->setoverridestyle(kTrue);
    // Any value that is not 0 is true, as a flag let takes it.
    lyr->setEditable(1);
    EXPECT_FALSE(lyr->Visible());
    EXPECT_FALSE(lyr->Selectable());
    EXPECT_TRUE(lyr->Shownodes());
    EXPECT_TRUE(lyr->Showlinedirection());
    EXPECT_TRUE(lyr->ShowCentroids());
    EXPECT_TRUE(lyr->Autolabel());
    EXPECT_TRUE(lyr->ZoomLayer());
    EXPECT_EQ(lyr->ZoomMin(), 2.5);
    EXPECT_EQ(lyr->ZoomMax(), 1.5);
    EXPECT_TRUE(lyr->overridestyle());
    EXPECT_TRUE(lyr->Editable());
    EXPECT_EQ(lyr->Name(), "regions");
    EXPECT_EQ(lyr->PredominantFeatureType(), mx::miFeatureTypeRegion);
    EXPECT_EQ(hostmodel::asMXLayer(*lyr).Type(), mx::miLayerTypeNormal);
}

TEST_F(LayerDataTest, OnlyOneLayerOfAMapIsEditable) {
    auto regions = add("regions.tab");
    auto points = add("points.tab");
    regions->setEditable(kTrue);
    points->setEditable(kTrue);
    EXPECT_FALSE(regions->Editable());
    EXPECT_TRUE(points->Editable());
    points->setEditable(kFalse);
    EXPECT_FALSE(regions->Editable());
}

TEST_F(LayerDataTest, TheSharedLabelMembersRoundTripWithTheirLimits) {
    std::shared_ptr<hostmodel::ILabelProps> labels = add("lines.tab")->LabelProperties();
    labels->setVisible(kFalse);
    labels->setLabelZoom(kTrue);
    labels->setLabelZoomMin(3);
    labels->setLabelZoomMax(40);
    labels->setLinetype(mx::miLabelLineArrow);
    labels->setOffset(12);
    labels->setLabelMax(250);
    labels->setOverlap(kTrue);
    labels->setDuplicate(kTrue);
    labels->setParallel(kTrue);
    labels->setPartialSegments(kTrue);
    labels->setPosition(8);
    EXPECT_FALSE(labels->Visible());
    EXPECT_TRUE(labels->LabelZoom());
    EXPECT_EQ(labels->LabelZoomMin(), 3);
    EXPECT_EQ(labels->LabelZoomMax(), 40);
    EXPECT_EQ(labels->Linetype(), mx::miLabelLineArrow);
    EXPECT_EQ(labels->Offset(), 12);
    EXPECT_EQ(labels->LabelMax(), 250);
    EXPECT_TRUE(labels->Overlap());
    EXPECT_TRUE(labels->Duplicate());
    EXPECT_TRUE(labels->Parallel());
    EXPECT_TRUE(labels->PartialSegments());
    EXPECT_EQ(labels->Position(), 8);

    // 16-bit counts overflow; a line past the arrow or a position past 8 is no value at all.
    EXPECT_EQ(errorOf([&] { labels->setLabelMax(40000); }), kErrOverflow);
    EXPECT_EQ(errorOf([&] { labels->setOffset(-40000); }), kErrOverflow);
    EXPECT_EQ(errorOf([&] { labels->setLinetype(3); }), kErrInvalidProperty);
    EXPECT_EQ(errorOf([&] { labels->setPosition(9); }), kErrInvalidProperty);
    EXPECT_EQ(labels->LabelMax(), 250);
    EXPECT_EQ(labels->Linetype(), mx::miLabelLineArrow);
    EXPECT_EQ(labels->Position(), 8);
}

TEST_F(LayerDataTest, ALabelStyleLetCopiesTheValuesAndTheLabelsKeepTheirOwnStyle) {
    auto labels = add("points.tab")->LabelProperties();
    auto style = create<hostmodel::MXStyle>("MapX.Style.4");
    style->TextFont()->setName("Courier New");
    style->TextFont()->setSize(14);
    style->setTextFontColor(0x0000FF);
    labels->setStyle(*style);
    style->setTextFontColor(0x00FF00); // the labels took a copy
    EXPECT_EQ(labels->Style()->TextFont()->Name(), "Courier New");
    EXPECT_EQ(labels->Style()->TextFont()->Size(), 14);
    EXPECT_EQ(labels->Style()->TextFontColor(), 0x0000FF);
    EXPECT_NE(labels->Style(), style);
}

TEST_F(LayerDataTest, DatasetsAddBindsTheLayersTableUnderAUniqueName) {
    auto regions = add("regions.tab");
    auto dataset = map->Datasets()->Add(mx::miDataSetLayer, *regions);
    auto again = map->Datasets()->Add(mx::miDataSetLayer, *regions);
    EXPECT_EQ(dataset->Name(), "regions");
    EXPECT_EQ(again->Name(), "regions_2");
    EXPECT_EQ(dataset->Type(), mx::miDataSetLayer);
    EXPECT_EQ(map->Datasets()->Count(), 2);
    EXPECT_EQ(regions->Datasets()->Count(), 2);
    EXPECT_EQ(regions->Datasets()->Item(Variant(1)), dataset);
    EXPECT_EQ(map->Datasets()->Item(Variant("REGIONS_2")), again);

    auto fields = dataset->Fields();
    ASSERT_EQ(fields->Count(), 2);
    EXPECT_EQ(fields->Item(Variant(1))->Name(), "Name");
    EXPECT_EQ(fields->Item(Variant("value"))->Name(), "Value");
    EXPECT_EQ(errorOf([&] { fields->Item(Variant("Nope")); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { fields->Item(Variant(3)); }), kErrSubscript);
    // Only the map's collection adds, and only datasets of a layer's table.
    EXPECT_EQ(errorOf([&] { regions->Datasets()->Add(mx::miDataSetLayer, *regions); }),
              kErrNoSuchMember);
    EXPECT_EQ(errorOf([&] { map->Datasets()->Add(1, *regions); }), kErrInvalidProperty);

    map->Layers()->Remove(Variant(1));
    EXPECT_EQ(map->Datasets()->Count(), 0);
}

TEST_F(LayerDataTest, TheLabelFieldComesFromADatasetAndIsAnErrorWhenMissing) {
    auto regions = add("regions.tab");
    auto labels = regions->LabelProperties();
    EXPECT_EQ(labels->Dataset(), nullptr);
    EXPECT_EQ(errorOf([&] { labels->DataField(); }), kErrObjectNotSet);
    auto dataset = map->Datasets()->Add(mx::miDataSetLayer, *regions);
    labels->setDataset(dataset);
    labels->setDataField(dataset->Fields()->Item(Variant("Name")));
    EXPECT_EQ(labels->Dataset(), dataset);
    EXPECT_EQ(labels->DataField()->Name(), "Name");
    EXPECT_EQ(hostmodel::asMXLabelProperties(*labels).DataField()->Name(), "Name");
}

TEST_F(LayerDataTest, TheMapsSharedMembersAnswerThroughTheCommonInterface) {
    std::shared_ptr<hostmodel::IMap> shared = map;
    EXPECT_EQ(VarTypeOf(shared->mapunit()), static_cast<int>(VarType::Integer));
    EXPECT_EQ(shared->mapunit().toDouble(), mx::miUnitMile);
    map->setzoom(100);
    EXPECT_FLOAT_EQ(shared->zoom(), 100);
    // The same view told in kilometres.
    map->setmapunit(mx::miUnitKilometer);
    EXPECT_NEAR(shared->zoom(), 160.9344, 1e-3);
    EXPECT_EQ(errorOf([&] { map->setmapunit(14); }), kErrInvalidProperty);
    EXPECT_EQ(errorOf([&] { map->setzoom(0); }), kErrInvalidProperty);
    EXPECT_EQ(&hostmodel::asMXMap(*shared), map.get());
}

} // namespace
} // namespace vellant::mapx::testing
