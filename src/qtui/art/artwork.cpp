#include "qtui/art/artwork.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <cmath>

namespace vellant::qtui {

namespace {

QString artPath(const std::string& name) {
    return QStringLiteral(":/art/") + QString::fromStdString(name) + QStringLiteral(".svg");
}

} // namespace

bool hasArt(const std::string& name) {
    return !name.empty() && QFile::exists(artPath(name));
}

QPixmap artPixmap(const std::string& name, QSize size, qreal devicePixelRatio) {
    if (!size.isValid() || size.isEmpty() || name.empty()) return {};
    const QString key = QStringLiteral("vellant-art:%1:%2x%3@%4")
                            .arg(QString::fromStdString(name))
                            .arg(size.width())
                            .arg(size.height())
                            .arg(devicePixelRatio);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;
    if (!hasArt(name)) return {};
    QSvgRenderer renderer(artPath(name));
    const QSize device(static_cast<int>(std::ceil(size.width() * devicePixelRatio)),
                       static_cast<int>(std::ceil(size.height() * devicePixelRatio)));
    QImage image(device, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(device)));
    }
    pixmap = QPixmap::fromImage(std::move(image));
    pixmap.setDevicePixelRatio(devicePixelRatio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QSize pictureSize(const platform::Picture& picture, double twipsPerPixel) {
    if (picture.widthTwips > 0 && picture.heightTwips > 0)
        return {static_cast<int>(std::lround(picture.widthTwips / twipsPerPixel)),
                static_cast<int>(std::lround(picture.heightTwips / twipsPerPixel))};
    if (picture.bitmap) return {picture.bitmap->width, picture.bitmap->height};
    if (hasArt(picture.name)) return QSvgRenderer(artPath(picture.name)).defaultSize();
    return {};
}

QPixmap picturePixmap(const platform::Picture& picture, QSize size, qreal devicePixelRatio) {
    if (picture.bitmap) {
        // A sample's pixels are shown one for one where they fit, never smoothed into a blur
        // when enlarged; a shrunk one is smoothed, so that no line of a letter drops out.
        const QImage image = bitmapImage(*picture.bitmap);
        if (image.size() == size || !size.isValid()) return QPixmap::fromImage(image);
        const bool shrinks = size.width() < image.width() || size.height() < image.height();
        return QPixmap::fromImage(
            image.scaled(size, Qt::IgnoreAspectRatio,
                         shrinks ? Qt::SmoothTransformation : Qt::FastTransformation));
    }
    return artPixmap(picture.name, size, devicePixelRatio);
}

QImage bitmapImage(const Bitmap& bitmap) {
    QImage image(bitmap.width, bitmap.height, QImage::Format_RGB32);
    for (int y = 0; y < bitmap.height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < bitmap.width; ++x)
            line[x] = 0xFF000000u | bitmap.at(x, y);
    }
    return image;
}

Bitmap imageBitmap(const QImage& image) {
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    Bitmap bitmap(rgb.width(), rgb.height());
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < rgb.width(); ++x)
            bitmap.set(x, y, line[x] & 0xFFFFFFu);
    }
    return bitmap;
}

} // namespace vellant::qtui
