#include "engine/render/style_painter.h"

#include "engine/lang/style_clause.h"
#include "engine/mb_error.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QVector>
#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <tuple>

namespace vellant::engine {

namespace {

// Dash arrays of MapInfo's line patterns, in pixels of a one-pixel line (dash, gap, ...).
// 3-9 are dots and dashes of growing length, 10-13 dash-dot lines, 14-17 dash-dot-dot lines,
// 18-25 long dashes with dots. Patterns from 26 on are MapInfo's complex lines (double and
// triple lines, railways, arrows, crossed lines); Qt has no such pens, so they cycle through
// the simple table above and draw as a dashed line of the same weight.
const std::vector<std::vector<double>>& dashTable() {
    static const std::vector<std::vector<double>> table = {
        {1, 1},                    // 3  fine dots
        {1, 3},                    // 4  dots
        {2, 2},                    // 5  short dashes
        {4, 2},                    // 6
        {6, 3},                    // 7
        {9, 3},                    // 8
        {14, 4},                   // 9  long dashes
        {6, 2, 2, 2},              // 10 dash dot
        {10, 3, 2, 3},             // 11
        {14, 4, 3, 4},             // 12
        {20, 4, 4, 4},             // 13
        {6, 2, 2, 2, 2, 2},        // 14 dash dot dot
        {10, 3, 2, 3, 2, 3},       // 15
        {14, 4, 3, 4, 3, 4},       // 16
        {20, 4, 4, 4, 4, 4},       // 17
        {20, 6},                   // 18 long dash, wide gap
        {24, 8},                   // 19
        {2, 6},                    // 20 sparse dots
        {4, 8},                    // 21
        {16, 3, 2, 3, 2, 3, 2, 3}, // 22 dash and three dots
        {12, 3, 6, 3},             // 23 long and short
        {18, 3, 6, 3, 6, 3},       // 24 long and two short
        {8, 8},                    // 25 even dashes
    };
    return table;
}

std::optional<std::vector<double>> dashesFor(int pattern) {
    pattern &= ~128; // the interleaved flag changes joins only
    if (pattern <= 2) return std::nullopt;
    const auto& table = dashTable();
    const auto count = static_cast<int>(table.size());
    const int index = (pattern - 3) % count;
    return table[static_cast<std::size_t>(index)];
}

} // namespace

QColor mapInfoColor(int rgb) {
    return QColor((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
}

double pointsToPixels(double points, double dpi) {
    return points * dpi / 72.0;
}

QPen qtPen(const PenStyle& pen, double dpi) {
    const int pattern = pen.pattern & ~128;
    if (pattern == 1 || pen.width <= 0) return QPen(Qt::NoPen);
    double width = 1;
    if (pen.width <= 10) {
        width = std::clamp(pen.width, 1, 7);
    } else {
        width = std::max(pointsToPixels((pen.width - 10) / 10.0, dpi), 0.5);
    }
    QPen result(mapInfoColor(pen.color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (const auto dashes = dashesFor(pattern)) {
        // Qt counts dash lengths in line widths; MapInfo's patterns grow with the line, too,
        // but not as fast, so thick lines keep readable dashes.
        const double unit = std::max(1.0, std::sqrt(width));
        QList<qreal> scaled;
        for (double d : *dashes)
            scaled.push_back(std::max(d * unit / width, 0.1));
        result.setCapStyle(Qt::FlatCap);
        result.setDashPattern(scaled);
    }
    return result;
}

Qt::BrushStyle qtBrushPattern(int pattern) {
    switch (pattern) {
    case 1:
        return Qt::NoBrush;
    case 2:
        return Qt::SolidPattern;
    case 3:
        return Qt::HorPattern;
    case 4:
        return Qt::VerPattern;
    case 5:
        return Qt::FDiagPattern;
    case 6:
        return Qt::BDiagPattern;
    case 7:
        return Qt::CrossPattern;
    case 8:
        return Qt::DiagCrossPattern;
    default:
        break;
    }
    // MapInfo's larger palette, as close as Qt's fixed patterns come: 12-18 dot screens from
    // dense to sparse, then families of hatches of varying spacing and weight (Qt has one
    // spacing each), 49-71 mixed screens and textures as dot screens.
    static constexpr std::array<Qt::BrushStyle, 7> screens = {
        Qt::Dense1Pattern, Qt::Dense2Pattern, Qt::Dense3Pattern, Qt::Dense4Pattern,
        Qt::Dense5Pattern, Qt::Dense6Pattern, Qt::Dense7Pattern};
    if (pattern >= 9 && pattern <= 11) return Qt::Dense4Pattern;
    if (pattern >= 12 && pattern <= 18) return screens[static_cast<std::size_t>(pattern - 12)];
    if (pattern >= 19 && pattern <= 23) return Qt::HorPattern;
    if (pattern >= 24 && pattern <= 28) return Qt::VerPattern;
    if (pattern >= 29 && pattern <= 33) return Qt::FDiagPattern;
    if (pattern >= 34 && pattern <= 38) return Qt::BDiagPattern;
    if (pattern >= 39 && pattern <= 43) return Qt::CrossPattern;
    if (pattern >= 44 && pattern <= 48) return Qt::DiagCrossPattern;
    if (pattern >= 49) return screens[static_cast<std::size_t>((pattern - 49) % 7)];
    return Qt::SolidPattern;
}

namespace {

// A pattern as an 8 by 8 tile in the painter's own pixel format, its back colour (or
// transparency) baked in: Qt fills a one-bit pattern brush through its slow generic path, and a
// pattern over a back colour would take two fills.
QImage patternTile(Qt::BrushStyle style, QRgb fore, std::optional<QRgb> back) {
    static std::map<std::tuple<int, QRgb, std::optional<QRgb>>, QImage> tiles;
    const auto key = std::make_tuple(static_cast<int>(style), fore, back);
    auto found = tiles.find(key);
    if (found != tiles.end()) return found->second;
    QImage tile(8, 8, QImage::Format_ARGB32_Premultiplied);
    tile.fill(back ? QColor(*back) : QColor(Qt::transparent));
    {
        QPainter painter(&tile);
        painter.fillRect(tile.rect(), QBrush(QColor(fore), style));
    }
    if (tiles.size() > 256) tiles.clear();
    return tiles.emplace(key, tile).first->second;
}

} // namespace

FillBrushes qtBrush(const BrushStyle& brush) {
    FillBrushes result;
    const Qt::BrushStyle style = qtBrushPattern(brush.pattern);
    if (style == Qt::NoBrush) return result;
    const QColor fore = mapInfoColor(brush.foreColor);
    if (style == Qt::SolidPattern) {
        result.fore = QBrush(fore);
        return result;
    }
    std::optional<QRgb> back;
    if (brush.backColor) back = mapInfoColor(*brush.backColor).rgb();
    result.fore = QBrush(patternTile(style, fore.rgb(), back));
    return result;
}

void fillPath(QPainter& painter, const QPainterPath& path, const FillBrushes& brushes) {
    if (brushes.back.style() != Qt::NoBrush) painter.fillPath(path, brushes.back);
    if (brushes.fore.style() != Qt::NoBrush) painter.fillPath(path, brushes.fore);
}

QFont qtFont(const FontStyle& font, double pixelSize) {
    QFont result(QString::fromStdString(font.name));
    result.setPixelSize(std::max(1, static_cast<int>(std::lround(pixelSize))));
    result.setBold((font.style & 1) != 0);
    result.setItalic((font.style & 2) != 0);
    result.setUnderline((font.style & 4) != 0);
    result.setStrikeOut((font.style & 8) != 0);
    if ((font.style & 512) != 0) result.setCapitalization(QFont::AllUppercase);
    if ((font.style & 1024) != 0) result.setLetterSpacing(QFont::PercentageSpacing, 150);
    return result;
}

void drawStyledText(QPainter& painter, QPointF at, const QString& text, const FontStyle& font,
                    double pixelSize, double angle) {
    if (text.isEmpty()) return;
    const QFont qfont = qtFont(font, pixelSize);
    painter.save();
    painter.translate(at);
    if (angle != 0) painter.rotate(-angle);
    painter.setFont(qfont);
    const bool halo = (font.style & 256) != 0;
    const bool shadow = (font.style & 32) != 0;
    if (font.backColor && !halo) {
        // The box: the text's own extent, a little wider.
        const QFontMetricsF metrics(qfont);
        const double margin = std::max(1.0, pixelSize * 0.1);
        const QRectF box(-margin, -metrics.ascent() - margin,
                         metrics.horizontalAdvance(text) + 2 * margin,
                         metrics.ascent() + metrics.descent() + 2 * margin);
        painter.fillRect(box, mapInfoColor(*font.backColor));
    }
    if (halo || shadow) {
        QPainterPath outline;
        outline.addText(QPointF(0, 0), qfont, text);
        if (shadow) {
            const double offset = std::max(1.0, pixelSize / 12);
            painter.fillPath(outline.translated(offset, offset), QColor(128, 128, 128));
        }
        if (halo) {
            const QColor haloColor =
                font.backColor ? mapInfoColor(*font.backColor) : QColor(Qt::white);
            QPen haloPen(haloColor, std::max(2.0, pixelSize / 6), Qt::SolidLine, Qt::RoundCap,
                         Qt::RoundJoin);
            painter.strokePath(outline, haloPen);
        }
    }
    painter.setPen(mapInfoColor(font.foreColor));
    painter.drawText(QPointF(0, 0), text);
    painter.restore();
}

namespace {

template <typename Style, typename Parse>
const Style& lookUp(std::unordered_map<std::string, Style>& kept, const std::string& clause,
                    Parse parse, const char* initial) {
    auto found = kept.find(clause);
    if (found != kept.end()) return found->second;
    Style style;
    try {
        style = parse(clause);
    } catch (const MbError&) {
        style = parse(initial);
    }
    return kept.emplace(clause, style).first->second;
}

} // namespace

const PenStyle& StyleBook::pen(const std::string& clause) {
    return lookUp(pens_, clause, parsePen, kInitialPen);
}
const BrushStyle& StyleBook::brush(const std::string& clause) {
    return lookUp(brushes_, clause, parseBrush, kInitialBrush);
}
const SymbolStyle& StyleBook::symbol(const std::string& clause) {
    return lookUp(symbols_, clause, parseSymbol, kInitialSymbol);
}
const FontStyle& StyleBook::font(const std::string& clause) {
    return lookUp(fonts_, clause, parseFont, kInitialFont);
}

} // namespace vellant::engine
