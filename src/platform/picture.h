#pragma once
// A picture as the program handles it: a name the front end draws its art for, or a real
// bitmap (style samples), with a design size in twips.

#include "base/bmp.h"

#include <memory>
#include <string>

namespace vellant::platform {

struct Picture {
    std::string name;                     // empty for no picture
    std::shared_ptr<const Bitmap> bitmap; // set for pictures loaded from a file
    int widthTwips = 0;
    int heightTwips = 0;

    bool empty() const { return name.empty() && !bitmap; }
    bool operator==(const Picture& other) const {
        return name == other.name && bitmap == other.bitmap;
    }
};

} // namespace vellant::platform
