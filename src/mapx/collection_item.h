#pragma once
// The member a MapX collection's index names: a number from 1, or a name in any letter case;
// error 9 for an index that names no member.

#include "base/basic_text.h"
#include "base/variant.h"
#include "mapx/mapx_errors.h"

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace vellant::mapx {

template <class T, class NameOf>
const std::shared_ptr<T>& collectionItem(const std::vector<std::shared_ptr<T>>& members,
                                         const Variant& index, const char* collection,
                                         NameOf nameOf) {
    if (index.type() == VarType::String) {
        const std::string wanted = LCase(index.toString());
        for (const auto& member : members)
            if (LCase(nameOf(*member)) == wanted) return member;
        raiseBadIndex(collection, "\"" + index.toString() + "\"");
    }
    const double number = index.toDouble();
    if (!std::isfinite(number) || number < 1 || number > static_cast<double>(members.size()) ||
        number != std::floor(number))
        raiseBadIndex(collection, index.toString());
    return members[static_cast<std::size_t>(number) - 1];
}

} // namespace vellant::mapx
