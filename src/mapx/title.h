#pragma once
// A map's title. Clients name their maps through it (per-map settings are kept under the
// caption) and usually hide it; the renderer does not draw it.

#include "hostmodel/mapx_map.h"

#include <string>

namespace vellant::mapx {

class Title : public hostmodel::MXTitle {
public:
    std::string Caption() override { return caption_; }
    void setCaption(const std::string& value) override { caption_ = value; }
    bool Visible() override { return visible_; }
    void setVisible(bool value) override { visible_ = value; }

private:
    std::string caption_;
    bool visible_ = true;
};

} // namespace vellant::mapx
