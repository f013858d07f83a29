#pragma once
// What every use of GDAL in the table part needs: the drivers registered once, GDAL's own
// error printing kept off the console (its messages become MbError texts instead), and owners
// that close datasets and destroy features.

#include <gdal.h>
#include <memory>
#include <ogr_api.h>
#include <string>

namespace vellant::engine {

void ensureGdalRegistered();

// While alive, GDAL reports errors only to the caller (lastMessage) and not on stderr.
class GdalErrorScope {
public:
    GdalErrorScope();
    ~GdalErrorScope();
    GdalErrorScope(const GdalErrorScope&) = delete;
    GdalErrorScope& operator=(const GdalErrorScope&) = delete;
    // GDAL's last error message, or fallback when GDAL gave none.
    static std::string lastMessage(const std::string& fallback);
};

struct GdalDatasetCloser {
    void operator()(void* dataset) const {
        if (dataset != nullptr) GDALClose(static_cast<GDALDatasetH>(dataset));
    }
};
using GdalDatasetPtr = std::unique_ptr<void, GdalDatasetCloser>;

struct OgrFeatureDestroyer {
    void operator()(void* feature) const {
        if (feature != nullptr) OGR_F_Destroy(static_cast<OGRFeatureH>(feature));
    }
};
using OgrFeaturePtr = std::unique_ptr<void, OgrFeatureDestroyer>;

// The CoordSys clause of a spatial reference as GDAL writes it for MapInfo, with the leading
// "CoordSys " ("CoordSys Earth Projection 1, 104"); "" for none or one GDAL cannot express.
std::string coordSysClauseOf(OGRSpatialReferenceH srs);

} // namespace vellant::engine
