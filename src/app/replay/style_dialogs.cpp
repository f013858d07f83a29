#include "app/replay/style_dialogs.h"

#include "base/basic_text.h"
#include "engine/engine.h"
#include "engine/host/host_services.h"

namespace vellant::replay {

namespace {

bool isWord(const std::string& answer, const char* word) {
    return LCase(Trim(answer)) == word;
}

} // namespace

StyleDialogs::StyleDialogs(engine::Engine& engine, Transcript& transcript)
    : engine_(engine), transcript_(transcript) {}

void StyleDialogs::answer(const std::string& argument) {
    if (open_ && !isWord(argument, "wait")) {
        close(argument);
        serve();
        return;
    }
    answers_.push_back(argument);
}

void StyleDialogs::serve() {
    engine::Companion* companion = engine_.host().companion();
    while (!open_ && companion && companion->styleDialogPending()) {
        open_ = companion->takeStyleDialogRequest();
        transcript_.write("dialog", "open " + std::to_string(static_cast<int>(open_->kind)) + " " +
                                        open_->startClause);
        std::string answer = "cancel";
        if (!answers_.empty()) {
            answer = answers_.front();
            answers_.pop_front();
        }
        if (isWord(answer, "wait")) return;
        close(answer);
    }
}

void StyleDialogs::cancelOpen() {
    if (open_) close("cancel");
}

void StyleDialogs::close(const std::string& answer) {
    open_.reset();
    engine::Companion* companion = engine_.host().companion();
    // The companion presses the button that calls the program back; a host without the
    // companion any more has nobody to tell.
    if (isWord(answer, "cancel")) {
        transcript_.write("dialog", "cancel");
        if (companion) companion->styleDialogClosed(std::nullopt);
    } else {
        transcript_.write("dialog", "ok " + answer);
        if (companion) companion->styleDialogClosed(answer);
    }
}

} // namespace vellant::replay
