#pragma once
// Module-wide state of the preferences: the nine settings of the preference file, the map-slot
// bookkeeping and the log. Session inherits it, so procedures read s.gDocked wherever it lives.

#include "base/int16.h"

#include <cstdint>
#include <fstream>
#include <string>

namespace vellant::prefs {

struct PrefsState {
    // Records 1 to 9 of the preference file, in this order.
    Flag gImmediate = kFalse;
    Flag gDocked = kFalse;
    Flag gSaveUserPosition = kFalse;
    Flag gShowMIStatusbar = kFalse;
    std::int16_t gDockedHeight = 0;
    std::int16_t gPrefReserved6 = 0;
    std::int16_t gPrefReserved7 = 0;
    Flag gOnTop = kFalse;
    std::int16_t gMapPrefCount = 0;

    std::int16_t gMapPrefSlot = 0;
    std::string gMapPrefName;

    // The mark of the last step a long procedure reached; its error handler quotes it.
    std::string gTrace;

    // File 99: the log, open for appending from getotherprefs to the end of the session.
    std::ofstream gLogFile;
};

} // namespace vellant::prefs
