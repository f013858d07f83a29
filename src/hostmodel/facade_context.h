#pragma once
// What the MapInfo facades and the host predicates read of the running session. The facades sit
// below the program's folders, so the session hands itself over through this interface: the
// automation object, the two map windows, the layer the grid is on, the shared style text, and
// where a failure is reported (the log, or a message box for a refused let).

#include "base/int16.h"
#include "hostmodel/mapinfo_app.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vellant::hostmodel {

class IMap;
class ILayer;
class MXMap;

class FacadeContext {
public:
    virtual ~FacadeContext() = default;

    // gMapInfo; error 91 when the session holds none.
    virtual MapInfoApp& mapInfo() = 0;
    virtual bool isMapInfoHost() const = 0;         // gIsMapInfo
    virtual std::int32_t viewWindow() const = 0;    // gViewWin
    virtual std::int32_t userMapWindow() const = 0; // gMapWin

    // The layer state of the grid: gLayer, gLayerType, and the click walk's gClickRow and
    // gToggleRow, which decide which layer a get reads.
    virtual std::int16_t currentLayer() const = 0;
    virtual std::int16_t currentLayerType() const = 0;
    virtual std::int32_t clickRow() const = 0;
    virtual std::int32_t toggleRow() const = 0;

    // gMap and gLyr; error 91 when not set.
    virtual IMap& mapObject() = 0;
    virtual ILayer& layerObject() = 0;
    // The view map of the MapX host, the form's MapDisplay; error 91 when there is none.
    virtual MXMap& viewMap();

    // gStyleValue, the style text a style let sends; gBorderPen, the border pen of the last
    // region style read; gColIter, the loop variable the label style get walks with.
    virtual const std::string& styleValue() const = 0;
    virtual void setBorderPen(const std::string& pen) = 0;
    virtual std::int32_t& colIter() = 0;

    // A line of the log (it may raise when the log is not open) and a message box.
    virtual void log(const std::string& line) = 0;
    virtual void showMessage(const std::string& text) = 0;
};

} // namespace vellant::hostmodel
