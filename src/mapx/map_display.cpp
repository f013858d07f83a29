#include "mapx/map_display.h"

namespace vellant::mapx {

namespace {

constexpr int kTwipsPerPixel = 15;

} // namespace

MapDisplay::MapDisplay(MapXRuntime& runtime, std::string name)
    : MapDisplay(std::make_shared<Map>(runtime), std::move(name)) {}

MapDisplay::MapDisplay(std::shared_ptr<Map> map, std::string name)
    : platform::Control(std::move(name)), map_(std::move(map)) {
    follow();
}

MapDisplay::~MapDisplay() {
    map_->changed.remove(mapToken_);
    unsubscribe(controlToken_);
}

void MapDisplay::follow() {
    mapToken_ = map_->changed.add([this](MapChange change) {
        // The map's own Visible and the control's are one property.
        if (change == MapChange::Visible) setVisible(map_->Visible());
        changed.notify(change);
    });
    controlToken_ = subscribe([this](platform::Control&, platform::Property property) {
        if (property == platform::Property::Width || property == platform::Property::Height) {
            map_->setPixelSize(pixelSize());
        } else if (property == platform::Property::Visible && map_->Visible() != Visible()) {
            map_->setVisible(Visible());
        }
    });
    setVisible(map_->Visible());
}

QSize MapDisplay::pixelSize() const {
    return {std::max(1, Width() / kTwipsPerPixel), std::max(1, Height() / kTwipsPerPixel)};
}

QImage MapDisplay::picture() {
    map_->setPixelSize(pixelSize());
    return map_->picture(pixelSize());
}

} // namespace vellant::mapx
