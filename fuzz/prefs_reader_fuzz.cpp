// Feeds arbitrary bytes to the preference reader as the file Vellant.prf: the settings, then every
// map slot the file claims to hold, as a later session would walk them.

#include "base/error_trap.h"
#include "platform/scripted_toolkit.h"
#include "prefs/map_slots.h"
#include "prefs/settings.h"
#include "session/session.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

std::string appDirectory() {
    static const std::string dir = [] {
        std::string templ =
            (std::filesystem::temp_directory_path() / "vellant-fuzz-XXXXXX").string();
        if (!mkdtemp(templ.data())) std::abort();
        return templ;
    }();
    return dir;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellant;
    const std::string dir = appDirectory();
    {
        std::ofstream out(dir + "/Vellant.prf", std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    std::filesystem::remove(dir + "/Vellant.log");

    platform::ScriptedToolkit toolkit;
    session::Session s(toolkit, dir);
    prefs::getotherprefs(s);

    prefs::RecordFile file;
    ResumeNext next;
    next([&] {
        file.open(prefs::prefFilePath(s), prefs::RecordFile::Access::Read);
        const std::int16_t slots = s.gMapPrefCount > 400 ? 400 : s.gMapPrefCount;
        for (std::int16_t slot = 1; slot <= slots; ++slot) {
            (void)prefs::readSlotTitle(file, slot);
            const std::int16_t count = prefs::readSlotLayerCount(file, slot);
            for (std::int16_t layer = 1; layer <= count && layer <= prefs::kMaxStoredLayers;
                 ++layer) {
                (void)prefs::readSlotLayerName(file, slot, layer);
                (void)prefs::readSlotLayerGroup(file, slot, layer);
                (void)prefs::readSlotLayerUserInfo(file, slot, layer);
            }
        }
    });
    file.close();
    return 0;
}
