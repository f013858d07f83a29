#include "engine/host/mapinfo_automation.h"

#include "base/runtime_error.h"
#include "engine/engine.h"
#include "engine/host/companion_application.h"
#include "engine/host/host_services.h"
#include "engine/mb_error.h"

#include <exception>
#include <type_traits>
#include <utility>

namespace vellant::engine {

MapInfoAutomation::MapInfoAutomation(std::shared_ptr<Engine> engine)
    : engine_(std::move(engine)), companion_(std::make_unique<CompanionApplication>(*this)) {
    if (!engine_) raiseError(kErrInvalidCall);
}

// The registry holds a strong reference, so by the time this runs the object is no longer
// registered, or the registry itself is being torn down: there is nothing to revoke.
MapInfoAutomation::~MapInfoAutomation() = default;

void MapInfoAutomation::registerRunning(platform::AutomationRegistry& registry) {
    engine(); // a closed host does not come back
    registry.registerRunning(kClassName, shared_from_this());
    registry_ = &registry;
}

void MapInfoAutomation::close() {
    if (registry_) {
        // Only our own registration: another host may have taken the name since.
        if (registry_->isRunning(kClassName) && registry_->GetObject(kClassName).get() == this)
            registry_->revokeRunning(kClassName);
        registry_ = nullptr;
    }
    engine_.reset();
}

Engine& MapInfoAutomation::engine() const {
    if (!engine_) raiseError(kErrServerGone);
    return *engine_;
}

// Runs one call into the engine and keeps its outcome as the last error. The engine stays
// alive for the call even if a call-back closes the host meanwhile.
template <class Call> auto MapInfoAutomation::guarded(Call&& call) {
    const std::shared_ptr<Engine> engine = engine_;
    if (!engine) raiseError(kErrServerGone);
    const auto fail = [this](int code, std::string message) {
        lastErrorCode_ = code;
        lastErrorMessage_ = message;
        throw RuntimeError(code, std::move(message));
    };
    try {
        if constexpr (std::is_void_v<decltype(call(*engine))>) {
            call(*engine);
            lastErrorCode_ = 0;
            lastErrorMessage_.clear();
            return;
        } else {
            auto result = call(*engine);
            lastErrorCode_ = 0;
            lastErrorMessage_.clear();
            return result;
        }
    } catch (const MbError& e) {
        fail(e.code(), e.what());
    } catch (const RuntimeError& e) {
        fail(e.number(), e.description());
    } catch (const std::exception& e) {
        fail(kErrAutomation, e.what());
    }
    throw RuntimeError(kErrAutomation); // not reached: fail() throws
}

void MapInfoAutomation::Do(const std::string& command) {
    guarded([&](Engine& engine) { engine.run(command); });
}

std::string MapInfoAutomation::eval(const std::string& expression) {
    return guarded([&](Engine& engine) { return engine.evaluate(expression).toEvalText(); });
}

void MapInfoAutomation::RunMenuCommand(int id) {
    guarded([&](Engine& engine) { engine.runMenuCommand(id); });
}

std::string MapInfoAutomation::LastErrorMessage() const {
    engine();
    return lastErrorMessage_;
}

int MapInfoAutomation::LastErrorCode() const {
    engine();
    return lastErrorCode_;
}

void MapInfoAutomation::SetCallback(std::shared_ptr<hostmodel::MapInfoCallback> callback) {
    engine().host().setCallback(std::move(callback));
}

int MapInfoAutomation::MBApplicationsCount() const {
    return engine().host().applicationCount();
}

hostmodel::MBApplication& MapInfoAutomation::MBApplications(int index) {
    if (index < 1 || index > MBApplicationsCount()) raiseError(kErrSubscript);
    return *companion_;
}

} // namespace vellant::engine
