#include "engine/windows/coord_transform_cache.h"

namespace vellant::engine {

const CoordTransform& CoordTransformCache::between(const CoordSys& from, const CoordSys& to) {
    std::pair<std::string, std::string> key{from.clause(), to.clause()};
    if (const auto found = transforms_.find(key); found != transforms_.end()) return found->second;
    return keep(std::move(key), CoordTransform(from, to));
}

const CoordTransform& CoordTransformCache::toLongLat(const CoordSys& from) {
    // No clause begins with a blank, so this key never meets one of between().
    std::pair<std::string, std::string> key{from.clause(), " long/lat"};
    if (const auto found = transforms_.find(key); found != transforms_.end()) return found->second;
    return keep(std::move(key), CoordTransform::toLongLat(from));
}

const CoordTransform& CoordTransformCache::keep(std::pair<std::string, std::string> key,
                                                CoordTransform made) {
    if (transforms_.size() >= kLimit) transforms_.clear();
    return transforms_.emplace(std::move(key), std::move(made)).first->second;
}

} // namespace vellant::engine
