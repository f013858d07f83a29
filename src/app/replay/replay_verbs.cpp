#include "app/replay/replay_verbs.h"

#include "app/replay/grid_snapshot.h"
#include "app/replay/replay_run.h"
#include "app/replay/user_verbs.h"
#include "app/replay/window_verbs.h"
#include "base/basic_text.h"
#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "engine/mb_error.h"
#include "platform/form.h"
#include "session/layer_form.h"
#include "session/session.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <string>
#include <string_view>

namespace vellant::replay {

namespace {

// "Name" or "Name(index)" for a member of a control array.
struct ControlName {
    std::string name;
    int index = -1;
    bool valid = true;
};

ControlName parseControlName(const std::string& text) {
    const std::size_t open = text.find('(');
    if (open == std::string::npos) return {text};
    ControlName parsed{text.substr(0, open)};
    const std::size_t close = text.size() - 1;
    if (open == 0 || text[close] != ')' || close <= open + 1) {
        parsed.valid = false;
        return parsed;
    }
    const char* last = text.data() + close;
    const auto [stop, error] = std::from_chars(text.data() + open + 1, last, parsed.index);
    parsed.valid = error == std::errc() && stop == last && parsed.index >= 0;
    return parsed;
}

// Control names are compared in any letter case, as the forms' own language compares them.
platform::Control* findControl(const platform::Form& form, const ControlName& wanted) {
    if (platform::Control* exact = form.findControl(wanted.name, wanted.index)) return exact;
    const std::string lower = LCase(wanted.name);
    for (platform::Control* control : form.Controls())
        if (LCase(control->Name()) == lower && control->Index() == wanted.index) return control;
    return nullptr;
}

void press(ReplayRun& replay, const ScriptLine& line) {
    platform::Form* form = replay.desk().modalForm();
    if (!form) return replay.refuse(line, "no form is shown");
    const ControlName wanted = parseControlName(line.argument);
    if (!wanted.valid) return replay.refuse(line, "'" + line.argument + "' is no control name");
    platform::Control* control = findControl(*form, wanted);
    if (!control)
        return replay.refuse(line, "the form " + form->Name() + " has no control " + line.argument);
    if (!control->Visible() || !control->Enabled())
        return replay.refuse(line, control->Name() + " cannot be clicked: it is " +
                                       (control->Visible() ? "disabled" : "hidden"));
    replay.desk().hands().press(*control);
}

void advice(ReplayRun& replay, const ScriptLine& line) {
    engine::Companion* companion = replay.engine().host().companion();
    if (!companion) return replay.refuse(line, "the companion is not running");
    if (!companion->giveAdvice(line.argument))
        replay.refuse(line, "no button 2001 of a pad \"Callback\" listens; only VLadvice changed");
}

void button(ReplayRun& replay, const ScriptLine& line) {
    try {
        replay.engine().host().pressButton(engine::Companion::kPadName, std::stoi(line.argument));
    } catch (const engine::MbError& e) {
        replay.transcript().write("error", std::to_string(e.code()) + " " + e.what());
    }
}

void host(ReplayRun& replay, const ScriptLine& line) {
    try {
        replay.engine().run(line.argument);
    } catch (const engine::MbError& e) {
        replay.transcript().write("error", std::to_string(e.code()) + " " + e.what());
    }
}

void answer(ReplayRun& replay, const ScriptLine& line) {
    const std::string& word = line.argument;
    replay.desk().queueAnswer(word == "ok"    ? platform::vbOK
                              : word == "yes" ? platform::vbYes
                              : word == "no"  ? platform::vbNo
                                              : platform::vbCancel);
}

// A relative name is taken from the workspace's folder, where the script's tables stand.
void openFile(ReplayRun& replay, const ScriptLine& line) {
    if (LCase(line.argument) == "cancel") return replay.desk().queueOpenFile("");
    const std::filesystem::path file(line.argument);
    replay.desk().queueOpenFile(
        (file.is_absolute() ? file : replay.workspaceFolder() / file).lexically_normal().string());
}

void style(ReplayRun& replay, const ScriptLine& line) {
    replay.styleDialogs().answer(line.argument);
}

void snapshot(ReplayRun& replay, const ScriptLine& line) {
    session::Session* s = replay.layer().currentSession();
    if (!s || !s->gLayerForm) return replay.refuse(line, "no layer form is loaded");
    writeGridSnapshot(replay.transcript(), s->gLayerForm->LyrGrid, s->gCellState);
    // The picture beside the grid that tells which step of the toggle cycle comes next.
    std::string status = "none";
    for (const platform::Control& picture : s->gLayerForm->ToggleStatusPic.all())
        if (picture.Visible()) status = std::to_string(picture.Index());
    replay.transcript().write("togglestatus", status);
    replay.desk().snapshotTaken(*s);
}

constexpr std::array<std::string_view, 4> kAnswers = {"ok", "yes", "no", "cancel"};

const Verb kVerbs[] = {
    {"press", Argument::Word, {}, false, press, "press <control>"},
    {"advice", Argument::Text, {}, false, advice, "advice <word>"},
    {"button", Argument::Integer, {}, false, button, "button <id>"},
    {"host", Argument::Text, {}, false, host, "host <MapBasic statement>"},
    {"answer", Argument::Choice, kAnswers, true, answer, "answer ok|yes|no|cancel"},
    {"file", Argument::Text, {}, true, openFile, "file <path>|cancel"},
    {"style", Argument::Text, {}, false, style, "style <clause>|cancel|wait"},
    {"snapshot", Argument::None, {}, false, snapshot, "snapshot"},
    {"click", Argument::Text, {}, false, clickVerb, "click <row> <column>"},
    {"rclick", Argument::Text, {}, false, rightClickVerb, "rclick <row> <column>"},
    {"dblclick", Argument::Text, {}, false, doubleClickVerb, "dblclick <row> <column>"},
    {"select", Argument::Text, {}, false, selectRowsVerb, "select <row1> <row2>"},
    {"selectcells",
     Argument::Text,
     {},
     false,
     selectCellsVerb,
     "selectcells <row1> <col1> <row2> <col2>"},
    {"drag", Argument::Text, {}, false, dragVerb, "drag <from-row> <to-row>"},
    {"key", Argument::Text, {}, false, keyVerb, "key <character>"},
    {"type", Argument::Text, {}, false, typeVerb, "type <text>"},
    {"enter", Argument::None, {}, false, enterVerb, "enter"},
    {"esc", Argument::None, {}, false, escapeVerb, "esc"},
    {"pick", Argument::Integer, {}, false, pickVerb, "pick <n>"},
    {"menu", Argument::Word, {}, false, menuVerb, "menu <item>"},
    {"orient", Argument::Integer, {}, false, orientVerb, "orient <code>"},
    {"screen", Argument::Text, {}, true, screenVerb, "screen <width> <height>"},
    {"hostwindow",
     Argument::Text,
     {},
     true,
     hostWindowVerb,
     "hostwindow normal|restored <left> <top> <right> <bottom> | maximized | minimized | "
     "showcmd <n>"},
    {"tick", Argument::None, {}, false, tickVerb, "tick"},
    {"formheight", Argument::Integer, {}, false, formHeightVerb, "formheight <twips>"},
    {"geometry", Argument::None, {}, false, geometryVerb, "geometry"},
    {"panel", Argument::None, {}, false, panelVerb, "panel"},
};

} // namespace

std::span<const Verb> replayVerbs() {
    return kVerbs;
}

} // namespace vellant::replay
