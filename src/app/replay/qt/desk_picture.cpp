#include "app/replay/qt/desk_picture.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>

namespace vellant::replay {

namespace {

constexpr int kTitleHeight = 24;
constexpr int kBorder = 1;
constexpr int kMargin = 12; // room for the shadow around the whole picture
const QColor kDesk(0xE4, 0xE7, 0xEB);
const QColor kTitleTop(0x44, 0x5E, 0x7E);
const QColor kTitleBottom(0x34, 0x4B, 0x68);
const QColor kFrame(0x2B, 0x3A, 0x4D);

bool hasTitleBar(const QWidget& window) {
    return !window.windowFlags().testFlag(Qt::FramelessWindowHint);
}

// The window's outer rectangle with the frame drawn for it.
QRect decorated(const QWidget& window) {
    const QRect client = window.geometry();
    const int title = hasTitleBar(window) ? kTitleHeight : 0;
    return client.adjusted(-kBorder, -kBorder - title, kBorder, kBorder);
}

void paintWindow(QPainter& painter, QWidget& window, QPoint origin) {
    const QRect outer = decorated(window).translated(-origin);
    // A soft shadow, then the frame and its title bar.
    for (int i = 4; i >= 1; --i)
        painter.fillRect(outer.adjusted(-i + 2, -i + 3, i + 2, i + 3), QColor(0, 0, 0, 14));
    painter.fillRect(outer, kFrame);
    if (hasTitleBar(window)) {
        const QRect bar(outer.left() + kBorder, outer.top() + kBorder, outer.width() - 2 * kBorder,
                        kTitleHeight);
        QLinearGradient shade(bar.topLeft(), bar.bottomLeft());
        shade.setColorAt(0, kTitleTop);
        shade.setColorAt(1, kTitleBottom);
        painter.fillRect(bar, shade);
        // A narrow tool window's title takes a smaller letter, as window managers draw them,
        // and is elided only when even that is too wide.
        const QRect titleRect = bar.adjusted(8, 0, -28, 0);
        QFont font = window.font();
        for (int pixels = 12; pixels >= 10; --pixels) {
            font.setPixelSize(pixels);
            if (QFontMetrics(font).horizontalAdvance(window.windowTitle()) <= titleRect.width())
                break;
        }
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(
            titleRect, Qt::AlignVCenter | Qt::AlignLeft,
            QFontMetrics(font).elidedText(window.windowTitle(), Qt::ElideRight, titleRect.width()));
        // The close box.
        const QPoint centre(bar.right() - 13, bar.center().y());
        painter.setPen(QPen(Qt::white, 1.6));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawLine(centre + QPoint(-4, -4), centre + QPoint(4, 4));
        painter.drawLine(centre + QPoint(-4, 4), centre + QPoint(4, -4));
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    painter.drawPixmap(window.geometry().topLeft() - origin, window.grab());
}

} // namespace

QImage desktopPicture(const std::vector<QWidget*>& windows) {
    QRect area;
    for (const QWidget* window : windows)
        area = area.united(decorated(*window));
    if (area.isEmpty()) return {};
    area.adjust(-kMargin, -kMargin, kMargin, kMargin);
    QImage picture(area.size(), QImage::Format_RGB32);
    picture.fill(kDesk);
    QPainter painter(&picture);
    for (QWidget* window : windows)
        paintWindow(painter, *window, area.topLeft());
    return picture;
}

} // namespace vellant::replay
