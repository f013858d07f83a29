#pragma once
// The public automation class "VellantX.vllayer": a client calls one method, the method runs a
// whole modal session over one map and answers how it ended. Each call makes a fresh Session.

#include "platform/automation.h"
#include "platform/toolkit.h"

#include <functional>
#include <memory>
#include <string>

namespace vellant::session {

struct Session;

class vlLayer : public platform::AutomationObject {
public:
    static constexpr const char* kClassName = "VellantX.vllayer";

    // The toolkit and the registry outlive the object; appPath is the application directory.
    vlLayer(platform::Toolkit& toolkit, platform::AutomationRegistry& registry,
            std::string appPath);
    ~vlLayer() override;

    // A session on a MapX map: "ok" when the user accepted, "cancel" when not, "" when MapX is
    // not there.
    std::string RunLayer(const std::shared_ptr<platform::AutomationObject>& map);
    // Unloads the floating form of the running session; "OK", or "" when that failed.
    std::string ExitLayer();
    // A session on MapInfo's front map window, again at once while a restart is asked for;
    // always "ok".
    std::string RunMapInfoLayer();

    // Told of each new Session before its form loads (the replay runner hooks its transcript
    // and its tests' inspection in here).
    std::function<void(Session&)> onSessionStart;
    // The session of the call under way, or nullptr between calls.
    Session* currentSession() const { return session_.get(); }

private:
    // A fresh Session for this call, with the program's classes registered for it; a session
    // already under way (a client calling again from inside one) is kept aside and comes back.
    Session& startSession(std::unique_ptr<Session>& outer);
    void endSession(std::unique_ptr<Session> outer);

    platform::Toolkit& toolkit_;
    platform::AutomationRegistry& registry_;
    std::string appPath_;
    std::unique_ptr<Session> session_;
};

} // namespace vellant::session
