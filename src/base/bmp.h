#pragma once
// Windows BMP pictures: the style samples are BMP files that the map host writes and the
// program loads into grid cells, so both sides need a reader and a writer that agree.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vellant {

// Pixels top row first, each 0x00RRGGBB.
struct Bitmap {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    Bitmap() = default;
    Bitmap(int w, int h, std::uint32_t fill = 0xFFFFFF);
    std::uint32_t at(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }
    void set(int x, int y, std::uint32_t rgb) { pixels[static_cast<size_t>(y * width + x)] = rgb; }
    bool operator==(const Bitmap&) const = default;
};

// Reads uncompressed 1, 4, 8, 24 and 32-bit BMP data (bottom-up or top-down) and 8-bit RLE.
// Anything else, or damaged data, gives no picture rather than a partial one.
std::optional<Bitmap> decodeBmp(const std::vector<std::uint8_t>& bytes);
std::optional<Bitmap> readBmpFile(const std::string& path);

// 24-bit BMP, bottom-up, rows padded to four bytes.
std::vector<std::uint8_t> encodeBmp24(const Bitmap& bitmap);
// 8-bit palette BMP; the palette holds the picture's distinct colours, so a picture of more
// than 256 colours has no 8-bit form and gives an empty result.
std::vector<std::uint8_t> encodeBmp8(const Bitmap& bitmap);

bool writeBmpFile(const std::string& path, const std::vector<std::uint8_t>& encoded);

} // namespace vellant
