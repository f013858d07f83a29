#include "qtui/host/map_window_view.h"

#include "base/basic_text.h"
#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/render/map_renderer.h"
#include "engine/tables/catalog.h"
#include "engine/tables/query_table.h"
#include "engine/windows/window_manager.h"
#include "qtui/host/map_navigation.h"
#include "qtui/host/map_tool_icons.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>
#include <QWheelEvent>
#include <algorithm>
#include <cctype>
#include <cmath>

namespace vellant::qtui {

namespace {

// A query's row stands for a row of the table it was made from, however deep the queries go;
// the selection holds rows of that base table.
std::pair<const engine::Table*, std::int64_t> baseRowOf(const engine::Table& table,
                                                        std::int64_t row) {
    const engine::Table* current = &table;
    while (const auto* query = dynamic_cast<const engine::QueryTable*>(current)) {
        row = query->baseRow(row);
        current = query->baseTable();
    }
    return {current, row};
}

} // namespace

MapWindowView::MapWindowView(engine::Engine& engine, int windowId, QWidget* parent)
    : QWidget(parent), engine_(engine), windowId_(windowId) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(40, 30);
    toolChanged();
}

engine::Window* MapWindowView::window() const {
    engine::Window* window = engine_.windows().find(windowId_);
    return window != nullptr && window->map ? window : nullptr;
}

bool MapWindowView::redrawOn() const {
    const engine::Window* w = window();
    return w != nullptr && w->map->redraw;
}

double MapWindowView::dpi() const {
    const int logical = logicalDpiX();
    return logical > 0 ? logical : 96.0;
}

std::optional<engine::MapPoint> MapWindowView::mapPointAt(QPointF pixel) const {
    const engine::Window* w = window();
    if (w == nullptr) return std::nullopt;
    return qtui::mapPointAt(*w, pixel, QSizeF(size()));
}

void MapWindowView::contentsChanged() {
    if (!redrawOn()) return;
    stale_ = true;
    update();
}

void MapWindowView::toolChanged() {
    setCursor(toolCursor(engine_.windows().mapTool(), dragging_));
}

void MapWindowView::render() {
    engine::Window* w = window();
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * ratio).toSize();
    if (w == nullptr || pixels.isEmpty()) return;
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    engine::RenderOptions options;
    options.dpi = dpi() * ratio;
    engine_.renderer().draw(*w, image, options);
    image.setDevicePixelRatio(ratio);
    picture_ = std::move(image);
    stale_ = false;
    ++renderCount_;
}

void MapWindowView::paintEvent(QPaintEvent*) {
    const QSize wanted = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (redrawOn() && (stale_ || picture_.size() != wanted)) render();
    QPainter painter(this);
    // A picture kept while Redraw is off may be smaller than the widget has since become.
    if (picture_.isNull() || picture_.size() != wanted) painter.fillRect(rect(), Qt::white);
    if (!picture_.isNull()) painter.drawImage(QPointF(0, 0), picture_);
}

void MapWindowView::resizeEvent(QResizeEvent* event) {
    stale_ = true;
    QWidget::resizeEvent(event);
    // The same view on another size of window shows another scale.
    emit viewChanged(windowId_);
}

void MapWindowView::viewMoved(bool finalChange) {
    stale_ = true;
    update();
    try {
        engine_.windows().mapChanged(windowId_, false);
        if (finalChange) engine_.windowContentsChanged(windowId_);
    } catch (const engine::MbError&) {
        // The window went while the mouse worked it: nothing left to tell.
    }
    emit viewChanged(windowId_);
}

void MapWindowView::wheelEvent(QWheelEvent* event) {
    engine::Window* w = window();
    const double notches = event->angleDelta().y() / 120.0;
    if (w == nullptr || notches == 0) {
        event->ignore();
        return;
    }
    zoomAbout(*w, event->position(), QSizeF(size()), std::pow(kWheelFactor, notches));
    viewMoved(true);
    event->accept();
}

