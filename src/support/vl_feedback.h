#pragma once
// The problem report: a button that prepares a mail to the program's support address in the
// mail program's own window, where the user fills in the details, attaches the log and decides
// whether to send it.

#include "platform/form.h"

#include <string>

namespace vellant::session {
struct Session;
}

namespace vellant::support {

using session::Session;

// Where reports go: settings of the deployment.
inline constexpr const char* kSupportAddress = "support@vellant.example";
inline constexpr const char* kSupportDisplayName = "Vellant Support";

// The error the mail system raises when the user cancels its logon dialog.
inline constexpr int kMailLogonCancelled = 32003;

class vlFeedback : public platform::Form {
public:
    // The session outlives the form.
    vlFeedback(platform::Toolkit& toolkit, Session& session);

    platform::Control ReportProblem{"ReportProblem"};
    platform::Control ExitFeedback{"ExitFeedback"};

    // The form's copy of whether a mail session is open.
    bool mailSessionOpen() const { return mailSessionOpen_; }

    void ReportProblem_Click();

    // The subject and note text of a report from this machine.
    static std::string reportSubject(const std::string& computerName);
    static std::string reportNoteText();

protected:
    void Form_Load() override;

private:
    // Answers whether there is a session to send with.
    bool signOn();
    void composeAndSend();
    void signOff();

    Session& session_;
    bool mailSessionOpen_ = false;
};

// The session's feedback form, made on first reference.
vlFeedback& feedbackForm(Session& s);

} // namespace vellant::support
