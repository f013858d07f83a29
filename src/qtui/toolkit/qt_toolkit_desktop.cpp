// The toolkit's desktop: the mouse pointer, window order and placement, the screen and the
// clipboard.

#include "qtui/art/artwork.h"
#include "qtui/host/native_windows.h"
#include "qtui/toolkit/qt_toolkit.h"

#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QImage>
#include <QScreen>
#include <QWidget>

namespace vellant::qtui {

namespace {

std::optional<Qt::CursorShape> pointerShape(int pointer) {
    switch (pointer) {
    case 1:
        return Qt::ArrowCursor;
    case 2:
        return Qt::CrossCursor;
    case 3:
        return Qt::IBeamCursor;
    case 5:
    case 15:
        return Qt::SizeAllCursor;
    case 6:
        return Qt::SizeBDiagCursor;
    case 7:
        return Qt::SizeVerCursor;
    case 8:
        return Qt::SizeFDiagCursor;
    case 9:
        return Qt::SizeHorCursor;
    case 10:
        return Qt::UpArrowCursor;
    case platform::vbHourglass:
        return Qt::WaitCursor;
    case 12:
        return Qt::ForbiddenCursor;
    case 13:
        return Qt::BusyCursor;
    case 14:
        return Qt::WhatsThisCursor;
    default:
        return std::nullopt;
    }
}

} // namespace

// ---- mouse pointer ----

void QtToolkit::setMousePointer(int pointer) {
    pointer_ = pointer;
    applyCursor();
}

int QtToolkit::ShowCursor(bool show) {
    cursorCount_ += show ? 1 : -1;
    applyCursor();
    return cursorCount_;
}

void QtToolkit::applyCursor() {
    std::optional<Qt::CursorShape> shape = pointerShape(pointer_);
    if (cursorCount_ < 0) shape = Qt::BlankCursor;
    if (shape && cursorOverridden_) {
        QGuiApplication::changeOverrideCursor(QCursor(*shape));
    } else if (shape) {
        QGuiApplication::setOverrideCursor(QCursor(*shape));
        cursorOverridden_ = true;
    } else if (cursorOverridden_) {
        QGuiApplication::restoreOverrideCursor();
        cursorOverridden_ = false;
    }
}

// ---- window order ----

QWidget* QtToolkit::windowOf(std::int32_t hwnd) const {
    QWidget* widget = windows_.find(hwnd);
    return widget != nullptr ? widget->window() : nullptr;
}

QWidget* QtToolkit::dialogParent() const {
    for (auto it = modal_.rbegin(); it != modal_.rend(); ++it)
        if (FormView* view = viewOf(**it); view != nullptr && view->isVisible()) return view;
    QWidget* active = QApplication::activeWindow();
    return active;
}

void QtToolkit::setTopmost(QWidget& window, bool topmost) {
    if (window.windowFlags().testFlag(Qt::WindowStaysOnTopHint) == topmost) return;
    const bool visible = window.isVisible();
    // A new frame flag hides the window; it comes back as it was.
    window.setWindowFlag(Qt::WindowStaysOnTopHint, topmost);
    if (auto* form = qobject_cast<FormView*>(&window))
        form->restoreVisibility();
    else if (visible)
        window.show();
}

void QtToolkit::raiseFromSink(QWidget& window) {
    if (sunk_.erase(&window) == 0) return;
    window.showNormal();
    if (auto* form = qobject_cast<FormView*>(&window)) form->applyGeometry();
}

void QtToolkit::placeInOrder(QWidget& window, std::int32_t insertAfter) {
    switch (insertAfter) {
    case platform::HWND_TOPMOST:
        raiseFromSink(window);
        setTopmost(window, true);
        window.raise();
        return;
    case platform::HWND_NOTOPMOST:
        raiseFromSink(window);
        setTopmost(window, false);
        return;
    case platform::HWND_TOP:
        raiseFromSink(window);
        window.raise();
        return;
    case platform::HWND_BOTTOM:
        setTopmost(window, false);
        window.lower();
        return;
    default:
        break;
    }
    // Just behind another window: its own level, and that window raised over it.
    QWidget* other = windowOf(insertAfter);
    if (other == nullptr || other == &window) return;
    raiseFromSink(window);
    setTopmost(window, other->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    window.raise();
    other->raise();
}

bool QtToolkit::SetWindowPos(std::int32_t hwnd, std::int32_t insertAfter, int x, int y, int cx,
                             int cy, int flags) {
    if (onWindowPos) onWindowPos(hwnd, insertAfter, x, y, cx, cy, flags);
    QWidget* window = windowOf(hwnd);
    if (window == nullptr) return false;
    if (!(flags & platform::SWP_NOSIZE) && (cx <= 0 || cy <= 0)) {
        // A desktop window cannot be sized to nothing; shrunk so, it goes out of sight the way
        // this desktop has, and comes back when its order is next asserted.
        sunk_.insert(window);
        window->showMinimized();
    } else {
        if (!(flags & platform::SWP_NOSIZE)) {
            const QSize frame = window->frameGeometry().size() - window->geometry().size();
            window->resize(std::max(1, cx - frame.width()), std::max(1, cy - frame.height()));
        }
        if (!(flags & platform::SWP_NOMOVE)) window->move(x, y);
    }
    if (!(flags & platform::SWP_NOZORDER)) placeInOrder(*window, insertAfter);
    return true;
}

bool QtToolkit::SetForegroundWindow(std::int32_t hwnd) {
    QWidget* window = windowOf(hwnd);
    if (window == nullptr) return false;
    raiseFromSink(*window);
    window->raise();
    window->activateWindow();
    return true;
}

bool QtToolkit::GetWindowPlacement(std::int32_t hwnd, platform::WindowPlacement& placement) {
    QWidget* window = windowOf(hwnd);
    if (window == nullptr) return false;
    placement.flags = 0;
    placement.ptMinPosition = {-1, -1};
    placement.ptMaxPosition = {-1, -1};
    const Qt::WindowStates state = window->windowState();
    if (!window->isVisible())
        placement.showCmd = 0;
    else if (state.testFlag(Qt::WindowMinimized))
        placement.showCmd = platform::SW_SHOWMINIMIZED;
    else if (state.testFlag(Qt::WindowMaximized) || state.testFlag(Qt::WindowFullScreen))
        placement.showCmd = platform::SW_SHOWMAXIMIZED;
    else
        placement.showCmd = platform::SW_SHOWNORMAL;
    // The restored place, frame and all, in the screen's pixels.
    QRect normal = window->frameGeometry();
    if (placement.showCmd != platform::SW_SHOWNORMAL) {
        const QRect frame = window->frameGeometry();
        const QRect client = window->geometry();
        normal = window->normalGeometry().adjusted(
            frame.left() - client.left(), frame.top() - client.top(),
            frame.right() - client.right(), frame.bottom() - client.bottom());
    }
    placement.rcNormalPosition = {normal.left(), normal.top(), normal.left() + normal.width(),
                                  normal.top() + normal.height()};
    return true;
}

platform::ScreenMetrics QtToolkit::Screen() const {
    platform::ScreenMetrics metrics;
    const QScreen* screen = QGuiApplication::primaryScreen();
    const TwipScale scale = TwipScale::of(screen);
    const QSize size = screen != nullptr ? screen->geometry().size() : QSize(1920, 1080);
    metrics.TwipsPerPixelX = static_cast<int>(std::lround(scale.twipsPerPixel()));
    metrics.TwipsPerPixelY = metrics.TwipsPerPixelX;
    metrics.Width = size.width() * metrics.TwipsPerPixelX;
    metrics.Height = size.height() * metrics.TwipsPerPixelY;
    return metrics;
}

// ---- clipboard ----

platform::Picture QtToolkit::ClipboardGetPicture() const {
    const QImage image = QGuiApplication::clipboard()->image();
    if (image.isNull()) return {};
    auto bitmap = std::make_shared<const Bitmap>(imageBitmap(image));
    return {"", bitmap, scale_.wholeTwips(image.width()), scale_.wholeTwips(image.height())};
}

void QtToolkit::ClipboardSetPicture(const platform::Picture& picture) {
    if (picture.bitmap) {
        QGuiApplication::clipboard()->setImage(bitmapImage(*picture.bitmap));
        return;
    }
    const QSize size = pictureSize(picture, scale_.twipsPerPixel());
    const QPixmap art = artPixmap(picture.name, size, 1.0);
    if (!art.isNull()) QGuiApplication::clipboard()->setImage(art.toImage());
}

void QtToolkit::ClipboardClear() {
    QGuiApplication::clipboard()->clear();
}

} // namespace vellant::qtui
