#pragma once
// MapInfo styles as Qt draws them: Pen clauses as QPen (widths in pixels or points, the
// classic dash patterns), Brush clauses as a background and a pattern brush, Font clauses as
// QFont with the host's effects (shadow, halo, box, all caps, expanded). Colours are MapInfo's
// R * 65536 + G * 256 + B.

#include "engine/tables/style_clause.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <QString>
#include <string>
#include <unordered_map>

class QPainter;

namespace vellant::engine {

QColor mapInfoColor(int rgb);
double pointsToPixels(double points, double dpi);

// Pattern 1 (and width 0) draws no line: Qt::NoPen.
QPen qtPen(const PenStyle& pen, double dpi);

// A brush fills in up to two layers: back under fore. Patterns come as tiles with their back
// colour (or transparency, when the clause has none) in them, so back is left empty by qtBrush;
// a caller may set it to lay a colour under any brush. Pattern 1 fills nothing.
struct FillBrushes {
    QBrush back;
    QBrush fore;
    bool empty() const { return back.style() == Qt::NoBrush && fore.style() == Qt::NoBrush; }
};
FillBrushes qtBrush(const BrushStyle& brush);
Qt::BrushStyle qtBrushPattern(int mapInfoPattern);

void fillPath(QPainter& painter, const QPainterPath& path, const FillBrushes& brushes);

// The font at a pixel size (its style bits bold, italic, underline, strikeout, all caps and
// expanded taken in; a missing family falls back to Qt's substitute).
QFont qtFont(const FontStyle& font, double pixelSize);

// A text in a font style: shadow (32), halo (256) in the back colour, or a box in the back
// colour when there is no halo. at is the left end of the baseline; angle in degrees,
// counter-clockwise.
void drawStyledText(QPainter& painter, QPointF at, const QString& text, const FontStyle& font,
                    double pixelSize, double angle = 0);

// Parsed clauses, kept for the length of one drawing: objects of a table mostly share a few
// styles. A clause that cannot be read gives the host's initial style.
class StyleBook {
public:
    const PenStyle& pen(const std::string& clause);
    const BrushStyle& brush(const std::string& clause);
    const SymbolStyle& symbol(const std::string& clause);
    const FontStyle& font(const std::string& clause);

private:
    std::unordered_map<std::string, PenStyle> pens_;
    std::unordered_map<std::string, BrushStyle> brushes_;
    std::unordered_map<std::string, SymbolStyle> symbols_;
    std::unordered_map<std::string, FontStyle> fonts_;
};

} // namespace vellant::engine
