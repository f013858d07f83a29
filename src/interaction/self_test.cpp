#include "interaction/self_test.h"

#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "interaction/grid_click.h"
#include "platform/flexgrid.h"
#include "platform/toolkit.h"
#include "prefs/settings.h"
#include "session/layer_form.h"
#include "session/session.h"

#include <string_view>

namespace vellant::interaction {

namespace {

// Typed into every data cell after its click. The keys are queued for the active window, and
// since the test never lets the event loop run they arrive only once it has finished.
constexpr std::string_view kTypedKeys = "abcd\r";

// Columns whose click would open a window the test cannot answer, or whose change would outlast
// the test: the group names, the table's read-only state, the label dialog, the style picker
// and the orientation picker.
bool skipped(Session& s, int col) {
    return col == 2 || col == grid::getcolnum(s, "readonly") ||
           col == grid::getcolnum(s, "label properties") || col == grid::getcolnum(s, "style") ||
           col == grid::getcolnum(s, "label orient");
}

void queueKeys(Session& s, platform::FlexGrid& grid) {
    for (const char key : kTypedKeys)
        s.toolkit.post([&grid, key] { grid.keyPress(static_cast<unsigned char>(key)); });
}

} // namespace

void selftestclick(Session& s) {
    onErrorGoTo(
        [&] {
            s.gSelfTest = kTrue;
            platform::FlexGrid& grid = s.layerForm().LyrGrid;
            for (int row = 0; row < grid.Rows(); ++row) {
                for (int col = 0; col < grid.Cols(); ++col) {
                    grid.setCol(col);
                    grid.setRow(row);
                    // Just inside the cell: the click judges where it fell by these alone.
                    s.gMouseX = static_cast<float>(grid.ColPos(col) + 1);
                    s.gMouseY = static_cast<float>(grid.RowPos(row) + 1);
                    if (skipped(s, col)) continue;
                    Layergridclick(s);
                    if (row != 0 && col != 0 && s.gColType[grid.Col()] != 0) queueKeys(s, grid);
                }
            }
            s.gSelfTest = kFalse;
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from selftestclick " + e.description());
        });
}

} // namespace vellant::interaction
