#include "qtui/grid/grid_view.h"

#include "qtui/grid/grid_painter.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>
#include <algorithm>

namespace vellant::qtui {

namespace {

constexpr int kKeyEnter = 13;
constexpr int kKeyEscape = 27;
constexpr int kKeyBackspace = 8;

int buttonCode(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return platform::vbLeftButton;
    case Qt::RightButton:
        return platform::vbRightButton;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

int buttonsCode(Qt::MouseButtons buttons) {
    int code = 0;
    if (buttons & Qt::LeftButton) code |= platform::vbLeftButton;
    if (buttons & Qt::RightButton) code |= platform::vbRightButton;
    if (buttons & Qt::MiddleButton) code |= 4;
    return code;
}

int shiftCode(Qt::KeyboardModifiers modifiers) {
    int code = 0;
    if (modifiers & Qt::ShiftModifier) code |= platform::vbShiftMask;
    if (modifiers & Qt::ControlModifier) code |= 2;
    if (modifiers & Qt::AltModifier) code |= 4;
    return code;
}

} // namespace

GridView::GridView(platform::FlexGrid& grid, QWidget* parent)
    : QAbstractScrollArea(parent), grid_(&grid), scale_(TwipScale::of()),
      alive_(std::make_shared<bool>(true)) {
    setObjectName(QString::fromStdString(grid.Name()));
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::StyledPanel);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // Cell text is sized to the grid's rows of 240 twips, the control's own default.
    QFont small(QStringLiteral("Liberation Sans"));
    small.setStyleHint(QFont::SansSerif);
    small.setPixelSize(std::max(9, scale_.pixels(grid.defaultRowHeight()) - 6));
    setFont(small);

