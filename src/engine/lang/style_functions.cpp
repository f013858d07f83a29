// Functions that make style values and colours.

#include "engine/engine.h"
#include "engine/lang/core_parts.h"
#include "engine/lang/function_args.h"
#include "engine/lang/registry.h"
#include "engine/lang/style_clause.h"

namespace vellant::engine {

namespace {

void addMaker(Registry& r, const char* name, int count, MbType type) {
    r.addFunction(name, count, count, [type](Engine&, Args& a) { return makeStyle(type, a); });
}

} // namespace

void registerStyleFunctions(Registry& registry) {
    addMaker(registry, "MakePen", 3, MbType::Pen);
    addMaker(registry, "MakeBrush", 3, MbType::Brush);
    addMaker(registry, "MakeSymbol", 3, MbType::Symbol);
    addMaker(registry, "MakeFontSymbol", 6, MbType::Symbol);
    addMaker(registry, "MakeCustomSymbol", 4, MbType::Symbol);
    addMaker(registry, "MakeFont", 5, MbType::Font);

    registry.addFunction("RGB", 3, 3, [](Engine&, Args& a) {
        std::int32_t colour = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            const std::int64_t part = a[i].asInteger();
            if (part < 0 || part > 255) outOfRange(i + 1, "RGB");
            colour = colour * 256 + static_cast<std::int32_t>(part);
        }
        return MbValue::integer(colour);
    });
}

} // namespace vellant::engine
