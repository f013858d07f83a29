#pragma once
// The host's status bar: the message a MapBasic program leaves there ("StatusBar Message"), and
// for the front map its zoom in the map's distance units, its scale at the screen's resolution
// and the map coordinates under the cursor.

#include <QStatusBar>

class QLabel;

namespace vellant::engine {
class Window;
}

namespace vellant::qtui {

class HostStatusBar : public QStatusBar {
    Q_OBJECT
public:
    explicit HostStatusBar(QWidget* parent = nullptr);

    void setHostMessage(const QString& message);
    // The front map's zoom and scale for a picture of that size; nullptr clears them.
    void showMap(const engine::Window* map, QSizeF pictureSize, double dpi);
    void showCursor(const engine::Window& map, double x, double y);
    void clearCursor();

    QString hostMessage() const;
    QString zoomText() const;
    QString scaleText() const;
    QString cursorText() const;

private:
    QLabel* message_;
    QLabel* zoom_;
    QLabel* scale_;
    QLabel* cursor_;
};

// "1,234.5" with the digits a reader wants at that size.
QString formatDistance(double value);

} // namespace vellant::qtui
