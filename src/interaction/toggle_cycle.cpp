#include "interaction/toggle_cycle.h"

#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "grid/layer_rows.h"
#include "grid/setpropandcell.h"
#include "hostmodel/mi_props.h"
#include "interaction/label_orientation.h"
#include "platform/toolkit.h"
#include "prefs/settings.h"
#include "session/session.h"

namespace vellant::interaction {

namespace {

constexpr int kStatusPictures = 4;

void hideStatusPictures(session::LayerForm& form) {
    for (int i = 0; i < kStatusPictures; ++i)
        form.ToggleStatusPic(i).setVisible(false);
}

void writeCell(Session& s, const std::string& key, const Variant& value) {
    bool paint = true;
    grid::setpropandcell(s, key, value, paint);
}

bool isColumn(Session& s, const char* key) {
    return s.gCol == grid::getcolnum(s, key);
}

// The cycle's plain toggles: the column's key, which layer types it applies to, and where the
// row's present setting is read.
enum class Guard { None, PlainOrCosmetic, PlainOnMapInfo, Plain };

struct ToggleColumn {
    const char* key;
    Guard guard;
    bool (*read)(Session&);
};

bool guardHolds(const Session& s, Guard guard) {
    switch (guard) {
    case Guard::None:
        return true;
    case Guard::PlainOrCosmetic:
        return s.gLayerType <= 1;
    case Guard::PlainOnMapInfo:
        return s.gLayerType == 0 && s.gIsMapInfo;
    case Guard::Plain:
        return s.gLayerType == 0;
    }
    return false;
}

// "Visible" leads: a layer shown again may take its override back.
const ToggleColumn kToggleColumns[] = {
    {"Visible", Guard::None, [](Session& s) { return s.lyr().Visible(); }},
    {"show nodes", Guard::PlainOrCosmetic, [](Session& s) { return s.lyr().Shownodes(); }},
    {"show directions", Guard::PlainOrCosmetic,
     [](Session& s) { return s.lyr().Showlinedirection(); }},
    {"show centroids", Guard::PlainOrCosmetic, [](Session& s) { return s.lyr().ShowCentroids(); }},
    {"Selectable", Guard::PlainOrCosmetic, [](Session& s) { return s.lyr().Selectable(); }},
    {"Editable", Guard::PlainOrCosmetic, [](Session& s) { return s.lyr().Editable(); }},
    {"Fastedit", Guard::PlainOnMapInfo,
     [](Session& s) { return hostmodel::asMIProps(s.lyr()).Fastedit(); }},
    {"Undo", Guard::PlainOnMapInfo,
     [](Session& s) { return hostmodel::asMIProps(s.lyr()).Undo(); }},
    {"Readonly", Guard::PlainOnMapInfo,
     [](Session& s) { return hostmodel::asMIProps(s.lyr()).Readonly(); }},
    {"Autolabel", Guard::Plain, [](Session& s) { return s.lyr().Autolabel(); }},
    {"Zoom layer", Guard::None, [](Session& s) { return s.lyr().ZoomLayer(); }},
    {"Label overlap", Guard::Plain, [](Session& s) { return s.labelProps().Overlap(); }},
    {"Label duplicate", Guard::Plain, [](Session& s) { return s.labelProps().Duplicate(); }},
    {"Label partial", Guard::Plain, [](Session& s) { return s.labelProps().PartialSegments(); }},
    {"Label rotate", Guard::Plain, [](Session& s) { return s.labelProps().Parallel(); }},
};

// A layer that had its style overridden at load goes back to the global display mode when it
// is shown again.
void restoreOverride(Session& s) {
    if (!s.gIsMapInfo || !s.gOrigOverride[s.gLayer] || !s.lyr().Visible()) return;
    s.gStyleValue.clear();
    s.lyr().setoverridestyle(kTrue);
}

void pickOrientation(Session& s) {
    s.gLabelOrientPos = static_cast<std::int16_t>(s.labelProps().Position());
    session::LayerForm& form = s.layerForm();
    s.toolkit.SetWindowPos(form.hWnd(), platform::HWND_NOTOPMOST, 0, 0, 0, 0,
                           platform::SWP_NOMOVE | platform::SWP_NOSIZE);
    // The picker closes itself while it loads in the self test, which fails the Show.
    ResumeNext ignoring;
    ignoring([&] { labelOrientationForm(s).Show(platform::vbModal, &form); });
    if (s.gOnTop)
        s.toolkit.SetWindowPos(form.hWnd(), platform::HWND_TOPMOST, 0, 0, 0, 0,
                               platform::SWP_NOMOVE | platform::SWP_NOSIZE);
}

// Labels by zoom, always, none (MapInfo only), and round again. Every row steps from its own state;
// the cycle of a row set does not apply.
void stepLabelZoom(Session& s) {
    hostmodel::ILabelProps& labels = s.labelProps();
    const bool shown = labels.Visible();
    const bool byZoom = labels.LabelZoom();
    // MapX's labels go between always and by zoom; MapInfo's go on to none and back.
    const bool mapInfo = s.gIsMapInfo != kFalse;
    if (shown && byZoom) {
        labels.setLabelZoom(kFalse);
    } else if (shown) {
        if (mapInfo)
            labels.setVisible(kFalse);
        else
            labels.setLabelZoom(kTrue);
    } else if (!byZoom && mapInfo) {
        labels.setVisible(kTrue);
        labels.setLabelZoom(kTrue);
    }
    writeCell(s, "Label zoom", labels.LabelZoom());
}

// None, simple, arrow. There is no wrap: the host is told whatever comes after arrow.
void stepLabelLine(Session& s) {
    hostmodel::ILabelProps& labels = s.labelProps();
    labels.setLinetype(labels.Linetype() + 1);
    writeCell(s, "Label line", labels.Linetype());
}

} // namespace

void togglecell(Session& s, const std::string& prop, bool value) {
    onErrorGoTo(
        [&] {
            if (s.gToggleStep == 0) {
                if (s.gToggleRow == 0) s.gToggleRow = s.gClickRow;
                s.gToggleOrig[s.gRow] = toFlag(value);
                if (s.gRow == s.gToggleRow) s.gToggleClicked = toFlag(value);
            }
            session::LayerForm& form = s.layerForm();
            hideStatusPictures(form);
            // The picture tells the step of the next click.
            if (s.gSelFirst > 0) form.ToggleStatusPic((s.gToggleStep + 1) & 3).setVisible(true);

            bool setting = false;
            switch (s.gToggleStep) {
            case 0: // each row flips from its own setting
                setting = !value;
                break;
            case 1: // the model row's flipped setting, on every row
                setting = !s.gToggleClicked;
                break;
            case 2: // the model row's original, on every row
                setting = s.gToggleClicked != kFalse;
                break;
            default: // each row back to its own original
                setting = s.gToggleOrig[s.gRow] != kFalse;
                break;
            }
            writeCell(s, prop, setting);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from togglecell " + e.description());
        });
}

void dotoggles(Session& s) {
    onErrorGoTo(
        [&] {
            if (s.gRow > s.gLayerCount || s.gRow < 0) return;
            for (const ToggleColumn& column : kToggleColumns) {
                if (!isColumn(s, column.key) || !guardHolds(s, column.guard)) continue;
                togglecell(s, column.key, column.read(s));
                if (&column == &kToggleColumns[0]) restoreOverride(s);
                return;
            }
            if (isColumn(s, "Label orient")) {
                if (s.gLayerType == 0) pickOrientation(s);
            } else if (isColumn(s, "Label zoom")) {
                if (s.gLayerType == 0) stepLabelZoom(s);
            } else if (isColumn(s, "Label line")) {
                if (s.gLayerType < 1) stepLabelLine(s);
            }
            // "label line style" is a toggle column that no click changes.
        },
        [&](const RuntimeError& e) { prefs::logQuietly(s, "dotoggles " + e.description()); });
}

void startToggleCycle(Session& s) {
    session::LayerForm& form = s.layerForm();
    platform::FlexGrid& grid = form.LyrGrid;
    s.gToggleStep = 0;
    s.gToggleRow = 0;
    s.gSelFirst = grid::RowToLayer(s, static_cast<std::uint16_t>(grid.Row()));
    s.gSelLast = grid::RowToLayer(s, static_cast<std::uint16_t>(grid.RowSel()));
    platform::Control& first = form.ToggleStatusPic(0);
    first.setLeft(grid.Left() - first.Width());
    first.setTop(grid.Top());
    first.setVisible(true);
}

void endToggleCycle(Session& s) {
    hideStatusPictures(s.layerForm());
    s.gSelFirst = 0;
    s.gSelLast = 0;
    s.gToggleStep = 0;
    s.gToggleRow = 0;
}

} // namespace vellant::interaction
