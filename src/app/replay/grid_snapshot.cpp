#include "app/replay/grid_snapshot.h"

#include <cstdio>
#include <string>

namespace vellant::replay {

namespace {

std::string hex(platform::OleColor color) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", static_cast<unsigned>(color));
    return text;
}

std::string pictureToken(const platform::Picture& picture) {
    if (picture.name.empty()) return picture.bitmap ? "bitmap" : "-";
    std::string token;
    for (const char c : oneLine(picture.name))
        token += c == ' ' ? std::string("\\x20") : std::string(1, c);
    return token;
}

bool clickable(const BoundedTable<bool>& state, int row, int col) {
    return row <= state.rowUpperBound() && col <= state.colUpperBound() && state(row, col);
}

} // namespace

void writeGridSnapshot(Transcript& transcript, const platform::FlexGrid& grid,
                       const BoundedTable<bool>& clickState) {
    transcript.write("grid", "rows " + std::to_string(grid.Rows()) + " cols " +
                                 std::to_string(grid.Cols()) + " row " +
                                 std::to_string(grid.Row()) + " col " + std::to_string(grid.Col()) +
                                 " rowsel " + std::to_string(grid.RowSel()) + " colsel " +
                                 std::to_string(grid.ColSel()));
    std::string heights;
    for (int row = 0; row < grid.Rows(); ++row)
        heights += (row ? " " : "") + std::to_string(grid.RowHeight(row));
    transcript.write("rowheights", heights);
    std::string widths;
    for (int col = 0; col < grid.Cols(); ++col)
        widths += (col ? " " : "") + std::to_string(grid.ColWidth(col));
    transcript.write("colwidths", widths);

    for (int row = 0; row < grid.Rows(); ++row) {
        for (int col = 0; col < grid.Cols(); ++col) {
            const platform::GridCell& cell = grid.cellAt(row, col);
            const bool click = clickable(clickState, row, col);
            if (cell.text.empty() && cell.backColor == 0 && cell.picture.empty() && !click)
                continue;
            transcript.write("cell", std::to_string(row) + " " + std::to_string(col) + " click " +
                                         (click ? "1" : "0") + " back " + hex(cell.backColor) +
                                         " pic " + pictureToken(cell.picture) + " text " +
                                         cell.text);
        }
    }
}

} // namespace vellant::replay
