// The problem report: the mail it prepares, and the mail session it signs on to, reuses or
// fails to get.

#include "prefs/settings.h"
#include "session/closing.h"
#include "support/session_fixture.h"
#include "support/support_buttons.h"
#include "support/vl_feedback.h"

#include <gtest/gtest.h>
#include <string>

namespace vellant::testing {
namespace {

class Feedback : public SessionFixture {
protected:
    Feedback() {
        session->gComputerName = "MAPDESK7";
        // The first start finds no preference file and logs so; the report's lines follow.
        prefs::getotherprefs(*session);
        logAtStart = log().size();
    }

    std::string reportLog() const { return log().substr(logAtStart); }

    void reportProblem() { support::feedbackForm(*session).ReportProblem.Click(); }

    std::size_t logAtStart = 0;
};

TEST_F(Feedback, AReportOpensAFilledInMailAndClosesTheSessionItOpened) {
    reportProblem();

    ASSERT_EQ(toolkit.mails().size(), 1U);
    const platform::MailMessage& mail = toolkit.mails().front();
    EXPECT_EQ(mail.RecipAddress, "support@vellant.example");
    EXPECT_EQ(mail.RecipDisplayName, "Vellant Support");
    EXPECT_EQ(mail.MsgSubject, "Vellant PROBLEM REPORT [CMP: MAPDESK7]");
    EXPECT_EQ(mail.MsgNoteText, "[Please attach VELLANT.LOG from the application directory]\n"
                                "OS Name and Version: \n"
                                "MapInfo/MapX Version: \n"
                                "MapInfo or MapX?\n"
                                "Full Description of problem:\n");
    EXPECT_TRUE(mail.attachments.empty());
    EXPECT_EQ(toolkit.signOns(), 1);
    EXPECT_FALSE(toolkit.mailSessionOpen());
    EXPECT_FALSE(session->gFeedbackForm->mailSessionOpen());
    EXPECT_EQ(reportLog(), "");
}

TEST_F(Feedback, ASessionAlreadyOpenIsUsedAsItIs) {
    toolkit.mailSignOn();

    reportProblem();

    EXPECT_EQ(toolkit.signOns(), 1);
    EXPECT_EQ(toolkit.mails().size(), 1U);
    EXPECT_EQ(reportLog(), "\"Session already established\"\r\n");
}

TEST_F(Feedback, ACancelledLogonLeavesNoMailAndNoSession) {
    toolkit.failNextSignOn(32003, "User cancelled process");

    reportProblem();

    EXPECT_TRUE(toolkit.mails().empty());
    EXPECT_FALSE(toolkit.mailSessionOpen());
    EXPECT_EQ(reportLog(), "\"Mail login error 32003,User cancelled process\"\r\n"
                           "\"Canceled Login\"\r\n");

    // Any other failure is only the first line; the next report signs on afresh.
    toolkit.failNextSignOn(32002, "Unspecified failure has occurred");
    reportProblem();
    reportProblem();

    EXPECT_EQ(reportLog(), "\"Mail login error 32003,User cancelled process\"\r\n"
                           "\"Canceled Login\"\r\n"
                           "\"Mail login error 32002,Unspecified failure has occurred\"\r\n");
    EXPECT_EQ(toolkit.mails().size(), 1U);
}

TEST_F(Feedback, TheLayerFormsButtonShowsItModallyAndShutdownUnloadsIt) {
    form->session = session.get();
    toolkit.addStep([this] {
        support::vlFeedback& feedback = *session->gFeedbackForm;
        EXPECT_EQ(toolkit.modalForm(), &feedback);
        EXPECT_EQ(feedback.Owner(), form.get());
        EXPECT_EQ(feedback.ReportProblem.Caption(), "Report a Problem");
        feedback.ExitFeedback.Click();
    });

    form->Feedback.Click();

    ASSERT_NE(session->gFeedbackForm, nullptr);
    EXPECT_FALSE(toolkit.modalShows().back().endedByToolkit);
    EXPECT_TRUE(session->gFeedbackForm->Loaded());
    session::shutdown(*session);
    EXPECT_FALSE(session->gFeedbackForm->Loaded());
}

} // namespace
} // namespace vellant::testing
