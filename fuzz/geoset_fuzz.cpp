// Feeds arbitrary text to the geoset reader that a MapX map is opened from.

#include "base/runtime_error.h"
#include "mapx/geoset.h"

#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const vellant::mapx::Geoset geoset =
            vellant::mapx::parseGeoset(std::string_view(reinterpret_cast<const char*>(data), size));
        for (const auto& table : geoset.tables)
            if (table.file.empty()) __builtin_trap();
    } catch (const vellant::RuntimeError&) {
    }
    return 0;
}
