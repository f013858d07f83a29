// The floating form lays itself out from the grid's content: the grid as tall as its rows and as
// wide as its columns (but never wider than the screen), the map panel under it, the buttons
// at its right edge, and the whole form kept on the screen.

#include "base/error_trap.h"
#include "prefs/settings.h"
#include "session/layer_form.h"
#include "session/session.h"

#include <algorithm>

namespace vellant::session {

namespace {

// The grid's own border and scroll bar around its last row and column.
constexpr int kGridBottomRoom = 200;
constexpr int kGridRightRoom = 150;
// Room for the caption of the map frame between the grid and the map panel.
constexpr int kPanelGap = 400;
constexpr int kMapButtonsDrop = 200;
// The form's caption bar and bottom border below the map panel.
constexpr int kFormBottomRoom = 600;
constexpr int kPanelSpacing = 20;
constexpr int kButtonsClearOfPanel = 10;
// A form pushed back from the screen's right edge stands this far inside it.
constexpr int kScreenEdgeRoom = 500;
constexpr int kLeastLeft = 10;

void layOutFloating(Session& s, vlLayerControl& form) {
    platform::FlexGrid& grid = form.LyrGrid;
    const int margin = grid.Left();
    const platform::ScreenMetrics screen = s.toolkit.Screen();

    s.gFormSized = toFlag(form.Width() != s.gFormWidthSaved || form.Height() != s.gFormHeightSaved);
    const int lastRow = grid.Rows() - 1;
    const int lastCol = grid.Cols() - 1;
    grid.setHeight(grid.RowHeight(lastRow) + grid.RowPos(lastRow) + kGridBottomRoom);
    grid.setWidth(std::min(grid.ColPos(lastCol) + grid.ColWidth(lastCol) + kGridRightRoom,
                           screen.Width - 2 * grid.Left()));

    form.Mapframe.setTop(grid.Height() + kPanelGap);
    form.Mapframe.setLeft(margin);
    form.MapPropsFrame.setTop(form.Mapframe.Top());
    form.MapPropsFrame.setLeft(form.Mapframe.Left() + form.Mapframe.Width() + kPanelSpacing);
    form.MapButtonFrame.setTop(form.Mapframe.Top() + kMapButtonsDrop);
    form.MapButtonFrame.setLeft(0);
    form.Buttonframe.setTop(form.Mapframe.Top());
    form.Buttonframe.setLeft(grid.Width() + grid.Left() - form.Buttonframe.Width());
    form.msg.setLeft(form.Buttonframe.Left() - form.msg.Width());
    form.msg.setTop(form.Mapframe.Top());

    if (form.Left() < 0) form.setLeft(kLeastLeft);
    form.setHeight(form.Mapframe.Top() + form.Mapframe.Height() + kFormBottomRoom);
    const int panelWidth = form.MapPropsFrame.Width() + form.Mapframe.Width() +
                           form.Buttonframe.Width() + kPanelSpacing;
    form.setWidth(std::max(grid.Width(), panelWidth) + 2 * margin);
    // The buttons keep to the right edge and are never pushed over the map panel.
    form.Buttonframe.setLeft(std::max(form.Width() - 2 * margin - form.Buttonframe.Width(),
                                      margin + form.Mapframe.Width() + form.MapPropsFrame.Width() +
                                          kButtonsClearOfPanel));
    if (form.Left() + form.Width() > screen.Width)
        form.setLeft(std::max(screen.Width - form.Width() - kScreenEdgeRoom, kLeastLeft));

    s.gFormWidthSaved = form.Width();
    s.gFormHeightSaved = form.Height();
}

} // namespace

void vlLayerControl::Resize_LayerForm() {
    if (!session) return;
    Session& s = *session;
    onErrorGoTo([&] { layOutFloating(s, *this); },
                [&](const RuntimeError& e) {
                    prefs::logQuietly(s, "From resize_layerform " + e.description());
                });
}

} // namespace vellant::session
