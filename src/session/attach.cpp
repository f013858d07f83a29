// Attaching to a running MapInfo. The order of the steps carries meaning: from the reading of
// the host's own figures on, a failing statement is logged and the next one runs, so that a
// host without any window falls through every test and ends at the message that asks for a map
// window, and not at the one about the kind of the front window.

#include "session/attach.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "hostmodel/mapinfo_app.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <string>

namespace vellant::session {

namespace {

constexpr const char* kApplicationClass = "MapInfo.Application";
// The runtime edition is bound by passing this name where a file name goes, not as a class
// name, so no running object of a class of that name is looked for. The registry knows no
// files: the binding answers only when an object runs under exactly this name, which no host
// does; a host that cannot be found as "MapInfo.Application" is therefore not found at all.
constexpr const char* kRuntimeFileName = "MapInfo.Runtime";
constexpr const char* kCompanionName = "vellant.mbx";
constexpr int kCloneMapWindow = 811;
constexpr int kMapperWindowType = 1;

// Every way out of mapinfo_init shows the cursor again.
class HiddenCursor {
public:
    explicit HiddenCursor(platform::Toolkit& toolkit) : toolkit_(toolkit) {
        toolkit_.ShowCursor(false);
    }
    ~HiddenCursor() { toolkit_.ShowCursor(true); }
    HiddenCursor(const HiddenCursor&) = delete;
    HiddenCursor& operator=(const HiddenCursor&) = delete;

private:
    platform::Toolkit& toolkit_;
};

// The trap of mapinfo_init from the host's figures on: a failed statement leaves a line and
// the next statement runs.
class LoggedResumeNext {
public:
    explicit LoggedResumeNext(Session& s) : s_(s) {}
    template <class Statement> bool operator()(Statement&& statement) {
        ResumeNext next;
        if (next(std::forward<Statement>(statement))) return true;
        prefs::logQuietly(s_, "error from mapinfo_init " + next.Err.Description);
        return false;
    }

private:
    Session& s_;
};

void send(Session& s, const std::string& command) {
    s.mapInfoApp().Do(command);
}

std::string evaluate(Session& s, const std::string& expression) {
    return s.mapInfoApp().eval(expression);
}

std::int32_t evalWindow(Session& s, const std::string& expression) {
    return CLng(Val(evaluate(s, expression)));
}

float evalFigure(Session& s, const std::string& expression) {
    return static_cast<float>(Val(evaluate(s, expression)));
}

// The host's last error goes to the log, if there is one.
void check(Session& s) {
    const std::string message = s.mapInfoApp().LastErrorMessage();
    if (!message.empty()) prefs::vlog(s, message);
}

// Attach only: the program never starts MapInfo.
bool attach(Session& s) {
    bool attached = false;
    onErrorGoTo(
        [&] {
            s.gMapInfo = platform::AutomationRegistry::as<hostmodel::MapInfoApp>(
                s.registry.GetObject(kApplicationClass));
            attached = true;
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "error from mapinfo_init " + e.description());
            ResumeNext next;
            attached = next([&] {
                s.gMapInfo = platform::AutomationRegistry::as<hostmodel::MapInfoApp>(
                    s.registry.GetObject(kRuntimeFileName));
            });
        });
    return attached;
}

} // namespace

bool mapinfo_init(Session& s) {
    HiddenCursor cursor(s.toolkit);
    s.gViewWin = 0;
    s.gSpareWin = 0;
    if (!attach(s)) {
        s.showMessage("Please start MapInfo (Professional or runtime) first");
        return false;
    }

    LoggedResumeNext step(s);
    const bool dockedImmediate = s.gDocked && s.gImmediate;
    step([&] { s.gMIHwnd = evalWindow(s, "systeminfo(9)"); });

    bool notMapper = false;
    step([&] { notMapper = Val(evaluate(s, "WIndowInfo(Frontwindow(),3)")) != kMapperWindowType; });
    if (notMapper) {
        s.showMessage("Must have a Mapper as front window.");
        step([&] { s.layerForm().Cancel_Click(); });
        return false;
    }

    step([&] { s.gMapWin = evalWindow(s, "WindowID(frontwindow())"); });
    if (!dockedImmediate)
        step([&] { send(s, "Set Map Window " + Str(s.gMapWin) + " redraw off"); });
    step([&] { send(s, "statusbar hide"); });
    const std::string win = Str(s.gMapWin);
    step([&] { s.gMapLeft = evalFigure(s, "WIndowInfo(" + win + ",6)"); });
    step([&] { s.gMapTop = evalFigure(s, "WIndowInfo(" + win + ",7)"); });
    step([&] { s.gMapHeightSaved = evalFigure(s, "WIndowInfo(" + win + ",5)"); });
    step([&] { s.gMapWidthSaved = evalFigure(s, "WIndowInfo(" + win + ",4)"); });

    // Docked and immediate together work on the user's map alone: no view map is made.
    if (!dockedImmediate) {
        step([&] {
            send(s,
                 "Set Next Document Parent " + Str(s.layerForm().MapInfoFrame.hWnd()) + " Style 1");
        });
        step([&] { check(s); });
        step([&] { s.mapInfoApp().RunMenuCommand(kCloneMapWindow); });
        step([&] { check(s); });
        step([&] { s.gViewWin = evalWindow(s, "WindowID(0)"); });
        step([&] { send(s, "Set Map Window " + Str(s.gViewWin) + " redraw off"); });
        step([&] { check(s); });
        step([&] { send(s, "Set Next Document Style 0"); });
        step([&] { check(s); });
    }

    if (s.gImmediate) {
        s.gSpareWin = s.gViewWin;
        s.gViewWin = s.gMapWin;
    }

    if (s.gViewWin != 0 && s.gMapWin != 0) {
        step([&] { send(s, "set distance units Mapperinfo(" + Str(s.gViewWin) + ",12)"); });
        // The frame would be repainted here when floating; the form model has nothing to paint.
        return true;
    }
    s.showMessage("Please bring the desired Map window to the front ");
    step([&] { s.layerForm().Cancel_Click(); });
    return false;
}

int FindCompanion(Session& s) {
    hostmodel::MapInfoApp& app = s.mapInfoApp();
    const int count = app.MBApplicationsCount();
    for (int item = 1; item <= count; ++item)
        if (LCase(app.MBApplications(item).Name()) == kCompanionName) return item;
    return 0;
}

void readMapFigures(Session& s) {
    const std::string map = Str(s.gMapWin);
    const std::string view = Str(s.gViewWin);
    s.gCenterX = evalFigure(s, "Mapperinfo(" + map + ",3)");
    s.gCenterY = evalFigure(s, "Mapperinfo(" + map + ",4)");
    s.gMapWidth = evalFigure(s, "windowinfo(" + map + ",4)");
    s.gViewWidth = evalFigure(s, "windowinfo(" + view + ",4)");
    s.gViewZoom = evalFigure(s, "mapperinfo(" + view + ",1)");
    if (s.gMapWidth == 0) raiseError(kErrDivisionByZero);
    s.gScaleZoom = s.gViewZoom * s.gViewWidth / s.gMapWidth;
}

} // namespace vellant::session
