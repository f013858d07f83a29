#include "mapx/mapx_errors.h"

namespace vellant::mapx {

void raiseBadIndex(const std::string& collection, const std::string& index) {
    raiseError(kErrSubscript, collection + ": no member " + index);
}

} // namespace vellant::mapx
