#pragma once
// The one label setting of the MapX host that is no plain value: the dataset and field the
// labels take their text from.

namespace vellant::hostmodel {
class MXLayer;
class MXLabelProperties;
class MXMap;
} // namespace vellant::hostmodel
namespace vellant::session {
struct Session;
}

namespace vellant::styles {

using session::Session;

// When gApplyToLayer is set the target map gets a new dataset over the target layer, and the
// target labels the field of the source's name; the cells "Label Dataset" and "Label field"
// are painted when paint is set. Only the source's first dataset counts.
void CopyDatasets(Session& s, hostmodel::MXLayer& sourceLayer,
                  hostmodel::MXLabelProperties& sourceLabels, hostmodel::MXMap& targetMap,
                  hostmodel::MXLayer& targetLayer, hostmodel::MXLabelProperties& targetLabels,
                  bool paint);

} // namespace vellant::styles
