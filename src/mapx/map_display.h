#pragma once
// The map control of a form: a Map shown at the control's size and drawn by the renderer. The
// control is a property bag like every other control (its place and size in twips, its
// visibility); a view observes changed and asks for picture() when it says Picture. Headless
// (the scripted toolkit) nothing observes it, and the map works all the same.

#include "mapx/map.h"
#include "platform/control.h"

#include <QImage>
#include <memory>

namespace vellant::mapx {

class MapDisplay : public platform::Control {
public:
    // A new map of its own, or the map given.
    explicit MapDisplay(MapXRuntime& runtime, std::string name = "MapDisplay");
    MapDisplay(std::shared_ptr<Map> map, std::string name);
    ~MapDisplay() override;

    Map& map() { return *map_; }
    std::shared_ptr<Map> mapObject() const { return map_; }

    // The control's size in pixels, at the desktop's 15 twips a pixel.
    QSize pixelSize() const;
    // The map as the control shows it now.
    QImage picture();

    // The map's changes, and Visible when the control is shown or hidden.
    platform::ObserverList<MapChange> changed;

private:
    void follow();

    std::shared_ptr<Map> map_;
    int mapToken_ = 0;
    int controlToken_ = 0;
};

} // namespace vellant::mapx
