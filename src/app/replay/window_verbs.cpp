#include "app/replay/window_verbs.h"

#include "app/replay/replay_run.h"
#include "engine/host/host_services.h"
#include "platform/form.h"
#include "session/layer_form.h"
#include "session/session.h"

#include <charconv>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace vellant::replay {

namespace {

std::vector<std::string> words(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> out;
    for (std::string word; in >> word;)
        out.push_back(word);
    return out;
}

std::optional<int> number(const std::string& text) {
    int value = 0;
    const char* last = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), last, value);
    if (error != std::errc() || stop != last) return std::nullopt;
    return value;
}

// The numbers of a line after its first `skip` words, or nullopt unless there are `count`.
std::optional<std::vector<int>> numbers(const std::vector<std::string>& parts, std::size_t skip,
                                        std::size_t count) {
    if (parts.size() != skip + count) return std::nullopt;
    std::vector<int> values;
    for (std::size_t i = skip; i < parts.size(); ++i) {
        const std::optional<int> value = number(parts[i]);
        if (!value) return std::nullopt;
        values.push_back(*value);
    }
    return values;
}

std::int32_t mainWindow(ReplayRun& replay) {
    return replay.engine().host().mainWindow().hWnd();
}

session::LayerForm* loadedLayerForm(ReplayRun& replay) {
    session::Session* s = replay.layer().currentSession();
    if (s && s->gLayerForm && s->gLayerForm->Loaded()) return s->gLayerForm;
    return nullptr;
}

std::string windowName(ReplayRun& replay, std::int32_t hwnd) {
    if (hwnd == mainWindow(replay)) return "MapInfo";
    for (const platform::Form* form : replay.desk().loadedForms())
        if (form->hWnd() == hwnd) return form->Name();
    return std::to_string(hwnd);
}

std::string insertAfterName(ReplayRun& replay, std::int32_t insertAfter) {
    switch (insertAfter) {
    case platform::HWND_TOP:
        return "top";
    case platform::HWND_BOTTOM:
        return "bottom";
    case platform::HWND_TOPMOST:
        return "topmost";
    case platform::HWND_NOTOPMOST:
        return "notopmost";
    default:
        return windowName(replay, insertAfter);
    }
}

void writeControl(Transcript& transcript, const platform::Control& control) {
    std::string text = control.Name() + " " + std::to_string(control.Left()) + " " +
                       std::to_string(control.Top()) + " " + std::to_string(control.Width()) + " " +
                       std::to_string(control.Height());
    if (!control.Visible()) text += " hidden";
    transcript.write("geometry", text);
}

} // namespace

void screenVerb(ReplayRun& replay, const ScriptLine& line) {
    const auto size = numbers(words(line.argument), 0, 2);
    if (!size || (*size)[0] <= 0 || (*size)[1] <= 0)
        return replay.refuse(line, "expected <width> <height> in pixels");
    if (!replay.desk().setScreen((*size)[0], (*size)[1]))
        replay.refuse(line, "the screen is the platform's own here");
}

void hostWindowVerb(ReplayRun& replay, const ScriptLine& line) {
    const std::vector<std::string> parts = words(line.argument);
    platform::WindowPlacement placement;
    replay.desk().toolkit().GetWindowPlacement(mainWindow(replay), placement);
    const std::string state = parts.empty() ? "" : parts[0];
    if (state == "normal" || state == "restored") {
        const auto rect = numbers(parts, 1, 4);
        if (!rect)
            return replay.refuse(line, "expected " + state + " <left> <top> <right> <bottom>");
        placement.showCmd = state == "normal" ? platform::SW_SHOWNORMAL : platform::SW_RESTORE;
        placement.rcNormalPosition = {(*rect)[0], (*rect)[1], (*rect)[2], (*rect)[3]};
    } else if (state == "maximized" && parts.size() == 1) {
        placement.showCmd = platform::SW_SHOWMAXIMIZED;
    } else if (state == "minimized" && parts.size() == 1) {
        placement.showCmd = platform::SW_SHOWMINIMIZED;
    } else if (const auto code = numbers(parts, 1, 1); state == "showcmd" && code) {
        placement.showCmd = (*code)[0];
    } else {
        return replay.refuse(line, "expected normal|restored <left> <top> <right> <bottom>, "
                                   "maximized, minimized or showcmd <n>");
    }
    // The normal rectangle stays what it was while the window is maximised or minimised.
    if (!replay.desk().placeHostWindow(mainWindow(replay), placement))
        replay.refuse(line, "this desktop puts no window in that state");
}

void tickVerb(ReplayRun& replay, const ScriptLine& line) {
    if (replay.desk().tickTimers() == 0) replay.refuse(line, "no timer is running");
}

void formHeightVerb(ReplayRun& replay, const ScriptLine& line) {
    session::LayerForm* form = loadedLayerForm(replay);
    if (!form) return replay.refuse(line, "no layer form is loaded");
    const std::optional<int> height = number(line.argument);
    if (!height || *height <= 0) return replay.refuse(line, "expected a height in twips");
    replay.desk().dragFormHeight(*form, *height);
}

void geometryVerb(ReplayRun& replay, const ScriptLine& line) {
    session::LayerForm* form = loadedLayerForm(replay);
    if (!form) return replay.refuse(line, "no layer form is loaded");
    Transcript& transcript = replay.transcript();
    writeControl(transcript, *form);
    platform::Control& grid = form->LyrGrid;
    for (const platform::Control* control : {&grid, &form->Buttonframe, &form->msg, &form->Mapframe,
                                             &form->MapPropsFrame, &form->MapButtonFrame})
        writeControl(transcript, *control);
    const platform::Timer& timer = form->Timer1;
    transcript.write("timer", timer.Name() + " interval " + std::to_string(timer.Interval()) +
                                  (replay.desk().timerRunning(timer) ? " on" : " off"));
}

void panelVerb(ReplayRun& replay, const ScriptLine& line) {
    session::LayerForm* form = loadedLayerForm(replay);
    if (!form) return replay.refuse(line, "no layer form is loaded");
    const std::initializer_list<const platform::Control*> controls = {
        &form->Map_custom, &form->Map_SameScale, &form->map_samezoom, &form->ScaleUnits,
        &form->ZoomWidth,  &form->ZoomScale,     &form->map_bounds,   &form->RedrawMAP,
        &form->SelectTool, &form->Pan,           &form->ZoomIn,       &form->ZoomOut};
    for (const platform::Control* control : controls)
        replay.transcript().write(
            "panel", control->Name() + " " + std::to_string(control->Value()) +
                         (control->Visible() ? " shown " : " hidden ") + control->Caption());
}

void writeWindowPos(ReplayRun& replay, const platform::ScriptedToolkit::WindowPosCall& call) {
    replay.transcript().write(
        "windowpos", windowName(replay, call.hwnd) + " " +
                         insertAfterName(replay, call.insertAfter) + " " + std::to_string(call.x) +
                         " " + std::to_string(call.y) + " " + std::to_string(call.cx) + " " +
                         std::to_string(call.cy) + " " + std::to_string(call.flags));
}

} // namespace vellant::replay
