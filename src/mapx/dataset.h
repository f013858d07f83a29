#pragma once
// Datasets: a layer's table offered as data, with its columns as Fields. A map's Datasets
// adds them (Add(type, layer)); a layer's lists those bound to it. Fields are the table's
// columns when the dataset was made.

#include "hostmodel/mapx_data.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vellant::mapx {

class Field : public hostmodel::MXField {
public:
    explicit Field(std::string name) : name_(std::move(name)) {}
    std::string Name() override { return name_; }

private:
    std::string name_;
};

class Fields : public hostmodel::MXFields {
public:
    explicit Fields(const std::vector<std::string>& names);
    std::int32_t Count() override { return static_cast<std::int32_t>(fields_.size()); }
    std::shared_ptr<hostmodel::MXField> Item(const Variant& index) override;

private:
    std::vector<std::shared_ptr<Field>> fields_;
};

class Dataset : public hostmodel::MXDataset {
public:
    Dataset(std::string name, std::int16_t type, const std::vector<std::string>& fieldNames)
        : name_(std::move(name)), type_(type), fields_(std::make_shared<mapx::Fields>(fieldNames)) {
    }
    std::string Name() override { return name_; }
    std::int16_t Type() override { return type_; }
    std::shared_ptr<hostmodel::MXFields> Fields() override { return fields_; }

private:
    std::string name_;
    std::int16_t type_;
    std::shared_ptr<mapx::Fields> fields_;
};

class Datasets : public hostmodel::MXDatasets {
public:
    using Adder = std::function<std::shared_ptr<Dataset>(std::int16_t, hostmodel::MXLayer&)>;
    // Without an adder the collection lists only: Add is error 438.
    explicit Datasets(Adder adder = {}) : adder_(std::move(adder)) {}

    std::int32_t Count() override { return static_cast<std::int32_t>(datasets_.size()); }
    std::shared_ptr<hostmodel::MXDataset> Item(const Variant& index) override;
    std::shared_ptr<hostmodel::MXDataset> Add(std::int16_t type,
                                              hostmodel::MXLayer& source) override;

    void append(std::shared_ptr<Dataset> dataset) { datasets_.push_back(std::move(dataset)); }
    void remove(const Dataset& dataset);
    void clear() { datasets_.clear(); }
    bool hasName(const std::string& name) const;
    const std::vector<std::shared_ptr<Dataset>>& all() const { return datasets_; }
    // The map has gone: nothing more is added.
    void stopAdding() { adder_ = nullptr; }

private:
    Adder adder_;
    std::vector<std::shared_ptr<Dataset>> datasets_;
};

} // namespace vellant::mapx
