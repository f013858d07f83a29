#pragma once
// What every MapX object of one client shares: the embedded engine whose catalog holds the
// layers' tables and whose renderer draws the maps and the style samples, the desktop (for the
// clipboard), the style picker a front end offers, and the folder of bitmap symbols. The
// runtime and its engine must outlive every object made with it.

#include <cstdint>
#include <filesystem>
#include <string>

namespace vellant::engine {
class Engine;
}
namespace vellant::platform {
class Toolkit;
}

namespace vellant::mapx {

class StylePicker;

class MapXRuntime {
public:
    // toolkit and picker may be null for a client that draws no samples and picks no styles;
    // asking for them then raises error 91.
    MapXRuntime(engine::Engine& engine, platform::Toolkit* toolkit, StylePicker* picker);

    engine::Engine& engine() { return engine_; }
    platform::Toolkit& toolkit();
    StylePicker& picker();
    void setPicker(StylePicker* picker) { picker_ = picker; }

    // Where bitmap symbols are looked for by name; the current folder until set.
    const std::filesystem::path& symbolFolder() const { return symbolFolder_; }
    void setSymbolFolder(std::filesystem::path folder) { symbolFolder_ = std::move(folder); }

    // A name for a layer's own table that no table of the engine has: a layer's table joins
    // the catalog under it, so the renderer finds it, without taking a name a MapBasic
    // program could use.
    std::string newTableName();
    // The FileSpec of a temporary layer: a name with "~" in it that names no file.
    std::string newTemporaryFileSpec();
    // A dataset name, for maps that ask for a fresh one.
    std::uint64_t nextSerial() { return ++serial_; }

private:
    engine::Engine& engine_;
    platform::Toolkit* toolkit_;
    StylePicker* picker_;
    std::filesystem::path symbolFolder_;
    std::uint64_t serial_ = 0;
};

} // namespace vellant::mapx
