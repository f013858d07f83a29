#pragma once
// A LayerInfo: what Layers.Add needs to make a layer that is not simply a file. Type 0 (a TAB
// file), 2 (a raster) and 3 (a shapefile) read "FileSpec"; type 6, a temporary layer, reads
// "Name" and copies the "Features" given. Parameter names match in any letter case.

#include "hostmodel/mapx_constants.h"
#include "hostmodel/mapx_data.h"

#include <map>
#include <optional>
#include <string>

namespace vellant::mapx {

class LayerInfo : public hostmodel::MXLayerInfo {
public:
    static constexpr const char* kClassName = "MapX.LayerInfo.4";

    std::int16_t Type() override { return type_; }
    std::int16_t type() const { return type_; }
    void setType(std::int16_t value) override { type_ = value; }
    void AddParameter(const std::string& name, const Variant& value) override;

    // The parameter of that name (lower case), if given.
    const Variant* parameter(const std::string& lowerName) const;
    // A parameter as text; nullopt when not given. Error 13 for one that is no text.
    std::optional<std::string> text(const std::string& lowerName) const;

private:
    std::int16_t type_ = hostmodel::mapx::miLayerInfoTypeTab;
    std::map<std::string, Variant> parameters_;
};

} // namespace vellant::mapx