    std::weak_ptr<bool> alive = alive_;
    gridToken_ = grid.subscribeGrid([this, alive](const platform::GridChange& change) {
        if (!alive.expired()) gridChanged(change);
    });
    controlToken_ = grid.subscribe([this, alive](platform::Control&, platform::Property p) {
        if (!alive.expired()) controlChanged(p);
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &GridView::scrollBarMoved);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &GridView::scrollBarMoved);
    layoutChanged();
}

GridView::~GridView() {
    detach();
}

void GridView::detach() {
    if (grid_ == nullptr) return;
    // The grid may already be half destroyed when its form goes; the flag, not an
    // unsubscription, is what keeps the observers quiet then.
    alive_.reset();
    grid_ = nullptr;
    viewport()->update();
}

void GridView::setScale(const TwipScale& scale) {
    scale_ = scale;
    layoutChanged();
}

void GridView::setInputGuard(std::function<void(const std::function<void()>&)> guard) {
    guard_ = std::move(guard);
}

void GridView::input(const std::function<void()>& work) {
    if (grid_ == nullptr) return;
    if (guard_)
        guard_(work);
    else
        work();
}

// ---- the model's changes ----

void GridView::gridChanged(const platform::GridChange& change) {
    using Kind = platform::GridChange::Kind;
    switch (change.kind) {
    case Kind::Cell:
        if (grid_->Redraw()) {
            const QRect rect = cellRect(change.row, change.col);
            if (!rect.isEmpty()) viewport()->update(rect);
        }
        break;
    case Kind::Layout:
    case Kind::Scroll:
        layoutChanged();
        break;
    case Kind::Selection:
    case Kind::Look:
    case Kind::Refresh:
    case Kind::Redraw:
        if (grid_->Redraw()) viewport()->update();
        break;
    }
}

void GridView::controlChanged(platform::Property property) {
    if (property == platform::Property::ToolTipText && QToolTip::isVisible() &&
        viewport()->underMouse()) {
        const QString tip = QString::fromStdString(grid_->ToolTipText());
        if (tip.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(QCursor::pos(), tip, viewport());
    }
    if (property == platform::Property::Enabled) viewport()->update();
}

void GridView::invalidateBands() {
    bandsValid_ = false;
}

void GridView::layoutChanged() {
    invalidateBands();
    // A load changes thousands of sizes in a row; the scroll bars are worked out once after.
    if (!scrollBarsPending_) {
        scrollBarsPending_ = true;
        std::weak_ptr<bool> alive = alive_;
        QTimer::singleShot(0, this, [this, alive] {
            scrollBarsPending_ = false;
            if (!alive.expired()) updateScrollBars();
        });
    }
    if (grid_ != nullptr && grid_->Redraw()) viewport()->update();
}

void GridView::updateScrollBars() {
    if (grid_ == nullptr) return;
    ++updatingScrollBars_;
    const QSize room = viewport()->size();
    const GridScrollRange vertical = scrollRange(*grid_, GridAxis::Rows, scale_, room.height());
    verticalScrollBar()->setRange(0, vertical.maximum);
    verticalScrollBar()->setPageStep(vertical.pageStep);
    verticalScrollBar()->setValue(vertical.position);
    const GridScrollRange horizontal = scrollRange(*grid_, GridAxis::Cols, scale_, room.width());
    horizontalScrollBar()->setRange(0, horizontal.maximum);
    horizontalScrollBar()->setPageStep(horizontal.pageStep);
    horizontalScrollBar()->setValue(horizontal.position);
    --updatingScrollBars_;
}

void GridView::scrollBarMoved() {
    if (updatingScrollBars_ != 0 || grid_ == nullptr) return;
    const QSize room = viewport()->size();
    const GridScrollRange vertical = scrollRange(*grid_, GridAxis::Rows, scale_, room.height());
    const GridScrollRange horizontal = scrollRange(*grid_, GridAxis::Cols, scale_, room.width());
    const int v = verticalScrollBar()->value();
    const int h = horizontalScrollBar()->value();
    input([&] {
        if (v >= 0 && v < static_cast<int>(vertical.indices.size()))
            grid_->setTopRow(vertical.indices[static_cast<std::size_t>(v)]);
        if (h >= 0 && h < static_cast<int>(horizontal.indices.size()))
            grid_->setLeftCol(horizontal.indices[static_cast<std::size_t>(h)]);
    });
}

void GridView::scrollContentsBy(int, int) {
    // The model's TopRow and LeftCol say what is in view; scrollBarMoved has set them.
    viewport()->update();
}

const std::vector<GridBand>& GridView::rows() const {
    if (!bandsValid_ && grid_ != nullptr) {
        rows_ = bandsInView(*grid_, GridAxis::Rows, scale_, viewport()->height());
        cols_ = bandsInView(*grid_, GridAxis::Cols, scale_, viewport()->width());
        bandsValid_ = true;
    }
    return rows_;
}

const std::vector<GridBand>& GridView::cols() const {
    rows();
    return cols_;
}

QRect GridView::cellRect(int row, int col) const {
    if (grid_ == nullptr) return {};
    const GridBand* r = findBand(rows(), row);
    const GridBand* c = findBand(cols(), col);
    if (r == nullptr || c == nullptr) return {};
    return {c->start, r->start, c->size, r->size};
}

// ---- painting ----

void GridView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    ++paintCount_;
    if (grid_ == nullptr) {
        painter.fillRect(event->rect(), palette().color(QPalette::Mid));
        return;
    }
    GridLook look{palette(), font(), scale_, devicePixelRatioF(), hasFocus()};
    if (!isEnabled()) look.palette.setCurrentColorGroup(QPalette::Disabled);
    paintGrid(painter, *grid_, rows(), cols(), look, event->rect());
    int cells = 0;
    for (const GridBand& r : rows())
        if (r.end() > event->rect().top() && r.start <= event->rect().bottom()) cells += 1;
    lastPaintedCells_ = cells * static_cast<int>(cols().size());
}

void GridView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    invalidateBands();
    updateScrollBars();
}

void GridView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void GridView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

// ---- the user's mouse and keys ----

float GridView::twipsX(const QPointF& pixel) const {
    return static_cast<float>(scale_.twips(pixel.x()));
}

float GridView::twipsY(const QPointF& pixel) const {
    return static_cast<float>(scale_.twips(pixel.y()));
}

void GridView::updateDragCursor() {
    if (grid_ != nullptr && grid_->Dragging())
        viewport()->setCursor(Qt::DragMoveCursor);
    else
        viewport()->unsetCursor();
}

