#include "qtui/host/map_tool_icons.h"

#include "engine/windows/window_manager.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <functional>
#include <tuple>

namespace vellant::qtui {

namespace {

constexpr int kIconSize = 32;
const QColor kInk(40, 40, 48);
const QColor kGlass(210, 230, 250);
const QColor kSea(120, 170, 220);
const QColor kLand(140, 190, 110);

QPixmap drawn(int size, const std::function<void(QPainter&)>& paint) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 32.0, size / 32.0); // every picture is drawn on a 32 by 32 grid
    paint(painter);
    return pixmap;
}

void arrow(QPainter& p) {
    const QPointF points[] = {{8, 3},     {8, 26},    {13.5, 20.5}, {17.5, 29},
                              {21, 27.5}, {17, 19.5}, {24.5, 19.5}};
    p.setPen(QPen(kInk, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::white);
    p.drawPolygon(points, 7);
}

void hand(QPainter& p) {
    p.setPen(QPen(kInk, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(QColor(250, 225, 190));
    QPainterPath path;
    path.addRoundedRect(QRectF(8, 14, 17, 15), 5, 5);
    for (int finger = 0; finger < 4; ++finger) {
        const double x = 8.5 + finger * 4.2;
        const double top = finger == 0 || finger == 3 ? 7 : 4;
        path.addRoundedRect(QRectF(x, top, 3.8, 16 - top + 4), 1.9, 1.9);
    }
    path.addRoundedRect(QRectF(2.5, 15, 9, 4), 2, 2); // thumb
    p.drawPath(path.simplified());
}

void magnifier(QPainter& p, bool plus) {
    p.setPen(QPen(kInk, 3.5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(20, 20), QPointF(29, 29));
    p.setPen(QPen(kInk, 2));
    p.setBrush(kGlass);
    p.drawEllipse(QPointF(13, 13), 9.5, 9.5);
    p.setPen(QPen(kInk, 2.4, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(8.5, 13), QPointF(17.5, 13));
    if (plus) p.drawLine(QPointF(13, 8.5), QPointF(13, 17.5));
}

void info(QPainter& p) {
    p.setPen(QPen(kInk, 1.6));
    p.setBrush(QColor(70, 120, 200));
    p.drawEllipse(QPointF(16, 16), 13, 13);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(16, 9.5), 2.3, 2.3);
    p.drawRoundedRect(QRectF(14, 13.5, 4, 11), 1, 1);
}

void globe(QPainter& p) {
    p.setPen(QPen(kInk, 1.6));
    p.setBrush(kSea);
    p.drawEllipse(QPointF(16, 16), 12, 12);
    p.setBrush(kLand);
    p.setPen(Qt::NoPen);
    p.drawEllipse(QPointF(12, 12), 5, 4);
    p.drawEllipse(QPointF(20, 20), 4, 5);
    p.setPen(QPen(kInk, 1));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(16, 16), 5, 12);
    p.drawLine(QPointF(4, 16), QPointF(28, 16));
    // Corner marks: the whole map fits the window.
    p.setPen(QPen(kInk, 2, Qt::SolidLine, Qt::SquareCap));
    for (const auto& [x, y, dx, dy] : {std::tuple{1, 1, 1, 1}, std::tuple{31, 1, -1, 1},
                                       std::tuple{1, 31, 1, -1}, std::tuple{31, 31, -1, -1}}) {
        p.drawLine(QPointF(x, y), QPointF(x + 5 * dx, y));
        p.drawLine(QPointF(x, y), QPointF(x, y + 5 * dy));
    }
}

void layers(QPainter& p) {
    p.setPen(QPen(kInk, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QColor fills[] = {QColor(230, 180, 90), kLand, kSea};
    for (int i = 2; i >= 0; --i) {
        const double y = 8 + i * 7;
        const QPointF sheet[] = {{16, y - 6}, {29, y}, {16, y + 6}, {3, y}};
        p.setBrush(fills[i]);
        p.drawPolygon(sheet, 4);
    }
}

} // namespace

QIcon toolIcon(int tool) {
    switch (tool) {
    case engine::kToolSelect:
        return QIcon(drawn(kIconSize, arrow));
    case engine::kToolGrabber:
        return QIcon(drawn(kIconSize, hand));
    case engine::kToolZoomIn:
        return QIcon(drawn(kIconSize, [](QPainter& p) { magnifier(p, true); }));
    case engine::kToolZoomOut:
        return QIcon(drawn(kIconSize, [](QPainter& p) { magnifier(p, false); }));
    case kToolInfo:
        return QIcon(drawn(kIconSize, info));
    default:
        return {};
    }
}

QIcon zoomEntireIcon() {
    return QIcon(drawn(kIconSize, globe));
}

QIcon layerControlIcon() {
    return QIcon(drawn(kIconSize, layers));
}

QCursor toolCursor(int tool, bool dragging) {
    constexpr int kCursorSize = 24;
    switch (tool) {
    case engine::kToolGrabber:
        return QCursor(dragging ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    case engine::kToolZoomIn:
    case engine::kToolZoomOut: {
        const bool plus = tool == engine::kToolZoomIn;
        // The hot spot is the middle of the lens: (13, 13) on the 32 grid.
        return QCursor(drawn(kCursorSize, [plus](QPainter& p) { magnifier(p, plus); }),
                       13 * kCursorSize / 32, 13 * kCursorSize / 32);
    }
    case kToolInfo:
        return QCursor(Qt::WhatsThisCursor);
    case engine::kToolSelect:
    default:
        return QCursor(Qt::ArrowCursor);
    }
}

} // namespace vellant::qtui
