#include "engine/render/label_painter.h"

#include "engine/engine.h"
#include "engine/lang/expression.h"
#include "engine/lang/lexer.h"
#include "engine/mb_error.h"
#include "engine/tables/catalog.h"
#include "engine/tables/column_type.h"
#include "engine/tables/style_clause.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QPen>
#include <QStringList>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

namespace vellant::engine {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kScreenDpi = 96;
// A label anchored further out than this many pixels is off any picture; QPainter's raster
// works in fixed point and misdraws beyond it.
constexpr double kFarPixels = 1e6;
// Font sizes outside this range (points) are clamped: a huge font would only cost time.
constexpr double kMinFontPoints = 1;
constexpr double kMaxFontPoints = 400;

// Font style bits.
constexpr int kBold = 1;
constexpr int kItalic = 2;
constexpr int kUnderline = 4;
constexpr int kStrikeout = 8;
constexpr int kShadow = 32;
constexpr int kHalo = 256;
constexpr int kAllCaps = 512;
constexpr int kExpanded = 1024;

QColor rgb(int colour) {
    return QColor((colour >> 16) & 255, (colour >> 8) & 255, colour & 255);
}

bool isFinite(const MapPoint& p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

double degrees(double radians) {
    return radians * 180 / std::numbers::pi;
}

// The angle kept upright: text never reads upside down.
double upright(double angle) {
    angle = std::fmod(angle, 360.0);
    while (angle > 90)
        angle -= 180;
    while (angle <= -90)
        angle += 180;
    return angle;
}

double signedArea(const std::vector<MapPoint>& ring) {
    double area = 0;
    for (std::size_t i = 0, n = ring.size(); i < n; ++i) {
        const MapPoint& a = ring[i];
        const MapPoint& b = ring[(i + 1) % n];
        area += a.x * b.y - b.x * a.y;
    }
    return area / 2;
}

MapPoint meanPoint(const std::vector<MapPoint>& points) {
    MapPoint sum;
    for (const MapPoint& p : points) {
        sum.x += p.x;
        sum.y += p.y;
    }
    const auto n = static_cast<double>(std::max<std::size_t>(points.size(), 1));
    return {sum.x / n, sum.y / n};
}

MapPoint ringCentroid(const std::vector<MapPoint>& ring) {
    const double area = signedArea(ring);
    if (!(std::fabs(area) > 0) || !std::isfinite(area)) return meanPoint(ring);
    double cx = 0;
    double cy = 0;
    for (std::size_t i = 0, n = ring.size(); i < n; ++i) {
        const MapPoint& a = ring[i];
        const MapPoint& b = ring[(i + 1) % n];
        const double cross = a.x * b.y - b.x * a.y;
        cx += (a.x + b.x) * cross;
        cy += (a.y + b.y) * cross;
    }
    return {cx / (6 * area), cy / (6 * area)};
}

// Even-odd over all rings, so that holes are outside.
bool insideRings(const std::vector<std::vector<MapPoint>>& rings, const MapPoint& p) {
    bool inside = false;
    for (const auto& ring : rings) {
        for (std::size_t i = 0, n = ring.size(), j = n - 1; i < n; j = i++) {
            const MapPoint& a = ring[i];
            const MapPoint& b = ring[j];
            if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) {
                inside = !inside;
            }
        }
    }
    return inside;
}

// The middle of the widest inside span of the rings along the horizontal through y.
std::optional<MapPoint> widestSpan(const std::vector<std::vector<MapPoint>>& rings, double y) {
    std::vector<double> crossings;
    for (const auto& ring : rings) {
        for (std::size_t i = 0, n = ring.size(), j = n - 1; i < n; j = i++) {
            const MapPoint& a = ring[i];
            const MapPoint& b = ring[j];
            if ((a.y > y) != (b.y > y))
                crossings.push_back((b.x - a.x) * (y - a.y) / (b.y - a.y) + a.x);
        }
    }
    std::sort(crossings.begin(), crossings.end());
    std::optional<MapPoint> best;
    double widest = -1;
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
        const double width = crossings[i + 1] - crossings[i];
        if (width > widest) {
            widest = width;
            best = MapPoint{(crossings[i] + crossings[i + 1]) / 2, y};
        }
    }
    return best;
}

