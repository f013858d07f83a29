#include "engine/workspace/workspace_charset.h"

#include "base/basic_text.h"
#include "engine/mb_error.h"
#include "engine/tables/charset.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iconv.h>
#include <utility>

namespace vellant::engine {

namespace {

int lineAt(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, std::min(offset, text.size()));
    int lines = 1;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i] == '\n' ||
            (before[i] == '\r' && (i + 1 >= before.size() || before[i + 1] != '\n')))
            ++lines;
    }
    return lines;
}

[[noreturn]] void notInCharset(const std::string& charset, std::string_view text,
                               std::size_t offset) {
    raiseMb(kMbInvalidFormat,
            "Text not in " + charset + " at line " + std::to_string(lineAt(text, offset)) + ".");
}

// The offset of the first byte that does not begin a well-formed UTF-8 sequence, or npos.
std::size_t firstBadUtf8(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size()) {
        const auto c = static_cast<unsigned char>(text[i]);
        std::size_t length = 0;
        unsigned minimum = 0;
        unsigned code = 0;
        if (c < 0x80) {
            ++i;
            continue;
        } else if ((c & 0xe0) == 0xc0) {
            length = 2, minimum = 0x80, code = c & 0x1fu;
        } else if ((c & 0xf0) == 0xe0) {
            length = 3, minimum = 0x800, code = c & 0x0fu;
        } else if ((c & 0xf8) == 0xf0) {
            length = 4, minimum = 0x10000, code = c & 0x07u;
        } else {
            return i;
        }
        if (i + length > text.size()) return i;
        for (std::size_t k = 1; k < length; ++k) {
            const auto next = static_cast<unsigned char>(text[i + k]);
            if ((next & 0xc0) != 0x80) return i;
            code = (code << 6) | (next & 0x3fu);
        }
        if (code < minimum || code > 0x10ffff || (code >= 0xd800 && code <= 0xdfff)) return i;
        i += length;
    }
    return std::string_view::npos;
}

class Converter {
public:
    explicit Converter(const std::string& from) : handle_(iconv_open("UTF-8", from.c_str())) {}
    ~Converter() {
        if (ok()) iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    bool ok() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    // The converted text, or the offset of the first byte that would not convert.
    std::pair<std::string, std::size_t> convert(std::string_view text) {
        std::string out;
        std::string input(text);
        char* in = input.data();
        std::size_t inLeft = input.size();
        std::array<char, 4096> buffer{};
        while (inLeft > 0) {
            char* outAt = buffer.data();
            std::size_t outLeft = buffer.size();
            const std::size_t result = iconv(handle_, &in, &inLeft, &outAt, &outLeft);
            out.append(buffer.data(), buffer.size() - outLeft);
            if (result == static_cast<std::size_t>(-1) && errno != E2BIG)
                return {std::move(out), static_cast<std::size_t>(in - input.data())};
        }
        char* outAt = buffer.data();
        std::size_t outLeft = buffer.size();
        iconv(handle_, nullptr, nullptr, &outAt, &outLeft);
        out.append(buffer.data(), buffer.size() - outLeft);
        return {std::move(out), std::string_view::npos};
    }

private:
    iconv_t handle_;
};

} // namespace

std::string charsetForText(std::string_view text) {
    const bool ascii = std::all_of(text.begin(), text.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return ascii ? "Neutral" : "UTF-8";
}

std::string workspaceTextAsUtf8(std::string_view text, const std::string& charset,
                                int charsetLine) {
    if (charset.empty()) return std::string(text);
    const std::optional<std::string> from = iconvCharsetName(charset);
    if (!from)
        raiseMb(kMbInvalidFormat,
                "Unknown charset " + charset + " at line " + std::to_string(charsetLine) + ".");
    if (from->empty()) return std::string(text);
    if (*from == "UTF-8") {
        const std::size_t bad = firstBadUtf8(text);
        if (bad != std::string_view::npos) notInCharset(charset, text, bad);
        return std::string(text);
    }
    Converter converter(*from);
    if (!converter.ok())
        raiseMb(kMbInvalidFormat, "Charset " + charset + " at line " + std::to_string(charsetLine) +
                                      " cannot be read on this system.");
    auto [converted, bad] = converter.convert(text);
    if (bad != std::string_view::npos) notInCharset(charset, text, bad);
    return std::move(converted);
}

} // namespace vellant::engine
