#pragma once
// The MapInfo host's style objects. A layer's style on this host is MapBasic text (MIProps
// Style); these two exist so that gStyle and gLabelStyle are live objects, and MIPropsStyle
// answers the one member the grid asks of a style on both hosts.

#include "hostmodel/facade_context.h"
#include "hostmodel/map_object.h"

#include <cstdint>

namespace vellant::hostmodel {

class MIPropsStyle : public IStyle {
public:
    static constexpr const char* kClassName = "Vellant.MIPropsStyle";
    explicit MIPropsStyle(FacadeContext& context) : context_(context) {}

    // The pattern of the line style of gLayer (not the clicked row); no handler.
    std::int16_t LineStyle() override;

private:
    FacadeContext& context_;
};

// No members: with the MapInfo host a label's style is text, reached through the label object.
class MIPropsLabelStyle : public platform::AutomationObject {
public:
    static constexpr const char* kClassName = "Vellant.MIPropsLabelStyle";
};

} // namespace vellant::hostmodel
