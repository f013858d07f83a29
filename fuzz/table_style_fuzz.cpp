// Feeds arbitrary bytes to the table part's two text parsers: the MapBasic style clauses
// (Pen, Brush, Symbol, Font) and the OGR style strings GDAL gives with each feature. A clause
// may be refused with an MbError; an OGR style string is never refused. What either reads
// must write a canonical clause that reads back to the same canonical clause.

#include "engine/mb_error.h"
#include "engine/tables/ogr_style.h"
#include "engine/tables/style_clause.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace vellant::engine;

template <typename Style, typename Parse, typename Format>
void roundTrip(const Style& style, Parse parse, Format format) {
    const std::string canonical = format(style);
    if (format(parse(canonical)) != canonical) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        switch (styleClauseType(text).value_or(MbType::Logical)) {
        case MbType::Pen:
            roundTrip(parsePen(text), parsePen, formatPen);
            break;
        case MbType::Brush:
            roundTrip(parseBrush(text), parseBrush, formatBrush);
            break;
        case MbType::Symbol:
            roundTrip(parseSymbol(text), parseSymbol, formatSymbol);
            break;
        case MbType::Font:
            roundTrip(parseFont(text), parseFont, formatFont);
            break;
        default:
            break;
        }
    } catch (const MbError&) {
    }
    const OgrStyle style = readOgrStyle(text);
    if (style.pen) roundTrip(*style.pen, parsePen, formatPen);
    if (style.brush) roundTrip(*style.brush, parseBrush, formatBrush);
    if (style.symbol) roundTrip(*style.symbol, parseSymbol, formatSymbol);
    if (style.label) roundTrip(style.label->font, parseFont, formatFont);
    return 0;
}
