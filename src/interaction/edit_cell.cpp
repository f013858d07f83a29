#include "interaction/edit_cell.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "grid/layer_rows.h"
#include "hostmodel/mapper.h"
#include "hostmodel/mapx_map.h"
#include "hostmodel/mi_props.h"
#include "interaction/info_cells.h"
#include "platform/toolkit.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <algorithm>

namespace vellant::interaction {

namespace {

constexpr int kEditorWidth = 2415;
constexpr int kTextBoxHeight = 375;
constexpr int kListHeight = 315;
// Light green, so that an open editor stands out from the white cells around it.
constexpr std::uint32_t kEditorBackColor = 0xC0FFC0;
// A row lower than this would hide the editor's own text.
constexpr int kMinHeight = 200;
// The editor stands a little right of the cell's left edge.
constexpr int kOffsetFromCell = 100;

constexpr int kKeyTab = 9;
constexpr int kKeyEnter = 13;
constexpr int kKeyEscape = 27;

// What a text cell receives in the self test.
constexpr const char* kSelfTestText = "23";

std::uint16_t gridRow(const Session& s, std::int32_t layer) {
    return grid::LayerToRow(s, static_cast<std::uint16_t>(layer));
}

bool isColumn(Session& s, const char* key) {
    return s.gCol == grid::getcolnum(s, key);
}

} // namespace

EditCell::EditCell(platform::Toolkit& toolkit, Session& session)
    : Form("EditCell", toolkit), session_(session) {
    ecell.setWidth(kEditorWidth);
    ecell.setHeight(kTextBoxHeight);
    ecell.setToolTipText("'Enter'  or 'Esc' or to end text entry");
    ecell.setVisible(false);
    ecell.setBackColor(kEditorBackColor);
    EditList.setWidth(kEditorWidth);
    EditList.setBackColor(kEditorBackColor);
    EditList.setHeight(kListHeight);
    EditList.setVisible(false);
    EditList.onClick = [this] { EditList_Click(); };
    ecell.onKeyDown = [this](int& keyCode, int) { ecell_KeyDown(keyCode); };
    EditList.onKeyDown = [this](int& keyCode, int) { EditList_KeyDown(keyCode); };
    registerControl(ecell);
    registerControl(EditList);
}

void EditCell::Form_Load() {
    onErrorGoTo([&] { loadeditcell(); },
                [&](const RuntimeError& e) {
                    prefs::logQuietly(session_, "Error from editcell " + e.description());
                });
}

void EditCell::loadeditcell() {
    Session& s = session_;
    onErrorGoTo(
        [&] {
            s.toolkit.SetWindowPos(hWnd(), platform::HWND_TOPMOST, 0, 0, 0, 0,
                                   platform::SWP_NOSIZE | platform::SWP_NOMOVE);
            // How far down its row the editor stands, in half rows: one on MapInfo, three on
            // MapX.
            const int k = s.gIsMapInfo ? 1 : 3;

            session::LayerForm& owner = s.layerForm();
            platform::FlexGrid& grid = owner.LyrGrid;
            // Only the zoom range, the user expression and the layer picker are open on a layer
            // that is not a plain one.
            const bool inGrid = s.gCol >= 0 && s.gCol <= grid.Cols() - 1;
            const bool anyLayer = isColumn(s, "zoom max") || isColumn(s, "zoom min") ||
                                  isColumn(s, "user info") || isColumn(s, "layer");
            if (!(inGrid && (anyLayer || s.gLayerType == 0))) {
                Unload();
                return;
            }

            ecell.setVisible(false);
            EditList.setVisible(false);
            const int row = gridRow(s, s.gRow);
            setLeft(owner.Left() + grid.Left() + grid.ColPos(s.gCol) + kOffsetFromCell);
            setTop(CLng(owner.Top() + grid.Top() + grid.RowPos(row) +
                        static_cast<double>(grid.RowHeight(row)) * k / 2));

            if ((s.gColType[s.gCol] & grid::kColListEditor) == 0) {
                if (s.gSelfTest) {
                    s.gCellText = kSelfTestText;
                    Unload();
                    return;
                }
                setWidth(grid.CellWidth());
                setHeight(std::max(grid.CellHeight(), kMinHeight));
                ecell.setVisible(true);
                ecell.setText(s.gCellText);
                ecell.setWidth(Width());
                ecell.setHeight(Height());
                ecell.setSelStart(1);
                return;
            }

            s.gLayer = static_cast<std::int16_t>(s.gRow);
            if (s.gSelfTest) {
                Unload();
                return;
            }
            setWidth(grid.CellWidth());
            EditList.setWidth(Width());
            setHeight(std::max(grid.CellHeight(), kMinHeight));
            EditList.Clear();
            if (!fillList()) {
                Unload();
                return;
            }
            EditList.setVisible(true);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from load editcell " + e.description());
        });
}

// The fields of the label dataset; a layer without a dataset, or one without fields, offers
// nothing to pick.
bool EditCell::fillMapXFields() {
    Session& s = session_;
    if (hostmodel::asMXLayer(s.lyr()).Datasets()->Count() <= 0) return false;
    const auto dataset = std::dynamic_pointer_cast<hostmodel::MXDataset>(
        hostmodel::asMXLabelProperties(s.labelProps()).Dataset());
    if (!dataset) return false;
    const std::shared_ptr<hostmodel::MXFields> fields = dataset->Fields();
    if (fields->Count() < 1) return false;
    for (std::int32_t i = 1; i <= fields->Count(); ++i)
        EditList.AddItem(fields->Item(Variant(i))->Name());
    return true;
}

bool EditCell::fillList() {
    Session& s = session_;
    if (isColumn(s, "label field")) {
        if (!s.gIsMapInfo) return fillMapXFields();
        hostmodel::MIProps& layer = hostmodel::asMIProps(s.lyr());
        const std::int32_t fields = layer.FieldCount();
        if (fields < 1) return false;
        const std::string typed = LCase(LTrim(s.gCellText));
        bool known = false;
        for (std::int32_t i = 1; i <= fields; ++i) {
            const std::string name = layer.FieldName(static_cast<std::int16_t>(i));
            EditList.AddItem(name);
            if (LCase(name) == typed) known = true;
        }
        // The label may be an expression rather than a field: it stays on offer.
        if (!known) EditList.AddItem(s.gCellText);
        return true;
    }
    if (isColumn(s, "layer")) {
        if (!s.gIsMapInfo) return false;
        auto* mapper = dynamic_cast<hostmodel::Mapper*>(&s.map());
        if (mapper == nullptr) raiseError(kErrTypeMismatch);
        const double tables = Val(s.mapInfoApp().eval("numtables()"));
        if (tables < 1) return false;
        for (std::int16_t i = 1; i <= tables; ++i) {
            if (mapper->TableMappable(i)) EditList.AddItem(mapper->TableName(i));
        }
        return true;
    }
    if (isColumn(s, "user info")) {
        if (!s.gIsMapInfo) return false;
        fillInfoKeywords(EditList);
        return true;
    }
    // "label dataset", and any other list column, has nothing to offer.
    return false;
}

void EditCell::ecell_KeyDown(int keyCode) {
    onKeyDown(keyCode, ecell.Text());
}

void EditCell::EditList_KeyDown(int keyCode) {
    onKeyDown(keyCode, EditList.Text());
}

void EditCell::onKeyDown(int keyCode, const std::string& text) {
    if (keyCode == kKeyTab || keyCode == kKeyEnter) {
        session_.gCellText = text;
        Hide();
    } else if (keyCode == kKeyEscape) {
        Hide();
    }
}

void EditCell::EditList_Click() {
    Session& s = session_;
    onErrorGoTo(
        [&] {
            if (!isColumn(s, "user info")) {
                s.gCellText = EditList.Text();
                Hide();
                return;
            }
            s.gCellText = infoExpression(EditList.ListIndex() + 1);
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            const int row = gridRow(s, s.gLayer);
            grid.setTextMatrix(row, s.gCol, s.gCellText);
            grid.setTextMatrix(row, s.gCol + 1, runfunction(s, s.gLayer));
            Hide();
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from EditList_Click " + e.description());
        });
}

EditCell& editCellForm(Session& s) {
    if (!s.gEditCell) s.gEditCell = std::make_unique<EditCell>(s.toolkit, s);
    return *s.gEditCell;
}

} // namespace vellant::interaction
