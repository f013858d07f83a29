// Feeds hostile geometry and styles to the map renderer: the input picks statements that put
// objects into a map's cosmetic layer and its table layer (Create Region/Pline/Point/Text Into
// Window ..., Insert), style clauses and label settings built from its bytes, coordinates from
// the huge to the not-finite, windows shrunk to nothing, and after each a small picture drawn.
// An MbError is the expected answer to a bad request; a crash, a sanitizer report or a hang is
// a fault.

#include "engine/engine.h"
#include "engine/map_object.h"
#include "engine/mb_error.h"
#include "engine/render/map_renderer.h"
#include "engine/windows/window_manager.h"

#include <QImage>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fuzzer/FuzzedDataProvider.h>
#include <limits>
#include <memory>
#include <string>
#include <unistd.h>

namespace {

using vellant::engine::Engine;
using vellant::engine::MbError;

// Save Window writes files; relative names land in a scratch folder.
void enterScratchFolder() {
    static const bool entered = [] {
        std::string templ =
            (std::filesystem::temp_directory_path() / "vellant-renderfuzz-XXXXXX").string();
        if (mkdtemp(templ.data()) == nullptr || chdir(templ.c_str()) != 0) std::abort();
        return true;
    }();
    (void)entered;
}

// Numbers as a statement writes them, leaning to the ones that break arithmetic.
std::string number(FuzzedDataProvider& in) {
    static const char* const kHostile[] = {
        "0",       "-0",   "1e308", "-1e308", "1e-320",     "180",         "-180",
        "90.0001", "1e15", "-1e15", "3.4e38", "2147483647", "-2147483648", "0.5"};
    if (in.ConsumeBool()) return kHostile[in.ConsumeIntegralInRange<std::size_t>(0, 13)];
    return std::to_string(in.ConsumeFloatingPointInRange<double>(-400, 400));
}

double rawNumber(FuzzedDataProvider& in) {
    switch (in.ConsumeIntegralInRange(0, 5)) {
    case 0:
        return std::numeric_limits<double>::quiet_NaN();
    case 1:
        return std::numeric_limits<double>::infinity();
    case 2:
        return -std::numeric_limits<double>::infinity();
    case 3:
        return std::numeric_limits<double>::max();
    default:
        return in.ConsumeFloatingPoint<double>();
    }
}

std::string point(FuzzedDataProvider& in) {
    return "(" + number(in) + ", " + number(in) + ")";
}

std::string integer(FuzzedDataProvider& in) {
    return std::to_string(in.ConsumeIntegralInRange<std::int64_t>(-70000, 17000000));
}

std::string text(FuzzedDataProvider& in) {
    std::string s = in.ConsumeRandomLengthString(24);
    for (char& c : s)
        if (c == '"' || c == '\n' || c == '\r') c = ' ';
    return "\"" + s + "\"";
}

std::string pen(FuzzedDataProvider& in) {
    return "Pen (" + integer(in) + "," + integer(in) + "," + integer(in) + ")";
}
std::string brush(FuzzedDataProvider& in) {
    return "Brush (" + integer(in) + "," + integer(in) + "," + integer(in) + ")";
}
std::string symbol(FuzzedDataProvider& in) {
    if (in.ConsumeBool())
        return "Symbol (" + integer(in) + "," + integer(in) + "," + integer(in) + ")";
    return "Symbol (" + integer(in) + "," + integer(in) + "," + integer(in) + "," + text(in) + "," +
           integer(in) + "," + number(in) + ")";
}
std::string font(FuzzedDataProvider& in) {
    std::string clause =
        "Font (" + text(in) + "," + integer(in) + "," + number(in) + "," + integer(in);
    if (in.ConsumeBool()) clause += "," + integer(in);
    return clause + ")";
}

std::string statement(FuzzedDataProvider& in, const std::string& window) {
    const std::string into = " Into Window " + window + " ";
    switch (in.ConsumeIntegralInRange(0, 11)) {
    case 0:
        return "Create Point" + into + point(in) + " " + symbol(in);
    case 1: {
        const int n = in.ConsumeIntegralInRange(0, 12);
        std::string s = "Create Region" + into + "1 " + std::to_string(n);
        for (int i = 0; i < n; ++i)
            s += " " + point(in);
        return s + " " + pen(in) + " " + brush(in);
    }
    case 2: {
        const int n = in.ConsumeIntegralInRange(0, 12);
        std::string s = "Create Pline" + into + std::to_string(n);
        for (int i = 0; i < n; ++i)
            s += " " + point(in);
        return s + " " + pen(in);
    }
    case 3:
        return "Create Text" + into + text(in) + " " + point(in) + " " + point(in) + " " + font(in);
    case 4:
        return "Create Line" + into + point(in) + " " + point(in) + " " + pen(in);
    case 5:
        return "Set Window " + window + " Width " + number(in) + " Units \"in\" Height " +
               number(in) + " Units \"mm\"";
    case 6:
        return "Set Map Window " + window + " Center " + point(in) + " Zoom " + number(in) +
               " Units \"mi\"";
    case 7:
        return "Set Map Window " + window + " Layer " +
               std::to_string(in.ConsumeIntegralInRange(0, 1)) + " Label Auto On " + font(in) +
               " Position " + (in.ConsumeBool() ? "Above Right" : "Center") + " Offset " +
               std::to_string(in.ConsumeIntegralInRange(0, 200)) + " Parallel " +
               (in.ConsumeBool() ? "On" : "Off") + " Overlap " + (in.ConsumeBool() ? "On" : "Off") +
               " Line Arrow " + pen(in) + " Object " +
               std::to_string(in.ConsumeIntegralInRange(1, 4)) + " Anchor " + point(in) +
               " Angle " + number(in);
    case 8:
        return "Set Map Window " + window + " Layer 1 Display Global Global " + pen(in) + " " +
               brush(in) + " " + symbol(in);
    case 9:
        return "Create Region Into Variable tobj 1 3 " + point(in) + " " + point(in) + " " +
               point(in);
    case 10:
        return "Insert Into Shapes (Name, Obj) Values (" + text(in) + ", tobj)";
    default:
        // Whatever the input says, in the map's context.
        return in.ConsumeRandomLengthString(200);
    }
}

void draw(Engine& engine, int id, FuzzedDataProvider& in) {
    vellant::engine::Window* window = engine.windows().find(id);
    if (window == nullptr || !window->map) return;
    QImage image(in.ConsumeIntegralInRange(0, 48), in.ConsumeIntegralInRange(0, 48),
                 QImage::Format_ARGB32_Premultiplied);
    vellant::engine::RenderOptions options;
    options.dpi = in.ConsumeBool() ? in.ConsumeFloatingPointInRange<double>(-10, 2400) : 96;
    (void)engine.renderer().draw(*window, image, options);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    enterScratchFolder();
    FuzzedDataProvider in(data, size);
    Engine engine;
    try {
        engine.run("Create Table Shapes (Name Char(10))");
        engine.run("Create Map For Shapes");
        engine.run("Dim tobj as Object");
        engine.run("Map From Shapes");
    } catch (const MbError&) {
        std::abort(); // the set-up itself must work
    }
    const int id = engine.windows().frontWindow();
    const std::string window = std::to_string(id);
    for (int steps = 0; steps < 24 && in.remaining_bytes() > 0; ++steps) {
        if (in.ConsumeIntegralInRange(0, 7) == 0) {
            // Coordinates no statement can write: not finite, straight into the cosmetic layer.
            auto object = std::make_shared<vellant::engine::MapObject>();
            object->kind =
                static_cast<vellant::engine::ObjectKind>(in.ConsumeIntegralInRange(1, 12));
            object->parts.resize(in.ConsumeIntegralInRange<std::size_t>(0, 3));
            for (auto& part : object->parts) {
                part.resize(in.ConsumeIntegralInRange<std::size_t>(0, 5));
                for (auto& p : part)
                    p = {rawNumber(in), rawNumber(in)};
            }
            if (in.ConsumeBool()) object->pen = "Pen (1,2,0)";
            try {
                engine.windows().addCosmeticObject(engine, id, object);
            } catch (const MbError&) {
            }
        } else {
            try {
                engine.run(statement(in, window));
            } catch (const MbError&) {
            }
        }
        draw(engine, id, in);
    }
    try {
        engine.run("Save Window " + window + " As \"fuzz.bmp\" Type \"BMP\" Width " +
                   std::to_string(in.ConsumeIntegralInRange(0, 40)) + " Units \"mm\"");
    } catch (const MbError&) {
    }
    return 0;
}