std::optional<MapPoint> regionAnchor(const std::vector<std::vector<MapPoint>>& rings) {
    const std::vector<MapPoint>* largest = nullptr;
    double largestArea = -1;
    for (const auto& ring : rings) {
        if (ring.empty()) continue;
        const double area = std::fabs(signedArea(ring));
        if (largest == nullptr || area > largestArea) {
            largest = &ring;
            largestArea = area;
        }
    }
    if (largest == nullptr) return std::nullopt;
    const MapPoint centroid = ringCentroid(*largest);
    if (!isFinite(centroid)) return std::nullopt;
    if (insideRings(rings, centroid)) return centroid;
    // A concave or holed region: its centroid may fall outside, so the label goes to the
    // widest part of the region on the centroid's level (or the largest ring's middle level).
    if (auto span = widestSpan(rings, centroid.y)) return span;
    return centroid;
}

// The middle of the longest section, and the direction of the segment there.
std::optional<LabelPainter::MapAnchor> lineAnchor(const std::vector<std::vector<MapPoint>>& parts) {
    const std::vector<MapPoint>* longest = nullptr;
    double longestLength = -1;
    for (const auto& part : parts) {
        if (part.empty()) continue;
        double length = 0;
        for (std::size_t i = 1; i < part.size(); ++i)
            length += std::hypot(part[i].x - part[i - 1].x, part[i].y - part[i - 1].y);
        if (!std::isfinite(length)) continue;
        if (length > longestLength) {
            longest = &part;
            longestLength = length;
        }
    }
    if (longest == nullptr) return std::nullopt;
    const std::vector<MapPoint>& part = *longest;
    if (part.size() == 1 || !(longestLength > 0)) return LabelPainter::MapAnchor{part.front(), 0.0};
    double left = longestLength / 2;
    for (std::size_t i = 1; i < part.size(); ++i) {
        const MapPoint& a = part[i - 1];
        const MapPoint& b = part[i];
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        if (length <= 0) continue;
        if (left <= length || i + 1 == part.size()) {
            const double t = std::clamp(left / length, 0.0, 1.0);
            return LabelPainter::MapAnchor{{a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t},
                                           degrees(std::atan2(b.y - a.y, b.x - a.x))};
        }
        left -= length;
    }
    return LabelPainter::MapAnchor{part.front(), 0.0};
}

MapPoint boundsCentre(const std::vector<std::vector<MapPoint>>& parts) {
    double minX = INFINITY, minY = INFINITY, maxX = -INFINITY, maxY = -INFINITY;
    for (const auto& part : parts) {
        for (const MapPoint& p : part) {
            minX = std::min(minX, p.x);
            minY = std::min(minY, p.y);
            maxX = std::max(maxX, p.x);
            maxY = std::max(maxY, p.y);
        }
    }
    return {(minX + maxX) / 2, (minY + maxY) / 2};
}

bool pixelUsable(const QPointF& p) {
    return std::isfinite(p.x()) && std::isfinite(p.y()) && std::fabs(p.x()) < kFarPixels &&
           std::fabs(p.y()) < kFarPixels;
}

// The text box for a position code, in a frame with the anchor at the origin, x to the right
// and y down along the text. Code 0 is centred on the anchor; the others keep offset pixels
// between the anchor and the box.
QRectF boxAt(int position, QSizeF size, double offset) {
    double x = -size.width() / 2;
    double y = -size.height() / 2;
    switch (position) {
    case 1:
    case 4:
    case 6:
        x = -offset - size.width();
        break;
    case 3:
    case 5:
    case 8:
        x = offset;
        break;
    default:
        break;
    }
    switch (position) {
    case 1:
    case 2:
    case 3:
        y = -offset - size.height();
        break;
    case 6:
    case 7:
    case 8:
        y = offset;
        break;
    default:
        break;
    }
    return QRectF(QPointF(x, y), size);
}

FontStyle fontOrDefault(const std::string& clause) {
    try {
        return parseFont(clause);
    } catch (const MbError&) {
        return parseFont(kInitialFont);
    }
}

// Splits on the line breaks a label expression may hold (Chr$(13), Chr$(10) or both).
QStringList textLines(const std::string& text) {
    QString all = QString::fromStdString(text);
    all.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    all.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return all.split(QLatin1Char('\n'));
}

} // namespace

// One label ready to place: its text and font, where its object is and where the label goes.
struct LabelPainter::Candidate {
    std::int64_t row = 0;
    std::string text;
    QPointF object;     // the object's anchor, in pixels
    QPointF anchor;     // where the label is anchored (moved there by an edit or not)
    bool moved = false; // an edit moved the label away from its object
    QPointF calloutEnd; // the call-out's object end
    double angle = 0;   // degrees counter-clockwise
    int position = 0;
    int offset = 0; // points
    std::string font;
    std::string pen;
    LabelLine line = LabelLine::None;
};

