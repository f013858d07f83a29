#pragma once
// A picture as the program handles it: a name the front end draws its art for, or a real
// bitmap (style samples), with a design size in twips.

#include "base/bmp.h"

#include <memory>
#include <string>

namespace vellant::platform {

// A loaded bitmap's design size counts a pixel as 15 twips, the screen's 96 dots an inch.
inline constexpr int kTwipsPerPixel = 15;

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

// The picture in a BMP file: error 53 when there is no such file, 481 when it holds no picture
// the reader knows.
Picture LoadPicture(const std::string& path);

} // namespace vellant::platform
