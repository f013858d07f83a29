#include "engine/render/symbol_shapes.h"

#include "engine/render/style_painter.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <cmath>
#include <map>
#include <numbers>
#include <string>

namespace vellant::engine {

namespace {

enum class Shape {
    None,
    Square,
    Diamond,
    Circle,
    Star,
    Triangle,
    InvertedTriangle,
    Plus,
    Cross,
    ArrowUp,
    ArrowRight,
    Flag,
    Pin,
    Ring,
    Bar,
    Asterisk,
};

// How a code of the classic set is drawn. 31-51 follow MapInfo's own list: blank; filled
// square, diamond, circle, star, triangle, inverted triangle; the same hollow; square, triangle
// and circle with a drop shadow; arrows pointing up-right and down-left; plus, X and both
// together. The pictograms after 51 are drawn from a consistent set of our own (flags, pins,
// rings, bars and the basic shapes again).
struct ClassicSymbol {
    Shape shape = Shape::None;
    bool filled = true;
    bool shadow = false;
    double rotation = 0; // degrees, clockwise on the screen
};

ClassicSymbol classic(int code) {
    static constexpr Shape basic[] = {Shape::Square, Shape::Diamond,  Shape::Circle,
                                      Shape::Star,   Shape::Triangle, Shape::InvertedTriangle};
    if (code <= 31) return {Shape::None, false, false};
    if (code <= 37) return {basic[code - 32], true, false};
    if (code <= 43) return {basic[code - 38], false, false};
    switch (code) {
    case 44:
        return {Shape::Square, true, true};
    case 45:
        return {Shape::Triangle, true, true};
    case 46:
        return {Shape::Circle, true, true};
    case 47:
        return {Shape::ArrowUp, true, false, 45};
    case 48:
        return {Shape::ArrowUp, true, false, 225};
    case 49:
        return {Shape::Plus, true, false};
    case 50:
        return {Shape::Cross, true, false};
    case 51:
        return {Shape::Asterisk, true, false};
    default:
        break;
    }
    static constexpr Shape rest[] = {Shape::Flag,    Shape::Pin,    Shape::Ring, Shape::Bar,
                                     Shape::Diamond, Shape::Square, Shape::Star, Shape::Circle};
    const int at = (code - 52) % 8;
    // 60-67 repeat 52-59 hollow where the shape has an inside.
    return {rest[at], code < 60, false};
}

QPolygonF regularStar(double radius, int points, double inner) {
    QPolygonF polygon;
    for (int i = 0; i < points * 2; ++i) {
        const double r = (i % 2 == 0) ? radius : radius * inner;
        const double angle = std::numbers::pi / 2 + std::numbers::pi * i / points;
        polygon << QPointF(r * std::cos(angle), -r * std::sin(angle));
    }
    return polygon;
}

QPainterPath outline(Shape shape, double size) {
    const double h = size / 2;
    QPainterPath path;
    switch (shape) {
    case Shape::None:
        break;
    case Shape::Square:
        path.addRect(QRectF(-h * 0.8, -h * 0.8, h * 1.6, h * 1.6));
        break;
    case Shape::Diamond:
        path.addPolygon(QPolygonF({{0, -h}, {h, 0}, {0, h}, {-h, 0}, {0, -h}}));
        break;
    case Shape::Circle:
    case Shape::Ring:
        path.addEllipse(QPointF(0, 0), h * 0.85, h * 0.85);
        break;
    case Shape::Star: {
        QPolygonF star = regularStar(h, 5, 0.42);
        star << star.front();
        path.addPolygon(star);
        break;
    }
    case Shape::Triangle:
        path.addPolygon(QPolygonF({{0, -h}, {h, h * 0.75}, {-h, h * 0.75}, {0, -h}}));
        break;
    case Shape::InvertedTriangle:
        path.addPolygon(QPolygonF({{0, h}, {h, -h * 0.75}, {-h, -h * 0.75}, {0, h}}));
        break;
    case Shape::Plus:
        path.addRect(QRectF(-h, -h * 0.2, 2 * h, h * 0.4));
        path.addRect(QRectF(-h * 0.2, -h, h * 0.4, 2 * h));
        path.setFillRule(Qt::WindingFill);
        break;
    case Shape::Asterisk:
        path = outline(Shape::Plus, size).united(outline(Shape::Cross, size));
        break;
    case Shape::Cross: {
        QPainterPath bar;
        bar.addRect(QRectF(-h, -h * 0.18, 2 * h, h * 0.36));
        QTransform left;
        left.rotate(45);
        QTransform right;
        right.rotate(-45);
        path = left.map(bar).united(right.map(bar));
        break;
    }
    case Shape::ArrowUp:
        path.addPolygon(QPolygonF({{0, -h},
                                   {h * 0.7, -h * 0.1},
                                   {h * 0.25, -h * 0.1},
                                   {h * 0.25, h},
                                   {-h * 0.25, h},
                                   {-h * 0.25, -h * 0.1},
                                   {-h * 0.7, -h * 0.1},
                                   {0, -h}}));
        break;
    case Shape::ArrowRight:
        path.addPolygon(QPolygonF({{h, 0},
                                   {h * 0.1, h * 0.7},
                                   {h * 0.1, h * 0.25},
                                   {-h, h * 0.25},
                                   {-h, -h * 0.25},
                                   {h * 0.1, -h * 0.25},
                                   {h * 0.1, -h * 0.7},
                                   {h, 0}}));
        break;
    case Shape::Flag:
        path.addRect(QRectF(-h * 0.7, -h, h * 0.15, 2 * h));
        path.addPolygon(QPolygonF(
            {{-h * 0.55, -h}, {h * 0.8, -h * 0.55}, {-h * 0.55, -h * 0.1}, {-h * 0.55, -h}}));
        path.setFillRule(Qt::WindingFill);
        break;
    case Shape::Pin:
        path.addEllipse(QPointF(0, -h * 0.45), h * 0.5, h * 0.5);
        path.addPolygon(
            QPolygonF({{-h * 0.3, -h * 0.1}, {0, h}, {h * 0.3, -h * 0.1}, {-h * 0.3, -h * 0.1}}));
        path.setFillRule(Qt::WindingFill);
        break;
    case Shape::Bar:
        path.addRect(QRectF(-h, -h * 0.3, 2 * h, h * 0.6));
        break;
    }
    return path;
}

void drawClassic(QPainter& painter, QPointF at, const SymbolStyle& symbol, double size) {
    const ClassicSymbol look = classic(symbol.shape);
    if (look.shape == Shape::None) return;
    QPainterPath path = outline(look.shape, size);
    if (look.rotation != 0) path = QTransform().rotate(look.rotation).map(path);
    path.translate(at);
    const QColor colour = mapInfoColor(symbol.color);
    if (look.shadow) {
        const double offset = std::max(1.0, size / 10);
        painter.fillPath(path.translated(offset, offset), Qt::black);
    }
    if (look.filled && look.shape != Shape::Ring) {
        painter.fillPath(path, colour);
    } else {
        painter.strokePath(path, QPen(colour, std::max(1.0, size / 10)));
    }
}

void drawFontSymbol(QPainter& painter, QPointF at, const SymbolStyle& symbol, double size) {
    QFont font(QString::fromStdString(symbol.fontName));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(size))));
    font.setBold((symbol.fontStyle & 1) != 0);
    const QString text = QString(QChar(static_cast<char16_t>(std::clamp(symbol.shape, 1, 0xFFFF))));
    QPainterPath glyph;
    glyph.addText(QPointF(0, 0), font, text);
    // Centre the glyph's own outline on the point, as the host centres a symbol's cell.
    const QRectF box = glyph.boundingRect();
    glyph.translate(-box.center());
    painter.save();
    painter.translate(at);
    if (symbol.rotation != 0) painter.rotate(-symbol.rotation);
    if ((symbol.fontStyle & 32) != 0) {
        const double offset = std::max(1.0, size / 12);
        painter.fillPath(glyph.translated(offset, offset), QColor(128, 128, 128));
    }
    if ((symbol.fontStyle & 256) != 0) {
        painter.strokePath(glyph, QPen(Qt::white, std::max(2.0, size / 6), Qt::SolidLine,
                                       Qt::RoundCap, Qt::RoundJoin));
    }
    if ((symbol.fontStyle & 16) != 0) {
        painter.strokePath(glyph, QPen(Qt::black, std::max(1.5, size / 10), Qt::SolidLine,
                                       Qt::RoundCap, Qt::RoundJoin));
    }
    painter.fillPath(glyph, mapInfoColor(symbol.color));
    painter.restore();
}

