#include "engine/windows/units.h"

#include "engine/mb_error.h"

#include <array>
#include <cctype>

namespace vellant::engine {

namespace {

struct Unit {
    std::string_view name;
    double factor; // metres, inches or square metres per unit
};

// The US survey foot is exactly 1200/3937 m; links, chains and rods are survey measures.
constexpr double kSurveyFoot = 1200.0 / 3937.0;

constexpr std::array kDistanceUnits{
    Unit{"mi", 1609.344},
    Unit{"km", 1000.0},
    Unit{"in", 0.0254},
    Unit{"ft", 0.3048},
    Unit{"yd", 0.9144},
    Unit{"mm", 0.001},
    Unit{"cm", 0.01},
    Unit{"m", 1.0},
    Unit{"survey ft", kSurveyFoot},
    Unit{"nmi", 1852.0},
    Unit{"li", 0.66 * kSurveyFoot},
    Unit{"ch", 66.0 * kSurveyFoot},
    Unit{"rd", 16.5 * kSurveyFoot},
    Unit{"pt", 0.0254 / 72.0},
    Unit{"pica", 0.0254 / 6.0},
};

constexpr std::array kPaperUnits{
    Unit{"in", 1.0},        Unit{"cm", 1.0 / 2.54},  Unit{"mm", 1.0 / 25.4},
    Unit{"pt", 1.0 / 72.0}, Unit{"pica", 1.0 / 6.0},
};

constexpr double kSqMile = 1609.344 * 1609.344;
constexpr double kSqFoot = 0.3048 * 0.3048;
constexpr double kSqSurveyFoot = kSurveyFoot * kSurveyFoot;

constexpr std::array kAreaUnits{
    Unit{"sq mi", kSqMile},
    Unit{"sq km", 1e6},
    Unit{"sq in", 0.0254 * 0.0254},
    Unit{"sq ft", kSqFoot},
    Unit{"sq yd", 0.9144 * 0.9144},
    Unit{"sq mm", 1e-6},
    Unit{"sq cm", 1e-4},
    Unit{"sq m", 1.0},
    Unit{"sq survey ft", kSqSurveyFoot},
    Unit{"sq nmi", 1852.0 * 1852.0},
    Unit{"sq li", 0.66 * 0.66 * kSqSurveyFoot},
    Unit{"sq ch", 66.0 * 66.0 * kSqSurveyFoot},
    Unit{"sq rd", 16.5 * 16.5 * kSqSurveyFoot},
    Unit{"acre", 43560.0 * kSqSurveyFoot},
    Unit{"hectare", 1e4},
    Unit{"perch", 16.5 * 16.5 * kSqSurveyFoot},
    Unit{"rood", 10890.0 * kSqSurveyFoot},
};

// Letter case and runs of blanks do not matter: "Survey  FT" is "survey ft".
std::string normalise(std::string_view name) {
    std::string out;
    bool blank = false;
    for (char c : name) {
        if (c == ' ' || c == '\t') {
            blank = !out.empty();
            continue;
        }
        if (blank) out.push_back(' ');
        blank = false;
        out.push_back(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
    }
    return out;
}

template <std::size_t N>
const Unit* findUnit(const std::array<Unit, N>& units, std::string_view name) {
    const std::string key = normalise(name);
    for (const Unit& unit : units)
        if (unit.name == key) return &unit;
    return nullptr;
}

template <std::size_t N>
const Unit& getUnit(const std::array<Unit, N>& units, std::string_view name, const char* kind) {
    if (const Unit* unit = findUnit(units, name)) return *unit;
    raiseMb(kMbSyntax, std::string("Unrecognized ") + kind + ": " + std::string(name));
}

} // namespace

double distanceUnitMetres(std::string_view name) {
    return getUnit(kDistanceUnits, name, "distance unit").factor;
}

std::string distanceUnitName(std::string_view name) {
    return std::string(getUnit(kDistanceUnits, name, "distance unit").name);
}

bool isDistanceUnit(std::string_view name) {
    return findUnit(kDistanceUnits, name) != nullptr;
}

double paperUnitInches(std::string_view name) {
    return getUnit(kPaperUnits, name, "paper unit").factor;
}

std::string paperUnitName(std::string_view name) {
    return std::string(getUnit(kPaperUnits, name, "paper unit").name);
}

double areaUnitSquareMetres(std::string_view name) {
    return getUnit(kAreaUnits, name, "area unit").factor;
}

std::string areaUnitName(std::string_view name) {
    return std::string(getUnit(kAreaUnits, name, "area unit").name);
}

bool isCoordinateUnit(std::string_view name) {
    return normalise(name) == "degree" || isDistanceUnit(name);
}

std::string coordinateUnitName(std::string_view name) {
    if (normalise(name) == "degree") return "degree";
    if (const Unit* unit = findUnit(kDistanceUnits, name)) return std::string(unit->name);
    raiseMb(kMbSyntax, "Unrecognized coordinate unit: " + std::string(name));
}

double convertDistance(double value, std::string_view fromUnit, std::string_view toUnit) {
    return value * distanceUnitMetres(fromUnit) / distanceUnitMetres(toUnit);
}

} // namespace vellant::engine
