#include "engine/host/button_pad.h"

#include <algorithm>
#include <cctype>

namespace vellant::engine {

const PadButton* ButtonPad::button(int id) const {
    if (id == 0) return nullptr;
    const auto it = std::find_if(buttons.begin(), buttons.end(),
                                 [id](const PadButton& b) { return b.id == id; });
    return it == buttons.end() ? nullptr : &*it;
}

PadButton* ButtonPad::button(int id) {
    return const_cast<PadButton*>(static_cast<const ButtonPad&>(*this).button(id));
}

std::string oleCommandText(int buttonId) {
    return "MI:0,0,F,F,0,0,0," + std::to_string(buttonId);
}

bool samePadName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

} // namespace vellant::engine
