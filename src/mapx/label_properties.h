#pragma once
// A layer's labels: where, how many and at which zooms they show, the field they show, and
// their text style (live). Values are kept as given; a let outside a property's range is a
// run-time error: LabelMax and Offset are 16-bit (error 6), Position runs 0-8 and LineType 0-2
// (error 380). Zoom limits are in the map's MapUnit.

#include "hostmodel/mapx_map.h"
#include "mapx/dataset.h"
#include "mapx/style.h"

#include <memory>

namespace vellant::mapx {

struct LabelData {
    bool visible = true;
    bool labelZoom = false;
    double labelZoomMin = 0;
    double labelZoomMax = 10000;
    std::int32_t lineType = hostmodel::mapx::miLabelLineNone;
    std::int16_t offset = 2; // points
    std::int16_t labelMax = 32767;
    bool overlap = false;
    bool duplicate = false;
    bool parallel = false;
    bool partialSegments = false;
    std::int32_t position = 0; // 0 centre, 1..8 round it from the top left
};

class LabelProperties : public hostmodel::MXLabelProperties, public PartListener {
public:
    explicit LabelProperties(MapXRuntime& runtime);
    ~LabelProperties();
    LabelProperties(const LabelProperties&) = delete;
    LabelProperties& operator=(const LabelProperties&) = delete;

    // The layer that draws the labels hears of every change.
    void setListener(PartListener* listener) { listener_ = listener; }
    const LabelData& data() const { return data_; }
    const mapx::Style& style() const { return *style_; }
    // The field's name, or "" when the labels have none.
    std::string dataFieldName() const { return field_ ? field_->Name() : std::string(); }

    std::shared_ptr<BasicObject> Dataset() override { return dataset_; }
    void setDataset(const std::shared_ptr<hostmodel::MXDataset>& dataset) override;
    std::shared_ptr<hostmodel::MXField> DataField() override;
    void setDataField(const std::shared_ptr<hostmodel::MXField>& field) override;
    std::shared_ptr<hostmodel::MXStyle> Style() override { return style_; }
    void setStyle(hostmodel::MXStyle& style) override { style_->assign(style); }

    bool Duplicate() override { return data_.duplicate; }
    void setDuplicate(Flag value) override { set(data_.duplicate, value != kFalse); }
    std::int32_t LabelMax() override { return data_.labelMax; }
    void setLabelMax(std::int32_t value) override;
    bool LabelZoom() override { return data_.labelZoom; }
    void setLabelZoom(Flag value) override { set(data_.labelZoom, value != kFalse); }
    double LabelZoomMax() override { return data_.labelZoomMax; }
    void setLabelZoomMax(double value) override { set(data_.labelZoomMax, value); }
    double LabelZoomMin() override { return data_.labelZoomMin; }
    void setLabelZoomMin(double value) override { set(data_.labelZoomMin, value); }
    std::int32_t Linetype() override { return data_.lineType; }
    void setLinetype(std::int32_t value) override;
    std::int32_t Offset() override { return data_.offset; }
    void setOffset(std::int32_t value) override;
    bool Overlap() override { return data_.overlap; }
    void setOverlap(Flag value) override { set(data_.overlap, value != kFalse); }
    bool Parallel() override { return data_.parallel; }
    void setParallel(Flag value) override { set(data_.parallel, value != kFalse); }
    bool PartialSegments() override { return data_.partialSegments; }
    void setPartialSegments(Flag value) override { set(data_.partialSegments, value != kFalse); }
    std::int32_t Position() override { return data_.position; }
    void setPosition(std::int32_t value) override;
    bool Visible() override { return data_.visible; }
    void setVisible(Flag value) override { set(data_.visible, value != kFalse); }

    void partChanged() override;

private:
    template <class T> void set(T& field, const T& value) {
        if (field == value) return;
        field = value;
        partChanged();
    }

    LabelData data_;
    std::shared_ptr<mapx::Style> style_;
    std::shared_ptr<hostmodel::MXDataset> dataset_;
    std::shared_ptr<hostmodel::MXField> field_;
    PartListener* listener_ = nullptr;
};

} // namespace vellant::mapx
