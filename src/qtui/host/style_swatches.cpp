#include "qtui/host/style_swatches.h"

#include "engine/render/style_painter.h"
#include "engine/render/symbol_shapes.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>

namespace vellant::qtui {

namespace {

constexpr double kScreenDpi = 96;

QPixmap blank(QSize size) {
    QPixmap pixmap(size);
    pixmap.fill(Qt::white);
    return pixmap;
}

std::vector<int> numbers(std::initializer_list<std::pair<int, int>> ranges) {
    std::vector<int> all;
    for (const auto& [first, last] : ranges)
        for (int n = first; n <= last; ++n)
            all.push_back(n);
    return all;
}

} // namespace

const std::vector<int>& brushPatterns() {
    static const std::vector<int> patterns = numbers({{1, 8}, {12, 71}});
    return patterns;
}

const std::vector<int>& penPatterns() {
    static const std::vector<int> patterns = numbers({{1, 25}});
    return patterns;
}

const std::vector<int>& vectorSymbols() {
    static const std::vector<int> symbols = numbers({{31, 67}});
    return symbols;
}

QPixmap brushSwatch(int pattern, int foreColor, std::optional<int> backColor, QSize size) {
    QPixmap pixmap = blank(size);
    QPainter painter(&pixmap);
    engine::BrushStyle brush;
    brush.pattern = pattern;
    brush.foreColor = foreColor;
    brush.backColor = backColor;
    QPainterPath box;
    box.addRect(QRectF(1, 1, size.width() - 2, size.height() - 2));
    engine::fillPath(painter, box, engine::qtBrush(brush));
    painter.setPen(QColor(120, 120, 120));
    painter.drawRect(QRectF(0.5, 0.5, size.width() - 1, size.height() - 1));
    if (pattern == 1)
        painter.drawText(pixmap.rect(), Qt::AlignCenter,
                         QCoreApplication::translate("StyleSwatch", "None"));
    return pixmap;
}

QPixmap penSwatch(const engine::PenStyle& pen, QSize size) {
    QPixmap pixmap = blank(size);
    QPainter painter(&pixmap);
    if ((pen.pattern & ~128) == 1) {
        painter.setPen(QColor(120, 120, 120));
        painter.drawText(pixmap.rect(), Qt::AlignCenter,
                         QCoreApplication::translate("StyleSwatch", "None"));
        return pixmap;
    }
    painter.setPen(engine::qtPen(pen, kScreenDpi));
    const double y = size.height() / 2.0;
    painter.drawLine(QPointF(4, y), QPointF(size.width() - 4, y));
    return pixmap;
}

QPixmap symbolSwatch(const engine::SymbolStyle& symbol, QSize size) {
    QPixmap pixmap = blank(size);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    engine::drawSymbol(painter, QPointF(size.width() / 2.0, size.height() / 2.0), symbol,
                       kScreenDpi);
    return pixmap;
}

QPixmap colorSwatch(int rgb, QSize size) {
    QPixmap pixmap(size);
    pixmap.fill(engine::mapInfoColor(rgb));
    QPainter painter(&pixmap);
    painter.setPen(QColor(90, 90, 90));
    painter.drawRect(QRectF(0.5, 0.5, size.width() - 1, size.height() - 1));
    return pixmap;
}

} // namespace vellant::qtui
