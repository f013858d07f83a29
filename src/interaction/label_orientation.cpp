#include "interaction/label_orientation.h"

#include "base/error_trap.h"
#include "grid/setpropandcell.h"
#include "platform/toolkit.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <array>

namespace vellant::interaction {

namespace {

constexpr int kFormWidth = 1935;
constexpr int kFormHeight = 1905;
constexpr int kButtonSize = 495;
// The picker stands beside the clicked cell, a little up and to the right.
constexpr int kOffsetFromCell = 300;
constexpr int kKeyEscape = 27;
// The button the self test picks.
constexpr int kSelfTestCode = 2;

struct ButtonPlace {
    int left;
    int top;
};
// By position code: the layout is what gives a code its meaning.
constexpr std::array<ButtonPlace, 9> kButtonPlaces = {{
    {720, 720},   // 0 centre
    {120, 120},   // 1 above left
    {720, 120},   // 2 above
    {1320, 120},  // 3 above right
    {120, 720},   // 4 left
    {1320, 720},  // 5 right
    {120, 1320},  // 6 below left
    {720, 1320},  // 7 below
    {1320, 1320}, // 8 below right
}};

} // namespace

Label_Orientation::Label_Orientation(platform::Toolkit& toolkit, Session& session)
    : Form("Label_Orientation", toolkit), session_(session) {
    setCaption("Label Orientation");
    setWidth(kFormWidth);
    setHeight(kFormHeight);
    for (auto& button : LabOrient.all()) {
        const ButtonPlace place = kButtonPlaces.at(static_cast<std::size_t>(button.Index()));
        button.setLeft(place.left);
        button.setTop(place.top);
        button.setWidth(kButtonSize);
        button.setHeight(kButtonSize);
        button.setToolTipText("Double click to select option");
        button.setVisible(false);
        button.onDblClick = [this, index = button.Index()] { LabOrient_DblClick(index); };
        button.onKeyPress = [this](int& keyAscii) { Form_KeyPress(keyAscii); };
        registerControl(button);
    }
    onKeyPress = [this](int& keyAscii) { Form_KeyPress(keyAscii); };
}

void Label_Orientation::Form_Load() {
    Session& s = session_;
    onErrorGoTo(
        [&] {
            s.toolkit.SetWindowPos(hWnd(), platform::HWND_TOPMOST, 0, 0, 0, 0,
                                   platform::SWP_NOSIZE | platform::SWP_NOMOVE);
            session::LayerForm& owner = s.layerForm();
            platform::FlexGrid& grid = owner.LyrGrid;
            setLeft(owner.Left() + grid.ColPos(grid.MouseCol()) + kOffsetFromCell);
            setTop(owner.Top() + grid.RowPos(grid.MouseRow()) - kOffsetFromCell);
            for (auto& button : LabOrient.all())
                button.setVisible(true);
            LabOrient(s.gLabelOrientPos).setValue(kTrue);
            if (s.gSelfTest) {
                LabOrient_DblClick(kSelfTestCode);
                Unload();
            }
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from label_orientation " + e.description());
        });
}

void Label_Orientation::LabOrient_DblClick(int index) {
    Session& s = session_;
    onErrorGoTo(
        [&] {
            if (!Visible() && !s.gSelfTest) return;
            platform::Control& button = LabOrient(index);
            button.setValue(button.Value() ? kFalse : kTrue);
            s.gLabelOrientPos = static_cast<std::int16_t>(index);
            s.labelProps().setPosition(index);
            session::LayerForm& owner = s.layerForm();
            bool on = true;
            grid::imageon(s, on, owner.LabelOrient(index), owner.imageControl("Image2"));
            Hide();
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from labOrient_click " + e.description());
        });
}

Label_Orientation& labelOrientationForm(Session& s) {
    if (!s.gLabelOrient) s.gLabelOrient = std::make_unique<Label_Orientation>(s.toolkit, s);
    return *s.gLabelOrient;
}

void Label_Orientation::Form_KeyPress(int& keyAscii) {
    if (keyAscii == kKeyEscape) Hide();
}

} // namespace vellant::interaction
