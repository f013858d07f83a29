// The marks in gTrace tell, in the log line of a failed copy, how far it came.

#include "styles/label_datasets.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/setpropandcell.h"
#include "hostmodel/mapx_map.h"
#include "prefs/settings.h"
#include "session/session.h"

namespace vellant::styles {

namespace {

// Labels with no data field end the copy here without a word: that is an ordinary layer.
void copyDataField(Session& s, hostmodel::MXLabelProperties& sourceLabels,
                   hostmodel::MXDataset& dataset, hostmodel::MXLabelProperties& targetLabels,
                   bool paint) {
    try {
        const std::string field = sourceLabels.DataField()->Name();
        s.gTrace = "in copyl 2.2 " + field;
        if (s.gApplyToLayer) targetLabels.setDataField(dataset.Fields()->Item(Variant(field)));
        s.gTrace = "in copyl 2.3";
        grid::setpropandcell(s, "Label field", targetLabels.DataField()->Name(), paint);
        s.gTrace = "in copyl 2.4 " + targetLabels.DataField()->Name();
    } catch (const RuntimeError&) {
    }
}

} // namespace

void CopyDatasets(Session& s, hostmodel::MXLayer& sourceLayer,
                  hostmodel::MXLabelProperties& sourceLabels, hostmodel::MXMap& targetMap,
                  hostmodel::MXLayer& targetLayer, hostmodel::MXLabelProperties& targetLabels,
                  bool paint) {
    onErrorGoTo(
        [&] {
            const std::shared_ptr<hostmodel::MXDatasets> sources = sourceLayer.Datasets();
            s.gTrace = "in copyl 2 " + CStr(sources->Count());
            if (sources->Count() == 0) return;
            const std::shared_ptr<hostmodel::MXDataset> first = sources->Item(Variant(1));
            s.gTrace =
                "in copyl 2.0 " + CStr(first->Fields()->Count()) + " " + CStr(s.gApplyToLayer);
            if (first->Fields()->Count() == 0) {
                s.gTrace = "in copyl 2.4 " + targetLabels.DataField()->Name();
                return;
            }
            const std::int16_t type = first->Type();
            s.gTrace = "in copyl 2.01 " + CStr(type);
            std::shared_ptr<hostmodel::MXDataset> dataset;
            if (s.gApplyToLayer) {
                // A new dataset on every such copy: a commit adds one per labelled layer.
                dataset = targetMap.Datasets()->Add(type, targetLayer);
                targetLayer.LabelProperties()->setDataset(dataset);
            } else {
                dataset = targetMap.Datasets()->Item(Variant(1));
            }
            s.gTrace = "in copyl 2.1 " + CStr(sources->Count());
            grid::setpropandcell(s, "Label Dataset", dataset->Name(), paint);
            copyDataField(s, sourceLabels, *dataset, targetLabels, paint);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from CopyDatasets " + s.gTrace + " " + e.description());
        });
}

} // namespace vellant::styles
