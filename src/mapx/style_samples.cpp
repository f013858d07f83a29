#include "mapx/style_samples.h"

#include "base/basic_text.h"
#include "base/bmp.h"
#include "base/runtime_error.h"
#include "engine/map_object.h"
#include "engine/render/gui_application.h"
#include "engine/render/object_painter.h"
#include "engine/render/style_painter.h"
#include "engine/render/view_transform.h"
#include "engine/windows/map_state.h"
#include "mapx/mapx_runtime.h"
#include "platform/toolkit.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>
#include <memory>

namespace vellant::mapx {

namespace {

using engine::MapPoint;

constexpr int kLargestSamplePixels = 4096;
// Samples keep this far from the picture's edge, so a thick border still shows whole; edges
// lie on the middle of a pixel, so that a thin line is one pixel wide and sharp.
constexpr double kMargin = 2.5;
constexpr double kScreenDpi = 96;
constexpr int kTwipsPerPixel = 15;

// A view in which one map unit is one pixel and y runs up from the picture's bottom.
engine::MapState pixelMap(QSize pixels) {
    engine::MapState map;
    map.coordSys.earth = false;
    map.coordSys.nonEarthUnits = "m";
    map.centreX = pixels.width() / 2.0;
    map.centreY = pixels.height() / 2.0;
    map.zoomMetres = pixels.width();
    return map;
}

// The style as a layer's global style: what the renderer draws an overridden layer with.
engine::Layer styledLayer(const StyleData& style, const std::filesystem::path& bitmapFolder) {
    engine::Layer layer;
    layer.display = engine::LayerDisplay::Global;
    layer.globalLine = engine::formatPen(linePen(style));
    layer.globalPen = engine::formatPen(borderPen(style));
    layer.globalBrush = engine::formatBrush(regionBrush(style));
    layer.globalSymbol = engine::formatSymbol(pointSymbol(style, bitmapFolder));
    return layer;
}

// The middle of the middle pixel.
double middle(double pixels) {
    return std::floor(pixels / 2) + 0.5;
}

engine::MapGeometry sampleObject(PickKind kind, QSize pixels) {
    const double w = pixels.width();
    const double h = pixels.height();
    auto object = std::make_shared<engine::MapObject>();
    std::vector<std::vector<MapPoint>> parts;
    switch (kind) {
    case PickKind::Region: {
        const double left = std::min(kMargin, w / 2), right = std::max(w - kMargin, w / 2);
        const double bottom = std::min(kMargin, h / 2), top = std::max(h - kMargin, h / 2);
        object->kind = engine::ObjectKind::Region;
        parts = {{{left, bottom}, {right, bottom}, {right, top}, {left, top}, {left, bottom}}};
        break;
    }
    case PickKind::Line:
        object->kind = engine::ObjectKind::Line;
        parts = {
            {{std::min(kMargin, w / 2), middle(h)}, {std::max(w - kMargin, w / 2), middle(h)}}};
        break;
    default:
        object->kind = engine::ObjectKind::Point;
        parts = {{{middle(w), middle(h)}}};
        break;
    }
    object->parts = parts;
    engine::MapGeometry geometry;
    geometry.object = std::move(object);
    geometry.parts = std::move(parts);
    geometry.bounds = {0, 0, w, h};
    return geometry;
}

void drawText(QPainter& painter, const StyleData& style, QSize pixels, const std::string& text) {
    const engine::FontStyle font = textFont(style);
    const double pixelSize = engine::pointsToPixels(font.size, kScreenDpi);
    const QString shown = QString::fromStdString(text);
    const QFontMetricsF metrics(engine::qtFont(font, pixelSize));
    const double x = (pixels.width() - metrics.horizontalAdvance(shown)) / 2;
    const double baseline = (pixels.height() + metrics.ascent() - metrics.descent()) / 2;
    engine::drawStyledText(painter, QPointF(x, baseline), shown, font, pixelSize);
}

Bitmap toBitmap(const QImage& image) {
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    Bitmap bitmap(rgb.width(), rgb.height());
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < rgb.width(); ++x)
            bitmap.set(x, y, static_cast<std::uint32_t>(line[x]) & 0xFFFFFFu);
    }
    return bitmap;
}

} // namespace

QSize samplePixels(double width, double height) {
    auto valid = [](double v) { return std::isfinite(v) && v >= 1 && v <= kLargestSamplePixels; };
    if (!valid(width) || !valid(height)) raiseError(kErrInvalidProperty);
    return {static_cast<int>(std::lround(width)), static_cast<int>(std::lround(height))};
}

QImage drawStyleSample(const StyleData& style, PickKind kind, QSize pixels,
                       const std::filesystem::path& bitmapFolder, const std::string& text,
                       std::int32_t groundColor) {
    engine::ensureGuiApplication();
    const QColor ground =
        kind == PickKind::Text ? engine::mapInfoColor(oleToRgb(groundColor)) : QColor(Qt::white);
    QImage image(pixels, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    if (kind == PickKind::Text) {
        drawText(painter, style, pixels, text);
        return image;
    }
    const engine::MapState map = pixelMap(pixels);
    const engine::ViewTransform view(map, pixels.width() / kScreenDpi, pixels.height() / kScreenDpi,
                                     QSizeF(pixels));
    engine::RenderOptions options;
    options.dpi = kScreenDpi;
    options.background = ground;
    engine::ObjectPainter objects(painter, view, options);
    const engine::Layer layer = styledLayer(style, bitmapFolder);
    objects.setLayer(layer);
    objects.draw(sampleObject(kind, pixels), false);
    return image;
}

void exportSample(MapXRuntime& runtime, const QImage& sample, const std::string& destination,
                  std::int16_t format) {
    if (format != mx::miFormatBMP) raiseError(kErrInvalidProperty);
    auto bitmap = std::make_shared<const Bitmap>(toBitmap(sample));
    if (UCase(destination) == mx::kClipboardDestination) {
        platform::Picture picture;
        picture.bitmap = bitmap;
        picture.widthTwips = bitmap->width * kTwipsPerPixel;
        picture.heightTwips = bitmap->height * kTwipsPerPixel;
        runtime.toolkit().ClipboardSetPicture(picture);
        return;
    }
    if (!writeBmpFile(destination, encodeBmp24(*bitmap)))
        raiseError(kErrPathFileAccess, "Unable to write " + destination);
}

} // namespace vellant::mapx
