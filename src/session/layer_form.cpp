#include "session/layer_form.h"

#include "base/runtime_error.h"
#include "interaction/grid_events.h"
#include "mapchanges/map_panel.h"

namespace vellant::session {

namespace {

// Design size of the header pictures: 16 pixels square at 15 twips a pixel.
constexpr int kHeaderPictureTwips = 240;
// The drag handle and the style sample headings are drawn a little wider.
constexpr int kWideHeaderPictureTwips = 300;
constexpr int kGlyphTwips = 150;
// 32 pixels square.
constexpr int kToggleStatusTwips = 480;

const char* const kHeaderImageNames[] = {
    "VisiblePic",      "ShowNodesPic",    "ShowLinesPic",      "ShowCentroidsPic",
    "SelectablePic",   "EditablePic",     "FasteditPic",       "UndoPic",
    "AutolabelPic",    "StyleOridePic",   "zoomlayerPic",      "ZoomLayerMinPic",
    "ZoomLayerMaxPic", "LabelPropPic",    "Labeloverlappic",   "LabelDuplicatepic",
    "Labelpartialpic", "LabelCountPic",   "Labelorientpic",    "LabelRotatePic",
    "Labeloffsetpic",  "Labellinepic",    "LabelLineStylePic", "LabelZoomPic",
    "LabelZoomMinPic", "LabelZoomMaxPic", "InfoPic",           "FileSpecPic",
    "CoordsysPic",     "UserInfoPic",     "UserEvalPic",
};

// Pictures the cells show.
const char* const kCellImageNames[] = {
    "Image1",
    "Image2",
    "Image1Gray",
    "Image2gray",
    "Linestylelinepic",
    "Linestylearrowpic",
    "LabelVisOnPic",
    "LabelVisZmPic",
    "EditedPic",
    "QueryTabPic",
    "QueryTab_EditedPic",
    // The style cell's off and on pictures by kind: region, line, symbol, text.
    "RgnStyleOffPic",
    "RgnStylePic",
    "LineStyleOffPic",
    "LinestylePic",
    "SymStyleOffPic",
    "SymStylePic",
    "TxtStyleOffPic",
    "TxtStylePic",
};

} // namespace

LayerForm::LayerForm(std::string name, platform::Toolkit& toolkit)
    : Form(std::move(name), toolkit), Timer1("Timer1", toolkit) {
    for (const char* image : kHeaderImageNames)
        addImage(image, kHeaderPictureTwips, kHeaderPictureTwips);
    addImage("DragLayerPic", kWideHeaderPictureTwips, kHeaderPictureTwips);
    addImage("StylePic", kWideHeaderPictureTwips, kHeaderPictureTwips);
    for (const char* image : kCellImageNames)
        addImage(image, kHeaderPictureTwips, kHeaderPictureTwips);
    for (auto& orient : LabelOrient.all()) {
        orient.setWidth(kHeaderPictureTwips);
        orient.setHeight(kHeaderPictureTwips);
        orient.setVisible(false);
        orient.setPicture({"LabelOrient" + std::to_string(orient.Index()), nullptr,
                           kHeaderPictureTwips, kHeaderPictureTwips});
    }

    for (auto& glyph : CollapseColsPic.all()) {
        glyph.setWidth(kGlyphTwips);
        glyph.setHeight(kGlyphTwips);
        glyph.setVisible(false);
        glyph.setToolTipText("Double click the column header to collapse columns");
        glyph.setPicture({"CollapseColsPic", nullptr, kGlyphTwips, kGlyphTwips});
    }
    for (auto& glyph : ExpandColsPic.all()) {
        glyph.setWidth(kGlyphTwips);
        glyph.setHeight(kGlyphTwips);
        glyph.setVisible(false);
        glyph.setToolTipText("Double click the column header to expand columns");
        glyph.setPicture({"ExpandColsPic", nullptr, kGlyphTwips, kGlyphTwips});
    }
    for (auto& status : ToggleStatusPic.all()) {
        status.setWidth(kToggleStatusTwips);
        status.setHeight(kToggleStatusTwips);
        status.setVisible(false);
        status.setToolTipText("Layer property toggle status");
        status.setPicture({"ToggleStatus" + std::to_string(status.Index()), nullptr,
                           kToggleStatusTwips, kToggleStatusTwips});
    }

    designForm();
    designButtons();
    designMapPanel();

    layers_popup.setCaption("Layers");
    Expand_Row.setCaption("Expand row height to fit");
    Expand_Row.setChecked(true);
    show_tooltips.setCaption("Show tool tips");
    View_Entire.setCaption("View Entire Selected");
    Add_Layer.setCaption("Insert Layer");
    Remove_layer.setCaption("Remove layer");
    Group_selected.setCaption("Group selected layers");
    Ungroup_layers.setCaption("Ungroup layers");
    remove_group_prefs.setCaption("Remove saved map group details");
    VL_on_top.setCaption("Keep Vellant on top");
    show_MI_statusbar.setCaption("Show MapInfo status bar");
    Save_user_position.setCaption("Save user position");
    self_test.setCaption("Self test");
    self_test.setEnabled(false);
    for (platform::MenuItem* separator : {&sep1, &sep2, &sep3, &sep4})
        separator->setCaption("-");
    for (platform::MenuItem* item :
         {&Expand_Row, &show_tooltips, &sep1, &View_Entire, &sep2, &Add_Layer, &Remove_layer, &sep3,
          &Group_selected, &Ungroup_layers, &remove_group_prefs, &sep4, &VL_on_top,
          &show_MI_statusbar, &Save_user_position, &self_test})
        layers_popup.addItem(*item);

    registerAll();
    wireButtons();
}

void LayerForm::addImage(const std::string& name, int widthTwips, int heightTwips) {
    auto image = std::make_unique<platform::Control>(name);
    image->setWidth(widthTwips);
    image->setHeight(heightTwips);
    image->setVisible(false);
    image->setPicture({name, nullptr, widthTwips, heightTwips});
    images_.push_back(std::move(image));
}

// Design geometry in twips. Children of a frame are placed relative to it; the layout of
// the form moves the frames, never their contents.
void LayerForm::designForm() {
    Move(1200, 1200, 12000, 8400);
    // Room at the grid's left for the toggle status picture, and above it for the column
    // group glyphs. The docked layout takes the grid's left from the first status picture's
    // designed place, so that one starts where the grid does.
    LyrGrid.Move(540, 360, 9000, 3600);
    ToggleStatusPic(0).setLeft(LyrGrid.Left());
    ToggleStatusPic(0).setTop(LyrGrid.Top());
    toggleStatusDesignLeft_ = ToggleStatusPic(0).Left();
}

void LayerForm::designButtons() {
    Buttonframe.Move(0, 0, 1500, 3000);
    OK.Move(60, 60, 1380, 420);
    OK.setCaption("OK");
    OK.setToolTipText("Accept Vellant changes");
    Cancel.Move(60, 540, 1380, 420);
    Cancel.setToolTipText("Exit without changes");
    MapImmediate.Move(60, 1020, 1380, 300);
    MapImmediate.setCaption("Immediate");
    MapImmediate.setToolTipText("Make map changes immediately");
    Docked.Move(60, 1350, 1380, 300);
    Docked.setCaption("Docked");
    RedrawMAP.Move(60, 1680, 1380, 300);
    RedrawMAP.setCaption("Redraw");
    RedrawMAP.setToolTipText("Turn map drawing on/off");
    RedrawMAP.setValue(1);
    RedrawNOW.Move(60, 2040, 660, 420);
    RedrawNOW.setToolTipText("Refresh Vellant grid");
    Info.Move(780, 2040, 660, 420);
    Info.setToolTipText("Vellant Information");
    Feedback.Move(60, 2520, 1380, 360);
    Feedback.setCaption("Report a Problem");
    Feedback.setToolTipText("Prepare a mail about a problem with Vellant");
    msg.Move(0, 0, 3000, 300);
}

void LayerForm::designMapPanel() {
    Mapframe.Move(120, 0, 5400, 3300);
    Mapframe.setCaption("Layer settings view");
    MapInfoFrame.Move(480, 240, 4800, 2940);
    MapDisplay.Move(480, 240, 4800, 2940);
    MapDisplay.setVisible(false);
    MapInfoframe2.Move(0, 0, 480, 240);
    MapInfoframe2.setVisible(false);

    MapPropsFrame.Move(0, 0, 2400, 3300);
    MapbyCaption.Move(120, 240, 2160, 240);
    MapbyCaption.setCaption("Zoom by");
    Map_custom.Move(120, 540, 2160, 270);
    Map_custom.setCaption("Custom");
    Map_SameScale.Move(120, 840, 2160, 270);
    Map_SameScale.setCaption("Scale");
    Map_SameScale.setToolTipText("Zoom by original map scale");
    map_samezoom.Move(120, 1140, 2160, 270);
    map_samezoom.setCaption("Zoom");
    map_samezoom.setToolTipText("Zoom by original map zoom width");
    ScaleUnits.Move(120, 1500, 2160, 240);
    ScaleUnits.setToolTipText("Scale is shown in form paperunits:mapunits");
    ZoomWidth.Move(120, 1800, 2160, 240);
    ZoomWidth.setToolTipText("Zoom width of displayed map");
    ZoomScale.Move(120, 2100, 2160, 240);
    ZoomScale.setToolTipText("Scale of displayed map");
    platform::OptionButton::group({&Map_custom, &Map_SameScale, &map_samezoom});
    map_bounds.Move(120, 2460, 2160, 300);
    map_bounds.setCaption("Bounds");
    map_bounds.setToolTipText("Show layer bounds and zoom to entire mapper");

    // The tools show only while the option "Custom" is chosen.
    MapButtonFrame.Move(0, 0, 420, 1560);
    int top = 0;
    for (platform::Control* tool : {&SelectTool, &Pan, &ZoomIn, &ZoomOut}) {
        tool->Move(30, top, 360, 360);
        tool->setVisible(false);
        top += 390;
    }
    SelectTool.setToolTipText("Select");
    Pan.setToolTipText("Grabber");
    ZoomIn.setToolTipText("Zoom in");
    ZoomOut.setToolTipText("Zoom out");
}

platform::Control& LayerForm::imageControl(const std::string& name) {
    for (auto& image : images_)
        if (image->Name() == name) return *image;
    raiseError(platform::kErrNoSuchControlElement, "Control '" + name + "' doesn't exist");
}

void LayerForm::registerAll() {
    const std::initializer_list<platform::Control*> singles = {&LyrGrid,
                                                               &Buttonframe,
                                                               &OK,
                                                               &Cancel,
                                                               &Docked,
                                                               &MapImmediate,
                                                               &RedrawMAP,
                                                               &RedrawNOW,
                                                               &Info,
                                                               &Feedback,
                                                               &msg,
                                                               &Mapframe,
                                                               &MapInfoFrame,
                                                               &MapDisplay,
                                                               &MapInfoframe2,
                                                               &MapPropsFrame,
                                                               &MapbyCaption,
                                                               &Map_custom,
                                                               &Map_SameScale,
                                                               &map_samezoom,
                                                               &ScaleUnits,
                                                               &ZoomWidth,
                                                               &ZoomScale,
                                                               &map_bounds,
                                                               &MapButtonFrame,
                                                               &SelectTool,
                                                               &Pan,
                                                               &ZoomIn,
                                                               &ZoomOut,
                                                               &Group_selected,
                                                               &Ungroup_layers,
                                                               &View_Entire,
                                                               &Remove_layer,
                                                               &Add_Layer,
                                                               &show_MI_statusbar,
                                                               &VL_on_top,
                                                               &layers_popup,
                                                               &Expand_Row,
                                                               &show_tooltips,
                                                               &Save_user_position,
                                                               &remove_group_prefs,
                                                               &self_test,
                                                               &sep1,
                                                               &sep2,
                                                               &sep3,
                                                               &sep4,
                                                               &Timer1};
    for (platform::Control* control : singles)
        registerControl(*control);
    for (auto& c : ToggleStatusPic.all())
        registerControl(c);
    for (auto& c : CollapseColsPic.all())
        registerControl(c);
    for (auto& c : ExpandColsPic.all())
        registerControl(c);
    for (auto& c : LabelOrient.all())
        registerControl(c);
    for (auto& image : images_)
        registerControl(*image);
}

// Each twin hooks its own grid: the handlers differ a little between them.
vlLayerControl::vlLayerControl(platform::Toolkit& toolkit) : LayerForm("vlLayerControl", toolkit) {
    interaction::wireLayerGrid(*this, false);
    mapchanges::wireMapPanel(*this, false);
    RedrawNOW.onClick = [this] { RefreshMap(); };
}

vlLayerDocked::vlLayerDocked(platform::Toolkit& toolkit) : LayerForm("vlLayerDocked", toolkit) {
    interaction::wireLayerGrid(*this, true);
    mapchanges::wireMapPanel(*this, true);
    // The timer is switched on at the end of Form_Load, when the form is ready.
    Timer1.setEnabled(false);
    Timer1.onTimer = [this] { Timer1_Timer(); };
}

// Form_Load, Form_Unload and the buttons run the session's procedures; form_events.cpp holds
// them.

} // namespace vellant::session
