#pragma once
// The host's automation object with a recorder in front: every Do, eval, menu command and
// SetCallback is noted in order before it goes on to the real object. A test may also rewrite
// a command on its way, to make the real host refuse it with its own error.

#include "hostmodel/mapinfo_app.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vellant::testing {

class RecordingMapInfo : public hostmodel::MapInfoApp {
public:
    explicit RecordingMapInfo(std::shared_ptr<hostmodel::MapInfoApp> host)
        : host_(std::move(host)) {}

    void Do(const std::string& command) override {
        calls.push_back("do " + command);
        host_->Do(rewrite ? rewrite(command) : command);
    }
    std::string eval(const std::string& expression) override {
        calls.push_back("eval " + expression);
        return host_->eval(expression);
    }
    void RunMenuCommand(int id) override {
        calls.push_back("menu " + std::to_string(id));
        host_->RunMenuCommand(id);
    }
    std::string LastErrorMessage() const override { return host_->LastErrorMessage(); }
    int LastErrorCode() const override { return host_->LastErrorCode(); }
    void SetCallback(std::shared_ptr<hostmodel::MapInfoCallback> callback) override {
        calls.push_back(callback ? "setcallback" : "setcallback nothing");
        host_->SetCallback(std::move(callback));
    }
    int MBApplicationsCount() const override { return host_->MBApplicationsCount(); }
    hostmodel::MBApplication& MBApplications(int index) override {
        return host_->MBApplications(index);
    }

    // The calls whose text starts with the given prefix, in order.
    std::vector<std::string> callsStartingWith(const std::string& prefix) const {
        std::vector<std::string> found;
        for (const std::string& call : calls)
            if (call.rfind(prefix, 0) == 0) found.push_back(call);
        return found;
    }

    std::vector<std::string> calls;
    std::function<std::string(const std::string&)> rewrite;

private:
    std::shared_ptr<hostmodel::MapInfoApp> host_;
};

} // namespace vellant::testing
