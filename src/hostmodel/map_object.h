#pragma once
// The objects both hosts offer the grid code under the same member names: MapX's own Map,
// Layer, LabelProperties and Style, or the facades over a MapInfo map window. Members that only
// one host has live on that host's own types; the grid reaches them in a host branch.

#include "base/int16.h"
#include "base/variant.h"
#include "platform/automation.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vellant::hostmodel {

class IMap : public platform::AutomationObject {
public:
    virtual float zoom() = 0;
    // The map's distance unit: MapX gives a unit code, MapInfo a unit name such as "mi".
    virtual Variant mapunit() = 0;
};

// Flag lets take the 16-bit flag as the program holds it: -1 true, 0 false; any other value
// reaches the host as it stands (MapInfo's facade then sends an empty word).
class ILayer : public platform::AutomationObject {
public:
    virtual std::string Name() = 0;
    virtual bool Visible() = 0;
    virtual void setVisible(Flag value) = 0;
    virtual bool Selectable() = 0;
    virtual void setSelectable(Flag value) = 0;
    virtual bool Shownodes() = 0;
    virtual void setShownodes(Flag value) = 0;
    virtual bool Showlinedirection() = 0;
    virtual void setShowlinedirection(Flag value) = 0;
    virtual bool ShowCentroids() = 0;
    virtual void setShowCentroids(Flag value) = 0;
    virtual bool Autolabel() = 0;
    virtual void setAutolabel(Flag value) = 0;
    virtual bool Editable() = 0;
    virtual void setEditable(Flag value) = 0;
    virtual bool ZoomLayer() = 0;
    virtual void setZoomLayer(Flag value) = 0;
    virtual double ZoomMin() = 0;
    virtual void setZoomMin(double value) = 0;
    virtual double ZoomMax() = 0;
    virtual void setZoomMax(double value) = 0;
    virtual std::string FileSpec() = 0;
    virtual bool overridestyle() = 0;
    virtual void setoverridestyle(Flag value) = 0;
    // 0 region, 1 line, 2 symbol, 3 mixed, 4 no features, 5 text, 6 empty.
    virtual std::int16_t PredominantFeatureType() = 0;
};

class ILabelProps : public platform::AutomationObject {
public:
    // The dataset the labels take their text from; nothing on the MapInfo host.
    virtual std::shared_ptr<BasicObject> Dataset() = 0;
    virtual bool Duplicate() = 0;
    virtual void setDuplicate(Flag value) = 0;
    virtual std::int32_t LabelMax() = 0;
    virtual void setLabelMax(std::int32_t value) = 0;
    virtual bool LabelZoom() = 0;
    virtual void setLabelZoom(Flag value) = 0;
    virtual double LabelZoomMax() = 0;
    virtual void setLabelZoomMax(double value) = 0;
    virtual double LabelZoomMin() = 0;
    virtual void setLabelZoomMin(double value) = 0;
    virtual std::int32_t Linetype() = 0;
    virtual void setLinetype(std::int32_t value) = 0;
    virtual std::int32_t Offset() = 0;
    virtual void setOffset(std::int32_t value) = 0;
    virtual bool Overlap() = 0;
    virtual void setOverlap(Flag value) = 0;
    virtual bool Parallel() = 0;
    virtual void setParallel(Flag value) = 0;
    virtual bool PartialSegments() = 0;
    virtual void setPartialSegments(Flag value) = 0;
    // The orientation code 0..8 of the label position.
    virtual std::int32_t Position() = 0;
    virtual void setPosition(std::int32_t value) = 0;
    virtual bool Visible() = 0;
    virtual void setVisible(Flag value) = 0;
};

class IStyle : public platform::AutomationObject {
public:
    // The pattern of the line style.
    virtual std::int16_t LineStyle() = 0;
};

} // namespace vellant::hostmodel
