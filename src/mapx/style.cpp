#include "mapx/style.h"

#include "base/runtime_error.h"
#include "engine/tables/table_path.h"
#include "mapx/style_picker.h"
#include "mapx/style_samples.h"

namespace vellant::mapx {

Style::Style(MapXRuntime& runtime)
    : runtime_(runtime), core_(std::make_shared<StyleCore>()),
      symbolFont_(std::make_shared<StyleFont>(core_, &StyleData::symbolFont)),
      textFont_(std::make_shared<StyleFont>(core_, &StyleData::textFont)) {}

void Style::setData(const StyleData& data) {
    if (core_->data == data) return;
    core_->data = data;
    core_->changed();
}

void Style::assign(hostmodel::MXStyle& other) {
    auto* style = dynamic_cast<Style*>(&other);
    if (style == nullptr) raiseError(kErrTypeMismatch);
    setData(style->data());
}

void Style::setSymbolBitmapName(const std::string& value) {
    // The name of a bitmap in the symbol folder, or a path; one that is not there cannot be
    // drawn, and the host refuses it.
    if (!value.empty()) {
        const std::filesystem::path path(value);
        const auto found = engine::findFileIgnoringCase(
            path.is_absolute() ? path : runtime_.symbolFolder() / path);
        if (!found) raiseError(kErrFileNotFound, "Unable to load bitmap symbol " + value);
    }
    set(&StyleData::symbolBitmapName, value);
}

bool Style::pick(PickKind kind) {
    const std::optional<std::string> chosen =
        runtime_.picker().pick({kind, pickerClauses(data(), kind)});
    if (!chosen) return false;
    StyleData picked = data();
    takePickerClauses(runtime_.engine(), picked, kind, *chosen);
    setData(picked);
    return true;
}

void Style::ExportRegionSample(const std::string& destination, std::int16_t format, double width,
                               double height) {
    exportSample(runtime_,
                 drawStyleSample(data(), PickKind::Region, samplePixels(width, height),
                                 runtime_.symbolFolder()),
                 destination, format);
}

void Style::ExportLineSample(const std::string& destination, std::int16_t format, double width,
                             double height) {
    exportSample(runtime_,
                 drawStyleSample(data(), PickKind::Line, samplePixels(width, height),
                                 runtime_.symbolFolder()),
                 destination, format);
}

void Style::ExportSymbolSample(const std::string& destination, std::int16_t format, double width,
                               double height) {
    exportSample(runtime_,
                 drawStyleSample(data(), PickKind::Symbol, samplePixels(width, height),
                                 runtime_.symbolFolder()),
                 destination, format);
}

void Style::ExportTextSample(const std::string& destination, std::int16_t format, double width,
                             double height, const std::string& text, std::int32_t backColor) {
    exportSample(runtime_,
                 drawStyleSample(data(), PickKind::Text, samplePixels(width, height),
                                 runtime_.symbolFolder(), text, backColor),
                 destination, format);
}

} // namespace vellant::mapx
