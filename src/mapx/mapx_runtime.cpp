#include "mapx/mapx_runtime.h"

#include "base/runtime_error.h"
#include "engine/engine.h"
#include "engine/tables/catalog.h"

namespace vellant::mapx {

MapXRuntime::MapXRuntime(engine::Engine& engine, platform::Toolkit* toolkit, StylePicker* picker)
    : engine_(engine), toolkit_(toolkit), picker_(picker) {}

platform::Toolkit& MapXRuntime::toolkit() {
    if (toolkit_ == nullptr) raiseError(kErrObjectNotSet);
    return *toolkit_;
}

StylePicker& MapXRuntime::picker() {
    if (picker_ == nullptr) raiseError(kErrObjectNotSet);
    return *picker_;
}

std::string MapXRuntime::newTableName() {
    // Table names a statement can write have no blanks.
    std::string name;
    do {
        name = "MapX Layer " + std::to_string(nextSerial());
    } while (engine_.catalog().find(name) != nullptr);
    return name;
}

std::string MapXRuntime::newTemporaryFileSpec() {
    return "~MapXTemp" + std::to_string(nextSerial()) + ".tab";
}

} // namespace vellant::mapx
