#pragma once
// MapX's unit codes (MapUnit, CoordSys Units) and the host's unit names, and how long a unit is.

#include <cstdint>
#include <optional>
#include <string_view>

namespace vellant::mapx {

// Metres in one unit of a code; nullopt for degrees (whose length depends on the place) and
// for a code that names no unit.
std::optional<double> unitMetres(std::int16_t code);
bool isUnitCode(std::int16_t code);
// The code of a unit the host names ("mi", "m", "degree"); nullopt for a name it has no code for.
std::optional<std::int16_t> unitCode(std::string_view hostName);

} // namespace vellant::mapx
