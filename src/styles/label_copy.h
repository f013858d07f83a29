#pragma once
// Copying the label settings of one layer to another, painting the label cells on the way.

#include <cstdint>

namespace vellant::hostmodel {
class ILayer;
class ILabelProps;
} // namespace vellant::hostmodel
namespace vellant::session {
struct Session;
}

namespace vellant::styles {

using session::Session;

void copylabelprops(Session& s, hostmodel::ILayer& sourceLayer,
                    hostmodel::ILabelProps& sourceLabels, hostmodel::ILayer& targetLayer,
                    hostmodel::ILabelProps& targetLabels, std::int16_t layer, bool paint);

} // namespace vellant::styles