LabelPainter::LabelPainter(Engine& engine, QPainter& painter, const ViewTransform& view,
                           const RenderOptions& options, double zoomMetres)
    : engine_(engine), painter_(painter), view_(view), options_(options), zoomMetres_(zoomMetres) {}

bool LabelPainter::labelsVisibleAt(const LabelSettings& label, double zoomMetres) {
    switch (label.visibility) {
    case LabelVisibility::Off:
        return false;
    case LabelVisibility::Zoom:
        return zoomMetres >= label.zoomMinMetres && zoomMetres <= label.zoomMaxMetres;
    case LabelVisibility::On:
        break;
    }
    return true;
}

std::optional<LabelPainter::MapAnchor> LabelPainter::anchorOf(const MapGeometry& object) {
    if (!object.object) return std::nullopt;
    const auto& parts = object.parts;
    bool anyPoint = false;
    for (const auto& part : parts) {
        for (const MapPoint& p : part) {
            if (!isFinite(p)) return std::nullopt;
            anyPoint = true;
        }
    }
    if (!anyPoint) return std::nullopt;
    std::optional<MapAnchor> anchor;
    switch (object.object->kind) {
    case ObjectKind::Text:
    case ObjectKind::Frame:
        return std::nullopt;
    case ObjectKind::Region:
        if (auto point = regionAnchor(parts)) anchor = MapAnchor{*point, std::nullopt};
        break;
    case ObjectKind::Line:
    case ObjectKind::Polyline:
        anchor = lineAnchor(parts);
        break;
    case ObjectKind::Point:
    case ObjectKind::MultiPoint:
        for (const auto& part : parts) {
            if (!part.empty()) {
                anchor = MapAnchor{part.front(), std::nullopt};
                break;
            }
        }
        break;
    default: // rectangles, ellipses, arcs, collections: the middle of their extent
        anchor = MapAnchor{boundsCentre(parts), std::nullopt};
        break;
    }
    if (anchor && !isFinite(anchor->point)) return std::nullopt;
    return anchor;
}

std::optional<std::vector<std::string>>
LabelPainter::labelTexts(const Layer& layer, const Table& table,
                         const std::vector<const MapGeometry*>& rows, RenderReport& report) {
    std::vector<std::string> texts(rows.size());
    const LabelSettings& label = layer.label;
    // "table.column" in the expression reads the table's current row, as Select's Where
    // does; the row Fetch left is put back afterwards.
    Table* live = engine_.catalog().find(table.name());
    if (live != &table) live = nullptr;
    const std::int64_t savedRow = live ? live->currentRow : 0;
    std::int64_t row = 0;
    const NameResolver resolver = [&table, &row](std::string_view name) -> std::optional<MbValue> {
        if (name == "rowid") return MbValue::integer(static_cast<std::int32_t>(row));
        if ((name == "obj" || name == "object") && table.isMappable()) {
            return MbValue::object(table.object(row));
        }
        if (const auto column = findColumn(table.columns(), name)) return table.value(row, *column);
        return std::nullopt;
    };
    try {
        const std::vector<Token> tokens =
            label.expression.empty() ? std::vector<Token>{} : tokenize(label.expression);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            row = rows[i]->row;
            const auto edit = label.edits.find(row);
            if (edit != label.edits.end() && edit->second.text) {
                texts[i] = *edit->second.text;
                continue;
            }
            if (tokens.empty()) {
                // No expression: the first column, as the host labels a new layer.
                if (!table.columns().empty()) texts[i] = table.value(row, 0).asString();
                continue;
            }
            if (live) live->currentRow = row;
            std::size_t at = 0;
            const MbValue value = evaluateExpression(engine_, tokens, at, &resolver);
            if (at < tokens.size() && tokens[at].kind != Token::Kind::End) {
                raiseMb(kMbSyntax, "Found [" + describeToken(tokens[at]) +
                                       "] while searching for [end of statement].");
            }
            texts[i] = value.asString();
        }
    } catch (const MbError& error) {
        if (live) live->currentRow = savedRow;
        report.problems.push_back(error);
        return std::nullopt;
    }
    if (live) live->currentRow = savedRow;
    return texts;
}