// Bitmaps read once a file; a file that does not open is remembered as such.
const QImage& bitmap(const std::string& file) {
    static std::map<std::string, QImage> loaded;
    auto found = loaded.find(file);
    if (found == loaded.end()) {
        found = loaded.emplace(file, QImage(QString::fromStdString(file))).first;
    }
    return found->second;
}

void drawBitmap(QPainter& painter, QPointF at, const SymbolStyle& symbol, double size) {
    const QImage& image = bitmap(symbol.fileName);
    if (image.isNull()) {
        const double h = std::max(2.0, size / 4);
        painter.fillRect(QRectF(at.x() - h, at.y() - h, 2 * h, 2 * h), mapInfoColor(symbol.color));
        return;
    }
    const double scale = size / std::max(1, image.height());
    const QSizeF drawn(image.width() * scale, image.height() * scale);
    painter.drawImage(QRectF(at - QPointF(drawn.width() / 2, drawn.height() / 2), drawn), image);
}

} // namespace

double symbolPixelSize(const SymbolStyle& symbol, double dpi) {
    return std::max(1.0, pointsToPixels(symbol.size, dpi));
}

void drawSymbol(QPainter& painter, QPointF at, const SymbolStyle& symbol, double dpi) {
    const double size = symbolPixelSize(symbol, dpi);
    switch (symbol.kind) {
    case SymbolKind::Vector:
        drawClassic(painter, at, symbol, size);
        break;
    case SymbolKind::TrueType:
        drawFontSymbol(painter, at, symbol, size);
        break;
    case SymbolKind::Bitmap:
        drawBitmap(painter, at, symbol, size);
        break;
    }
}

} // namespace vellant::engine
