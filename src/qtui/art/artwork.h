#pragma once
// The program's pictures on the screen. Named pictures are the project's own SVG art, compiled
// in as resources under ":/art/<name>.svg" and drawn at whatever size and pixel density they are
// shown, so they stay crisp; loaded pictures (style samples) carry their own pixels.

#include "platform/picture.h"

#include <QImage>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <string>

namespace vellant::qtui {

// True when the project draws art under this name.
bool hasArt(const std::string& name);

// The art drawn into a pixmap of `size` logical pixels at a device pixel ratio; a null pixmap
// for a name without art. Pixmaps are cached by name, size and ratio.
QPixmap artPixmap(const std::string& name, QSize size, qreal devicePixelRatio);

// The size a picture has by design, in pixels: its twips size at this many twips a pixel, or
// the art's own size where the picture names none.
QSize pictureSize(const platform::Picture& picture, double twipsPerPixel);

// A picture as drawn: its bitmap's pixels, or its art at `size`.
QPixmap picturePixmap(const platform::Picture& picture, QSize size, qreal devicePixelRatio);

QImage bitmapImage(const Bitmap& bitmap);
Bitmap imageBitmap(const QImage& image);

} // namespace vellant::qtui
