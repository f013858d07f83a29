#include "engine/render/gui_application.h"

#include <QGuiApplication>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <unistd.h>

namespace vellant::engine {

void ensureGuiApplication() {
    if (QCoreApplication::instance() != nullptr) return;
    // Never reaches for a display: a headless tool draws only into pictures.
    if (std::getenv("QT_QPA_PLATFORM") == nullptr) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // Qt wants a private runtime folder and warns on every start of a shell or a CI job that
    // has none; the one it would pick is made here, quietly.
    if (std::getenv("XDG_RUNTIME_DIR") == nullptr) {
        const std::filesystem::path runtime =
            std::filesystem::temp_directory_path() / ("runtime-" + std::to_string(getuid()));
        std::error_code error;
        std::filesystem::create_directories(runtime, error);
        std::filesystem::permissions(runtime, std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::replace, error);
        if (!error) setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
    }
    static int argc = 1;
    static char name[] = "vellant-engine";
    static char* argv[] = {name, nullptr};
    static QGuiApplication application(argc, argv);
}

} // namespace vellant::engine
