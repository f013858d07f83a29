#include "engine/tables/gdal_support.h"

#include <cpl_conv.h>
#include <cpl_error.h>
#include <mutex>
#include <ogr_srs_api.h>

namespace vellant::engine {

void ensureGdalRegistered() {
    static std::once_flag once;
    std::call_once(once, [] { GDALAllRegister(); });
}

GdalErrorScope::GdalErrorScope() {
    CPLPushErrorHandler(CPLQuietErrorHandler);
    CPLErrorReset();
}

GdalErrorScope::~GdalErrorScope() {
    CPLPopErrorHandler();
}

std::string GdalErrorScope::lastMessage(const std::string& fallback) {
    const char* message = CPLGetLastErrorMsg();
    if (message == nullptr || *message == '\0') return fallback;
    return message;
}

std::string coordSysClauseOf(OGRSpatialReferenceH srs) {
    if (srs == nullptr) return {};
    GdalErrorScope quiet;
    char* text = nullptr;
    std::string clause;
    if (OSRExportToMICoordSys(srs, &text) == OGRERR_NONE && text != nullptr && *text != '\0') {
        clause = text;
        if (clause.rfind("CoordSys ", 0) != 0) clause = "CoordSys " + clause;
    }
    CPLFree(text);
    return clause;
}

} // namespace vellant::engine