void LabelPainter::drawLayer(const Layer& layer, const Table& table, const LayerGeometry& geometry,
                             RenderReport& report) {
    const LabelSettings& label = layer.label;
    if (layer.display == LayerDisplay::Off) return;
    if (!labelsVisibleAt(label, zoomMetres_)) return;

    // The rows with a label: all of them with automatic labels, else only those turned on one
    // by one; an edit that turns a label off hides it either way.
    std::vector<const MapGeometry*> rows;
    std::vector<std::optional<MapAnchor>> anchors;
    for (const MapGeometry& object : geometry.objects) {
        const auto edit = label.edits.find(object.row);
        const bool hasEdit = edit != label.edits.end();
        const bool shown =
            hasEdit && edit->second.visible ? *edit->second.visible : label.autoLabel;
        if (!shown) continue;
        if (!object.object || object.object->kind == ObjectKind::Text) continue;
        std::optional<MapAnchor> anchor = anchorOf(object);
        if (!anchor && !(hasEdit && edit->second.anchor)) continue;
        rows.push_back(&object);
        anchors.push_back(anchor);
    }
    if (rows.empty()) return;

    const std::optional<std::vector<std::string>> texts = labelTexts(layer, table, rows, report);
    if (!texts) return;

    const bool parallel = label.orientation != LabelOrientation::Horizontal;
    std::set<std::string> shownTexts;
    int count = 0;
    const int limit = label.max.value_or(kNoLabelLimit);
    for (std::size_t i = 0; i < rows.size() && count < limit; ++i) {
        const std::string& text = (*texts)[i];
        if (text.empty()) continue;
        if (!label.duplicates && shownTexts.count(text) != 0) continue;

        const MapGeometry& object = *rows[i];
        const auto editIt = label.edits.find(object.row);
        const LabelEdit* edit = editIt != label.edits.end() ? &editIt->second : nullptr;

        Candidate candidate;
        candidate.row = object.row;
        candidate.text = text;
        const std::optional<MapAnchor>& anchor = anchors[i];
        if (anchor) {
            candidate.object = view_.toPixel(anchor->point);
            if (parallel && anchor->lineAngle) candidate.angle = upright(*anchor->lineAngle);
        }
        candidate.anchor = candidate.object;
        if (edit && edit->anchor && isFinite(*edit->anchor)) {
            candidate.anchor = view_.toPixel(*edit->anchor);
            candidate.moved = !anchor || candidate.anchor != candidate.object;
            if (!anchor) candidate.object = candidate.anchor;
        }
        candidate.calloutEnd = candidate.object;
        if (edit && edit->calloutEnd && isFinite(*edit->calloutEnd))
            candidate.calloutEnd = view_.toPixel(*edit->calloutEnd);
        candidate.position = edit && edit->position ? *edit->position : label.position;
        candidate.offset = edit && edit->offset ? *edit->offset : label.offset;
        if (edit && edit->angle && std::isfinite(*edit->angle))
            candidate.angle = std::fmod(*edit->angle, 360.0);
        candidate.font = edit && edit->font ? *edit->font : label.font;
        candidate.pen = edit && edit->pen ? *edit->pen : label.pen;
        candidate.line = edit && edit->line ? *edit->line : label.line;
        if (!pixelUsable(candidate.anchor) || !pixelUsable(candidate.object) ||
            !pixelUsable(candidate.calloutEnd)) {
            continue;
        }

        bool done = place(layer, candidate);
        // Auto Retry: the other positions around the anchor, before giving up on the label.
        if (!done && label.autoRetry && !(edit && edit->position)) {
            for (int position = 0; position <= 8 && !done; ++position) {
                if (position == candidate.position) continue;
                Candidate retry = candidate;
                retry.position = position;
                done = place(layer, retry);
            }
        }
        if (done) {
            ++count;
            shownTexts.insert(text);
        }
    }
}

