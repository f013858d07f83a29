#include "mapx/map_units.h"

#include "hostmodel/mapx_constants.h"

#include <array>

namespace vellant::mapx {

namespace {

namespace mx = hostmodel::mapx;

struct Unit {
    std::int16_t code;
    std::string_view hostName;
    double metres; // 0 for degrees
};

constexpr double kInch = 0.0254;
constexpr double kSurveyFoot = 1200.0 / 3937.0;

constexpr std::array kUnits{
    Unit{mx::miUnitMile, "mi", 1609.344},
    Unit{mx::miUnitKilometer, "km", 1000.0},
    Unit{mx::miUnitInch, "in", kInch},
    Unit{mx::miUnitFoot, "ft", 0.3048},
    Unit{mx::miUnitYard, "yd", 0.9144},
    Unit{mx::miUnitMillimeter, "mm", 0.001},
    Unit{mx::miUnitCentimeter, "cm", 0.01},
    Unit{mx::miUnitMeter, "m", 1.0},
    Unit{mx::miUnitSurveyFoot, "survey ft", kSurveyFoot},
    Unit{mx::miUnitNauticalMile, "nmi", 1852.0},
    Unit{mx::miUnitTwip, "twip", kInch / 1440.0},
    Unit{mx::miUnitPoint, "pt", kInch / 72.0},
    Unit{mx::miUnitPica, "pica", kInch / 6.0},
    Unit{mx::miUnitDegree, "degree", 0},
    Unit{mx::miUnitLink, "li", 0.66 * kSurveyFoot},
    Unit{mx::miUnitChain, "ch", 66.0 * kSurveyFoot},
    Unit{mx::miUnitRod, "rd", 16.5 * kSurveyFoot},
};

const Unit* find(std::int16_t code) {
    for (const Unit& unit : kUnits)
        if (unit.code == code) return &unit;
    return nullptr;
}

} // namespace

std::optional<double> unitMetres(std::int16_t code) {
    const Unit* unit = find(code);
    if (unit == nullptr || unit->metres == 0) return std::nullopt;
    return unit->metres;
}

bool isUnitCode(std::int16_t code) {
    return find(code) != nullptr;
}

std::optional<std::int16_t> unitCode(std::string_view hostName) {
    for (const Unit& unit : kUnits)
        if (unit.hostName == hostName) return unit.code;
    return std::nullopt;
}

} // namespace vellant::mapx
