// vellant-replay [--appdir DIR] [--toolkit scripted|qt] [--shots DIR] [--mapx] WORKSPACE SCRIPT:
// one whole session on the embedded host, run from a script, with its transcript on standard
// output (the format is in the README, section "The replay runner"); with --mapx the session is
// a MapX application's, on a map built from the workspace's front map window. SCRIPT "-" reads the
// script from standard input. The scripted toolkit is headless; the Qt toolkit runs the same script
// on the real widgets, on Qt's offscreen platform unless another is asked for, and --shots keeps a
// picture of the forms at each snapshot.
//
// Exit status: 0 after a run; 1 when the run broke off (a failure outside the program's own
// error handling); 2 for a wrong call, a file that cannot be read, a workspace that does not
// open or a script with a faulty line, each with a message on standard error and nothing run.

#include "app/replay/qt/qt_desk.h"
#include "app/replay/replay_run.h"
#include "app/replay/replay_verbs.h"
#include "app/replay/script.h"
#include "engine/mb_error.h"

#include <QApplication>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

constexpr const char* kUsage =
    "usage: vellant-replay [--appdir DIR] [--toolkit scripted|qt] [--shots DIR] [--mapx] "
    "WORKSPACE SCRIPT\n";

struct Arguments {
    std::string appDir;
    bool qt = false;
    bool mapx = false;
    std::string shots;
    std::string workspace;
    std::string script;
};

std::optional<Arguments> parseArguments(int argc, char** argv) {
    Arguments args;
    std::vector<std::string> positional;
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (arg == "--appdir" && i + 1 < argc) {
            args.appDir = argv[++i];
        } else if (arg.starts_with("--appdir=")) {
            args.appDir = arg.substr(9);
        } else if ((arg == "--toolkit" && i + 1 < argc) || arg.starts_with("--toolkit=")) {
            const std::string_view kit = arg == "--toolkit" ? argv[++i] : arg.substr(10);
            if (kit != "qt" && kit != "scripted") return std::nullopt;
            args.qt = kit == "qt";
        } else if (arg == "--mapx") {
            args.mapx = true;
        } else if (arg == "--shots" && i + 1 < argc) {
            args.shots = argv[++i];
        } else if (arg.starts_with("--shots=")) {
            args.shots = arg.substr(8);
        } else if (arg.starts_with("--") || (arg.starts_with("-") && arg != "-")) {
            return std::nullopt;
        } else {
            positional.emplace_back(arg);
        }
    }
    if (positional.size() != 2) return std::nullopt;
    // Pictures need the widgets.
    if (!args.shots.empty() && !args.qt) return std::nullopt;
    args.workspace = positional[0];
    args.script = positional[1];
    return args;
}

// The application directory: the one asked for (made if missing), or a fresh temporary one
// that is removed again after the run.
class AppDir {
public:
    explicit AppDir(const std::string& asked) {
        if (!asked.empty()) {
            std::filesystem::create_directories(asked);
            path_ = asked;
            return;
        }
        std::string templ =
            (std::filesystem::temp_directory_path() / "vellant-replay-XXXXXX").string();
        if (mkdtemp(templ.data()) == nullptr)
            throw std::runtime_error("cannot make a temporary application directory");
        path_ = templ;
        temporary_ = true;
    }
    ~AppDir() {
        std::error_code ignored;
        if (temporary_) std::filesystem::remove_all(path_, ignored);
    }
    AppDir(const AppDir&) = delete;
    AppDir& operator=(const AppDir&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
    bool temporary_ = false;
};

// The offscreen platform with a desktop-sized screen of 96 dpi, so that forms lay out as on a
// common desktop, unless the caller chose a platform.
std::filesystem::path chooseOffscreenPlatform() {
    if (std::getenv("QT_QPA_PLATFORM") != nullptr) return {};
    const auto config = std::filesystem::temp_directory_path() /
                        ("vellant-replay-screen-" + std::to_string(::getpid()) + ".json");
    std::ofstream(config) << R"({"screens":[{"name":"desk","x":0,"y":0,"width":1920,)"
                          << R"("height":1080,"logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})";
    setenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + config.string()).c_str(), 1);
    return config;
}

int refuse(const std::string& message) {
    std::cerr << "vellant-replay: " << message << '\n';
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    const std::optional<Arguments> args = parseArguments(argc, argv);
    if (!args) {
        std::cerr << kUsage;
        return 2;
    }

    std::vector<vellant::replay::ScriptLine> script;
    try {
        std::ifstream file;
        if (args->script != "-") {
            file.open(args->script, std::ios::binary);
            if (!file) return refuse("cannot read the script " + args->script);
        }
        std::istream& in = args->script == "-" ? std::cin : file;
        script = vellant::replay::readScript(in, vellant::replay::replayVerbs());
        if (in.bad()) return refuse("cannot read the script " + args->script);
    } catch (const vellant::replay::ScriptError& e) {
        return refuse(args->script + ": " + e.what());
    }

    if (!std::filesystem::is_regular_file(args->workspace))
        return refuse("cannot read the workspace " + args->workspace);

    std::optional<AppDir> appDir;
    try {
        appDir.emplace(args->appDir);
    } catch (const std::exception& e) {
        return refuse("no application directory: " + std::string(e.what()));
    }

    std::optional<QApplication> application;
    vellant::replay::ReplayRun::DeskMaker desk;
    if (args->qt) {
        const std::filesystem::path screen = chooseOffscreenPlatform();
        application.emplace(argc, argv);
        std::error_code ignored;
        if (!screen.empty()) std::filesystem::remove(screen, ignored);
        desk = vellant::replay::qtDeskMaker(args->shots);
    }

    std::optional<vellant::replay::ReplayRun> replay;
    try {
        replay.emplace(args->workspace, appDir->path(), std::cout, desk);
    } catch (const vellant::engine::MbError& e) {
        return refuse("the workspace " + args->workspace + " does not open: " + e.what());
    } catch (const std::exception& e) {
        return refuse(e.what());
    }
    try {
        if (args->mapx)
            replay->runMapX(std::move(script));
        else
            replay->run(std::move(script));
    } catch (const std::exception& e) {
        std::cout.flush();
        std::cerr << "vellant-replay: the run broke off: " << e.what() << '\n';
        return 1;
    }
    return 0;
}
