#include "session/session.h"

#include "base/runtime_error.h"
#include "interaction/edit_cell.h"
#include "interaction/label_orientation.h"
#include "platform/file_system_object.h"
#include "prefs/settings.h"
#include "support/vl_feedback.h"
#include "support/vl_info.h"

namespace vellant::session {

Session::Session(platform::Toolkit& tk, std::string dir, platform::AutomationRegistry* reg)
    : toolkit(tk), appPath(std::move(dir)), registry(reg ? *reg : ownRegistry_) {
    gComputerName = toolkit.ComputerName();
}

Session::~Session() = default;

LayerForm& Session::layerForm() const {
    if (!gLayerForm) raiseError(kErrObjectNotSet);
    return *gLayerForm;
}

hostmodel::IMap& Session::map() const {
    if (!gMap) raiseError(kErrObjectNotSet);
    return *gMap;
}

hostmodel::MapInfoApp& Session::mapInfoApp() const {
    if (!gMapInfo) raiseError(kErrObjectNotSet);
    return *gMapInfo;
}

hostmodel::ILayer& Session::lyr() const {
    if (!gLyr) raiseError(kErrObjectNotSet);
    return *gLyr;
}

hostmodel::ILabelProps& Session::labelProps() const {
    if (!gLabelProps) raiseError(kErrObjectNotSet);
    return *gLabelProps;
}

hostmodel::ILabelProps& Session::viewLabelProps() const {
    if (!gViewLabelProps) raiseError(kErrObjectNotSet);
    return *gViewLabelProps;
}

void Session::releaseHostObjects() {
    gMap.reset();
    gViewLyr.reset();
    gLyr.reset();
    gStyle.reset();
    gLabelProps.reset();
    gViewLabelProps.reset();
    gLabelStyle.reset();
    gMBApp = nullptr;
    gCallback.reset();
    gMBGlobals = nullptr;
    gFSO.reset();
}

void Session::log(const std::string& line) {
    prefs::vlog(*this, line);
}

void Session::showMessage(const std::string& text) {
    toolkit.MsgBox(text);
}

} // namespace vellant::session
