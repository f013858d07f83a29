#pragma once
// A MapX Rectangle: two corners kept in order, whichever two were given.

#include "engine/tables/table.h"
#include "hostmodel/mapx_data.h"

namespace vellant::mapx {

class Rectangle : public hostmodel::MXRectangle {
public:
    static constexpr const char* kClassName = "MapX.Rectangle.4";

    Rectangle() = default;
    explicit Rectangle(const engine::Bounds& box) : box_(box) {}

    double XMin() override { return box_.minX; }
    double YMin() override { return box_.minY; }
    double XMax() override { return box_.maxX; }
    double YMax() override { return box_.maxY; }
    void Set(double x1, double y1, double x2, double y2) override;

    const engine::Bounds& box() const { return box_; }

private:
    engine::Bounds box_;
};

} // namespace vellant::mapx
