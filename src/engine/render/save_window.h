#pragma once
// Save Window: a map window drawn into a picture file.
//
//   Save Window <id> As "<file>" Type "<type>" [Width <n> [Units "<paper unit>"]]
//       [Height <n> [Units "<paper unit>"]] [Resolution <dpi>]
//
// Width and Height default to the window's own size, in the session's paper units when no
// Units is given; Resolution defaults to 96 dots per inch; the picture is inches * dpi pixels,
// rounded. Types: BMP (24-bit), JPEG (or JPG), PNG, TIFF (or TIF), and WMF and EMF, which hold
// the picture as one bitmap record. The file is written whole or not at all, before the
// statement returns.
//
// Errors (MbError):
//    590 / 313 a window id that is not open, or not a map (window_errors.h)
//    644 "<What> out of range: <value>" for a size or resolution the picture cannot have
//    644 "Save Window cannot write pictures of type <type>." for a type it does not know
//    825 "Unable to write file <file>: <reason>." for a file that cannot be written
//    the first problem the renderer met (a layer that could not be drawn); no file then

#include <QImage>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vellant::engine {

// The picture in a file of that type (one of those Save Window takes, any letter case); the
// errors are Save Window's type and file errors. dpi goes into the formats that record it.
void writePicture(const QImage& image, const std::string& file, std::string_view type, double dpi);

// The bytes of a picture as a Windows metafile (WMF, with the placeable header) or an
// enhanced metafile (EMF): one record that stretches a 24-bit bitmap over the picture.
std::vector<std::uint8_t> encodeWmf(const QImage& image, double dpi);
std::vector<std::uint8_t> encodeEmf(const QImage& image, double dpi);

} // namespace vellant::engine
