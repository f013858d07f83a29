#pragma once
// Module-wide state of styles and labels. Session inherits it.

#include "base/int16.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vellant::platform {
class FileSystemObject;
}

namespace vellant::styles {

struct StyleState {
    // The style at hand: MapBasic text on the MapInfo host.
    std::string gStyleValue;
    // The border pen of the last region style read.
    std::string gBorderPen;
    // The rows and kind of a style pick that waits for the companion.
    std::int32_t gPendFirst = 0;
    std::int32_t gPendLast = 0;
    std::int32_t gPendCol = 0;
    // The override of the clicked row, taken when a toggle of the style over a row set starts.
    Flag gClickOverride = kFalse;
    // MapInfo's window of samples, 0 when there is none; it lives for one load or one click.
    std::int32_t gStyleWin = 0;
    // The BMP of the sample at hand, in the temporary folder until its cells have it.
    std::string gSampleFile;
    // "Scripting.FileSystemObject": the temporary folder and its files.
    std::shared_ptr<platform::FileSystemObject> gFSO;
};

} // namespace vellant::styles
