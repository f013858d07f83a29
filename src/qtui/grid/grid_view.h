#pragma once
// The grid control on the screen: a scrolling widget that paints the FlexGrid model and hands
// the user's mouse and keys to the model's input methods, which fire the program's events in the
// real control's order. It changes nothing of the model but what the user does: the scroll
// bars move TopRow and LeftCol, the mouse and keys go through mouseDown/mouseMove/mouseUp/
// doubleClickPress/keyPress, and the arrow keys move the current cell as the control's own
// keys do.
//
// Lengths: the model's twips become pixels at the screen's logical resolution; an event's
// pixel position goes back to twips the same way.

#include "platform/flexgrid.h"
#include "qtui/grid/grid_axes.h"
#include "qtui/twips.h"

#include <QAbstractScrollArea>
#include <functional>
#include <memory>
#include <vector>

namespace vellant::qtui {

class GridView : public QAbstractScrollArea {
    Q_OBJECT
public:
    GridView(platform::FlexGrid& grid, QWidget* parent = nullptr);
    ~GridView() override;

    platform::FlexGrid* grid() const { return grid_; }
    const TwipScale& scale() const { return scale_; }
    void setScale(const TwipScale& scale);

    // The model is going away: the view stops observing it and draws nothing more of it.
    void detach();

    // A cell's rectangle in the viewport's pixels; empty when it is not in view.
    QRect cellRect(int row, int col) const;
    // How many cells the last paint drew, and how many paints there were.
    int lastPaintedCells() const { return lastPaintedCells_; }
    int paintCount() const { return paintCount_; }

    // Run around every call into the model that the user's input makes: the program's handlers
    // run inside, and a run-time error that leaves them must not pass through Qt's event loop.
    void setInputGuard(std::function<void(const std::function<void()>&)> guard);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void gridChanged(const platform::GridChange& change);
    void controlChanged(platform::Property property);
    void layoutChanged();
    void updateScrollBars();
    void scrollBarMoved();
    const std::vector<GridBand>& rows() const;
    const std::vector<GridBand>& cols() const;
    void invalidateBands();
    void input(const std::function<void()>& work);
    void updateDragCursor();
    // The model's position of a pixel of the viewport.
    float twipsX(const QPointF& pixel) const;
    float twipsY(const QPointF& pixel) const;
    void moveCurrentCell(int rowStep, int colStep, bool extend);
    void bringIntoView(int row, int col);

    platform::FlexGrid* grid_;
    TwipScale scale_;
    int gridToken_ = 0;
    int controlToken_ = 0;
    std::shared_ptr<bool> alive_;
    std::function<void(const std::function<void()>&)> guard_;

    mutable std::vector<GridBand> rows_;
    mutable std::vector<GridBand> cols_;
    mutable bool bandsValid_ = false;
    bool scrollBarsPending_ = false;
    int updatingScrollBars_ = 0;
    // A right press is delivered with its release at once: the popup menu it opens takes the
    // real release, and the model must not be left with the button down.
    bool swallowRightRelease_ = false;
    int lastPaintedCells_ = 0;
    int paintCount_ = 0;
};

} // namespace vellant::qtui
