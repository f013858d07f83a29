#pragma once
// A loaded grid on the embedded host that a test clicks as the grid's handlers would: whole
// rows selected over the first column, and a mouse-down inside a cell followed by the Click.

#include "../grid/grid_host.h"
#include "interaction/grid_click.h"
#include "interaction/toggle_cycle.h"

#include <string>

namespace vellant::grid::testing {

class ClickingGrid : public GridHost {
protected:
    // Whole rows dragged over in the first column, as the selection handler hands them on.
    void selectRows(int first, int last) {
        grid().setRow(row(first));
        grid().setCol(1);
        grid().setRowSel(row(last));
        grid().setColSel(grid().Cols() - 1);
        interaction::startToggleCycle(*session);
    }

    // The mouse goes down inside the cell and the grid's Click follows.
    void click(int layer, const std::string& key) {
        session->gMouseX = static_cast<float>(grid().ColPos(col(key)) + 10);
        session->gMouseY = static_cast<float>(grid().RowPos(row(layer)) + 10);
        grid().setRow(row(layer));
        grid().setCol(col(key));
        interaction::Layergridclick(*session);
    }

    // The one toggle status picture shown; -1 for none, -2 for more than one.
    int visibleStatusPicture() {
        int found = -1;
        for (int i = 0; i <= 3; ++i) {
            if (!form->ToggleStatusPic(i).Visible()) continue;
            if (found >= 0) return -2;
            found = i;
        }
        return found;
    }
};

} // namespace vellant::grid::testing
