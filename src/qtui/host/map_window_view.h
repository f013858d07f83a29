#pragma once
// A map window of the host on the screen. It paints what the renderer draws for the engine's
// window, at the widget's size, and keeps that picture until the map changes; while the map's
// Redraw is off it goes on showing the last picture. The mouse works the map with the host's
// current tool: the wheel zooms about the cursor, the grabber drags the view, the zoom tools
// zoom by a click (zoom in also by a dragged box), select picks the object under the cursor and
// info reports its record.

#include "engine/map_object.h"

#include <QImage>
#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <optional>
#include <string>

class QRubberBand;

namespace vellant::engine {
class Engine;
class Window;
} // namespace vellant::engine

namespace vellant::qtui {

class MapWindowView : public QWidget {
    Q_OBJECT
public:
    // Zoom factor of one wheel notch, and of a click of the zoom tools.
    static constexpr double kWheelFactor = 1.25;
    static constexpr double kClickFactor = 2.0;

    MapWindowView(engine::Engine& engine, int windowId, QWidget* parent = nullptr);

    int windowId() const { return windowId_; }
    // The engine says the map changed: a new picture is drawn unless Redraw is off.
    void contentsChanged();
    // The host's tool changed.
    void toolChanged();

    // The last picture drawn, and how many have been drawn.
    const QImage& picture() const { return picture_; }
    int renderCount() const { return renderCount_; }
    // The map point under a pixel of the widget; nullopt once the engine window is gone.
    std::optional<engine::MapPoint> mapPointAt(QPointF pixel) const;
    // Resolution of the screen the widget is on.
    double dpi() const;

signals:
    // The map's view changed through the mouse (zoom, scale and position change with it).
    void viewChanged(int windowId);
    void cursorMoved(int windowId, double x, double y);
    void cursorLeft(int windowId);
    // The select tool changed the host's selection: every map shows it.
    void selectionChanged();
    // The info tool hit a record of a table.
    void infoRequested(int windowId, const QString& table, qint64 row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    engine::Window* window() const;
    bool redrawOn() const;
    void render();
    // After the mouse moved the view: observers and the client hear of it (the client only
    // when finalChange, so that a drag does not flood it).
    void viewMoved(bool finalChange);
    void select(QPointF pixel, bool toggle);
    void requestInfo(QPointF pixel);

    engine::Engine& engine_;
    int windowId_;
    QImage picture_;
    bool stale_ = true;
    int renderCount_ = 0;

    // The drag in progress: where it began and, for the grabber, the map point held.
    bool pressed_ = false;
    bool dragging_ = false;
    QPoint pressPos_;
    engine::MapPoint held_;
    QPointer<QRubberBand> band_;
};

} // namespace vellant::qtui
