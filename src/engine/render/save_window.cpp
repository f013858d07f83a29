// Save Window and the picture files it writes.

#include "engine/render/save_window.h"

#include "base/bmp.h"
#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/mb_error.h"
#include "engine/render/map_renderer.h"
#include "engine/windows/units.h"
#include "engine/windows/window_clauses.h"
#include "engine/windows/window_errors.h"
#include "engine/windows/window_manager.h"

#include <QByteArray>
#include <QFile>
#include <QImageWriter>
#include <QSaveFile>
#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>

namespace vellant::engine {

namespace {

constexpr double kDefaultDpi = 96;
constexpr double kMaxDpi = 9600;
// The largest side a picture may have (metafiles count in 16 bits), and the most pixels:
// enough for a poster, and a picture of them still fits in memory.
constexpr double kMaxSidePixels = 32767;
constexpr double kMaxPixels = 100e6;
constexpr std::size_t kBmpFileHeaderBytes = 14;

enum class PictureType { Bmp, Jpeg, Png, Tiff, Wmf, Emf };

std::optional<PictureType> pictureType(std::string_view name) {
    std::string lower(name);
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (lower == "bmp") return PictureType::Bmp;
    if (lower == "jpeg" || lower == "jpg") return PictureType::Jpeg;
    if (lower == "png") return PictureType::Png;
    if (lower == "tiff" || lower == "tif") return PictureType::Tiff;
    if (lower == "wmf") return PictureType::Wmf;
    if (lower == "emf") return PictureType::Emf;
    return std::nullopt;
}

[[noreturn]] void raiseCannotWrite(const std::string& file, const QString& reason) {
    raiseMb(kMbCantAccessFile, "Unable to write file " + file + ": " + reason.toStdString() + ".");
}

Bitmap toBitmap(const QImage& image) {
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    const int width = rgb.width();
    const int height = rgb.height();
    Bitmap bitmap(width, height, 0);
    std::uint32_t* out = bitmap.pixels.data();
    for (int y = 0; y < height; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < width; ++x)
            *out++ = line[x] & 0xFFFFFFu;
    }
    return bitmap;
}

// BITMAPINFOHEADER and the bottom-up 24-bit rows: a BMP file without its file header.
std::vector<std::uint8_t> deviceIndependentBitmap(const QImage& image) {
    std::vector<std::uint8_t> bmp = encodeBmp24(toBitmap(image));
    bmp.erase(bmp.begin(), bmp.begin() + kBmpFileHeaderBytes);
    return bmp;
}

class Bytes {
public:
    void u16(std::uint32_t v) {
        bytes.push_back(static_cast<std::uint8_t>(v & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>((v >> 8) & 0xFF));
    }
    void u32(std::uint32_t v) {
        u16(v & 0xFFFF);
        u16(v >> 16);
    }
    void i32(std::int32_t v) { u32(static_cast<std::uint32_t>(v)); }
    void setU32(std::size_t at, std::uint32_t v) {
        for (int i = 0; i < 4; ++i)
            bytes[at + static_cast<std::size_t>(i)] =
                static_cast<std::uint8_t>((v >> (8 * i)) & 0xFF);
    }
    void append(const std::vector<std::uint8_t>& more) {
        bytes.insert(bytes.end(), more.begin(), more.end());
    }
    std::vector<std::uint8_t> bytes;
};

constexpr std::uint32_t kSourceCopy = 0x00CC0020;

// Written straight to the file, as the host writes it, without waiting for the disk: a client
// that saves a small picture for every row of a grid and reads it back at once would otherwise
// wait for a sync each time. A write that fails takes its part-written file away.
void writeBytes(const std::vector<std::uint8_t>& bytes, const std::string& file) {
    QFile out(QString::fromStdString(file));
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        raiseCannotWrite(file, out.errorString());
    const auto size = static_cast<qint64>(bytes.size());
    const bool written =
        out.write(reinterpret_cast<const char*>(bytes.data()), size) == size && out.flush();
    if (!written) {
        const QString reason = out.errorString();
        out.remove();
        raiseCannotWrite(file, reason);
    }
}

void writeWithQt(const QImage& image, const std::string& file, const char* format) {
    QSaveFile out(QString::fromStdString(file));
    if (!out.open(QIODevice::WriteOnly)) raiseCannotWrite(file, out.errorString());
    QImageWriter writer(&out, format);
    if (!writer.canWrite()) {
        raiseMb(kMbArgRange, std::string("Save Window cannot write pictures of type ") + format +
                                 " on this system.");
    }
    if (!writer.write(image)) raiseCannotWrite(file, writer.errorString());
    if (!out.commit()) raiseCannotWrite(file, out.errorString());
}

// Save Window <id> As <file> Type <type> [Width n [Units u]] [Height n [Units u]]
//     [Resolution dpi]; the clauses after Type in any order.
void saveWindow(Engine& engine, Cursor& cursor) {
    const int id = readWindowId(cursor);
    cursor.expectWord("as");
    const std::string file = cursor.stringExpression();
    cursor.expectWord("type");
    const std::string typeName = cursor.stringExpression();
    std::optional<double> width;
    std::optional<double> height;
    double dpi = kDefaultDpi;
    while (!cursor.atEnd()) {
        if (cursor.acceptWord("width")) {
            width = readPaperLength(cursor);
        } else if (cursor.acceptWord("height")) {
            height = readPaperLength(cursor);
        } else if (cursor.acceptWord("resolution")) {
            dpi = cursor.numberExpression();
            if (!(dpi >= 1 && dpi <= kMaxDpi)) raiseValueOutOfRange("Resolution", dpi);
        } else {
            cursor.syntaxError("Width, Height or Resolution");
        }
    }
    Window& window = engine.windows().getMap(id);
    if (!pictureType(typeName)) {
        raiseMb(kMbArgRange, "Save Window cannot write pictures of type " + typeName + ".");
    }
    const double inchesWide = width.value_or(window.placement.width);
    const double inchesHigh = height.value_or(window.placement.height);
    const double pixelsWide = std::round(inchesWide * dpi);
    const double pixelsHigh = std::round(inchesHigh * dpi);
    if (!(pixelsWide >= 1 && pixelsWide <= kMaxSidePixels))
        raiseValueOutOfRange("Width", inchesWide);
    if (!(pixelsHigh >= 1 && pixelsHigh <= kMaxSidePixels)) {
        raiseValueOutOfRange("Height", inchesHigh);
    }
    if (pixelsWide * pixelsHigh > kMaxPixels) raiseValueOutOfRange("Resolution", dpi);

    QImage image(static_cast<int>(pixelsWide), static_cast<int>(pixelsHigh),
                 QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) raiseValueOutOfRange("Width", inchesWide);
    RenderOptions options;
    options.dpi = dpi;
    const RenderReport report = engine.renderer().draw(window, image, options);
    // A map drawn without one of its layers is not the map asked for: the statement fails
    // as a whole and leaves no file, as statements with an error change nothing.
    if (!report.problems.empty()) throw report.problems.front();
    writePicture(image, file, typeName, dpi);
}

} // namespace

std::vector<std::uint8_t> encodeWmf(const QImage& image, double dpi) {
    const std::vector<std::uint8_t> dib = deviceIndependentBitmap(image);
    const auto w = static_cast<std::uint32_t>(image.width());
    const auto h = static_cast<std::uint32_t>(image.height());
    Bytes out;
    // The placeable header: the picture's extent in logical units (pixels) and how many of
    // them make an inch, so that applications place it at its size on paper.
    out.u32(0x9AC6CDD7);
    out.u16(0);
    out.u16(0);
    out.u16(0);
    out.u16(w);
    out.u16(h);
    out.u16(static_cast<std::uint32_t>(std::clamp(std::lround(dpi), 1L, 65535L)));
    out.u32(0);
    std::uint32_t checksum = 0;
    for (std::size_t i = 0; i < 20; i += 2)
        checksum ^= static_cast<std::uint32_t>(out.bytes[i] | (out.bytes[i + 1] << 8));
    out.u16(checksum);

    const std::size_t start = out.bytes.size();
    const auto stretchWords = static_cast<std::uint32_t>((28 + dib.size() + 1) / 2);
    // META_HEADER: a memory metafile of version 3.
    out.u16(1);
    out.u16(9);
    out.u16(0x0300);
    out.u32(0); // size in words, filled in below
    out.u16(0);
    out.u32(std::max<std::uint32_t>(stretchWords, 5));
    out.u16(0);
    // META_SETWINDOWORG (0, 0) and META_SETWINDOWEXT (h, w).
    out.u32(5);
    out.u16(0x020B);
    out.u16(0);
    out.u16(0);
    out.u32(5);
    out.u16(0x020C);
    out.u16(h);
    out.u16(w);
    // META_STRETCHDIB over the whole picture.
    out.u32(stretchWords);
    out.u16(0x0F43);
    out.u32(kSourceCopy);
    out.u16(0); // DIB_RGB_COLORS
    out.u16(h);
    out.u16(w);
    out.u16(0);
    out.u16(0);
    out.u16(h);
    out.u16(w);
    out.u16(0);
    out.u16(0);
    out.append(dib);
    if (dib.size() % 2 != 0) out.bytes.push_back(0);
    // META_EOF.
    out.u32(3);
    out.u16(0);
    out.setU32(start + 6, static_cast<std::uint32_t>((out.bytes.size() - start) / 2));
    return std::move(out.bytes);
}

std::vector<std::uint8_t> encodeEmf(const QImage& image, double dpi) {
    const std::vector<std::uint8_t> dib = deviceIndependentBitmap(image);
    constexpr std::uint32_t kInfoHeaderBytes = 40;
    const auto w = static_cast<std::int32_t>(image.width());
    const auto h = static_cast<std::int32_t>(image.height());
    // The frame in hundredths of a millimetre, the picture's size on paper.
    const double hundredthsPerPixel = 2540.0 / dpi;
    const auto frameW = static_cast<std::int32_t>(std::lround(w * hundredthsPerPixel));
    const auto frameH = static_cast<std::int32_t>(std::lround(h * hundredthsPerPixel));
    Bytes out;
    // EMR_HEADER.
    out.u32(1);
    out.u32(88);
    for (std::int32_t v : {0, 0, w - 1, h - 1})
        out.i32(v);
    for (std::int32_t v : {0, 0, frameW - 1, frameH - 1})
        out.i32(v);
    out.u32(0x464D4520); // " EMF"
    out.u32(0x10000);
    out.u32(0); // file size, filled in below
    out.u32(3); // records
    out.u16(1); // handles: the reserved one
    out.u16(0);
    out.u32(0);
    out.u32(0);
    out.u32(0);
    // The reference device: the picture itself at its resolution.
    out.i32(w);
    out.i32(h);
    out.i32(std::max(1, static_cast<int>(std::lround(w * 25.4 / dpi))));
    out.i32(std::max(1, static_cast<int>(std::lround(h * 25.4 / dpi))));
    // EMR_STRETCHDIBITS over the whole picture.
    const std::uint32_t fixed = 80;
    const auto bitsBytes = static_cast<std::uint32_t>(dib.size() - kInfoHeaderBytes);
    std::uint32_t size = fixed + static_cast<std::uint32_t>(dib.size());
    const std::uint32_t padding = (4 - size % 4) % 4;
    size += padding;
    out.u32(81);
    out.u32(size);
    for (std::int32_t v : {0, 0, w - 1, h - 1})
        out.i32(v);
    for (std::int32_t v : {0, 0, 0, 0, w, h}) // xDest yDest xSrc ySrc cxSrc cySrc
        out.i32(v);
    out.u32(fixed);
    out.u32(kInfoHeaderBytes);
    out.u32(fixed + kInfoHeaderBytes);
    out.u32(bitsBytes);
    out.u32(0); // DIB_RGB_COLORS
    out.u32(kSourceCopy);
    out.i32(w);
    out.i32(h);
    out.append(dib);
    for (std::uint32_t i = 0; i < padding; ++i)
        out.bytes.push_back(0);
    // EMR_EOF.
    out.u32(14);
    out.u32(20);
    out.u32(0);
    out.u32(16);
    out.u32(20);
    out.setU32(48, static_cast<std::uint32_t>(out.bytes.size()));
    return std::move(out.bytes);
}

void writePicture(const QImage& image, const std::string& file, std::string_view type, double dpi) {
    const std::optional<PictureType> kind = pictureType(type);
    if (!kind) {
        raiseMb(kMbArgRange,
                "Save Window cannot write pictures of type " + std::string(type) + ".");
    }
    if (file.empty()) raiseCannotWrite(file, QStringLiteral("no file name was given"));
    QImage opaque = image.convertToFormat(QImage::Format_RGB32);
    const int dotsPerMetre = static_cast<int>(std::lround(dpi / 0.0254));
    opaque.setDotsPerMeterX(dotsPerMetre);
    opaque.setDotsPerMeterY(dotsPerMetre);
    switch (*kind) {
    case PictureType::Bmp:
        // The program reads style samples back with its own BMP reader: 24 bits, bottom-up.
        writeBytes(encodeBmp24(toBitmap(opaque)), file);
        return;
    case PictureType::Jpeg:
        writeWithQt(opaque, file, "jpeg");
        return;
    case PictureType::Png:
        writeWithQt(opaque, file, "png");
        return;
    case PictureType::Tiff:
        writeWithQt(opaque, file, "tiff");
        return;
    case PictureType::Wmf:
        writeBytes(encodeWmf(opaque, dpi), file);
        return;
    case PictureType::Emf:
        writeBytes(encodeEmf(opaque, dpi), file);
        return;
    }
}

void registerRenderLanguage(Registry& registry) {
    registry.addStatement({"save", "window"}, saveWindow);
}

} // namespace vellant::engine
