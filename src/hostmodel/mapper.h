#pragma once
// The MapInfo host's map object: the member names of a MapX Map, answered by MapBasic
// expressions about the view map window. It holds nothing; every member is one round trip.
// A failing member writes "Error from get <member> <text>" to the log and answers the empty
// value of its type.

#include "hostmodel/facade_context.h"
#include "hostmodel/map_object.h"

#include <cstdint>
#include <string>

namespace vellant::hostmodel {

class Mapper : public IMap {
public:
    static constexpr const char* kClassName = "Vellant.Mapper";
    explicit Mapper(FacadeContext& context) : context_(context) {}

    // The window type of an id (1 a map); 0 for id 0 without asking the host.
    std::int16_t wintype(std::int32_t& id);
    std::string titletext();
    float zoom() override;
    std::string TableName(std::int16_t table);
    bool TableMappable(std::int16_t table);
    // A unit name such as "mi".
    Variant mapunit() override;

private:
    FacadeContext& context_;
};

} // namespace vellant::hostmodel
