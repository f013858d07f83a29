#pragma once
// The MapX host's map, its layers and their labels, as the program sees them. The members
// both hosts share come from IMap, ILayer and ILabelProps; what only MapX has is declared
// here, and the program reaches it in its MapX branches through the as... helpers below.
//
// Layers count from 1, the top layer; layer numbers shift when a layer is added, removed or
// moved. A layer removed from its map keeps its values but can no longer be drawn or read
// from its table: members that need the table raise a run-time error.

#include "hostmodel/map_object.h"
#include "hostmodel/mapx_data.h"
#include "hostmodel/mapx_style.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vellant::hostmodel {

class MXCoordSys : public platform::AutomationObject {
public:
    // The projection type: 1 longitude/latitude, 0 a plan with no place on the Earth.
    virtual std::int16_t Type() = 0;
    // The unit of coordinates as a MapUnit code.
    virtual std::int16_t Units() = 0;
};

class MXLabelProperties : public ILabelProps {
public:
    // The label text style, live; a let copies the values of the style given.
    virtual std::shared_ptr<MXStyle> Style() = 0;
    virtual void setStyle(MXStyle& style) = 0;
    virtual void setDataset(const std::shared_ptr<MXDataset>& dataset) = 0;
    // The field the labels show; a run-time error when none is set.
    virtual std::shared_ptr<MXField> DataField() = 0;
    virtual void setDataField(const std::shared_ptr<MXField>& field) = 0;
};

class MXLayer : public ILayer {
public:
    virtual void setName(const std::string& value) = 0;
    // A layer type (mapx_constants.h).
    virtual std::int16_t Type() = 0;
    // The layer's own style, live.
    virtual std::shared_ptr<MXStyle> Style() = 0;
    virtual std::shared_ptr<MXLabelProperties> LabelProperties() = 0;
    virtual std::shared_ptr<MXCoordSys> CoordSys() = 0;
    // Every feature of the layer, with its attributes; NoFeatures is an empty collection.
    virtual std::shared_ptr<MXFeatures> AllFeatures() = 0;
    virtual std::shared_ptr<MXFeatures> NoFeatures() = 0;
    // The extent of the features in the map's coordinates.
    virtual std::shared_ptr<MXRectangle> Bounds() = 0;
    virtual std::shared_ptr<MXDatasets> Datasets() = 0;
    // Adds a copy of the feature to the layer's table.
    virtual void AddFeature(MXFeature& feature) = 0;
};

class MXLayers : public platform::AutomationObject {
public:
    virtual std::int32_t Count() = 0;
    // By number from 1 or by name (the first layer of that name, any letter case).
    virtual std::shared_ptr<MXLayer> Item(const Variant& index) = 0;
    // A table file (text) or a LayerInfo, inserted at position (1 the top; a position past
    // the last appends, one below 1 is error 5).
    virtual std::shared_ptr<MXLayer> Add(const Variant& source, std::int32_t position) = 0;
    // An empty layer: temporary when fileSpec is empty, otherwise a new table of that file.
    virtual std::shared_ptr<MXLayer>
    CreateLayer(const std::string& name, const std::string& fileSpec, std::int32_t position) = 0;
    // By number or by name; later layers move up.
    virtual void Remove(const Variant& index) = 0;
    virtual void RemoveAll() = 0;
    // Takes the layer out at from and puts it in at to. The answer is true.
    virtual bool Move(std::int32_t from, std::int32_t to) = 0;
};

class MXTitle : public platform::AutomationObject {
public:
    virtual std::string Caption() = 0;
    virtual void setCaption(const std::string& value) = 0;
    virtual bool Visible() = 0;
    virtual void setVisible(bool value) = 0;
};

class MXMap : public IMap {
public:
    virtual std::shared_ptr<MXLayers> Layers() = 0;
    virtual std::shared_ptr<MXDatasets> Datasets() = 0;
    virtual std::shared_ptr<MXTitle> Title() = 0;
    virtual std::shared_ptr<MXFeatureFactory> FeatureFactory() = 0;

    // The geoset file the map was opened from; a let opens it, "" leaves the layers as they are.
    virtual std::string Geoset() = 0;
    virtual void setGeoset(const std::string& value) = 0;

    // False holds back painting only: values apply at once. True paints what changed.
    virtual bool AutoRedraw() = 0;
    virtual void setAutoRedraw(bool value) = 0;
    virtual void Refresh() = 0;

    // Zoom (IMap) is the width of the view in MapUnit; the centre is in map coordinates.
    virtual void setzoom(double value) = 0;
    virtual double CenterX() = 0;
    virtual void setCenterX(double value) = 0;
    virtual double CenterY() = 0;
    virtual void setCenterY(double value) = 0;
    // MapUnit (IMap's mapunit answers the code as a number).
    virtual void setmapunit(std::int16_t value) = 0;
    virtual std::int32_t CurrentTool() = 0;
    virtual void setCurrentTool(std::int32_t value) = 0;
    // The area the view shows; a let fits the view to the rectangle.
    virtual std::shared_ptr<MXRectangle> Bounds() = 0;
    virtual void setBounds(MXRectangle& value) = 0;

    // The control's own visibility on its form.
    virtual bool Visible() = 0;
    virtual void setVisible(bool value) = 0;
};

// The objects as the MapX host's own types; error 13 for an object of the other host.
MXMap& asMXMap(IMap& map);
MXLayer& asMXLayer(ILayer& layer);
MXLabelProperties& asMXLabelProperties(ILabelProps& labels);
MXStyle& asMXStyle(IStyle& style);

} // namespace vellant::hostmodel
