#pragma once
// The map host's automation object as the replay runner hands it to the program: every call
// goes on to the real host, and the transcript gets a line for it first ("do <command>",
// "eval <expression>", "menu <id>", "setcallback", "companion <message>"), then "= <answer>"
// for an eval that succeeded, or "error <code> <message>" for any call the host refused. The
// call-back the program hands over is wrapped too, so that "callback <method> <argument>"
// stands before whatever the program does about it. Reading LastErrorCode, LastErrorMessage,
// the running programs and their globals writes nothing, not even when it fails: those calls
// ask, they do not act, and the program's log tells of their failures.

#include "app/replay/transcript.h"
#include "hostmodel/mapinfo_app.h"

#include <map>
#include <memory>
#include <string>

namespace vellant::replay {

class RecordingHost : public hostmodel::MapInfoApp {
public:
    // The transcript outlives this object.
    RecordingHost(std::shared_ptr<hostmodel::MapInfoApp> host, Transcript& transcript);
    ~RecordingHost() override;

    void Do(const std::string& command) override;
    std::string eval(const std::string& expression) override;
    void RunMenuCommand(int id) override;
    std::string LastErrorMessage() const override { return host_->LastErrorMessage(); }
    int LastErrorCode() const override { return host_->LastErrorCode(); }
    void SetCallback(std::shared_ptr<hostmodel::MapInfoCallback> callback) override;
    int MBApplicationsCount() const override { return host_->MBApplicationsCount(); }
    hostmodel::MBApplication& MBApplications(int index) override;

private:
    class RecordingApplication;

    std::shared_ptr<hostmodel::MapInfoApp> host_;
    Transcript& transcript_;
    // One wrapper per running program, kept so that the references the program holds stay good.
    std::map<const hostmodel::MBApplication*, std::unique_ptr<RecordingApplication>> apps_;
};

} // namespace vellant::replay
