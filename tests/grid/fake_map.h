#pragma once
// A map that answers only its distance unit.

#include "hostmodel/map_object.h"

namespace vellant::grid {

class UnitOnlyMap : public hostmodel::IMap {
public:
    explicit UnitOnlyMap(Variant unit) : unit_(std::move(unit)) {}
    float zoom() override { return 0; }
    Variant mapunit() override { return unit_; }

private:
    Variant unit_;
};

} // namespace vellant::grid
