#pragma once
// A MapX map on the screen: the map drawn by the renderer at the widget's size, drawn again
// whenever the map says its picture changed (AutoRedraw false holds that back). The layer
// form's MapDisplay and a MapX application's own map control both show through it.

#include "mapx/map.h"

#include <QWidget>
#include <memory>

namespace vellant::qtui {

class MapPictureWidget : public QWidget {
public:
    explicit MapPictureWidget(QWidget* parent = nullptr);
    ~MapPictureWidget() override;

    // The map shown; nothing for an empty control.
    void setMap(std::shared_ptr<mapx::Map> map);
    const std::shared_ptr<mapx::Map>& map() const { return map_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void unfollow();

    std::shared_ptr<mapx::Map> map_;
    int token_ = 0;
};

} // namespace vellant::qtui
