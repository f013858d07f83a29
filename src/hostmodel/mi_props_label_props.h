#pragma once
// The MapInfo host's label object: the member names of a MapX LabelProperties, read from and
// written to the labels of the view map's layers. Gets read CurrentLayerIndex, lets write gLayer;
// every command begins "set map window <view> Layer <layer> ".

#include "hostmodel/facade_context.h"
#include "hostmodel/map_object.h"

#include <cstdint>
#include <string>

namespace vellant::hostmodel {

class MIPropsLabelProps : public ILabelProps {
public:
    static constexpr const char* kClassName = "Vellant.MIPropsLabelProps";
    explicit MIPropsLabelProps(FacadeContext& context) : context_(context) {}

    // The label font clause with its blanks taken out (walking gColIter); no handler.
    std::string Style();
    void setStyle(const std::string& clause);
    // Always nothing: a MapInfo label has no dataset.
    std::shared_ptr<BasicObject> Dataset() override;
    // The label expression.
    std::string Datafield();
    void setDatafield(const std::string& expression);
    bool Duplicate() override;
    void setDuplicate(Flag value) override;
    std::int32_t LabelMax() override;
    void setLabelMax(std::int32_t value) override;
    bool LabelZoom() override;
    void setLabelZoom(Flag value) override;
    double LabelZoomMax() override;
    void setLabelZoomMax(double value) override;
    double LabelZoomMin() override;
    void setLabelZoomMin(double value) override;
    std::int32_t Linetype() override;
    void setLinetype(std::int32_t value) override;
    std::int32_t Offset() override;
    void setOffset(std::int32_t value) override;
    bool Overlap() override;
    void setOverlap(Flag value) override;
    bool Parallel() override;
    void setParallel(Flag value) override;
    bool PartialSegments() override;
    void setPartialSegments(Flag value) override;
    std::int32_t Position() override;
    void setPosition(std::int32_t value) override;
    bool Visible() override;
    void setVisible(Flag value) override;

private:
    // eval of "LayerInfo(<view>,<CurrentLayerIndex>,<code>)".
    std::string layerGet(const char* code);
    // Do of "set map window <view> Layer <gLayer> <clause>", a failure shown with the label.
    void labelLet(const std::string& label, const std::string& clause);

    FacadeContext& context_;
};

// The label object as the MapInfo host's own type; error 13 for any other object.
MIPropsLabelProps& asMIPropsLabelProps(ILabelProps& labels);

// The position word of an orientation code; empty for 9 and above. Code 8 gives the same word
// as code 5.
std::string labelPositionWord(std::int32_t code);

} // namespace vellant::hostmodel
