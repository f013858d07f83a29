#pragma once
// The MapInfo host's layer object: the member names of a MapX Layer, each get one eval and each
// let one Do about the view map window. It stands for no layer of its own: gets read the layer
// CurrentLayerIndex names, lets write the current layer gLayer. Table-level members address the
// table named like the layer. Failures are reported as each member documents: a log line and the
// empty value, a message box for a refused let, or (for the members marked) the error itself.

#include "hostmodel/facade_context.h"
#include "hostmodel/map_object.h"

#include <cstdint>
#include <string>

namespace vellant::hostmodel {

class MIProps : public ILayer {
public:
    static constexpr const char* kClassName = "Vellant.MIProps";
    explicit MIProps(FacadeContext& context) : context_(context) {}

    // Bounds of the layer's table.
    float MinX();
    float MinY();
    float MaxX();
    float MaxY();
    // The length of a degree of longitude at a fixed place, in km.
    float Degtokm();
    std::int32_t Frontwindow();
    bool Edited();
    std::int32_t FieldCount();
    // Empty for a layer that is not a plain layer, without asking the host.
    std::string FieldName(std::int16_t column);
    std::string coordsys();
    bool Fastedit();
    void setFastedit(Flag value);
    bool Undo();
    void setUndo(Flag value);
    bool Readonly();
    // Only true is sent: a table cannot be made writable again.
    void setReadonly(Flag value);
    // Rows of the table; 0 without asking when the layer has no name.
    std::int32_t count();

    // No handler: errors reach the caller.
    std::string Name() override;
    std::string TableName();
    bool Visible() override;
    void setVisible(Flag value) override;
    bool Selectable() override;
    void setSelectable(Flag value) override;
    bool Shownodes() override;
    void setShownodes(Flag value) override;
    bool Showlinedirection() override;
    void setShowlinedirection(Flag value) override;
    bool ShowCentroids() override;
    void setShowCentroids(Flag value) override;
    bool Autolabel() override;
    void setAutolabel(Flag value) override;
    bool Editable() override;
    void setEditable(Flag value) override;
    bool ZoomLayer() override;
    void setZoomLayer(Flag value) override;
    double ZoomMin() override;
    void setZoomMin(double value) override;
    double ZoomMax() override;
    void setZoomMax(double value) override;
    std::string FileSpec() override;
    bool overridestyle() override;
    // On the user's map window, for comparing the original look with the view.
    bool overridestyleOrig();
    // True sends the shared style text gStyleValue (or no style when it is empty).
    void setoverridestyle(Flag value) override;
    bool QueryTab();
    std::int16_t ttype();
    // 0 normal, 1 cosmetic, 2 raster (a grid layer answers 2 too), 3 thematic.
    std::int16_t ltype();
    std::int16_t PredominantFeatureType() override;
    // The MapBasic clause of the layer's main style: brush, pen, symbol or font.
    std::string Style();
    std::string StyleOrig();

private:
    std::string styleOf(std::int32_t window);
    // original: the user's map, whose by-value drawing takes the view's override off.
    bool overrideOf(std::int32_t window, bool original);
    // eval of "LayerInfo(<view>,<CurrentLayerIndex>,<code>)".
    std::string layerGet(const char* code);
    // eval of "TableInfo(\"<table>\",<code>)".
    std::string tableGet(const std::string& table, const char* code);
    // A bound of the table: its own log line names the table.
    float bound(const char* code, const char* label);
    // Do of "set map window <view> Layer <gLayer> <clause>", a failure shown with the label.
    void layerLet(const char* label, const std::string& clause);
    // Do of "set table \"<table>\" <clause>" on the layer's table.
    void tableLet(const char* label, const std::string& clause, bool nameInMessage);

    FacadeContext& context_;
};

// The layer object as the MapInfo host's own type, for the branches only that host has; error
// 13 for any other object.
MIProps& asMIProps(ILayer& layer);

} // namespace vellant::hostmodel
