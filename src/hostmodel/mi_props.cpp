#include "hostmodel/mi_props.h"

#include "hostmodel/facade_calls.h"
#include "hostmodel/host_predicates.h"

namespace vellant::hostmodel {

using detail::flagWord;
using detail::isT;
using detail::loggedGet;
using detail::silentGet;

namespace {

// MapBasic's object types as the program's style kinds: a line, a symbol, a region, a text, or
// 4 for a table without rows; anything else counts as mixed.
std::int16_t featureTypeOf(double objectType) {
    switch (static_cast<int>(objectType)) {
    case 1:
    case 2:
    case 3:
    case 4:
        return 1;
    case 5:
        return 2;
    case 7:
    case 8:
    case 9:
        return 0;
    case 10:
        return 5;
    case 99:
        return 4;
    default:
        return 3;
    }
}

// A fetch of a row without an object is expected and not worth a log line.
bool isExpectedFetchFailure(const std::string& text) {
    static const std::string kExpected = "objectinfo: could not fetch";
    return LCase(text).rfind(kExpected, 0) == 0;
}

} // namespace

std::string MIProps::layerGet(const char* code) {
    return context_.mapInfo().eval(
        detail::layerInfo(context_.viewWindow(), CurrentLayerIndex(context_), code));
}

std::string MIProps::tableGet(const std::string& table, const char* code) {
    return context_.mapInfo().eval("TableInfo(\"" + table + "\"," + code + ")");
}

void MIProps::layerLet(const char* label, const std::string& clause) {
    detail::shownLet(context_, label,
                     [&] { context_.mapInfo().Do(detail::setLayer(context_) + clause); });
}

void MIProps::tableLet(const char* label, const std::string& clause, bool nameInMessage) {
    std::string table;
    onErrorGoTo(
        [&] {
            table = Name();
            context_.mapInfo().Do("set table \"" + table + "\" " + clause);
        },
        [&](const RuntimeError& e) {
            std::string text = label + e.description();
            if (nameInMessage) text += detail::kLineBreak + table;
            context_.showMessage(text);
        });
}

float MIProps::bound(const char* code, const char* label) {
    std::string table;
    float result = 0;
    onErrorGoTo(
        [&] {
            table = Name();
            result = detail::toSingle(tableGet(table, code));
        },
        [&](const RuntimeError& e) {
            context_.log(std::string(label) + table + "' " + e.description());
        });
    return result;
}

float MIProps::MinX() {
    return bound("20", "Error from get Minx '");
}

float MIProps::MinY() {
    return bound("21", "Error from get MinY '");
}

float MIProps::MaxX() {
    return bound("22", "Error from get maxx '");
}

float MIProps::MaxY() {
    return bound("23", "Error from get maxy '");
}

float MIProps::Degtokm() {
    return loggedGet<float>(context_, "Error from get degtokm ", [&] {
        return detail::toSingle(context_.mapInfo().eval("Distance(150, -33, 151, -33, \"km\")"));
    });
}

std::int32_t MIProps::Frontwindow() {
    return loggedGet<std::int32_t>(context_, "Error from get Frontwindow ", [&] {
        return detail::toLong(context_.mapInfo().eval("Frontwindow()"));
    });
}

bool MIProps::Edited() {
    return loggedGet<bool>(context_, "Error from get Edited ",
                           [&] { return isT(tableGet(Name(), "9")); });
}

std::int32_t MIProps::FieldCount() {
    return loggedGet<std::int32_t>(context_, "Error from get fieldcount ",
                                   [&] { return detail::toLong(tableGet(Name(), "4")); });
}

std::string MIProps::FieldName(std::int16_t column) {
    return loggedGet<std::string>(context_, "Error from get fieldname ", [&]() -> std::string {
        if (ltype() != 0) return {};
        return context_.mapInfo().eval("ColumnInfo(\"" + Name() + "\",\"Col" + Trim(Str(column)) +
                                       "\",1)");
    });
}

std::string MIProps::coordsys() {
    return silentGet<std::string>([&] { return tableGet(Name(), "29"); });
}

bool MIProps::Fastedit() {
    return silentGet<bool>([&] { return isT(tableGet(Name(), "10")); });
}

void MIProps::setFastedit(Flag value) {
    tableLet("fastedit: ", "Fastedit " + flagWord(value, "on", "Off"), false);
}

bool MIProps::Undo() {
    return loggedGet<bool>(context_, "Error from get undo ",
                           [&] { return isT(tableGet(Name(), "11")); });
}

void MIProps::setUndo(Flag value) {
    tableLet("undo: ", "Undo " + flagWord(value, "on", "Off"), true);
}

bool MIProps::Readonly() {
    return silentGet<bool>([&] { return isT(tableGet(Name(), "6")); });
}

void MIProps::setReadonly(Flag value) {
    if (value != kTrue) return;
    tableLet("readonly: ", "Readonly", true);
}

std::int32_t MIProps::count() {
    return silentGet<std::int32_t>([&]() -> std::int32_t {
        const std::string table = Name();
        if (table.empty()) return 0;
        return detail::toLong(tableGet(table, "8"));
    });
}

std::string MIProps::Name() {
    return layerGet("1");
}

std::string MIProps::TableName() {
    return silentGet<std::string>([&] { return tableGet(Name(), "1"); });
}

bool MIProps::Visible() {
    const double display = Val(layerGet("9"));
    return display == 1 || display == 2 || display == 3;
}

void MIProps::setVisible(Flag value) {
    layerLet("Visible: ", "Display " + flagWord(value, "Graphic", "Off"));
}

bool MIProps::Selectable() {
    return isT(layerGet("3"));
}

void MIProps::setSelectable(Flag value) {
    layerLet("Selectable: ", "Selectable " + flagWord(value, "On", "Off"));
}

// The three gets below log under "let": their log lines are kept as they have always read.
bool MIProps::Shownodes() {
    return loggedGet<bool>(context_, "Error from let Shownodes ",
                           [&] { return isT(layerGet("22")); });
}

void MIProps::setShownodes(Flag value) {
    layerLet("Shownodes: ", "Nodes " + flagWord(value, "On", "Off"));
}

bool MIProps::Showlinedirection() {
    return loggedGet<bool>(context_, "Error from let Showlinedirection ",
                           [&] { return isT(layerGet("21")); });
}

void MIProps::setShowlinedirection(Flag value) {
    layerLet("Showlinedirection: ", "Arrows " + flagWord(value, "On", "Off"));
}

bool MIProps::ShowCentroids() {
    return loggedGet<bool>(context_, "Error from let ShowCentroids ",
                           [&] { return isT(layerGet("23")); });
}

void MIProps::setShowCentroids(Flag value) {
    layerLet("ShowCentroids: ", "Centroids " + flagWord(value, "On", "Off"));
}

bool MIProps::Autolabel() {
    return isT(layerGet("28"));
}

void MIProps::setAutolabel(Flag value) {
    layerLet("Autolabel: ", "Label Auto " + flagWord(value, "On", "Off"));
}

bool MIProps::Editable() {
    return isT(layerGet("2"));
}

void MIProps::setEditable(Flag value) {
    layerLet("Editable: ", "Editable " + flagWord(value, "On", "Off"));
}

bool MIProps::ZoomLayer() {
    return isT(layerGet("4"));
}

// The zoom lets send the whole range clause: the limits not given are read from the layer, and
// a limit's change keeps the layering as it is.
void MIProps::setZoomLayer(Flag value) {
    detail::shownLet(context_, "Zoomlayer: ", [&] {
        const std::string range = "Zoom (" + Str(ZoomMin()) + "," + Str(ZoomMax()) + ") ";
        context_.mapInfo().Do(detail::setLayer(context_) + range + flagWord(value, "On", "Off"));
    });
}

double MIProps::ZoomMin() {
    return Val(layerGet("5"));
}

void MIProps::setZoomMin(double value) {
    detail::shownLet(context_, "Zoommin: ", [&] {
        const std::string range = "Zoom (" + Str(value) + "," + Str(ZoomMax()) + ") ";
        context_.mapInfo().Do(detail::setLayer(context_) + range + (ZoomLayer() ? "On" : "Off"));
    });
}

double MIProps::ZoomMax() {
    return Val(layerGet("6"));
}

void MIProps::setZoomMax(double value) {
    detail::shownLet(context_, "Zoommax: ", [&] {
        const std::string range = "Zoom (" + Str(ZoomMin()) + "," + Str(value) + ") ";
        context_.mapInfo().Do(detail::setLayer(context_) + range + (ZoomLayer() ? "On" : "Off"));
    });
}

std::string MIProps::FileSpec() {
    return layerGet("8");
}

bool MIProps::overrideOf(std::int32_t window, bool original) {
    return loggedGet<bool>(context_, "Error from get overridestyle prop ", [&] {
        const std::string display =
            context_.mapInfo().eval(detail::layerInfo(window, CurrentLayerIndex(context_), "9"));
        switch (static_cast<int>(Val(display))) {
        case 2:
            return true;
        case 3:
            // A layer drawn by value on the user's map starts the view without an override.
            if (original) setoverridestyle(kFalse);
            return false;
        case 0:
        case 1:
            return false;
        default:
            context_.log("style type " + display + " not yet supported");
            return false;
        }
    });
}

bool MIProps::overridestyle() {
    return overrideOf(context_.viewWindow(), false);
}

bool MIProps::overridestyleOrig() {
    return overrideOf(context_.userMapWindow(), true);
}

void MIProps::setoverridestyle(Flag value) {
    std::string clause = "Display ";
    if (value == kTrue) {
        const std::string& style = context_.styleValue();
        clause += style.empty() ? "Global " : "Global Global " + style;
    } else if (value == kFalse) {
        clause += "Graphic";
    }
    layerLet("overridestyle:", clause);
}

bool MIProps::QueryTab() {
    return loggedGet<bool>(context_, "get querytab:", [&] { return ttype() == 2; });
}

std::int16_t MIProps::ttype() {
    return loggedGet<std::int16_t>(
        context_, "get table type:", [&] { return detail::toInteger(tableGet(Name(), "3")); });
}

std::int16_t MIProps::ltype() {
    const std::int16_t type = detail::toInteger(layerGet("24"));
    return type == 4 ? std::int16_t{2} : type;
}

std::int16_t MIProps::PredominantFeatureType() {
    std::int16_t result = 0;
    onErrorGoTo(
        [&] {
            if (ltype() > 1) {
                result = 0;
                return;
            }
            double objectType = 99;
            if (count() > 0) {
                const std::string table = Name();
                context_.mapInfo().Do("Fetch first from " + table);
                objectType = Val(context_.mapInfo().eval("ObjectInfo(" + table + ".obj,1)"));
            }
            result = featureTypeOf(objectType);
        },
        [&](const RuntimeError& e) {
            result = 4;
            if (isExpectedFetchFailure(e.description())) return;
            context_.log("Error from predominantfeaturetype property, " + CStr(e.number()) + " " +
                         e.description());
        });
    return result;
}

std::string MIProps::styleOf(std::int32_t window) {
    return loggedGet<std::string>(context_, "Error from style prop ", [&]() -> std::string {
        const std::int16_t featureType = PredominantFeatureType();
        const char* attribute = nullptr;
        switch (featureType) {
        case 0:
            attribute = "12";
            context_.setBorderPen(context_.mapInfo().eval(
                detail::layerInfo(window, CurrentLayerIndex(context_), "11")));
            break;
        case 1:
            attribute = "10";
            break;
        case 2:
            attribute = "13";
            break;
        case 5:
            attribute = "14";
            break;
        default:
            return {};
        }
        return context_.mapInfo().eval(
            detail::layerInfo(window, CurrentLayerIndex(context_), attribute));
    });
}

std::string MIProps::Style() {
    return styleOf(context_.viewWindow());
}

std::string MIProps::StyleOrig() {
    return styleOf(context_.userMapWindow());
}

MIProps& asMIProps(ILayer& layer) {
    auto* props = dynamic_cast<MIProps*>(&layer);
    if (props == nullptr) raiseError(kErrTypeMismatch);
    return *props;
}

} // namespace vellant::hostmodel
