#pragma once
// The object MapInfo calls back: a press of a button of the pad "Callback" (the companion's
// advice, or the docked form's close button) and a change of a window's content.

#include "hostmodel/mapinfo_app.h"

#include <cstdint>
#include <string>

namespace vellant::session {

struct Session;

class MICallback : public hostmodel::MapInfoCallback {
public:
    explicit MICallback(Session& session) : session_(session) {}
    void RunCommand(const std::string& command) override;
    void WindowContentsChanged(std::int32_t windowId) override;

private:
    Session& session_;
};

} // namespace vellant::session
