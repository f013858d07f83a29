#pragma once
// Paints the grid model as the grid control shows it: fixed cells in the button face with a
// raised edge, the others in the window colour or their own back colour, grid lines, cell
// pictures where their alignment puts them, text (numbers to the right, words to the left, the
// header's words centred), and the selection tinted in the highlight colour with the current
// cell framed. Only the bands given, the ones in view, are painted.

#include "platform/flexgrid.h"
#include "qtui/grid/grid_axes.h"

#include <QFont>
#include <QPalette>
#include <QRect>
#include <vector>

class QPainter;

namespace vellant::qtui {

struct GridLook {
    QPalette palette;
    QFont font;
    TwipScale scale;
    qreal devicePixelRatio = 1.0;
    bool focused = false;
};

void paintGrid(QPainter& painter, const platform::FlexGrid& grid, const std::vector<GridBand>& rows,
               const std::vector<GridBand>& cols, const GridLook& look, const QRect& clip);

// Where a picture of this size stands in a cell by the grid's alignment codes (left, centre or
// right, each top, middle or bottom; 9 stretches it over the cell).
QRect pictureRect(const QRect& cell, QSize picture, int alignment);

} // namespace vellant::qtui
