#pragma once
// The MapX host's data objects: datasets bound to layers and their fields, features and the
// objects that make them (LayerInfo, FeatureFactory, Rectangle). Collections count from 1; a
// bad index or an unknown name raises a run-time error, never answers nothing.

#include "base/variant.h"
#include "platform/automation.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vellant::hostmodel {

class MXMap;
class MXStyle;

class MXField : public platform::AutomationObject {
public:
    virtual std::string Name() = 0;
};

class MXFields : public platform::AutomationObject {
public:
    virtual std::int32_t Count() = 0;
    // By number from 1 or by name in any letter case.
    virtual std::shared_ptr<MXField> Item(const Variant& index) = 0;
};

class MXDataset : public platform::AutomationObject {
public:
    virtual std::string Name() = 0;
    virtual std::int16_t Type() = 0;
    virtual std::shared_ptr<MXFields> Fields() = 0;
};

class MXLayer;

class MXDatasets : public platform::AutomationObject {
public:
    virtual std::int32_t Count() = 0;
    // By number from 1 or by name.
    virtual std::shared_ptr<MXDataset> Item(const Variant& index) = 0;
    // A new dataset of that type over the layer's table, with a name no other dataset of the
    // map has; it joins the map's and the layer's datasets. Only a map's collection adds.
    virtual std::shared_ptr<MXDataset> Add(std::int16_t type, MXLayer& source) = 0;
};

class MXRectangle : public platform::AutomationObject {
public:
    virtual double XMin() = 0;
    virtual double YMin() = 0;
    virtual double XMax() = 0;
    virtual double YMax() = 0;
    // Any two corners; the rectangle keeps them ordered.
    virtual void Set(double x1, double y1, double x2, double y2) = 0;
};

class MXFeature : public platform::AutomationObject {
public:
    // A feature type (mapx_constants.h).
    virtual std::int16_t Type() = 0;
    // A new feature takes the map's coordinate system.
    virtual void Attach(MXMap& map) = 0;
};

class MXFeatures : public platform::AutomationObject {
public:
    virtual std::int32_t Count() = 0;
    virtual std::shared_ptr<MXFeature> Item(std::int32_t index) = 0;
};

class MXFeatureFactory : public platform::AutomationObject {
public:
    // A region of the rectangle, in the style's fill and border, in the map's coordinates.
    virtual std::shared_ptr<MXFeature> CreateRegion(MXRectangle& rectangle, MXStyle& style) = 0;
};

class MXLayerInfo : public platform::AutomationObject {
public:
    virtual std::int16_t Type() = 0;
    virtual void setType(std::int16_t value) = 0;
    // "Name", "FileSpec" (text) or "Features" (a Features object), in any letter case; a
    // second value of a name replaces the first.
    virtual void AddParameter(const std::string& name, const Variant& value) = 0;
};

} // namespace vellant::hostmodel
