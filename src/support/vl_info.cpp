#include "support/vl_info.h"

#include "platform/toolkit.h"
#include "session/session.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace vellant::support {

namespace {

constexpr int kFormWidth = 9600;
constexpr int kFormHeight = 6300;
constexpr int kMargin = 120;
constexpr int kButtonWidth = 2700;
constexpr int kButtonHeight = 330;
constexpr int kButtonPitch = 375;
constexpr int kFirstButtonTop = 480;
constexpr int kTextLeft = kMargin + kButtonWidth + kMargin;
constexpr int kPictureTwips = 240;

} // namespace

VLInfo::VLInfo(platform::Toolkit& toolkit, Session& session)
    : Form("VLInfo", toolkit), session_(session) {
    design();
    cell.onClick = [this] { showTopic(InfoTopic::Cell); };
    OK.onClick = [this] { showTopic(InfoTopic::Accept); };
    Cancel.onClick = [this] { showTopic(InfoTopic::ExitWithoutChanges); };
    MapImmediate.onClick = [this] { showTopic(InfoTopic::Immediate); };
    Check1.onClick = [this] { showTopic(InfoTopic::Docking); };
    RedrawNOW.onClick = [this] { showTopic(InfoTopic::Redraw); };
    Label2.onClick = [this] { showTopic(InfoTopic::OnTop); };
    Label3.onClick = [this] { showTopic(InfoTopic::StatusBar); };
    Limits.onClick = [this] { showTopic(InfoTopic::Limits); };
    OpEnv.onClick = [this] { showTopic(InfoTopic::Environment); };
    MapXInfo.onClick = [this] { showTopic(InfoTopic::MapXSample); };
    // The launcher's answer is not looked at: a brief that cannot be opened does nothing.
    ProdBrief.onClick = [this] { session_.toolkit.launchDocument(productBriefPath()); };
    Exit.onClick = [this] { Hide(); };
}

// The buttons stand in a column at the left, in the order the layer form shows its controls;
// the text fills the rest.
void VLInfo::design() {
    setCaption("Vellant Info");
    Move(1500, 1500, kFormWidth, kFormHeight);
    Label1.Move(kMargin, kMargin, kButtonWidth, kButtonHeight);
    Label1.setCaption("Button/Menu Information");
    cell.setPicture({"Image1", nullptr, kPictureTwips, kPictureTwips});
    cell.setToolTipText("What happens when you click on a cell");
    OK.setCaption("Accept Vellant changes");
    Cancel.setPicture({"CancelPic", nullptr, kPictureTwips, kPictureTwips});
    Cancel.setToolTipText("Exit without changes");
    MapImmediate.setCaption("Immediate");
    MapImmediate.setToolTipText("Make map changes immediately");
    Check1.setCaption("Docked");
    Check1.setToolTipText("Make map changes immediately");
    RedrawNOW.setCaption("Refresh Vellant grid");
    Label2.setCaption("Keep Vellant on top");
    Label3.setCaption("Show MapInfo status bar");
    Limits.setCaption("Known Limitations");
    OpEnv.setCaption("Operating Environment");
    MapXInfo.setCaption("MapX Usage");
    ProdBrief.setCaption("Show Product Brief");
    Exit.setCaption("Exit Vellant Info");
    int top = kFirstButtonTop;
    for (platform::Control* button :
         {&cell, &OK, &Cancel, &MapImmediate, &Check1, &RedrawNOW, &Label2, &Label3, &Limits,
          &OpEnv, &MapXInfo, &ProdBrief, &Exit}) {
        button->Move(kMargin, top, kButtonWidth, kButtonHeight);
        top += kButtonPitch;
    }
    Info.Move(kTextLeft, kMargin, kFormWidth - kTextLeft - 2 * kMargin, kFormHeight - 5 * kMargin);
    for (platform::Control* control :
         {&Label1, &cell, &OK, &Cancel, &MapImmediate, &Check1, &RedrawNOW, &Label2, &Label3,
          &Limits, &OpEnv, &MapXInfo, &ProdBrief, &Exit, &Info})
        registerControl(*control);
}

// A modal form puts itself on top of every window as it opens.
void VLInfo::Form_Load() {
    session_.toolkit.SetWindowPos(hWnd(), platform::HWND_TOPMOST, 0, 0, 0, 0,
                                  platform::SWP_NOSIZE | platform::SWP_NOMOVE);
    Info.setText(infoWelcomeText());
}

void VLInfo::showTopic(InfoTopic topic) {
    Info.setText(infoTopicText(topic));
}

// The program's working directory, as the desktop program starts it: the installation's data.
std::string VLInfo::productBriefPath() {
    std::error_code lost;
    std::filesystem::path directory = std::filesystem::current_path(lost);
    // A directory that has gone from under the program is no reason to fail a click.
    if (lost) directory = ".";
    return (directory / kProductBriefFile).string();
}

VLInfo& infoForm(Session& s) {
    if (!s.gInfoForm) s.gInfoForm = std::make_unique<VLInfo>(s.toolkit, s);
    return *s.gInfoForm;
}

} // namespace vellant::support
