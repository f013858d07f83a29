#pragma once
// The host's style dialogs in a replay. The companion queues a dialog when the program asks
// for one ("Dialog <kind> <clause>"); the runner opens it once the step that asked has returned,
// as the desktop does, and answers it with the next `style` line of the script: a clause (OK
// with that style), "cancel", or "wait", which holds the dialog open until a later `style`
// line answers it. A dialog with no answer waiting is cancelled at once, so that the program's
// grid never stays frozen; one still held open when the script ends is cancelled then.

#include "app/replay/transcript.h"
#include "engine/host/companion.h"

#include <deque>
#include <optional>
#include <string>

namespace vellant::engine {
class Engine;
}

namespace vellant::replay {

class StyleDialogs {
public:
    // The engine and the transcript outlive this object.
    StyleDialogs(engine::Engine& engine, Transcript& transcript);

    // A `style` line: it answers the dialog held open, or waits for the next dialog.
    void answer(const std::string& argument);
    // Opens, in turn, every dialog the companion has queued, and answers each it can.
    void serve();
    // The user gives up on a dialog still held open.
    void cancelOpen();

private:
    void close(const std::string& answer);

    engine::Engine& engine_;
    Transcript& transcript_;
    std::deque<std::string> answers_;
    std::optional<engine::StyleDialogRequest> open_;
};

} // namespace vellant::replay
