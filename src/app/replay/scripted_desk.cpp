#include "app/replay/scripted_desk.h"

#include "platform/combo_box.h"
#include "platform/flexgrid.h"
#include "platform/form.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace vellant::replay {

namespace {

constexpr int kKeyEnter = 13;
constexpr int kKeyBackspace = 8;
constexpr int kKeyCtrlA = 'A';
constexpr int kCtrl = 2;

constexpr std::array<std::string_view, 4> kCheckBoxes = {"MapImmediate", "Docked", "map_bounds",
                                                         "RedrawMAP"};
constexpr std::array<std::string_view, 4> kOptionButtons = {"Map_custom", "Map_SameScale",
                                                            "map_samezoom", "LabOrient"};

// The key code a character's key has: letters by their capital.
int keyCodeOf(int character) {
    return character < 128 ? std::toupper(character) : character;
}

} // namespace

bool isCheckBox(const platform::Control& control) {
    return std::find(kCheckBoxes.begin(), kCheckBoxes.end(), control.Name()) != kCheckBoxes.end();
}

bool isOptionButton(const platform::Control& control) {
    return std::find(kOptionButtons.begin(), kOptionButtons.end(), control.Name()) !=
           kOptionButtons.end();
}

ScriptedDesk::ScriptedDesk() {
    toolkit_.onMessage = [this](const platform::ScriptedToolkit::Message& message) {
        if (onMessage) onMessage(message.prompt);
    };
    toolkit_.onWindowPos = [this](const platform::ScriptedToolkit::WindowPosCall& call) {
        if (onWindowPos) onWindowPos(call);
    };
}

bool ScriptedDesk::setScreen(int widthPixels, int heightPixels) {
    platform::ScreenMetrics screen = toolkit_.Screen();
    screen.Width = widthPixels * screen.TwipsPerPixelX;
    screen.Height = heightPixels * screen.TwipsPerPixelY;
    toolkit_.setScreen(screen);
    return true;
}

bool ScriptedDesk::placeHostWindow(std::int32_t hwnd, const platform::WindowPlacement& placement) {
    toolkit_.setWindowPlacement(hwnd, placement);
    return true;
}

void ScriptedDesk::dragFormHeight(platform::Form& form, int heightTwips) {
    const int bottom = form.Top() + form.Height();
    form.setHeight(heightTwips);
    form.setTop(bottom - heightTwips);
}

void ModelHands::click(platform::FlexGrid& grid, float x, float y) {
    grid.click(x, y);
}

void ModelHands::rightClick(platform::FlexGrid& grid, float x, float y) {
    grid.mouseDown(platform::vbRightButton, 0, x, y);
    grid.mouseUp(platform::vbRightButton, 0, x, y);
}

void ModelHands::doubleClick(platform::FlexGrid& grid, float x, float y) {
    grid.doubleClick(x, y);
}

void ModelHands::drag(platform::FlexGrid& grid, float fromX, float fromY, float toX, float toY) {
    grid.mouseDown(platform::vbLeftButton, 0, fromX, fromY);
    grid.mouseMove(platform::vbLeftButton, 0, toX, toY);
    grid.mouseUp(platform::vbLeftButton, 0, toX, toY);
}

void ModelHands::keyToGrid(platform::FlexGrid& grid, int character) {
    grid.keyPress(character);
}

void ModelHands::press(platform::Control& control) {
    if (isCheckBox(control)) {
        control.setValue(control.Value() == 0 ? 1 : 0);
    } else if (isOptionButton(control)) {
        // A chosen option stays chosen and raises nothing.
        control.setValue(1);
    } else {
        control.Click();
    }
}

void ModelHands::doubleClick(platform::Control& control) {
    press(control);
    control.DblClick();
}

void ModelHands::keyToControl(platform::Control& control, int character) {
    if (control.KeyDown(keyCodeOf(character)) == 0) return;
    if (control.KeyPress(character) == 0) return;
    if (character < 32 || !control.Visible()) return;
    // A text box types the character at its caret; a combo box's text, after its end.
    if (auto* box = dynamic_cast<platform::ComboBox*>(&control)) {
        box->type(box->Text() + static_cast<char>(character));
    } else if (control.onKeyDown) {
        std::string text = control.Text();
        const auto at = static_cast<std::size_t>(
            std::clamp(control.SelStart(), 0, static_cast<int>(text.size())));
        text.insert(at, 1, static_cast<char>(character));
        control.setText(text);
        control.setSelStart(static_cast<int>(at) + 1);
    }
}

void ModelHands::typeAndEnter(platform::Control& box, const std::string& text) {
    // All of the old text selected and rubbed out, the new typed, Enter: what reaches the
    // program is the keys around the typing and the text as it ends.
    box.KeyDown(kKeyCtrlA, kCtrl);
    box.KeyDown(kKeyBackspace);
    if (auto* combo = dynamic_cast<platform::ComboBox*>(&box)) {
        combo->type(text);
    } else {
        box.setText(text);
        box.setSelStart(static_cast<int>(text.size()));
    }
    if (box.KeyDown(kKeyEnter) != 0) box.KeyPress(kKeyEnter);
}

void ModelHands::pick(platform::ComboBox& box, int index) {
    box.pick(index);
}

} // namespace vellant::replay
