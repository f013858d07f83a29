#include "base/bmp.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>

namespace vellant {

namespace {

constexpr size_t kFileHeaderSize = 14;
constexpr size_t kInfoHeaderSize = 40;
// Far beyond any style sample; a header that claims more is damaged or hostile.
constexpr std::int64_t kMaxPixels = 16LL * 1024 * 1024;
// Run-length data cannot stand for many more pixels than it has bytes (deltas aside), so a
// small file claiming a huge picture is refused before anything is allocated.
constexpr std::int64_t kMaxRlePixelsPerByte = 1024;

std::uint32_t le32(const std::vector<std::uint8_t>& b, size_t at) {
    return static_cast<std::uint32_t>(b[at]) | static_cast<std::uint32_t>(b[at + 1]) << 8 |
           static_cast<std::uint32_t>(b[at + 2]) << 16 |
           static_cast<std::uint32_t>(b[at + 3]) << 24;
}

std::uint16_t le16(const std::vector<std::uint8_t>& b, size_t at) {
    return static_cast<std::uint16_t>(b[at] | b[at + 1] << 8);
}

void put32(std::vector<std::uint8_t>& b, std::uint32_t v) {
    for (int i = 0; i < 4; ++i)
        b.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
}

void put16(std::vector<std::uint8_t>& b, std::uint16_t v) {
    b.push_back(static_cast<std::uint8_t>(v));
    b.push_back(static_cast<std::uint8_t>(v >> 8));
}

size_t rowStride(int width, int bits) {
    return ((static_cast<size_t>(width) * static_cast<size_t>(bits) + 31) / 32) * 4;
}

void putHeaders(std::vector<std::uint8_t>& out, const Bitmap& bm, std::uint16_t bits,
                std::uint32_t paletteEntries) {
    const auto imageSize =
        static_cast<std::uint32_t>(rowStride(bm.width, bits) * static_cast<size_t>(bm.height));
    const auto offset =
        static_cast<std::uint32_t>(kFileHeaderSize + kInfoHeaderSize + paletteEntries * 4);
    out.push_back('B');
    out.push_back('M');
    put32(out, offset + imageSize);
    put32(out, 0);
    put32(out, offset);
    put32(out, kInfoHeaderSize);
    put32(out, static_cast<std::uint32_t>(bm.width));
    put32(out, static_cast<std::uint32_t>(bm.height));
    put16(out, 1);
    put16(out, bits);
    put32(out, 0);
    put32(out, imageSize);
    put32(out, 3780); // 96 dpi in pixels per metre
    put32(out, 3780);
    put32(out, paletteEntries);
    put32(out, 0);
}

// Expands 8-bit RLE into one palette index per pixel, bottom-up rows as stored.
bool decodeRle8(const std::vector<std::uint8_t>& b, size_t pos, int width, int height,
                std::vector<std::uint8_t>& indices) {
    indices.assign(static_cast<size_t>(width) * static_cast<size_t>(height), 0);
    int x = 0;
    int y = 0;
    while (pos + 1 < b.size()) {
        const std::uint8_t count = b[pos];
        const std::uint8_t value = b[pos + 1];
        pos += 2;
        if (count > 0) {
            for (int i = 0; i < count && x < width && y < height; ++i, ++x)
                indices[static_cast<size_t>(y * width + x)] = value;
            continue;
        }
        if (value == 0) { // end of line
            x = 0;
            ++y;
        } else if (value == 1) { // end of bitmap
            return true;
        } else if (value == 2) { // delta
            if (pos + 1 >= b.size()) return false;
            x += b[pos];
            y += b[pos + 1];
            pos += 2;
        } else { // absolute run, padded to an even length
            const size_t n = value;
            if (pos + n > b.size()) return false;
            for (size_t i = 0; i < n; ++i, ++x)
                if (x < width && y < height)
                    indices[static_cast<size_t>(y * width + x)] = b[pos + i];
            pos += n + (n & 1);
        }
        if (y >= height) return true;
    }
    return true;
}

} // namespace

Bitmap::Bitmap(int w, int h, std::uint32_t fill)
    : width(w), height(h), pixels(static_cast<size_t>(w) * static_cast<size_t>(h), fill) {}

std::optional<Bitmap> decodeBmp(const std::vector<std::uint8_t>& b) {
    if (b.size() < kFileHeaderSize + 12 || b[0] != 'B' || b[1] != 'M') return std::nullopt;
    const std::uint32_t dataOffset = le32(b, 10);
    const std::uint32_t headerSize = le32(b, 14);
    if (headerSize < 12 || kFileHeaderSize + headerSize > b.size()) return std::nullopt;

    std::int64_t width = 0;
    std::int64_t height = 0;
    std::uint16_t bits = 0;
    std::uint32_t compression = 0;
    std::uint32_t paletteCount = 0;
    size_t paletteEntrySize = 4;
    if (headerSize == 12) { // OS/2 core header
        width = le16(b, 18);
        height = static_cast<std::int16_t>(le16(b, 20));
        bits = le16(b, 24);
        paletteEntrySize = 3;
    } else {
        if (headerSize < kInfoHeaderSize) return std::nullopt;
        width = static_cast<std::int32_t>(le32(b, 18));
        height = static_cast<std::int32_t>(le32(b, 22));
        bits = le16(b, 28);
        compression = le32(b, 30);
        paletteCount = le32(b, 46);
    }
    const bool topDown = height < 0;
    height = std::abs(height);
    if (width <= 0 || height <= 0 || width * height > kMaxPixels) return std::nullopt;
    const bool rle8 = compression == 1 && bits == 8;
    if (compression != 0 && !rle8 && !(compression == 3 && bits == 32)) return std::nullopt;
    if (bits != 1 && bits != 4 && bits != 8 && bits != 24 && bits != 32) return std::nullopt;

    std::vector<std::uint32_t> palette;
    if (bits <= 8) {
        const std::uint32_t maxEntries = 1u << bits;
        if (paletteCount == 0 || paletteCount > maxEntries) paletteCount = maxEntries;
        const size_t start = kFileHeaderSize + headerSize;
        for (std::uint32_t i = 0; i < paletteCount; ++i) {
            const size_t at = start + i * paletteEntrySize;
            if (at + 3 > b.size()) break;
            palette.push_back(static_cast<std::uint32_t>(b[at + 2]) << 16 |
                              static_cast<std::uint32_t>(b[at + 1]) << 8 | b[at]);
        }
    }
    if (dataOffset >= b.size()) return std::nullopt;

    const int w = static_cast<int>(width);
    const int h = static_cast<int>(height);
    if (!rle8 && dataOffset + rowStride(w, bits) * static_cast<size_t>(h) > b.size())
        return std::nullopt;
    if (rle8 && width * height > kMaxRlePixelsPerByte * static_cast<std::int64_t>(b.size()))
        return std::nullopt;
    Bitmap out(w, h, 0);
    auto paletteColour = [&](size_t index) -> std::uint32_t {
        return index < palette.size() ? palette[index] : 0;
    };

    if (rle8) {
        std::vector<std::uint8_t> indices;
        if (!decodeRle8(b, dataOffset, w, h, indices)) return std::nullopt;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                out.set(x, topDown ? y : h - 1 - y,
                        paletteColour(indices[static_cast<size_t>(y * w + x)]));
        return out;
    }

    const size_t stride = rowStride(w, bits);
    for (int row = 0; row < h; ++row) {
        const size_t base = dataOffset + stride * static_cast<size_t>(row);
        const int y = topDown ? row : h - 1 - row;
        for (int x = 0; x < w; ++x) {
            const auto ux = static_cast<size_t>(x);
            std::uint32_t rgb = 0;
            switch (bits) {
            case 1:
                rgb = paletteColour((b[base + ux / 8] >> (7 - ux % 8)) & 1);
                break;
            case 4:
                rgb = paletteColour((b[base + ux / 2] >> (ux % 2 ? 0 : 4)) & 0xF);
                break;
            case 8:
                rgb = paletteColour(b[base + ux]);
                break;
            default: {
                const size_t at = base + ux * (bits / 8);
                rgb = static_cast<std::uint32_t>(b[at + 2]) << 16 |
                      static_cast<std::uint32_t>(b[at + 1]) << 8 | b[at];
            }
            }
            out.set(x, y, rgb);
        }
    }
    return out;
}

std::optional<Bitmap> readBmpFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    if (!in) return std::nullopt;
    // Read whole: grid samples are read back one after the other.
    const std::streamoff size = in.tellg();
    if (size < 0) return std::nullopt;
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    in.seekg(0);
    if (!in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size)))
        return std::nullopt;
    return decodeBmp(bytes);
}

