#include "qtui/host/host_status_bar.h"

#include "engine/windows/units.h"
#include "engine/windows/window.h"
#include "qtui/host/map_navigation.h"

#include <QLabel>
#include <QLocale>
#include <cmath>

namespace vellant::qtui {

namespace {

QLabel* section(QWidget* parent, int minimumWidth) {
    auto* label = new QLabel(parent);
    label->setMinimumWidth(minimumWidth);
    label->setContentsMargins(6, 0, 6, 0);
    return label;
}

QString formatCoordinate(double value, bool degrees) {
    return QLocale::c().toString(value, 'f', degrees ? 5 : 2);
}

} // namespace

QString formatDistance(double value) {
    const double magnitude = std::abs(value);
    const int decimals = magnitude >= 100 ? 0 : magnitude >= 1 ? 2 : 4;
    QLocale english(QLocale::English);
    english.setNumberOptions(QLocale::DefaultNumberOptions);
    return english.toString(value, 'f', decimals);
}

HostStatusBar::HostStatusBar(QWidget* parent)
    : QStatusBar(parent), message_(section(this, 60)), zoom_(section(this, 120)),
      scale_(section(this, 140)), cursor_(section(this, 200)) {
    setObjectName("HostStatusBar");
    addWidget(message_, 1);
    addPermanentWidget(zoom_);
    addPermanentWidget(scale_);
    addPermanentWidget(cursor_);
}

void HostStatusBar::setHostMessage(const QString& message) {
    message_->setText(message);
}

void HostStatusBar::showMap(const engine::Window* map, QSizeF pictureSize, double dpi) {
    if (map == nullptr || !map->map || pictureSize.isEmpty()) {
        zoom_->clear();
        scale_->clear();
        clearCursor();
        return;
    }
    const std::string& units = map->map->distanceUnits;
    const double zoom = map->map->zoomMetres / engine::distanceUnitMetres(units);
    zoom_->setText(tr("Zoom: %1 %2").arg(formatDistance(zoom), QString::fromStdString(units)));
    const double scale = scaleDenominator(*map, pictureSize, dpi);
    QLocale english(QLocale::English);
    scale_->setText(std::isfinite(scale) && scale > 0
                        ? tr("Scale: 1:%1").arg(english.toString(std::llround(scale)))
                        : QString());
}

void HostStatusBar::showCursor(const engine::Window& map, double x, double y) {
    if (!map.map) return;
    const std::string unit = map.map->xyUnitName();
    const bool degrees = unit == "degree";
    const QString suffix = degrees ? QStringLiteral("\u00b0") : " " + QString::fromStdString(unit);
    cursor_->setText(tr("X: %1%3  Y: %2%3")
                         .arg(formatCoordinate(x, degrees), formatCoordinate(y, degrees), suffix));
}

void HostStatusBar::clearCursor() {
    cursor_->clear();
}

QString HostStatusBar::hostMessage() const {
    return message_->text();
}
QString HostStatusBar::zoomText() const {
    return zoom_->text();
}
QString HostStatusBar::scaleText() const {
    return scale_->text();
}
QString HostStatusBar::cursorText() const {
    return cursor_->text();
}

} // namespace vellant::qtui
