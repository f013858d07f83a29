#include "session/session.h"

#include "base/runtime_error.h"

namespace vellant::session {

Session::Session(platform::Toolkit& tk, std::string dir) : toolkit(tk), appPath(std::move(dir)) {
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

} // namespace vellant::session
