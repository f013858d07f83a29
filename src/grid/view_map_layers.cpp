#include "grid/view_map_layers.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "hostmodel/mapx_constants.h"
#include "hostmodel/mapx_map.h"
#include "prefs/settings.h"
#include "session/session.h"

namespace vellant::grid {

namespace {

namespace mx = hostmodel::mapx;

constexpr std::int16_t kNoPattern = 0;
constexpr std::int32_t kRed = 255;

template <class T> std::shared_ptr<T> create(Session& s, const char* className) {
    std::shared_ptr<T> object =
        platform::AutomationRegistry::as<T>(s.registry.CreateObject(className));
    if (!object) raiseError(kErrTypeMismatch);
    return object;
}

// A temporary layer cannot be opened again from a file: its features are copied, or, when it
// has none, an empty layer of the source's name takes its place.
void copyFeatures(hostmodel::MXMap& map, std::int16_t position, hostmodel::MXLayer& layer,
                  const std::shared_ptr<hostmodel::MXLayerInfo>& info) {
    info->setType(mx::miLayerInfoTypeTemp);
    const std::shared_ptr<hostmodel::MXFeatures> features = layer.AllFeatures();
    if (features->Count() > 0) {
        info->AddParameter("Features", Variant(features));
        map.Layers()->Add(Variant(info), position);
    } else {
        map.Layers()->CreateLayer(layer.Name(), "", position);
    }
}

} // namespace

void createlayer(Session& s, hostmodel::MXMap& map, std::int16_t position,
                 hostmodel::MXLayer& layer, bool useFile, bool boundsOnly,
                 const std::string& name) {
    onErrorGoTo(
        [&] {
            auto info = create<hostmodel::MXLayerInfo>(s, "MapX.LayerInfo.4");
            auto feature = create<hostmodel::MXFeature>(s, "MapX.Feature.4");
            auto rectangle = create<hostmodel::MXRectangle>(s, "MapX.Rectangle.4");
            auto style = create<hostmodel::MXStyle>(s, "MapX.Style.4");
            info->setType(layer.Type());
            info->AddParameter("Name", Variant(name.empty() ? layer.Name() : name));
            if (!boundsOnly) {
                // A seamless layer is reopened from its file alone and keeps its own name.
                if (layer.Type() == mx::miLayerTypeSeamless) {
                    map.Layers()->Add(Variant(layer.FileSpec()), position);
                    return;
                }
                if (layer.Type() == mx::miLayerTypeUserDraw || InStr(layer.FileSpec(), "~") > 0 ||
                    !useFile) {
                    copyFeatures(map, position, layer, info);
                    return;
                }
                info->AddParameter("FileSpec", Variant(layer.FileSpec()));
                map.Layers()->Add(Variant(info), position);
                return;
            }
            info->setType(mx::miLayerInfoTypeTemp);
            if (layer.AllFeatures()->Count() == 0) {
                map.Layers()->CreateLayer(layer.Name(), "", position);
                return;
            }
            const std::shared_ptr<hostmodel::MXRectangle> bounds = layer.Bounds();
            rectangle->Set(bounds->XMin(), bounds->YMin(), bounds->XMax(), bounds->YMax());
            feature->Attach(map);
            style->setRegionPattern(kNoPattern);
            style->setRegionBorderColor(kRed);
            feature = map.FeatureFactory()->CreateRegion(*rectangle, *style);
            info->AddParameter("Features", Variant(layer.NoFeatures()));
            map.Layers()->Add(Variant(info), position);
            map.Layers()
                ->Item(Variant(static_cast<std::int32_t>(position)))
                ->setoverridestyle(kFalse);
            // The last layer takes the rectangle, wherever the new one went.
            const std::int32_t last = map.Layers()->Count();
            map.Layers()
                ->Item(Variant(last))
                ->AddFeature(*map.FeatureFactory()->CreateRegion(*rectangle, *style));
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from createlayer: " + e.description());
        });
}

} // namespace vellant::grid