void GridView::mousePressEvent(QMouseEvent* event) {
    const int button = buttonCode(event->button());
    if (button == 0 || grid_ == nullptr) return;
    setFocus(Qt::MouseFocusReason);
    const float x = twipsX(event->position());
    const float y = twipsY(event->position());
    const int shift = shiftCode(event->modifiers());
    if (button == platform::vbRightButton) {
        swallowRightRelease_ = true;
        input([&] {
            grid_->mouseDown(button, shift, x, y);
            grid_->mouseUp(button, shift, x, y);
        });
    } else {
        input([&] { grid_->mouseDown(button, shift, x, y); });
    }
    updateDragCursor();
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    if (grid_ == nullptr) return;
    const float x = twipsX(event->position());
    const float y = twipsY(event->position());
    const int buttons = buttonsCode(event->buttons()) & ~platform::vbRightButton;
    const int shift = shiftCode(event->modifiers());
    input([&] { grid_->mouseMove(buttons, shift, x, y); });
    updateDragCursor();
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    const int button = buttonCode(event->button());
    if (button == 0 || grid_ == nullptr) return;
    if (button == platform::vbRightButton && swallowRightRelease_) {
        swallowRightRelease_ = false;
        return;
    }
    const float x = twipsX(event->position());
    const float y = twipsY(event->position());
    const int shift = shiftCode(event->modifiers());
    input([&] { grid_->mouseUp(button, shift, x, y); });
    updateDragCursor();
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (grid_ == nullptr) return;
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    const float x = twipsX(event->position());
    const float y = twipsY(event->position());
    input([&] { grid_->doubleClickPress(x, y); });
    updateDragCursor();
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (grid_ == nullptr) return;
    const bool extend = event->modifiers() & Qt::ShiftModifier;
    switch (event->key()) {
    case Qt::Key_Up:
        return moveCurrentCell(-1, 0, extend);
    case Qt::Key_Down:
        return moveCurrentCell(1, 0, extend);
    case Qt::Key_Left:
        return moveCurrentCell(0, -1, extend);
    case Qt::Key_Right:
        return moveCurrentCell(0, 1, extend);
    case Qt::Key_PageUp:
        return moveCurrentCell(-verticalScrollBar()->pageStep(), 0, extend);
    case Qt::Key_PageDown:
        return moveCurrentCell(verticalScrollBar()->pageStep(), 0, extend);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        input([&] { grid_->keyPress(kKeyEnter); });
        return;
    case Qt::Key_Escape:
        input([&] { grid_->keyPress(kKeyEscape); });
        return;
    case Qt::Key_Backspace:
        input([&] { grid_->keyPress(kKeyBackspace); });
        return;
    default:
        break;
    }
    const QString text = event->text();
    if (text.isEmpty()) {
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    for (const QChar c : text) {
        const char16_t code = c.unicode();
        // The program's keys are characters of one byte.
        if (code == 0 || code > 0xFF) continue;
        input([&] { grid_->keyPress(code); });
        if (grid_ == nullptr) return;
    }
}

void GridView::moveCurrentCell(int rowStep, int colStep, bool extend) {
    platform::FlexGrid& grid = *grid_;
    const auto step = [](int from, int by, int lowest, int count, auto sizeOf) {
        int at = from;
        const int direction = by < 0 ? -1 : 1;
        for (int moved = 0; moved < std::abs(by);) {
            int next = at + direction;
            while (next >= lowest && next < count && sizeOf(next) <= 0)
                next += direction;
            if (next < lowest || next >= count) break;
            at = next;
            ++moved;
        }
        return at;
    };
    const auto rowSize = [&grid](int r) { return grid.RowHeight(r); };
    const auto colSize = [&grid](int c) { return grid.ColWidth(c); };
    const int fromRow = extend ? grid.RowSel() : grid.Row();
    const int fromCol = extend ? grid.ColSel() : grid.Col();
    const int row =
        rowStep ? step(fromRow, rowStep, grid.FixedRows(), grid.Rows(), rowSize) : fromRow;
    const int col =
        colStep ? step(fromCol, colStep, grid.FixedCols(), grid.Cols(), colSize) : fromCol;
    input([&] {
        if (extend) {
            grid.setRowSel(row);
            grid.setColSel(col);
        } else {
            grid.setRow(row);
            grid.setCol(col);
        }
        bringIntoView(row, col);
    });
}

void GridView::bringIntoView(int row, int col) {
    platform::FlexGrid& grid = *grid_;
    if (row >= grid.FixedRows() && row < grid.TopRow()) grid.setTopRow(row);
    if (col >= grid.FixedCols() && col < grid.LeftCol()) grid.setLeftCol(col);
    // Scrolled down or right a row at a time until the cell is whole in view.
    for (int guard = grid.Rows(); guard > 0 && grid.TopRow() < row; --guard) {
        invalidateBands();
        const GridBand* band = findBand(rows(), row);
        if (band != nullptr && band->end() <= viewport()->height()) break;
        grid.setTopRow(grid.TopRow() + 1);
    }
    for (int guard = grid.Cols(); guard > 0 && grid.LeftCol() < col; --guard) {
        invalidateBands();
        const GridBand* band = findBand(cols(), col);
        if (band != nullptr && band->end() <= viewport()->width()) break;
        grid.setLeftCol(grid.LeftCol() + 1);
    }
}

bool GridView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const QString tip =
            grid_ != nullptr ? QString::fromStdString(grid_->ToolTipText()) : QString();
        if (tip.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(help->globalPos(), tip, viewport());
        return true;
    }
    if (event->type() == QEvent::Leave) updateDragCursor();
    return QAbstractScrollArea::viewportEvent(event);
}

} // namespace vellant::qtui
