#include "qtui/twips.h"

#include <QGuiApplication>
#include <QScreen>

namespace vellant::qtui {

TwipScale TwipScale::of(const QScreen* screen) {
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    const double dpi = screen != nullptr ? screen->logicalDotsPerInchX() : 96.0;
    return TwipScale(kTwipsPerInch / (dpi > 0 ? dpi : 96.0));
}

} // namespace vellant::qtui
