#pragma once
// The companion program as the automation client sees it through MBApplications: an
// MBApplication whose globals and Do reach the engine's companion. Host errors become
// RuntimeErrors with the host's number and message; a global the program does not declare is
// error 9, as the client's collection lookup gives it. After the host has gone away every
// member raises error 462.

#include "hostmodel/mapinfo_app.h"

#include <map>
#include <memory>
#include <string>

namespace vellant::engine {

class Companion;
class MapInfoAutomation;

class CompanionApplication : public hostmodel::MBApplication {
public:
    // The automation object owns this adapter and outlives it.
    explicit CompanionApplication(const MapInfoAutomation& host);
    ~CompanionApplication() override;

    std::string Name() const override;
    hostmodel::MBGlobal& MBGlobals(const std::string& name) override;
    void Do(const std::string& command) override;

    // The running companion; error 462 when the host has gone, 9 when it no longer runs.
    Companion& companion() const;

private:
    class Global;
    const MapInfoAutomation& host_;
    std::map<std::string, std::unique_ptr<Global>> globals_; // by lower-case name
};

} // namespace vellant::engine
