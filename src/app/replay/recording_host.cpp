#include "app/replay/recording_host.h"

#include "base/runtime_error.h"

#include <utility>

namespace vellant::replay {

namespace {

// Runs a host call; a refusal is written down and goes on to the program unchanged.
template <class Call> auto recorded(Transcript& transcript, Call&& call) {
    try {
        return call();
    } catch (const RuntimeError& e) {
        transcript.write("error", std::to_string(e.number()) + " " + e.description());
        throw;
    }
}

class RecordingCallback : public hostmodel::MapInfoCallback {
public:
    RecordingCallback(std::shared_ptr<hostmodel::MapInfoCallback> program, Transcript& transcript)
        : program_(std::move(program)), transcript_(transcript) {}

    void RunCommand(const std::string& command) override {
        transcript_.write("callback", "RunCommand " + command);
        program_->RunCommand(command);
    }
    void WindowContentsChanged(std::int32_t windowId) override {
        transcript_.write("callback", "WindowContentsChanged " + std::to_string(windowId));
        program_->WindowContentsChanged(windowId);
    }

private:
    std::shared_ptr<hostmodel::MapInfoCallback> program_;
    Transcript& transcript_;
};

} // namespace

class RecordingHost::RecordingApplication : public hostmodel::MBApplication {
public:
    RecordingApplication(hostmodel::MBApplication& app, Transcript& transcript)
        : app_(app), transcript_(transcript) {}

    std::string Name() const override { return app_.Name(); }
    hostmodel::MBGlobal& MBGlobals(const std::string& name) override {
        return app_.MBGlobals(name);
    }
    void Do(const std::string& command) override {
        transcript_.write("companion", command);
        recorded(transcript_, [&] { app_.Do(command); });
    }

private:
    hostmodel::MBApplication& app_;
    Transcript& transcript_;
};

RecordingHost::RecordingHost(std::shared_ptr<hostmodel::MapInfoApp> host, Transcript& transcript)
    : host_(std::move(host)), transcript_(transcript) {}

RecordingHost::~RecordingHost() = default;

void RecordingHost::Do(const std::string& command) {
    transcript_.write("do", command);
    recorded(transcript_, [&] { host_->Do(command); });
}

std::string RecordingHost::eval(const std::string& expression) {
    transcript_.write("eval", expression);
    std::string answer = recorded(transcript_, [&] { return host_->eval(expression); });
    transcript_.write("=", answer);
    return answer;
}

void RecordingHost::RunMenuCommand(int id) {
    transcript_.write("menu", std::to_string(id));
    recorded(transcript_, [&] { host_->RunMenuCommand(id); });
}

void RecordingHost::SetCallback(std::shared_ptr<hostmodel::MapInfoCallback> callback) {
    if (!callback) {
        transcript_.write("setcallback", "nothing");
        recorded(transcript_, [&] { host_->SetCallback(nullptr); });
        return;
    }
    transcript_.write("setcallback");
    auto wrapped = std::make_shared<RecordingCallback>(std::move(callback), transcript_);
    recorded(transcript_, [&] { host_->SetCallback(std::move(wrapped)); });
}

hostmodel::MBApplication& RecordingHost::MBApplications(int index) {
    hostmodel::MBApplication& app = host_->MBApplications(index);
    auto& wrapper = apps_[&app];
    if (!wrapper) wrapper = std::make_unique<RecordingApplication>(app, transcript_);
    return *wrapper;
}

} // namespace vellant::replay
