#pragma once
// The headless desk: the scripted toolkit, with hands that call the controls' input methods
// as the desktop would deliver the user's mouse and keys.

#include "app/replay/replay_desk.h"
#include "platform/scripted_toolkit.h"

namespace vellant::replay {

class ModelHands : public UserHands {
public:
    void click(platform::FlexGrid& grid, float x, float y) override;
    void rightClick(platform::FlexGrid& grid, float x, float y) override;
    void doubleClick(platform::FlexGrid& grid, float x, float y) override;
    void drag(platform::FlexGrid& grid, float fromX, float fromY, float toX, float toY) override;
    void keyToGrid(platform::FlexGrid& grid, int character) override;
    void press(platform::Control& control) override;
    void doubleClick(platform::Control& control) override;
    void keyToControl(platform::Control& control, int character) override;
    void typeAndEnter(platform::Control& box, const std::string& text) override;
    void pick(platform::ComboBox& box, int index) override;
};

class ScriptedDesk : public ReplayDesk {
public:
    ScriptedDesk();

    platform::ScriptedToolkit& scripted() { return toolkit_; }
    platform::Toolkit& toolkit() override { return toolkit_; }
    UserHands& hands() override { return hands_; }
    void addStep(std::function<void()> step) override { toolkit_.addStep(std::move(step)); }
    platform::Form* modalForm() const override { return toolkit_.modalForm(); }
    void queueAnswer(int answer) override { toolkit_.queueAnswer(answer); }
    void queuePopupChoice(std::string item) override { toolkit_.queuePopupChoice(std::move(item)); }
    void queueOpenFile(std::string path) override { toolkit_.queueOpenFile(std::move(path)); }
    bool setScreen(int widthPixels, int heightPixels) override;
    bool placeHostWindow(std::int32_t hwnd, const platform::WindowPlacement& placement) override;
    std::size_t tickTimers() override { return toolkit_.fireTimers(); }
    bool timerRunning(const platform::Timer& timer) const override {
        return toolkit_.isTimerRunning(timer);
    }
    void dragFormHeight(platform::Form& form, int heightTwips) override;
    std::vector<platform::Form*> loadedForms() const override { return toolkit_.loadedForms(); }

private:
    platform::ScriptedToolkit toolkit_;
    ModelHands hands_;
};

// What a control is to a user's click, by its name on the program's forms: a check box turns
// its value over, an option button is chosen, anything else is clicked.
bool isCheckBox(const platform::Control& control);
bool isOptionButton(const platform::Control& control);

} // namespace vellant::replay
