#pragma once
// The information form: the built-in help. It repeats the layer form's buttons, and a click on
// one puts a text about it into the read-only box Info, replacing what was there; the form
// stays open until Exit. It also opens the product brief.

#include "platform/form.h"
#include "support/info_topics.h"

#include <string>

namespace vellant::session {
struct Session;
}

namespace vellant::support {

using session::Session;

inline constexpr const char* kProductBriefFile = "vellantpb.pdf";

class VLInfo : public platform::Form {
public:
    // The session outlives the form.
    VLInfo(platform::Toolkit& toolkit, Session& session);

    // The read-only text box with a scroll bar.
    platform::Control Info{"Info"};

    // The copies of the layer form's controls, each with its topic.
    platform::Control cell{"cell"};
    platform::Control OK{"OK"};
    platform::Control Cancel{"Cancel"};
    platform::Control MapImmediate{"MapImmediate"};
    platform::Control Check1{"Check1"};
    platform::Control RedrawNOW{"RedrawNOW"};
    platform::Control Label2{"Label2"};
    platform::Control Label3{"Label3"};
    platform::Control Limits{"Limits"};
    platform::Control OpEnv{"OpEnv"};
    platform::Control MapXInfo{"MapXInfo"};
    platform::Control ProdBrief{"ProdBrief"};
    platform::Control Exit{"Exit"};
    // A fixed heading over the buttons.
    platform::Control Label1{"Label1"};

    // The product brief's place: the current directory.
    static std::string productBriefPath();

protected:
    void Form_Load() override;

private:
    void design();
    void showTopic(InfoTopic topic);

    Session& session_;
};

// The session's information form, made on first reference.
VLInfo& infoForm(Session& s);

} // namespace vellant::support
