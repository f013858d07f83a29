#include "mapx/geoset.h"

#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "engine/tables/table_path.h"
#include "hostmodel/mapx_constants.h"
#include "mapx/layer_making.h"
#include "mapx/layers.h"
#include "mapx/map.h"
#include "mapx/map_units.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

namespace vellant::mapx {

namespace {

namespace mx = hostmodel::mapx;

// The largest table number taken: a geoset lists tens of tables, not millions.
constexpr long kLastTableNumber = 10000;

std::string_view trim(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(" \t\r");
    return text.substr(first, last - first + 1);
}

// "text" at the start of the view, moved past; nullopt when there is none.
std::optional<std::string> quoted(std::string_view& rest) {
    rest = trim(rest);
    if (rest.empty() || rest.front() != '"') return std::nullopt;
    const auto end = rest.find('"', 1);
    if (end == std::string_view::npos) return std::nullopt;
    std::string value(rest.substr(1, end - 1));
    rest.remove_prefix(end + 1);
    return value;
}

std::optional<double> number(std::string_view text) {
    text = trim(text);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

bool truth(const std::string& value) {
    return UCase(value) == "TRUE";
}

std::optional<std::int16_t> mapUnitNamed(const std::string& name) {
    static const std::map<std::string, std::int16_t> kLongNames = {
        {"miles", mx::miUnitMile},
        {"kilometers", mx::miUnitKilometer},
        {"inches", mx::miUnitInch},
        {"feet", mx::miUnitFoot},
        {"yards", mx::miUnitYard},
        {"millimeters", mx::miUnitMillimeter},
        {"centimeters", mx::miUnitCentimeter},
        {"meters", mx::miUnitMeter},
        {"nautical miles", mx::miUnitNauticalMile},
        {"degrees", mx::miUnitDegree},
    };
    const std::string lower = LCase(name);
    if (const auto found = kLongNames.find(lower); found != kLongNames.end()) return found->second;
    return unitCode(lower);
}

void takeTableKey(GeosetTable& table, const std::string& key, const std::string& value) {
    if (key == "file") {
        table.file = value;
    } else if (key == "isvisible") {
        table.visible = truth(value);
    } else if (key == "autolabel") {
        table.autoLabel = truth(value);
    } else if (key == "zoom\\isvisible") {
        table.zoomLayer = truth(value);
    } else if (key == "zoom\\min") {
        table.zoomMin = number(value).value_or(table.zoomMin);
    } else if (key == "zoom\\max") {
        table.zoomMax = number(value).value_or(table.zoomMax);
    }
}

void takeGeosetKey(Geoset& geoset, const std::string& key, const std::string& value) {
    if (key == "name") {
        geoset.name = value;
    } else if (key == "center") {
        const auto comma = value.find(',');
        if (comma == std::string::npos) return;
        const auto x = number(std::string_view(value).substr(0, comma));
        const auto y = number(std::string_view(value).substr(comma + 1));
        if (x && y) {
            geoset.centreX = x;
            geoset.centreY = y;
        }
    } else if (key == "zoomlevel") {
        if (const auto zoom = number(value); zoom && *zoom > 0) geoset.zoom = zoom;
    } else if (key == "mapunit") {
        geoset.mapUnit = mapUnitNamed(value);
    }
}

} // namespace

Geoset parseGeoset(std::string_view text) {
    std::istringstream lines{std::string(text)};
    std::string line;
    bool headed = false;
    Geoset geoset;
    std::map<long, GeosetTable> tables;
    while (std::getline(lines, line)) {
        std::string_view rest = trim(line);
        if (rest.empty()) continue;
        if (!headed) {
            if (UCase(rest) != "!GEOSET") raiseError(kErrInvalidProperty, "Not a geoset");
            headed = true;
            continue;
        }
        const std::optional<std::string> key = quoted(rest);
        if (!key) continue;
        rest = trim(rest);
        if (rest.empty() || rest.front() != '=') continue;
        rest.remove_prefix(1);
        const std::optional<std::string> value = quoted(rest);
        if (!value) continue;

        const std::string lower = LCase(*key);
        if (lower.rfind("\\geoset\\", 0) == 0) {
            takeGeosetKey(geoset, lower.substr(8), *value);
        } else if (lower.rfind("\\table\\", 0) == 0) {
            const std::string path = lower.substr(7);
            long tableNumber = 0;
            const auto [end, error] =
                std::from_chars(path.data(), path.data() + path.size(), tableNumber);
            if (error != std::errc() || tableNumber < 1 || tableNumber > kLastTableNumber) continue;
            if (end == path.data() + path.size() || *end != '\\') continue;
            const std::size_t at = static_cast<std::size_t>(end - path.data()) + 1;
            // Keys are compared in lower case; values keep theirs (a file name).
            takeTableKey(tables[tableNumber], path.substr(at), *value);
        }
    }
    if (!headed) raiseError(kErrInvalidProperty, "Not a geoset");
    for (auto& entry : tables) {
        if (!entry.second.file.empty()) geoset.tables.push_back(std::move(entry.second));
    }
    return geoset;
}

void openGeoset(Map& map, const std::filesystem::path& file) {
    const std::optional<std::filesystem::path> found = engine::findFileIgnoringCase(file);
    if (!found) raiseError(kErrFileNotFound, "Geoset " + file.string() + " not found");
    std::ifstream in(*found, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    const Geoset geoset = parseGeoset(text.str());

    // Every table opens before the map changes, so that a table that fails changes nothing.
    std::vector<std::shared_ptr<Layer>> opened;
    for (const GeosetTable& table : geoset.tables) {
        // Geosets come from Windows: folders may be separated by backslashes.
        std::string written = table.file;
        std::replace(written.begin(), written.end(), '\\', '/');
        std::filesystem::path path(written);
        if (path.is_relative()) path = found->parent_path() / path;
        std::shared_ptr<Layer> layer = layerFromFile(map, path.string());
        layer->setVisible(toFlag(table.visible));
        layer->setAutolabel(toFlag(table.autoLabel));
        layer->setZoomLayer(toFlag(table.zoomLayer));
        layer->setZoomMin(table.zoomMin);
        layer->setZoomMax(table.zoomMax);
        opened.push_back(std::move(layer));
    }
    auto layers = std::dynamic_pointer_cast<Layers>(map.Layers());
    layers->RemoveAll();
    for (std::size_t i = 0; i < opened.size(); ++i)
        layers->insert(opened[i], static_cast<std::int32_t>(i + 1));
    if (geoset.mapUnit) map.setmapunit(*geoset.mapUnit);
    if (geoset.centreX && geoset.centreY) {
        map.setCenterX(*geoset.centreX);
        map.setCenterY(*geoset.centreY);
    }
    if (geoset.zoom) map.setzoom(*geoset.zoom);
}

} // namespace vellant::mapx
