// vellant-catalogue: prints the layer grid's column catalogue for both hosts, as the program
// builds it at form load: number, key, type flags, group head, glyph and tool-tip.
// Usage: vellant-catalogue [--mapinfo|--mapx] [UNIT]

#include "base/basic_text.h"
#include "grid/column_catalogue.h"
#include "hostmodel/map_object.h"
#include "platform/scripted_toolkit.h"
#include "session/session.h"

#include <cstdio>
#include <filesystem>
#include <string>

namespace {

using namespace vellant;

class UnitMap : public hostmodel::IMap {
public:
    explicit UnitMap(Variant unit) : unit_(std::move(unit)) {}
    Variant mapunit() override { return unit_; }

private:
    Variant unit_;
};

void printCatalogue(bool mapInfo, const Variant& unit) {
    platform::ScriptedToolkit toolkit;
    session::Session s(toolkit, std::filesystem::temp_directory_path().string());
    s.gIsMapInfo = toFlag(mapInfo);
    s.gColCount = mapInfo ? 38 : 39;
    s.gMap = std::make_shared<UnitMap>(unit);
    grid::setcolatts(s);

    std::printf("%s host: %d columns\n", mapInfo ? "MapInfo" : "MapX", s.gColCount);
    std::printf("%-4s %-18s %-6s %-5s %-5s %s\n", "col", "key", "type", "head", "glyph",
                "tool-tip");
    for (int c = 0; c < s.gColCount; ++c) {
        std::printf("%-4d %-18s %-6u %-5d %-5d %s\n", c,
                    s.gColKey[c].empty() ? "layer" : s.gColKey[c].c_str(),
                    static_cast<unsigned>(s.gColType[c]), s.gColGroup[c], s.gColGroupPic[c],
                    s.gColTip[c].c_str());
    }
    std::printf("\n");
}

} // namespace

int main(int argc, char** argv) {
    bool mapx = true;
    bool mapInfo = true;
    std::string unitText;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--mapinfo")
            mapx = false;
        else if (arg == "--mapx")
            mapInfo = false;
        else
            unitText = arg;
    }
    if (mapx)
        printCatalogue(false, unitText.empty() ? Variant(static_cast<std::int16_t>(7))
                                               : Variant(static_cast<std::int16_t>(Val(unitText))));
    if (mapInfo) printCatalogue(true, Variant(unitText.empty() ? std::string("m") : unitText));
    return 0;
}
