#include "mapx/label_properties.h"

#include "base/int16.h"
#include "base/runtime_error.h"

namespace vellant::mapx {

namespace {

constexpr std::int32_t kLastPosition = 8;

} // namespace

LabelProperties::LabelProperties(MapXRuntime& runtime)
    : style_(std::make_shared<mapx::Style>(runtime)) {
    style_->setListener(this);
}

LabelProperties::~LabelProperties() {
    style_->setListener(nullptr);
}

void LabelProperties::setDataset(const std::shared_ptr<hostmodel::MXDataset>& dataset) {
    if (!dataset) raiseError(kErrObjectNotSet);
    dataset_ = dataset;
    partChanged();
}

std::shared_ptr<hostmodel::MXField> LabelProperties::DataField() {
    if (!field_) raiseError(kErrObjectNotSet, "The labels have no data field.");
    return field_;
}

void LabelProperties::setDataField(const std::shared_ptr<hostmodel::MXField>& field) {
    if (!field) raiseError(kErrObjectNotSet);
    field_ = field;
    partChanged();
}

void LabelProperties::setLabelMax(std::int32_t value) {
    set(data_.labelMax, Int16(value).value());
}

void LabelProperties::setLinetype(std::int32_t value) {
    if (value < hostmodel::mapx::miLabelLineNone || value > hostmodel::mapx::miLabelLineArrow)
        raiseError(kErrInvalidProperty);
    set(data_.lineType, value);
}

void LabelProperties::setOffset(std::int32_t value) {
    set(data_.offset, Int16(value).value());
}

void LabelProperties::setPosition(std::int32_t value) {
    if (value < 0 || value > kLastPosition) raiseError(kErrInvalidProperty);
    set(data_.position, value);
}

void LabelProperties::partChanged() {
    if (listener_ != nullptr) listener_->partChanged();
}

} // namespace vellant::mapx
