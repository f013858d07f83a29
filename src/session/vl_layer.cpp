// The public class. A call lasts as long as its session: the form's load runs the whole session
// inside its modal show, and the method returns when the form has been hidden and unloaded.

#include "session/vl_layer.h"

#include "base/error_trap.h"
#include "hostmodel/facade_classes.h"
#include "hostmodel/map_object.h"
#include "prefs/settings.h"
#include "session/layer_form.h"
#include "session/session.h"
#include "support/vl_feedback.h"

namespace vellant::session {

namespace {

constexpr const char* kMapXClass = "MapX.Map.4";

// The forms are made on first reference; each new one runs this session.
vlLayerControl& floatingForm(Session& s) {
    if (!s.gFloatingForm) {
        s.gFloatingForm = std::make_unique<vlLayerControl>(s.toolkit);
        s.gFloatingForm->session = &s;
    }
    return *s.gFloatingForm;
}

vlLayerDocked& dockedForm(Session& s) {
    if (!s.gDockedForm) {
        s.gDockedForm = std::make_unique<vlLayerDocked>(s.toolkit);
        s.gDockedForm->session = &s;
    }
    return *s.gDockedForm;
}

// An unloaded form is let go of, so that the next pass gets a new instance and reads all its
// state afresh.
void dropForm(Session& s, const LayerForm* form) {
    if (form == s.gFloatingForm.get()) s.gFloatingForm.reset();
    if (form == s.gDockedForm.get()) s.gDockedForm.reset();
}

// shutdown has unloaded it already unless the layer form's unload was refused.
void unloadFeedbackForm(Session& s) {
    if (s.gFeedbackForm) s.gFeedbackForm->Unload();
}

} // namespace

vlLayer::vlLayer(platform::Toolkit& toolkit, platform::AutomationRegistry& registry,
                 std::string appPath)
    : toolkit_(toolkit), registry_(registry), appPath_(std::move(appPath)) {}

vlLayer::~vlLayer() {
    if (session_) hostmodel::unregisterFacadeClasses(registry_);
}

Session& vlLayer::startSession(std::unique_ptr<Session>& outer) {
    outer = std::move(session_);
    session_ = std::make_unique<Session>(toolkit_, appPath_, &registry_);
    hostmodel::registerFacadeClasses(registry_, *session_);
    if (onSessionStart) onSessionStart(*session_);
    return *session_;
}

void vlLayer::endSession(std::unique_ptr<Session> outer) {
    hostmodel::unregisterFacadeClasses(registry_);
    session_ = std::move(outer);
    if (session_) hostmodel::registerFacadeClasses(registry_, *session_);
}

std::string vlLayer::RunLayer(const std::shared_ptr<platform::AutomationObject>& map) {
    std::unique_ptr<Session> outer;
    Session& s = startSession(outer);
    std::string answer;
    onErrorGoTo(
        [&] {
            s.gIsMapInfo = kFalse;
            s.gShuttingDown = kFalse;
            s.gAccepted = kFalse;
            prefs::getotherprefs(s);
            // The docked form serves MapInfo only, whatever the settings say.
            vlLayerControl& form = floatingForm(s);
            s.gLayerForm = &form;
            // Made only to learn whether MapX is there; the caller's map takes its place.
            s.gMap = platform::AutomationRegistry::as<hostmodel::IMap>(
                s.registry.CreateObject(kMapXClass));
            s.gMap = platform::AutomationRegistry::as<hostmodel::IMap>(map);
            form.Load();
            const std::string word = s.gAccepted ? "ok" : "cancel";
            form.Unload();
            unloadFeedbackForm(s);
            answer = word;
        },
        [&](const RuntimeError&) { s.gMap.reset(); });
    endSession(std::move(outer));
    return answer;
}

std::string vlLayer::ExitLayer() {
    std::string answer;
    onErrorGoTo(
        [&] {
            // Whatever kind of session runs: a docked one goes on, as only the floating form
            // is unloaded. A form never made is not loaded either.
            if (session_ && session_->gFloatingForm) session_->gFloatingForm->Unload();
            answer = "OK";
        },
        [](const RuntimeError&) {});
    return answer;
}

std::string vlLayer::RunMapInfoLayer() {
    std::unique_ptr<Session> outer;
    Session& s = startSession(outer);
    // The loop's answer is the same however the session ended; a failure is no exception.
    onErrorGoTo(
        [&] {
            s.gRestart = kTrue;
            // Each pass is a whole new session on whatever is then MapInfo's front window, with
            // the settings read again: a change of the docked setting takes effect here.
            while (s.gRestart) {
                s.gIsMapInfo = kTrue;
                s.gRestart = kFalse;
                s.gShuttingDown = kFalse;
                prefs::getotherprefs(s);
                if (s.gDocked)
                    s.gLayerForm = &dockedForm(s);
                else
                    s.gLayerForm = &floatingForm(s);
                s.gLayerForm->Load();
                s.gLayerForm->Unload();
                unloadFeedbackForm(s);
                const LayerForm* used = s.gLayerForm;
                s.gLayerForm = nullptr;
                dropForm(s, used);
                s.releaseHostObjects();
            }
        },
        [](const RuntimeError&) {});
    endSession(std::move(outer));
    return "ok";
}

} // namespace vellant::session
