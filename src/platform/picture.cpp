#include "platform/picture.h"

#include "base/runtime_error.h"

#include <filesystem>
#include <memory>
#include <system_error>

namespace vellant::platform {

Picture LoadPicture(const std::string& path) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) raiseError(kErrFileNotFound);
    std::optional<Bitmap> bitmap = readBmpFile(path);
    if (!bitmap) raiseError(kErrInvalidPicture);
    Picture picture;
    picture.widthTwips = bitmap->width * kTwipsPerPixel;
    picture.heightTwips = bitmap->height * kTwipsPerPixel;
    picture.bitmap = std::make_shared<const Bitmap>(std::move(*bitmap));
    return picture;
}

} // namespace vellant::platform
