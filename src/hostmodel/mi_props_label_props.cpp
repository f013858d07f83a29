#include "hostmodel/mi_props_label_props.h"

#include "hostmodel/facade_calls.h"
#include "hostmodel/host_predicates.h"

namespace vellant::hostmodel {

using detail::flagWord;
using detail::isT;
using detail::loggedGet;

namespace {

// A let of the label visibility clause; a last error the host leaves standing after it goes to
// the log.
template <class Clause>
void visibilityLet(FacadeContext& context, const char* label, Clause&& clause) {
    detail::shownLet(context, label, [&] {
        const std::string text = clause();
        context.mapInfo().Do(detail::setLayer(context) + "Label Visibility " + text);
        detail::checkLastError(context);
    });
}

} // namespace

std::string MIPropsLabelProps::layerGet(const char* code) {
    return context_.mapInfo().eval(
        detail::layerInfo(context_.viewWindow(), CurrentLayerIndex(context_), code));
}

void MIPropsLabelProps::labelLet(const std::string& label, const std::string& clause) {
    detail::shownLet(context_, label,
                     [&] { context_.mapInfo().Do(detail::setLayer(context_) + clause); });
}

// The host writes its font clause with blanks that would split it where the program treats it
// as one value. Each blank is cut out together with everything past the 100 characters that
// follow it; the walk steps on after a cut, so the second of two blanks in a row stays.
std::string MIPropsLabelProps::Style() {
    std::string clause = layerGet("18");
    const long length = Len(clause);
    std::int32_t& position = context_.colIter();
    for (position = 1; position <= length; ++position) {
        if (Mid(clause, position, 1) == " ")
            clause = Left(clause, position - 1) + Mid(clause, position + 1, 100);
    }
    return clause;
}

void MIPropsLabelProps::setStyle(const std::string& clause) {
    labelLet(std::string("Style: ") + detail::kLineBreak, "Label " + clause);
}

std::shared_ptr<BasicObject> MIPropsLabelProps::Dataset() {
    return nullptr;
}

std::string MIPropsLabelProps::Datafield() {
    return loggedGet<std::string>(context_, "Error from get Datafield prop ",
                                  [&] { return layerGet("15"); });
}

void MIPropsLabelProps::setDatafield(const std::string& expression) {
    onErrorGoTo(
        [&] { context_.mapInfo().Do(detail::setLayer(context_) + "Label with " + expression); },
        [&](const RuntimeError& e) {
            context_.showMessage("Label field: " + e.description() + " for layer " +
                                 CStr(context_.currentLayer()));
        });
}

bool MIPropsLabelProps::Duplicate() {
    return loggedGet<bool>(context_, "Error from get label Duplicate prop ",
                           [&] { return isT(layerGet("30")); });
}

void MIPropsLabelProps::setDuplicate(Flag value) {
    labelLet("Label Duplicate: ", "Label Duplicates " + flagWord(value, "On", "Off"));
}

std::int32_t MIPropsLabelProps::LabelMax() {
    return loggedGet<std::int32_t>(context_, "Error from get LabelMax prop ",
                                   [&] { return detail::toLong(layerGet("32")); });
}

void MIPropsLabelProps::setLabelMax(std::int32_t value) {
    labelLet("LabelMax: ", "Label Max " + Str(value));
}

bool MIPropsLabelProps::LabelZoom() {
    return loggedGet<bool>(context_, "Error from get LabelZoom prop ",
                           [&] { return Val(layerGet("25")) == 2; });
}

// Zoom off keeps the labels as they show now: a layer labelled by zoom goes on at all zooms.
void MIPropsLabelProps::setLabelZoom(Flag value) {
    visibilityLet(context_, "LabelZoom: ", [&]() -> std::string {
        const double visibility = Val(layerGet("25"));
        if (value == kTrue) return "Zoom( " + Str(LabelZoomMin()) + "," + Str(LabelZoomMax()) + ")";
        if (value != kFalse) return {};
        if (visibility == 2 || visibility == 3) return "On";
        if (visibility == 1) return "Off";
        return {};
    });
}

double MIPropsLabelProps::LabelZoomMax() {
    return loggedGet<double>(context_, "Error from get LabelZoomMax prop ", [&] {
        const double value = Val(layerGet("27"));
        detail::checkLastError(context_);
        return value;
    });
}

void MIPropsLabelProps::setLabelZoomMax(double value) {
    visibilityLet(context_, "LabelZoomMax: ", [&] {
        return "Zoom( " + Str(LabelZoomMin()) + "," + Str(value) + ")";
    });
}

double MIPropsLabelProps::LabelZoomMin() {
    return loggedGet<double>(context_, "Error from get LabelZoomMin prop ", [&] {
        const double value = Val(layerGet("26"));
        detail::checkLastError(context_);
        return value;
    });
}

void MIPropsLabelProps::setLabelZoomMin(double value) {
    visibilityLet(context_, "LabelZoomMin: ", [&] {
        return "Zoom( " + Str(value) + "," + Str(LabelZoomMax()) + ")";
    });
}

std::int32_t MIPropsLabelProps::Linetype() {
    return loggedGet<std::int32_t>(context_, "Error from get Linetype prop ",
                                   [&] { return detail::toLong(layerGet("16")); });
}

void MIPropsLabelProps::setLinetype(std::int32_t value) {
    std::string word;
    if (value == 0) word = "None";
    if (value == 1) word = "Simple";
    if (value == 2) word = "Arrow";
    labelLet("Linetype:", "Label Line " + word);
}

std::int32_t MIPropsLabelProps::Offset() {
    return loggedGet<std::int32_t>(context_, "Error from get Offset prop ",
                                   [&] { return detail::toLong(layerGet("31")); });
}

void MIPropsLabelProps::setOffset(std::int32_t value) {
    labelLet("Offset: ", "Label Offset " + Str(value));
}

bool MIPropsLabelProps::Overlap() {
    return loggedGet<bool>(context_, "Error from get Overlap prop ",
                           [&] { return isT(layerGet("29")); });
}

void MIPropsLabelProps::setOverlap(Flag value) {
    labelLet("Label Overlap: ", "Label Overlap " + flagWord(value, "On", "Off"));
}

bool MIPropsLabelProps::Parallel() {
    return loggedGet<bool>(context_, "Error from get Parallel prop ",
                           [&] { return isT(layerGet("19")); });
}

void MIPropsLabelProps::setParallel(Flag value) {
    labelLet("Label Parallel: ", "Label Parallel " + flagWord(value, "On", "Off"));
}

bool MIPropsLabelProps::PartialSegments() {
    return loggedGet<bool>(context_, "Error from get PartialSegments prop ",
                           [&] { return isT(layerGet("33")); });
}

void MIPropsLabelProps::setPartialSegments(Flag value) {
    labelLet("Label PartialSegments: ", "Label PartialSegments " + flagWord(value, "On", "Off"));
}

std::int32_t MIPropsLabelProps::Position() {
    return loggedGet<std::int32_t>(context_, "Error from get Position prop ",
                                   [&] { return detail::toLong(layerGet("20")); });
}

void MIPropsLabelProps::setPosition(std::int32_t value) {
    labelLet("Label Position: ", "Label Position " + labelPositionWord(value));
}

bool MIPropsLabelProps::Visible() {
    return loggedGet<bool>(context_, "Error from get Visible prop ", [&] {
        const double visibility = Val(layerGet("25"));
        return visibility == 2 || visibility == 3;
    });
}

void MIPropsLabelProps::setVisible(Flag value) {
    labelLet("Visible: ", "Label Visibility " + flagWord(value, "On", "Off"));
}

MIPropsLabelProps& asMIPropsLabelProps(ILabelProps& labels) {
    auto* props = dynamic_cast<MIPropsLabelProps*>(&labels);
    if (props == nullptr) raiseError(kErrTypeMismatch);
    return *props;
}

std::string labelPositionWord(std::int32_t code) {
    // Code 8 (below right) sends the word of 5: that position has never been reachable.
    static const char* const kWords[] = {"Center",      "Above Left",   "Center Above",
                                         "Above Right", "Center Left",  "Center Right",
                                         "Below Left",  "Center Below", "Center Right"};
    if (code < 0 || code > 8) return {};
    return kWords[code];
}

} // namespace vellant::hostmodel
