#include "engine/tables/charset.h"

#include "base/basic_text.h"

#include <array>
#include <cerrno>
#include <iconv.h>

namespace vellant::engine {

namespace {

struct CharsetName {
    const char* mapInfo; // lower case
    const char* iconv;
};

// MapInfo's charset names (as written in .tab and .wor headers) and their code pages.
constexpr std::array<CharsetName, 41> kCharsets{{
    {"neutral", ""},
    {"utf-8", "UTF-8"},
    {"utf8", "UTF-8"},
    {"windowslatin1", "CP1252"},
    {"windowslatin2", "CP1250"},
    {"windowscyrillic", "CP1251"},
    {"windowsgreek", "CP1253"},
    {"windowsturkish", "CP1254"},
    {"windowshebrew", "CP1255"},
    {"windowsarabic", "CP1256"},
    {"windowsbalticrim", "CP1257"},
    {"windowsvietnamese", "CP1258"},
    {"windowsthai", "CP874"},
    {"windowssimpchinese", "CP936"},
    {"windowstradchinese", "CP950"},
    {"windowsjapanese", "CP932"},
    {"windowskorean", "CP949"},
    {"windowskoreanjohab", "JOHAB"},
    {"codepage437", "CP437"},
    {"codepage850", "CP850"},
    {"codepage852", "CP852"},
    {"codepage855", "CP855"},
    {"codepage857", "CP857"},
    {"codepage860", "CP860"},
    {"codepage861", "CP861"},
    {"codepage863", "CP863"},
    {"codepage864", "CP864"},
    {"codepage865", "CP865"},
    {"codepage869", "CP869"},
    {"iso8859_1", "ISO-8859-1"},
    {"iso8859_2", "ISO-8859-2"},
    {"iso8859_3", "ISO-8859-3"},
    {"iso8859_4", "ISO-8859-4"},
    {"iso8859_5", "ISO-8859-5"},
    {"iso8859_6", "ISO-8859-6"},
    {"iso8859_7", "ISO-8859-7"},
    {"iso8859_8", "ISO-8859-8"},
    {"iso8859_9", "ISO-8859-9"},
    {"iso8859_15", "ISO-8859-15"},
    {"packedeucjapanese", "EUC-JP"},
    {"macroman", "MACINTOSH"},
}};

} // namespace

std::optional<std::string> iconvCharsetName(std::string_view mapInfoName) {
    const std::string wanted = LCase(mapInfoName);
    for (const CharsetName& charset : kCharsets)
        if (wanted == charset.mapInfo) return std::string(charset.iconv);
    return std::nullopt;
}

const std::vector<std::string>& windowsCodePages() {
    static const std::vector<std::string> pages{"CP1252", "CP1251", "CP1250", "CP1253", "CP1254",
                                                "CP1257", "CP1255", "CP1256", "CP1258", "CP874",
                                                "CP936",  "CP950",  "CP932",  "CP949"};
    return pages;
}

bool fitsCodePage(std::string_view utf8, const std::string& codePage) {
    iconv_t handle = iconv_open(codePage.c_str(), "UTF-8");
    if (handle == reinterpret_cast<iconv_t>(-1)) return false;
    std::string input(utf8);
    char* in = input.data();
    std::size_t inLeft = input.size();
    std::array<char, 1024> buffer{};
    bool fits = true;
    while (inLeft > 0) {
        char* out = buffer.data();
        std::size_t outLeft = buffer.size();
        if (iconv(handle, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1) &&
            errno != E2BIG) {
            fits = false;
            break;
        }
    }
    iconv_close(handle);
    return fits;
}

} // namespace vellant::engine