std::vector<std::uint8_t> encodeBmp24(const Bitmap& bm) {
    std::vector<std::uint8_t> out;
    putHeaders(out, bm, 24, 0);
    const size_t stride = rowStride(bm.width, 24);
    const size_t headers = out.size();
    // Sized once and filled in place: the padding bytes are the zeros it starts with.
    out.resize(headers + stride * static_cast<size_t>(std::max(bm.height, 0)));
    std::uint8_t* line = out.data() + headers;
    for (int y = bm.height - 1; y >= 0; --y, line += stride) {
        const std::uint32_t* pixel = bm.pixels.data() + static_cast<size_t>(y) * bm.width;
        std::uint8_t* byte = line;
        for (int x = 0; x < bm.width; ++x, byte += 3) {
            const std::uint32_t rgb = pixel[x];
            byte[0] = static_cast<std::uint8_t>(rgb);
            byte[1] = static_cast<std::uint8_t>(rgb >> 8);
            byte[2] = static_cast<std::uint8_t>(rgb >> 16);
        }
    }
    return out;
}

std::vector<std::uint8_t> encodeBmp8(const Bitmap& bm) {
    std::map<std::uint32_t, std::uint8_t> index;
    std::vector<std::uint32_t> palette;
    for (std::uint32_t rgb : bm.pixels) {
        if (index.count(rgb)) continue;
        if (palette.size() == 256) return {};
        index[rgb] = static_cast<std::uint8_t>(palette.size());
        palette.push_back(rgb);
    }
    std::vector<std::uint8_t> out;
    putHeaders(out, bm, 8, static_cast<std::uint32_t>(palette.size()));
    for (std::uint32_t rgb : palette) {
        out.push_back(static_cast<std::uint8_t>(rgb));
        out.push_back(static_cast<std::uint8_t>(rgb >> 8));
        out.push_back(static_cast<std::uint8_t>(rgb >> 16));
        out.push_back(0);
    }
    const size_t stride = rowStride(bm.width, 8);
    for (int y = bm.height - 1; y >= 0; --y) {
        for (int x = 0; x < bm.width; ++x)
            out.push_back(index[bm.at(x, y)]);
        out.insert(out.end(), stride - static_cast<size_t>(bm.width), 0);
    }
    return out;
}

bool writeBmpFile(const std::string& path, const std::vector<std::uint8_t>& encoded) {
    if (encoded.empty()) return false;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    out.write(reinterpret_cast<const char*>(encoded.data()),
              static_cast<std::streamsize>(encoded.size()));
    return static_cast<bool>(out);
}

} // namespace vellant