bool LabelPainter::place(const Layer& layer, const Candidate& candidate) {
    const LabelSettings& label = layer.label;
    const double dpi = options_.dpi > 0 && std::isfinite(options_.dpi) ? options_.dpi : kScreenDpi;
    const double pixelsPerPoint = dpi / kPointsPerInch;
    const double deviceScale = dpi / kScreenDpi;

    const FontStyle style = fontOrDefault(candidate.font);
    double points = style.size > 0 && std::isfinite(style.size) ? style.size : 9;
    points = std::clamp(points, kMinFontPoints, kMaxFontPoints);
    QFont font(QString::fromStdString(style.name));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(points * pixelsPerPoint))));
    font.setBold((style.style & kBold) != 0);
    font.setItalic((style.style & kItalic) != 0);
    font.setUnderline((style.style & kUnderline) != 0);
    font.setStrikeOut((style.style & kStrikeout) != 0);
    if ((style.style & kExpanded) != 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, font.pixelSize() * 0.25);

    QStringList lines = textLines(candidate.text);
    if ((style.style & kAllCaps) != 0) {
        for (QString& line : lines)
            line = line.toUpper();
    }
    const QFontMetricsF metrics(font);
    double width = 0;
    for (const QString& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    const double lineHeight = metrics.height();
    const QSizeF size(width, lineHeight * static_cast<double>(lines.size()));

    const bool halo = (style.style & kHalo) != 0 && style.backColor.has_value();
    const bool boxed = !halo && style.backColor.has_value();
    const double haloWidth = std::max(1.0, std::round(deviceScale));
    const double margin = halo ? haloWidth : boxed ? std::max(1.0, std::round(2 * deviceScale)) : 0;

    const double offset = candidate.position == 0 ? 0 : candidate.offset * pixelsPerPoint;
    const QRectF text = boxAt(candidate.position, size, offset + margin);
    const QRectF outer = text.adjusted(-margin, -margin, margin, margin);

    QTransform toPicture;
    toPicture.translate(candidate.anchor.x(), candidate.anchor.y());
    toPicture.rotate(-candidate.angle);
    const QPolygonF outline = toPicture.map(QPolygonF(outer));

    const QRectF picture(QPointF(0, 0), view_.pixels());
    if (!outline.boundingRect().intersects(picture)) return false;
    if (!label.overlap) {
        for (const QPolygonF& taken : taken_) {
            if (taken.boundingRect().intersects(outline.boundingRect()) &&
                outline.intersects(taken)) {
                return false;
            }
        }
    }

    painter_.save();
    painter_.setOpacity(std::clamp(label.alpha, 0, 255) / 255.0);
    painter_.setRenderHint(QPainter::Antialiasing, true);
    painter_.setRenderHint(QPainter::TextAntialiasing, true);

    if (candidate.moved && candidate.line != LabelLine::None) {
        PenStyle pen;
        try {
            pen = parsePen(candidate.pen);
        } catch (const MbError&) {
            pen = parsePen(kInitialPen);
        }
        if (pen.pattern != 1) {
            const double penWidth =
                pen.width > 10 ? (pen.width - 10) / 10.0 * pixelsPerPoint : pen.width * deviceScale;
            QPen qpen(rgb(pen.color), std::max(penWidth, 1.0));
            painter_.setPen(qpen);
            // To the nearest corner or edge middle of the label.
            const QPolygonF box = toPicture.map(QPolygonF(outer));
            QPointF nearest = box.front();
            double best = INFINITY;
            for (qsizetype k = 0; k + 1 < box.size(); ++k) {
                for (const QPointF& p : {box[k], (box[k] + box[k + 1]) / 2}) {
                    const double d = std::hypot(p.x() - candidate.calloutEnd.x(),
                                                p.y() - candidate.calloutEnd.y());
                    if (d < best) {
                        best = d;
                        nearest = p;
                    }
                }
            }
            painter_.drawLine(nearest, candidate.calloutEnd);
            if (candidate.line == LabelLine::Arrow && best > 0) {
                const double angle = std::atan2(nearest.y() - candidate.calloutEnd.y(),
                                                nearest.x() - candidate.calloutEnd.x());
                const double head = 6 * deviceScale;
                const QPointF tip = candidate.calloutEnd;
                const QPolygonF arrow(
                    {tip, tip + QPointF(head * std::cos(angle + 0.4), head * std::sin(angle + 0.4)),
                     tip + QPointF(head * std::cos(angle - 0.4), head * std::sin(angle - 0.4))});
                painter_.setBrush(rgb(pen.color));
                painter_.drawPolygon(arrow);
            }
        }
    }

    painter_.setTransform(toPicture, true);
    if (boxed) painter_.fillRect(outer, rgb(*style.backColor));

    const QColor fore = rgb(style.foreColor);
    for (qsizetype k = 0; k < lines.size(); ++k) {
        const QString& line = lines[k];
        const double x = text.left() + (width - metrics.horizontalAdvance(line)) / 2;
        const QPointF baseline(x,
                               text.top() + lineHeight * static_cast<double>(k) + metrics.ascent());
        if ((style.style & kShadow) != 0) {
            painter_.setFont(font);
            painter_.setPen(QColor(128, 128, 128));
            painter_.drawText(baseline + QPointF(deviceScale, deviceScale), line);
        }
        if (halo) {
            QPainterPath path;
            path.addText(baseline, font, line);
            painter_.strokePath(path, QPen(rgb(*style.backColor), 2 * haloWidth, Qt::SolidLine,
                                           Qt::RoundCap, Qt::RoundJoin));
            painter_.fillPath(path, fore);
        } else {
            painter_.setFont(font);
            painter_.setPen(fore);
            painter_.drawText(baseline, line);
        }
    }
    painter_.restore();

    taken_.push_back(outline);
    placed_.push_back(PlacedLabel{layer.name, candidate.row, candidate.text, outline});
    return true;
}

} // namespace vellant::engine
