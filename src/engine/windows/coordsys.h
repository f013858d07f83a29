#pragma once
// A MapBasic CoordSys clause: "CoordSys Earth Projection 12, 62, \"m\", 0",
// "CoordSys NonEarth Units \"m\" Bounds (0, 0) (100, 100)". The window keeps its coordinate
// system in this form, tables give theirs as text, and statements give one in their tokens.
//
// Reading raises MbError 1 "Invalid CoordSys clause: <text>" for a clause it cannot read
// (Earth without its projection numbers, NonEarth without Units, a Bounds without two points).

#include "engine/lang/lexer.h"
#include "engine/tables/table.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vellant::engine {

struct CoordSys {
    using Parameter = std::variant<double, std::string>;

    bool earth = true;
    // Earth: the numbers after "Projection" (type, datum, "unit", parameters...); empty for a
    // plain "CoordSys Earth", which is longitude/latitude.
    std::vector<Parameter> projection;
    std::string nonEarthUnits; // NonEarth: the Units name
    std::optional<Bounds> bounds;

    // Projection type 1 (or none) is longitude/latitude.
    bool isLongLat() const;
    // The unit of coordinates: "degree" for longitude/latitude, otherwise the clause's unit.
    std::string coordinateUnit() const;
    // The clause as the host writes it; Bounds only when asked for and known.
    std::string clause(bool withBounds = false) const;
    // The same system whatever the Bounds.
    bool sameSystem(const CoordSys& other) const;
};

// The host's session default: longitude/latitude on WGS 84.
CoordSys longLatCoordSys();

// A whole clause given as text ("CoordSys" first, or "Earth"/"NonEarth" first).
CoordSys parseCoordSys(std::string_view text);

// Reads a clause from tokens[at], "CoordSys" already passed, stopping before the first token
// that is not part of it; at is left there. Table and Window forms are not read here.
CoordSys readCoordSysTokens(const std::vector<Token>& tokens, std::size_t& at);

} // namespace vellant::engine
