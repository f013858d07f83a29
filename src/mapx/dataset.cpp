#include "mapx/dataset.h"

#include "mapx/collection_item.h"

#include <algorithm>

namespace vellant::mapx {

Fields::Fields(const std::vector<std::string>& names) {
    for (const std::string& name : names)
        fields_.push_back(std::make_shared<Field>(name));
}

std::shared_ptr<hostmodel::MXField> Fields::Item(const Variant& index) {
    return collectionItem(fields_, index, "Fields", [](Field& f) { return f.Name(); });
}

std::shared_ptr<hostmodel::MXDataset> Datasets::Item(const Variant& index) {
    return collectionItem(datasets_, index, "Datasets", [](Dataset& d) { return d.Name(); });
}

std::shared_ptr<hostmodel::MXDataset> Datasets::Add(std::int16_t type, hostmodel::MXLayer& source) {
    if (!adder_) raiseError(kErrNoSuchMember);
    return adder_(type, source);
}

void Datasets::remove(const Dataset& dataset) {
    std::erase_if(datasets_, [&](const auto& d) { return d.get() == &dataset; });
}

bool Datasets::hasName(const std::string& name) const {
    const std::string wanted = LCase(name);
    return std::any_of(datasets_.begin(), datasets_.end(),
                       [&](const auto& d) { return LCase(d->Name()) == wanted; });
}

} // namespace vellant::mapx
