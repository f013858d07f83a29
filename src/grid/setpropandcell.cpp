// The one route from a value to a cell: the column rule first (gray, or a write to the layer),
// then the paint step, which goes by the value's type before the column's.

#include "grid/setpropandcell.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/cell_rules.h"
#include "grid/column_catalogue.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>

namespace vellant::grid {

namespace {

constexpr int kTwipsPerCharacter = 85;

// Numbers, dates and strings have a text form; booleans and objects have none.
bool hasTextForm(const Variant& value) {
    const int type = VarTypeOf(value);
    return type >= 2 && type <= 8;
}

void paintStep(CellAtHand& cell) {
    if (VarTypeOf(cell.value) == static_cast<int>(VarType::Boolean)) {
        bool on = cell.value.toBool();
        imageon(cell.s, on);
        return;
    }
    if ((cell.s.gColType[cell.col] & kColPicture) != 0 || !hasTextForm(cell.value)) return;
    cell.grid.setTextMatrix(cell.row, cell.col, cell.text);
    const long wanted = Len(cell.text) * kTwipsPerCharacter;
    if (wanted > cell.s.gColWidth[cell.col]) {
        if (wanted > 0xFFFF) raiseError(kErrOverflow);
        cell.s.gColWidth[cell.col] = static_cast<std::uint16_t>(wanted);
        cell.grid.setColWidth(cell.col, static_cast<int>(wanted));
    }
}

} // namespace

RuleEnd gray(CellAtHand& cell) {
    cell.grid.setCellBackColor(static_cast<platform::OleColor>(kGrayCellColor));
    cell.s.gCellState(cell.row, cell.col) = false;
    return RuleEnd::Leave;
}

RuleEnd grayBlank(CellAtHand& cell) {
    cell.grid.setCellPicture({});
    return gray(cell);
}

RuleEnd grayPicture(CellAtHand& cell, bool stored) {
    session::LayerForm& form = cell.s.layerForm();
    imageon(cell.s, stored, form.imageControl("Image1Gray"), form.imageControl("Image2gray"));
    cell.s.gCellState(cell.row, cell.col) = false;
    return RuleEnd::Leave;
}

void white(CellAtHand& cell) {
    cell.grid.setCellBackColor(static_cast<platform::OleColor>(kLiveCellColor));
}

Flag flagOf(const Variant& value) {
    if (VarTypeOf(value) == static_cast<int>(VarType::Boolean)) return toFlag(value.toBool());
    return CInt(value);
}

void setpropandcell(Session& s, const std::string& key, const Variant& value, bool& paint) {
    onErrorGoTo(
        [&] {
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            grid.setCol(getcolnum(s, key));
            CellAtHand cell{s, grid, LCase(key), value, {}, grid.Row(), grid.Col(), paint};
            if (hasTextForm(value)) cell.text = value.toString();

            std::optional<RuleEnd> end = layerColumnRule(cell);
            if (!end) end = labelColumnRule(cell);
            if (!end) {
                prefs::vlog(s, "unknown cell " + key);
                end = RuleEnd::Paint;
            }
            if (*end == RuleEnd::Paint && paint) paintStep(cell);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from setpropandcell " + key + " " + e.description());
        });
}

void imageon(Session& s, bool& on) {
    onErrorGoTo(
        [&] {
            session::LayerForm& form = s.layerForm();
            imageon(s, on, form.imageControl("Image1"), form.imageControl("Image2"));
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from imageon " + e.description());
        });
}

void imageon(Session& s, bool& on, platform::Control& onImage, platform::Control& offImage) {
    onErrorGoTo(
        [&] {
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            if (on) {
                grid.setCellPicture(onImage.Picture());
                grid.setPictureType(platform::flexPictureColor);
            } else {
                grid.setCellPicture(offImage.Picture());
            }
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from imageon " + e.description());
        });
}

} // namespace vellant::grid
