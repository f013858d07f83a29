#pragma once
// The MapX map control a form carries: a control like any other (place, size, visibility) that
// holds a MapX Map. The form's load gets the map from the MapX the client has installed; until
// then, and on the MapInfo host, the control holds none and asking for it is error 91.

#include "hostmodel/mapx_map.h"
#include "platform/control.h"

#include <memory>
#include <string>

namespace vellant::hostmodel {

class MapXControl : public platform::Control {
public:
    explicit MapXControl(std::string name) : platform::Control(std::move(name)) {}

    MXMap& map() const;
    const std::shared_ptr<MXMap>& mapObject() const { return map_; }
    bool hasMap() const { return map_ != nullptr; }
    // A front end that draws the control hears of a new map through the Picture property.
    void setMap(std::shared_ptr<MXMap> map);

private:
    std::shared_ptr<MXMap> map_;
};

} // namespace vellant::hostmodel
