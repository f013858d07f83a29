#include "grid/column_catalogue.h"

#include <array>

namespace vellant::grid {

namespace {

constexpr std::uint16_t kToggle = kColPicture;

// clang-format off
constexpr std::array<CatalogueColumn, 39> kCatalogue = {{
    {"layer",            0,  nullptr,              "Layer",   "Layer name", false, false, 32, nullptr, 0},
    {"order",            1,  "DragLayerPic",       nullptr,   "Layer order - drag cell to move layer(s)", false, false, 16, nullptr, 0},
    {"group",            2,  nullptr,              "Group",   "Layer group - right click sets new group; Double click LAYER to collapse/expand a group", false, false, 1032, nullptr, 0},
    {"visible",          3,  "VisiblePic",         nullptr,   "Layer visibile? ", true, false, kToggle, "visible", 1},
    {"show nodes",       4,  "ShowNodesPic",       nullptr,   "Show region and line nodes", false, false, kToggle, "visible", 0},
    {"show directions",  5,  "ShowLinesPic",       nullptr,   "Show line directions", false, false, kToggle, "visible", 0},
    {"show centroids",   6,  "ShowCentroidsPic",   nullptr,   "Show region centroids", false, false, kToggle, "visible", 0},
    {"selectable",       7,  "SelectablePic",      nullptr,   "Layer selectable?", false, false, kToggle, nullptr, 0},
    {"editable",         8,  "EditablePic",        nullptr,   "Editable ", true, false, kToggle, "editable", 2},
    {"fastedit",         9,  "FasteditPic",        nullptr,   "Fastedit", false, false, kToggle, "editable", 0},
    {"undo",             10, "UndoPic",            nullptr,   "Undo - Warning: table edits become permanent ", false, false, kToggle, "editable", 0},
    {"readonly",         11, nullptr,              "RdOnly",  "Readonly - Warning: change is permanent for this session", false, false, kToggle, "editable", 0},
    {"autolabel",        12, "AutolabelPic",       nullptr,   "Autolabels?", false, false, kToggle, nullptr, 0},
    {"type",             13, nullptr,              "Type",    "Layer feature type", false, false, 1040, "style", 0},
    {"style",            14, "StylePic",           nullptr,   "Layer override style ", true, false, 2, "style", 3},
    {"override",         15, "StyleOridePic",      nullptr,   "Layer override sample", false, false, 17, "style", 0},
    {"zoom layer",       16, "zoomlayerPic",       nullptr,   "Zoom layer?", true, false, kToggle, "zoom layer", 4},
    {"zoom min",         17, "ZoomLayerMinPic",    nullptr,   "Minimum zoom ", false, true, 4, "zoom layer", 0},
    {"zoom max",         18, "ZoomLayerMaxPic",    nullptr,   "Maximum zoom ", false, true, 4, "zoom layer", 0},
    {"label properties", 19, "LabelPropPic",       nullptr,   "Label Style", true, false, 129, "label properties", 5},
    {"label dataset",    20, nullptr,              "Dataset", "Label data set", false, false, 1072, "label properties", 0},
    {"label field",      21, nullptr,              "Field",   "Label expression", false, false, 1056, "label properties", 0},
    {"label overlap",    22, "Labeloverlappic",    nullptr,   "Allow overlapping labels?", false, false, kToggle, "label properties", 0},
    {"label duplicate",  23, "LabelDuplicatepic",  nullptr,   "Allow duplicate labels?", false, false, kToggle, "label properties", 0},
    {"label partial",    24, "Labelpartialpic",    nullptr,   "Label partial segments?", false, false, kToggle, "label properties", 0},
    {"label count",      25, "LabelCountPic",      nullptr,   "Label count - maximum", false, false, 4, "label properties", 0},
    {"label orient",     26, "Labelorientpic",     nullptr,   "Label position relative to object", false, false, kToggle, "label properties", 0},
    {"label rotate",     27, "LabelRotatePic",     nullptr,   "Rotate label with line", false, false, kToggle, "label properties", 0},
    {"label offset",     28, "Labeloffsetpic",     nullptr,   "Label offset from object (points)", false, false, 4, "label properties", 0},
    {"label line",       29, "Labellinepic",       nullptr,   "Label line?", false, false, kToggle, "label properties", 0},
    {"label line style", 30, "LabelLineStylePic",  nullptr,   "Label line style", false, false, kToggle, "label properties", 0},
    {"label zoom",       31, "LabelZoomPic",       nullptr,   "Label visibility ", false, false, kToggle, "label properties", 0},
    {"label zoom min",   32, "LabelZoomMinPic",    nullptr,   "Label minimum zoom ", false, true, 4, "label properties", 0},
    {"label zoom max",   33, "LabelZoomMaxPic",    nullptr,   "Label maximum zoom ", false, true, 4, "label properties", 0},
    {"info",             34, "InfoPic",            nullptr,   "Feature count ", true, false, 20, "info", 6},
    {"table path",       35, "FileSpecPic",        nullptr,   "Table path", false, false, 24, "info", 0},
    {"coordsys",         36, "CoordsysPic",        nullptr,   "Table Coordsys", false, false, 24, "info", 0},
    {"user info",        37, "UserInfoPic",        nullptr,   "Pick from layer or table attribute", false, false, 32, "user info", 7},
    {"user eval",        38, "UserEvalPic",        nullptr,   "Evaluated user attribute", false, false, 24, "user info", 0},
}};

constexpr std::array<GroupMember, 3> kVisibleMembers = {{
    {"ShowNodesPic", "show nodes"}, {"ShowLinesPic", "show directions"},
    {"ShowCentroidsPic", "show centroids"}}};
constexpr std::array<GroupMember, 2> kEditableMembers = {{
    {"FasteditPic", "Fastedit"}, {"UndoPic", "Undo"}}};
constexpr std::array<GroupMember, 1> kStyleMembers = {{{"StyleOridePic", "Override"}}};
constexpr std::array<GroupMember, 2> kZoomMembers = {{
    {"ZoomLayerMinPic", "Zoom min"}, {"ZoomLayerMaxPic", "Zoom max"}}};
constexpr std::array<GroupMember, 12> kLabelMembers = {{
    {"Labeloverlappic", "Label overlap"}, {"LabelDuplicatepic", "Label duplicate"},
    {"Labelpartialpic", "Label partial"}, {"LabelCountPic", "Label count"},
    {"Labelorientpic", "Label orient"}, {"LabelRotatePic", "Label rotate"},
    {"Labeloffsetpic", "Label offset"}, {"Labellinepic", "Label line"},
    {"LabelLineStylePic", "Label line style"}, {"LabelZoomPic", "Label zoom"},
    {"LabelZoomMinPic", "Label zoom min"}, {"LabelZoomMaxPic", "Label zoom max"}}};
constexpr std::array<GroupMember, 2> kInfoMembers = {{
    {"FileSpecPic", "Table Path"}, {"CoordsysPic", "Coordsys"}}};
constexpr std::array<GroupMember, 1> kUserMembers = {{{"UserEvalPic", "user eval"}}};
// clang-format on

} // namespace

std::span<const CatalogueColumn> columnCatalogue() {
    return kCatalogue;
}

std::span<const GroupMember> groupMembers(const std::string& headKey) {
    if (headKey == "visible") return kVisibleMembers;
    if (headKey == "editable") return kEditableMembers;
    if (headKey == "style") return kStyleMembers;
    if (headKey == "zoom layer") return kZoomMembers;
    if (headKey == "label properties" || headKey == "label visible") return kLabelMembers;
    if (headKey == "info") return kInfoMembers;
    if (headKey == "user info") return kUserMembers;
    return {};
}

std::string unittext(const Variant& unit) {
    if (!unit.isNumeric()) return unit.toString();
    const double code = unit.toDouble();
    static constexpr std::array<const char*, 14> kUpToDegree = {
        "Mile",  "Kilometer",  "Inch",         "Foot", "Yard",  "Millimeter", "Centimeter",
        "Meter", "SurveyFoot", "NauticalMile", "Twip", "Point", "Pica",       "Degree"};
    for (size_t i = 0; i < kUpToDegree.size(); ++i)
        if (code == static_cast<double>(i)) return kUpToDegree[i];
    if (code == 30) return "Link";
    if (code == 31) return "Chain";
    if (code == 32) return "Rod";
    return "Unknown";
}

} // namespace vellant::grid
