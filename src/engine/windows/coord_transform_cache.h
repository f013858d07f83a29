#pragma once
// Transforms between coordinate systems, kept once made: GDAL takes milliseconds to make one,
// and the client asks MapperInfo for a centre many times over.

#include "engine/windows/coord_transform.h"

#include <map>
#include <string>
#include <utility>

namespace vellant::engine {

class CoordTransformCache {
public:
    const CoordTransform& between(const CoordSys& from, const CoordSys& to);
    const CoordTransform& toLongLat(const CoordSys& from);

private:
    // Few systems meet in one session; past this many the cache starts afresh.
    static constexpr std::size_t kLimit = 32;
    const CoordTransform& keep(std::pair<std::string, std::string> key, CoordTransform made);
    std::map<std::pair<std::string, std::string>, CoordTransform> transforms_;
};

} // namespace vellant::engine