void MapWindowView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || window() == nullptr) {
        QWidget::mousePressEvent(event);
        return;
    }
    pressed_ = true;
    dragging_ = false;
    pressPos_ = event->position().toPoint();
    if (const auto point = mapPointAt(event->position())) held_ = *point;
    event->accept();
}

void MapWindowView::mouseMoveEvent(QMouseEvent* event) {
    if (const auto point = mapPointAt(event->position()))
        emit cursorMoved(windowId_, point->x, point->y);
    if (!pressed_) return;
    const QPoint pos = event->position().toPoint();
    if (!dragging_ && (pos - pressPos_).manhattanLength() >= QApplication::startDragDistance()) {
        dragging_ = true;
        toolChanged();
    }
    if (!dragging_) return;
    const int tool = engine_.windows().mapTool();
    if (tool == engine::kToolGrabber) {
        if (engine::Window* w = window()) {
            placePointAt(*w, held_, event->position(), QSizeF(size()));
            viewMoved(false);
        }
    } else if (tool == engine::kToolZoomIn) {
        if (!band_) band_ = new QRubberBand(QRubberBand::Rectangle, this);
        band_->setGeometry(QRect(pressPos_, pos).normalized());
        band_->show();
    }
}

void MapWindowView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !pressed_) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    pressed_ = false;
    const bool dragged = dragging_;
    dragging_ = false;
    toolChanged();
    QRect box;
    if (band_) {
        box = band_->geometry();
        delete band_;
    }
    engine::Window* w = window();
    if (w == nullptr) return;
    const QPointF pos = event->position();
    switch (engine_.windows().mapTool()) {
    case engine::kToolGrabber:
        if (dragged) {
            placePointAt(*w, held_, pos, QSizeF(size()));
            viewMoved(true);
        }
        break;
    case engine::kToolZoomIn:
        if (dragged && box.width() > 2 && box.height() > 2) {
            zoomToPixels(*w, QRectF(box), QSizeF(size()));
        } else {
            zoomAt(*w, pos, QSizeF(size()), kClickFactor);
        }
        viewMoved(true);
        break;
    case engine::kToolZoomOut:
        zoomAt(*w, pos, QSizeF(size()), 1 / kClickFactor);
        viewMoved(true);
        break;
    case engine::kToolSelect:
        if (!dragged) select(pos, event->modifiers().testFlag(Qt::ShiftModifier));
        break;
    case kToolInfo:
        if (!dragged) requestInfo(pos);
        break;
    default:
        break;
    }
    event->accept();
}

void MapWindowView::leaveEvent(QEvent* event) {
    emit cursorLeft(windowId_);
    QWidget::leaveEvent(event);
}

void MapWindowView::select(QPointF pixel, bool toggle) {
    engine::Window* w = window();
    if (w == nullptr) return;
    engine::Selection& selection = engine_.catalog().selection();
    const std::optional<engine::MapHit> hit = engine_.renderer().objectAt(*w, size(), pixel, true);
    const engine::Table* hitTable = hit ? engine_.catalog().find(hit->table) : nullptr;
    if (hitTable == nullptr) {
        // A click on nothing clears the selection; with shift it leaves it as it is.
        if (toggle || selection.empty()) return;
        selection = {};
    } else {
        const auto [base, row] = baseRowOf(*hitTable, hit->row);
        if (row <= 0) return;
        if (toggle && LCase(selection.table) == LCase(base->name())) {
            auto& rows = selection.rows;
            const auto at = std::lower_bound(rows.begin(), rows.end(), row);
            if (at != rows.end() && *at == row) {
                rows.erase(at);
            } else {
                rows.insert(at, row);
            }
            if (rows.empty()) selection = {};
        } else {
            selection = {base->name(), {row}};
        }
    }
    emit selectionChanged();
}

void MapWindowView::requestInfo(QPointF pixel) {
    engine::Window* w = window();
    if (w == nullptr) return;
    const std::optional<engine::MapHit> hit = engine_.renderer().objectAt(*w, size(), pixel, false);
    if (!hit) return;
    emit infoRequested(windowId_, QString::fromStdString(hit->table),
                       static_cast<qint64>(hit->row));
}

} // namespace vellant::qtui
