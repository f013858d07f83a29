#include "qtui/mapx/map_picture_widget.h"

#include <QPainter>

namespace vellant::qtui {

MapPictureWidget::MapPictureWidget(QWidget* parent) : QWidget(parent) {
    setAutoFillBackground(true);
}

MapPictureWidget::~MapPictureWidget() {
    unfollow();
}

void MapPictureWidget::unfollow() {
    if (map_) map_->changed.remove(token_);
    token_ = 0;
}

void MapPictureWidget::setMap(std::shared_ptr<mapx::Map> map) {
    unfollow();
    map_ = std::move(map);
    if (map_) {
        token_ = map_->changed.add([this](mapx::MapChange change) {
            if (change == mapx::MapChange::Picture) update();
        });
    }
    update();
}

void MapPictureWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (!map_ || width() <= 0 || height() <= 0) return;
    painter.drawImage(QPoint(0, 0), map_->picture(size()));
}

} // namespace vellant::qtui
