#include "hostmodel/mapper.h"

#include "hostmodel/facade_calls.h"

namespace vellant::hostmodel {

using detail::isT;
using detail::loggedGet;

std::int16_t Mapper::wintype(std::int32_t& id) {
    return loggedGet<std::int16_t>(context_, "Error from get wintype ", [&]() -> std::int16_t {
        if (id == 0) return 0;
        return detail::toInteger(context_.mapInfo().eval("WIndowInfo(" + Str(id) + ",3)"));
    });
}

std::string Mapper::titletext() {
    return loggedGet<std::string>(context_, "Error from get titletext ", [&] {
        return context_.mapInfo().eval("WindowInfo(" + Str(context_.viewWindow()) + ",1)");
    });
}

float Mapper::zoom() {
    return loggedGet<float>(context_, "Error from get zoom ", [&] {
        return detail::toSingle(
            context_.mapInfo().eval("mapperinfo(" + Str(context_.viewWindow()) + ",1)"));
    });
}

std::string Mapper::TableName(std::int16_t table) {
    return loggedGet<std::string>(context_, "Error from get tablename ", [&] {
        return context_.mapInfo().eval("tableinfo(" + Str(table) + ",1)");
    });
}

bool Mapper::TableMappable(std::int16_t table) {
    return loggedGet<bool>(context_, "Error from get TableMappable ", [&] {
        return isT(context_.mapInfo().eval("tableinfo(" + Str(table) + ",5)"));
    });
}

Variant Mapper::mapunit() {
    // The unit is text on this host; a failure answers the empty text, not an empty Variant.
    return Variant(loggedGet<std::string>(context_, "Error from get mapunit ", [&] {
        return context_.mapInfo().eval("mapperinfo(" + Str(context_.viewWindow()) + ",12)");
    }));
}

} // namespace vellant::hostmodel
