#pragma once
// The companion MapBasic program "vellant.mbx" as the embedded host runs it. It keeps three
// globals the client reads and writes ("hwnd", "VLadvice", "currstyle"), answers the client's
// messages, and tells the client things by pressing button 2001 of the pad "Callback" after
// storing an advice word in "VLadvice".
//
// The style dialog spans two calls: "Dialog <kind> <clause>" only records a request, because
// the client's Do must return before the dialog shows (the client freezes its grid and waits
// for the press). The front end, or a headless runner, takes the request once the call has
// returned, shows the host's style dialog and reports how it closed; only then do the globals
// change and the button get pressed.

#include "platform/observer_list.h"

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vellant::engine {

class Engine;

// Style kinds the client asks for, numbered as its feature types.
enum class StyleDialogKind : int { Region = 0, Line = 1, Symbol = 2, Text = 5 };

struct StyleDialogRequest {
    StyleDialogKind kind = StyleDialogKind::Region;
    std::string startClause; // the clause the dialog opens with, as the client sent it
};

class Companion {
public:
    static constexpr std::string_view kName = "vellant.mbx";
    static constexpr std::string_view kPadName = "Callback";
    static constexpr int kAdviceButton = 2001;

    // The engine outlives its companion (the engine's host services own it).
    explicit Companion(Engine& engine);

    std::string_view name() const { return kName; }

    // Globals by name in any letter case. global() and setGlobal() raise MbError 1034
    // "Variable or Field <name> not defined." for a name the program does not declare.
    bool hasGlobal(std::string_view name) const;
    const std::string& global(std::string_view name) const;
    void setGlobal(std::string_view name, std::string value);
    std::vector<std::string> globalNames() const;

    // A message of the client (MBApplication.Do):
    //   "drop table <name>"        runs Drop Table through the engine (its errors pass on);
    //   "Dialog <kind> <clause>"   queues a style dialog; kind 0, 1, 2 or 5, else MbError 644
    //                              "Argument 1 of Dialog out of range.";
    // anything else raises MbError 1 "Unrecognized command: <message>.".
    void Do(std::string_view message);

    // The style dialogs asked for and not yet shown, oldest first.
    bool styleDialogPending() const { return !requests_.empty(); }
    std::optional<StyleDialogRequest> takeStyleDialogRequest();
    // The dialog closed. A chosen clause goes to "currstyle"; a cancelled dialog leaves
    // "currstyle" empty, which the client reads as "nothing chosen". Either way "VLadvice"
    // becomes "style" and button 2001 is pressed, so that the client's grid thaws.
    void styleDialogClosed(const std::optional<std::string>& chosenClause);

    // Advice words: stored in "VLadvice", then button 2001 pressed. Answers false when no
    // client listens (no pad "Callback" with button 2001), in which case only the global
    // changes.
    bool giveAdvice(std::string_view word); // "exit vl" when the user asks the tool to close
    bool hostWindowMoved() { return giveAdvice("resize"); }
    bool hostClosing() { return giveAdvice("exit mapinfo"); }

    // Told after a request is queued, while the call that made it still runs: a front end
    // posts itself an event here and shows the dialog when that event comes.
    platform::ObserverList<> styleDialogRequested;

private:
    void queueStyleDialog(std::string_view arguments);
    const std::string* findGlobal(std::string_view name) const;

    Engine& engine_;
    std::vector<std::pair<std::string, std::string>> globals_;
    std::deque<StyleDialogRequest> requests_;
};

} // namespace vellant::engine
