#pragma once
// The texts of the information form: one topic for each button of the layer form, written for
// the user. Each is a heading (eleven blanks, the title, one blank), two line breaks, then
// paragraphs divided by two line breaks and numbered lines by one; a line break is CR LF.

#include <string>

namespace vellant::support {

enum class InfoTopic {
    Cell,
    Accept,
    ExitWithoutChanges,
    Immediate,
    Docking,
    Redraw,
    OnTop,
    StatusBar,
    Limits,
    Environment,
    MapXSample,
};

inline constexpr const char* kInfoVersion = "1.00 Beta (01)";

// What the text box shows when the form opens, before any topic is chosen.
std::string infoWelcomeText();
std::string infoTopicText(InfoTopic topic);

} // namespace vellant::support
