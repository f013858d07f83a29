#pragma once
// The embedded host's automation object: the MapInfoApp a client finds running under
// "MapInfo.Application". Do runs a statement, eval evaluates an expression and answers the
// text the host prints, RunMenuCommand runs a menu command; each of the three clears the last
// error when it succeeds, and when it fails keeps the host's error number and message as
// LastErrorCode and LastErrorMessage and raises them as a RuntimeError. Call-backs to the
// client (button presses, window changes) arrive synchronously, also while a Do runs.
//
// The running-object registration keeps the object alive, as the desktop's table of running
// objects does; close() is the host going away: it revokes the registration and lets go of the
// engine, and from then on every member raises error 462, as calls to a server that has gone
// away do. A RuntimeError thrown by the engine's own run-time (an overflow, say) is reported
// the same way with its own number; any other failure as error 440 "Automation error".

#include "hostmodel/mapinfo_app.h"
#include "platform/automation.h"

#include <memory>
#include <string>

namespace vellant::engine {

class Engine;
class CompanionApplication;

inline constexpr int kErrServerGone = 462; // "The remote server machine does not exist or is
                                           // unavailable"

class MapInfoAutomation : public hostmodel::MapInfoApp,
                          public std::enable_shared_from_this<MapInfoAutomation> {
public:
    static constexpr const char* kClassName = "MapInfo.Application";

    explicit MapInfoAutomation(std::shared_ptr<Engine> engine);
    ~MapInfoAutomation() override;
    MapInfoAutomation(const MapInfoAutomation&) = delete;
    MapInfoAutomation& operator=(const MapInfoAutomation&) = delete;

    // Registers this object (held by a shared_ptr) as running under kClassName until close().
    void registerRunning(platform::AutomationRegistry& registry);
    void close();
    bool closed() const { return engine_ == nullptr; }
    // The engine behind the object; error 462 after close().
    Engine& engine() const;

    void Do(const std::string& command) override;
    std::string eval(const std::string& expression) override;
    void RunMenuCommand(int id) override;
    std::string LastErrorMessage() const override;
    int LastErrorCode() const override;
    void SetCallback(std::shared_ptr<hostmodel::MapInfoCallback> callback) override;
    int MBApplicationsCount() const override;
    // Item 1 is the companion "vellant.mbx" once it runs.
    hostmodel::MBApplication& MBApplications(int index) override;

private:
    template <class Call> auto guarded(Call&& call);

    std::shared_ptr<Engine> engine_;
    platform::AutomationRegistry* registry_ = nullptr;
    std::string lastErrorMessage_;
    int lastErrorCode_ = 0;
    std::unique_ptr<CompanionApplication> companion_;
};

} // namespace vellant::engine
