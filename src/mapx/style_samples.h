#pragma once
// Samples of a style, as the grid shows them: a piece of region, a line, a symbol or a text,
// drawn by the renderer's own painters (a layer drawn with the style as its global style, or
// the renderer's styled text), and put where Export...Sample sends them.

#include "mapx/style_clauses.h"
#include "mapx/style_data.h"

#include <QImage>
#include <QSize>
#include <cstdint>
#include <filesystem>
#include <string>

namespace vellant::mapx {

class MapXRuntime;

// The sample of a kind, on white, or for text on its ground colour (OLE).
QImage drawStyleSample(const StyleData& style, PickKind kind, QSize pixels,
                       const std::filesystem::path& bitmapFolder, const std::string& text = "Ab",
                       std::int32_t groundColor = kOleWhite);

// The size Export...Sample takes: whole pixels, from 1 up to a screen's worth; a run-time
// error (380) for anything else.
QSize samplePixels(double width, double height);

// "CLIPBOARD" (any letter case) puts the picture on the desktop's clipboard; anything else
// is a file to write. Format 1 (BMP) is the one the host offers; another is error 380.
void exportSample(MapXRuntime& runtime, const QImage& sample, const std::string& destination,
                  std::int16_t format);

} // namespace vellant::mapx
