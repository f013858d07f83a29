#include "qtui/host/style_preview.h"

#include "engine/render/style_painter.h"
#include "engine/render/symbol_shapes.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace vellant::qtui {

namespace {

constexpr double kScreenDpi = 96;

// A region's sample: a lopsided shape with the host's thin black border.
void drawRegion(QPainter& painter, const QRectF& box, const engine::BrushStyle& brush) {
    QPainterPath shape;
    shape.moveTo(box.left(), box.bottom());
    shape.lineTo(box.left() + box.width() * 0.45, box.bottom());
    shape.lineTo(box.right(), box.top() + box.height() * 0.2);
    shape.lineTo(box.left() + box.width() * 0.2, box.top());
    shape.closeSubpath();
    engine::fillPath(painter, shape, engine::qtBrush(brush));
    painter.setPen(QPen(Qt::black, 1));
    painter.drawPath(shape);
}

// A line's sample: a zigzag, so that corners and joins show too.
void drawLine(QPainter& painter, const QRectF& box, const engine::PenStyle& pen) {
    QPainterPath path;
    path.moveTo(box.left(), box.center().y() + box.height() * 0.25);
    path.lineTo(box.left() + box.width() * 0.35, box.top() + box.height() * 0.2);
    path.lineTo(box.left() + box.width() * 0.65, box.bottom() - box.height() * 0.2);
    path.lineTo(box.right(), box.center().y() - box.height() * 0.25);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(engine::qtPen(pen, kScreenDpi));
    painter.drawPath(path);
}

void drawText(QPainter& painter, const QRectF& box, const engine::FontStyle& font) {
    const double pixels = std::clamp(
        engine::pointsToPixels(font.size > 0 ? font.size : 9, kScreenDpi), 1.0, box.height());
    const QString text = QStringLiteral("AaBbYyZz");
    const QFontMetricsF metrics(engine::qtFont(font, pixels));
    const double left = box.center().x() - metrics.horizontalAdvance(text) / 2;
    const double baseline = box.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    engine::drawStyledText(painter, QPointF(left, baseline), text, font, pixels);
}

} // namespace

StylePreview::StylePreview(QWidget* parent) : QFrame(parent) {
    setFrameShape(QFrame::StyledPanel);
    setFrameShadow(QFrame::Sunken);
    setMinimumSize(160, 90);
    setToolTip(tr("Sample"));
}

void StylePreview::setStyle(const Style& style) {
    style_ = style;
    update();
}

QSize StylePreview::sizeHint() const {
    return {220, 110};
}

void StylePreview::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    const QRectF inside = contentsRect();
    painter.fillRect(inside, Qt::white);
    painter.setClipRect(inside);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = inside.adjusted(inside.width() * 0.12, inside.height() * 0.15,
                                       -inside.width() * 0.12, -inside.height() * 0.15);
    if (const auto* brush = std::get_if<engine::BrushStyle>(&style_)) {
        drawRegion(painter, box, *brush);
    } else if (const auto* pen = std::get_if<engine::PenStyle>(&style_)) {
        drawLine(painter, box, *pen);
    } else if (const auto* symbol = std::get_if<engine::SymbolStyle>(&style_)) {
        engine::drawSymbol(painter, inside.center(), *symbol, kScreenDpi);
    } else if (const auto* font = std::get_if<engine::FontStyle>(&style_)) {
        drawText(painter, box, *font);
    }
    painter.setClipping(false);
}

} // namespace vellant::qtui
