// SystemInfo(code) with the codes of MapBasic's define file. The embedded host describes
// itself: an X11 desktop (code 1) on a processor none of code 14's values names (0, special),
// language level 9.50, text passed through unconverted ("Neutral"), the default number and date
// formats, and no digitizer, DDE conversation, MDI client window or IDispatch pointer (0).
//
// Errors: 644 "Argument 1 of SystemInfo out of range." for a code outside 1..18.

#include "engine/engine.h"
#include "engine/host/host_language.h"
#include "engine/host/host_services.h"
#include "engine/lang/registry.h"
#include "engine/mb_error.h"

#include <cstdint>

namespace vellant::engine {

namespace {

constexpr std::int16_t kVersion = 950; // the language level the host speaks, times 100
constexpr std::int16_t kPlatformX11 = 4;
constexpr std::int16_t kMiPlatformSpecial = 0;
constexpr std::int16_t kProductLevelProfessional = 200;
constexpr std::int16_t kBuildNumber = 1;

MbValue systemInfo(Engine& engine, std::int64_t code) {
    HostServices& host = engine.host();
    switch (code) {
    case 1: // SYS_INFO_PLATFORM
        return MbValue::smallInt(kPlatformX11);
    case 2: // SYS_INFO_APPVERSION
    case 3: // SYS_INFO_MIVERSION
        return MbValue::smallInt(kVersion);
    case 4: // SYS_INFO_RUNTIME
        return MbValue::logical(false);
    case 5: // SYS_INFO_CHARSET
        return MbValue::string("Neutral");
    case 6: // SYS_INFO_COPYPROTECTED
        return MbValue::logical(false);
    case 7: // SYS_INFO_APPLICATIONWND
        return MbValue::integer(static_cast<std::int32_t>(host.applicationWindow()));
    case 8: // SYS_INFO_DDESTATUS
        return MbValue::smallInt(0);
    case 9: // SYS_INFO_MAPINFOWND
        return MbValue::integer(host.mainWindow().hWnd());
    case 10: // SYS_INFO_NUMBER_FORMAT
        return MbValue::string("9,999.9");
    case 11: // SYS_INFO_DATE_FORMAT
        return MbValue::string("US");
    case 12: // SYS_INFO_DIG_INSTALLED
    case 13: // SYS_INFO_DIG_MODE
        return MbValue::logical(false);
    case 14: // SYS_INFO_MIPLATFORM
        return MbValue::smallInt(kMiPlatformSpecial);
    case 15: // SYS_INFO_MDICLIENTWND
        return MbValue::integer(0);
    case 16: // SYS_INFO_PRODUCTLEVEL
        return MbValue::smallInt(kProductLevelProfessional);
    case 17: // SYS_INFO_APPIDISPATCH
        return MbValue::integer(0);
    case 18: // SYS_INFO_MIBUILD_NUMBER
        return MbValue::smallInt(kBuildNumber);
    default:
        raiseMb(kMbArgRange, "Argument 1 of SystemInfo out of range.");
    }
}

} // namespace

void registerSystemInfo(Registry& registry) {
    registry.addFunction("SystemInfo", 1, 1, [](Engine& engine, std::vector<MbValue>& args) {
        return systemInfo(engine, args[0].asInteger());
    });
}

} // namespace vellant::engine
