#include "support/vl_feedback.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "platform/toolkit.h"
#include "prefs/settings.h"
#include "session/session.h"

namespace vellant::support {

namespace {

constexpr int kFormWidth = 3600;
constexpr int kFormHeight = 1800;

} // namespace

vlFeedback::vlFeedback(platform::Toolkit& toolkit, Session& session)
    : Form("vlFeedback", toolkit), session_(session) {
    setCaption("Vellant Feedback");
    Move(2400, 2400, kFormWidth, kFormHeight);
    ReportProblem.Move(240, 240, 3000, 420);
    ReportProblem.setCaption("Report a Problem");
    ReportProblem.setToolTipText("Prepare a mail to Vellant support in your mail program");
    ExitFeedback.Move(240, 780, 3000, 420);
    ExitFeedback.setCaption("Exit");
    registerControl(ReportProblem);
    registerControl(ExitFeedback);
    ReportProblem.onClick = [this] { ReportProblem_Click(); };
    ExitFeedback.onClick = [this] { Hide(); };
}

// A modal form puts itself on top of every window as it opens.
void vlFeedback::Form_Load() {
    session_.toolkit.SetWindowPos(hWnd(), platform::HWND_TOPMOST, 0, 0, 0, 0,
                                  platform::SWP_NOSIZE | platform::SWP_NOMOVE);
}

std::string vlFeedback::reportSubject(const std::string& computerName) {
    return "Vellant PROBLEM REPORT [CMP: " + computerName + "]";
}

// The blanks are the user's to fill in; the log is theirs to attach.
std::string vlFeedback::reportNoteText() {
    std::string text;
    for (const char* line : {"[Please attach VELLANT.LOG from the application directory]",
                             "OS Name and Version: ", "MapInfo/MapX Version: ", "MapInfo or MapX?",
                             "Full Description of problem:"})
        text += std::string(line) + "\n";
    return text;
}

void vlFeedback::ReportProblem_Click() {
    if (signOn()) {
        composeAndSend();
        signOff();
    }
}

// A session left open by an earlier report is used as it is. A failed or cancelled logon
// leaves no session and nothing to send.
bool vlFeedback::signOn() {
    Session& s = session_;
    bool signedOn = false;
    onErrorGoTo(
        [&] {
            if (s.toolkit.mailSessionOpen()) {
                prefs::vlog(s, "Session already established");
                signedOn = true;
                return;
            }
            // The toolkit signs on without fetching new mail and with the mail system's logon
            // dialog, so the user may pick a profile or cancel.
            s.toolkit.mailSignOn();
            mailSessionOpen_ = s.toolkit.mailSessionOpen();
            signedOn = true;
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Mail login error " + CStr(e.number()) + "," + e.description());
            if (e.number() == kMailLogonCancelled) prefs::logQuietly(s, "Canceled Login");
        });
    return signedOn;
}

// The mail program's compose window opens filled in; the user decides whether to send.
void vlFeedback::composeAndSend() {
    platform::MailMessage message;
    message.RecipAddress = kSupportAddress;
    message.RecipDisplayName = kSupportDisplayName;
    message.MsgSubject = reportSubject(session_.gComputerName);
    message.MsgNoteText = reportNoteText();
    session_.toolkit.composeMail(message);
}

void vlFeedback::signOff() {
    session_.toolkit.mailSignOff();
    mailSessionOpen_ = session_.toolkit.mailSessionOpen();
}

vlFeedback& feedbackForm(Session& s) {
    if (!s.gFeedbackForm) s.gFeedbackForm = std::make_unique<vlFeedback>(s.toolkit, s);
    return *s.gFeedbackForm;
}

} // namespace vellant::support
