#include "engine/host/companion_application.h"

#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "engine/engine.h"
#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "engine/host/mapinfo_automation.h"
#include "engine/mb_error.h"

namespace vellant::engine {

class CompanionApplication::Global : public hostmodel::MBGlobal {
public:
    Global(const CompanionApplication& app, std::string name) : app_(app), name_(std::move(name)) {}

    std::string Value() const override { return app_.companion().global(name_); }
    void setValue(const std::string& value) override { app_.companion().setGlobal(name_, value); }

private:
    const CompanionApplication& app_;
    std::string name_;
};

CompanionApplication::CompanionApplication(const MapInfoAutomation& host) : host_(host) {}
CompanionApplication::~CompanionApplication() = default;

Companion& CompanionApplication::companion() const {
    Companion* running = host_.engine().host().companion();
    if (!running) raiseError(kErrSubscript);
    return *running;
}

std::string CompanionApplication::Name() const {
    return std::string(companion().name());
}

hostmodel::MBGlobal& CompanionApplication::MBGlobals(const std::string& name) {
    if (!companion().hasGlobal(name)) raiseError(kErrSubscript);
    std::unique_ptr<Global>& global = globals_[LCase(name)];
    if (!global) global = std::make_unique<Global>(*this, name);
    return *global;
}

void CompanionApplication::Do(const std::string& command) {
    Companion& running = companion();
    try {
        running.Do(command);
    } catch (const MbError& e) {
        throw RuntimeError(e.code(), e.what());
    }
}

} // namespace vellant::engine
