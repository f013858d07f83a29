#include "qtui/grid/grid_painter.h"

#include "qtui/art/artwork.h"
#include "qtui/ole_colors.h"

#include <QPainter>
#include <QPixmap>
#include <cctype>
#include <map>
#include <string>
#include <tuple>

namespace vellant::qtui {

namespace {

constexpr int kAlignStretch = 9;
constexpr int kTextPadding = 3;
// Pixels a picture may stand over its cell and be cut rather than shrunk.
constexpr int kPictureOverflowCut = 2;
// The grid control's own line colour.
const QColor kGridLine(0xC0, 0xC0, 0xC0);

bool isNumber(const std::string& text) {
    std::size_t i = 0;
    while (i < text.size() && text[i] == ' ')
        ++i;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
    bool digits = false;
    bool point = false;
    for (; i < text.size(); ++i) {
        const char c = text[i];
        if (std::isdigit(static_cast<unsigned char>(c))) {
            digits = true;
        } else if (c == '.' && !point) {
            point = true;
        } else if (c != ' ') {
            return false;
        }
    }
    return digits;
}

bool inSelection(const platform::FlexGrid& grid, int row, int col) {
    const int top = std::min(grid.Row(), grid.RowSel());
    const int bottom = std::max(grid.Row(), grid.RowSel());
    const int left = std::min(grid.Col(), grid.ColSel());
    const int right = std::max(grid.Col(), grid.ColSel());
    return row >= top && row <= bottom && col >= left && col <= right;
}

// What one paint needs again and again: the fonts, the pen colours and the pictures already
// drawn at their size, so that a frame of a thousand cells draws each picture once.
struct PaintCache {
    explicit PaintCache(const GridLook& look) : normal(look.font), bold(look.font) {
        bold.setBold(true);
    }
    const QPixmap& pixmap(const platform::GridCell& cell, QSize size, const GridLook& look,
                          bool monochrome) {
        const Key key{cell.picture.name, cell.picture.bitmap.get(), size.width(), size.height()};
        auto it = pixmaps.find(key);
        if (it != pixmaps.end()) return it->second;
        QPixmap drawn = picturePixmap(cell.picture, size, look.devicePixelRatio);
        if (monochrome && !drawn.isNull()) {
            QPixmap gray =
                QPixmap::fromImage(drawn.toImage().convertToFormat(QImage::Format_Grayscale8));
            gray.setDevicePixelRatio(drawn.devicePixelRatio());
            drawn = gray;
        }
        return pixmaps.emplace(key, std::move(drawn)).first->second;
    }

    struct Key {
        std::string name;
        const void* bitmap;
        int width;
        int height;
        bool operator<(const Key& other) const {
            return std::tie(name, bitmap, width, height) <
                   std::tie(other.name, other.bitmap, other.width, other.height);
        }
    };
    QFont normal;
    QFont bold;
    std::map<Key, QPixmap> pixmaps;
};

void paintCell(QPainter& painter, const platform::FlexGrid& grid, const GridBand& row,
               const GridBand& col, const GridLook& look, PaintCache& cache) {
    const platform::GridCell& cell = grid.cellAt(row.index, col.index);
    const bool fixed = row.index < grid.FixedRows() || col.index < grid.FixedCols();
    const QPalette& p = look.palette;
    const QRect rect(col.start, row.start, col.size, row.size);

    QColor back = fixed ? p.color(QPalette::Button) : p.color(QPalette::Base);
    if (cell.backColor != 0) back = oleColour(cell.backColor, p);
    painter.fillRect(rect, back);

    const bool current = row.index == grid.Row() && col.index == grid.Col();
    if (!fixed && !current && inSelection(grid, row.index, col.index)) {
        QColor tint = p.color(QPalette::Highlight);
        tint.setAlpha(96);
        painter.fillRect(rect, tint);
    }

    const QRect inner = rect.adjusted(0, 0, -1, -1);
    if (!cell.picture.empty()) {
        QSize size = pictureSize(cell.picture, look.scale.twipsPerPixel());
        if (cell.pictureAlignment == kAlignStretch) {
            size = inner.size();
        } else if (cell.pictureAlignment != platform::flexPicAlignTile &&
                   (size.width() > inner.width() + kPictureOverflowCut ||
                    size.height() > inner.height() + kPictureOverflowCut)) {
            // A style sample is drawn at the size the host saved it, often more than a row:
            // shrunk whole it still shows the style, cut it shows a corner of a letter. One
            // made for the whole row loses no more than its blank edge under the grid line.
            size = size.scaled(inner.size(), Qt::KeepAspectRatio);
        }
        const QPixmap& pixmap =
            cache.pixmap(cell, size, look, grid.PictureType() == platform::flexPictureMonochrome);
        if (!pixmap.isNull()) {
            if (cell.pictureAlignment == platform::flexPicAlignTile) {
                painter.drawTiledPixmap(inner, pixmap);
            } else {
                // A picture that cannot shrink enough still keeps to its cell.
                const QRect placed = pictureRect(inner, size, cell.pictureAlignment);
                const QRect shown = placed.intersected(inner);
                const qreal ratio = pixmap.devicePixelRatio();
                const QRectF source((shown.x() - placed.x()) * ratio,
                                    (shown.y() - placed.y()) * ratio, shown.width() * ratio,
                                    shown.height() * ratio);
                if (!shown.isEmpty()) painter.drawPixmap(QRectF(shown), pixmap, source);
            }
        }
    }
    if (!cell.text.empty()) {
        painter.setFont(cell.fontBold ? cache.bold : cache.normal);
        painter.setPen(oleColour(grid.ForeColor(), p));
        Qt::Alignment align = Qt::AlignVCenter;
        if (row.index < grid.FixedRows())
            align |= Qt::AlignHCenter;
        else if (isNumber(cell.text))
            align |= Qt::AlignRight;
        else
            align |= Qt::AlignLeft;
        // Text is clipped to its rectangle, as the grid control clips it.
        painter.drawText(inner.adjusted(kTextPadding, 0, -kTextPadding, 0), align,
                         QString::fromStdString(cell.text));
    }

    if (fixed) {
        // A raised edge, as the fixed cells of the grid control have.
        painter.setPen(p.color(QPalette::Light));
        painter.drawLine(rect.topLeft(), QPoint(rect.right() - 1, rect.top()));
        painter.drawLine(rect.topLeft(), QPoint(rect.left(), rect.bottom() - 1));
        painter.setPen(p.color(QPalette::Mid));
        painter.drawLine(rect.topRight(), rect.bottomRight());
        painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    }
    if (current && !fixed && look.focused) {
        QPen focus(p.color(QPalette::Text), 1, Qt::DotLine);
        painter.setPen(focus);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect.adjusted(1, 1, -2, -2));
    }
}

// The lines between the scrolling cells, drawn once for the frame.
void paintGridLines(QPainter& painter, const platform::FlexGrid& grid,
                    const std::vector<GridBand>& rows, const std::vector<GridBand>& cols) {
    int top = 0, left = 0, bottom = 0, right = 0;
    for (const GridBand& row : rows) {
        if (row.index < grid.FixedRows()) top = row.end();
        bottom = row.end();
    }
    for (const GridBand& col : cols) {
        if (col.index < grid.FixedCols()) left = col.end();
        right = col.end();
    }
    QVector<QLine> lines;
    for (const GridBand& row : rows)
        if (row.index >= grid.FixedRows())
            lines.append(QLine(left, row.end() - 1, right - 1, row.end() - 1));
    for (const GridBand& col : cols)
        if (col.index >= grid.FixedCols())
            lines.append(QLine(col.end() - 1, top, col.end() - 1, bottom - 1));
    painter.setPen(kGridLine);
    painter.drawLines(lines);
}

} // namespace

QRect pictureRect(const QRect& cell, QSize picture, int alignment) {
    if (alignment == kAlignStretch) return cell;
    const int column = alignment / 3; // 0 left, 1 centre, 2 right
    const int line = alignment % 3;   // 0 top, 1 middle, 2 bottom
    int x = cell.left();
    if (column == 1) x = cell.left() + (cell.width() - picture.width()) / 2;
    if (column == 2) x = cell.right() + 1 - picture.width();
    int y = cell.top();
    if (line == 1) y = cell.top() + (cell.height() - picture.height()) / 2;
    if (line == 2) y = cell.bottom() + 1 - picture.height();
    return {QPoint(x, y), picture};
}

void paintGrid(QPainter& painter, const platform::FlexGrid& grid, const std::vector<GridBand>& rows,
               const std::vector<GridBand>& cols, const GridLook& look, const QRect& clip) {
    painter.fillRect(clip, look.palette.color(QPalette::Window));
    PaintCache cache(look);
    for (const GridBand& row : rows) {
        if (row.end() <= clip.top() || row.start > clip.bottom()) continue;
        for (const GridBand& col : cols) {
            if (col.end() <= clip.left() || col.start > clip.right()) continue;
            paintCell(painter, grid, row, col, look, cache);
        }
    }
    paintGridLines(painter, grid, rows, cols);
}

} // namespace vellant::qtui
