// vellant: the embedded map host on the desktop. Opens a workspace (the world demo when none is
// named) in the host's main window; --mapx opens it as a MapX application's map instead;
// --screenshot draws the window into a picture and exits.

#include "app/desktop/desktop_layer_control.h"
#include "app/desktop/mapx_client_window.h"
#include "engine/engine.h"
#include "engine/mb_error.h"
#include "qtui/host/host_main_window.h"
#include "qtui/host/map_window_view.h"

#if __has_include("app/sample_tables/world_demo.h")
#include "app/sample_tables/world_demo.h"
#define VELLANT_WORLD_DEMO 1
#else
#include "app/sample_tables/demo_data.h"
#endif

#include <QApplication>
#include <QImage>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPixmap>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>

#ifndef VELLANT_DEMO_DIR
#define VELLANT_DEMO_DIR "demo"
#endif

namespace {

constexpr int kDefaultWidth = 1280;
constexpr int kDefaultHeight = 800;

const char* kUsage =
    "usage: vellant [--mapx] [WORKSPACE]\n"
    "       vellant --screenshot FILE [--size WxH] [--mapx] [WORKSPACE]\n"
    "       vellant --help\n"
    "\n"
    "Opens the workspace (.wor) in the map host's main window; without one, the world demo\n"
    "in " VELLANT_DEMO_DIR " (written there first if missing).\n"
    "\n"
    "  --mapx             a MapX application instead of the map host: its own map, built from\n"
    "                     the workspace's front map window, and a Layers button that calls\n"
    "                     RunLayer with it\n"
    "  --screenshot FILE  lay the window out offscreen-capable at --size (default 1280x800),\n"
    "                     draw it, write it to FILE (PNG, JPEG, BMP by extension) and exit\n"
    "  --size WxH         the window's size in pixels\n"
    "  --help             this text\n";

struct Options {
    std::optional<std::string> screenshot;
    QSize size{kDefaultWidth, kDefaultHeight};
    std::optional<std::string> workspace;
    bool mapx = false;
};

std::optional<QSize> parseSize(const std::string& text) {
    const auto x = text.find_first_of("xX");
    if (x == std::string::npos) return std::nullopt;
    try {
        std::size_t used = 0;
        const int width = std::stoi(text.substr(0, x), &used);
        if (used != x) return std::nullopt;
        const std::string rest = text.substr(x + 1);
        const int height = std::stoi(rest, &used);
        if (used != rest.size()) return std::nullopt;
        if (width < 200 || height < 150 || width > 8192 || height > 8192) return std::nullopt;
        return QSize(width, height);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

// nullopt after printing why: the arguments make no sense, or only the usage was asked for.
std::optional<Options> parseArguments(int argc, char** argv, int& exitCode) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--help" || arg == "-h") {
            std::cout << kUsage;
            exitCode = 0;
            return std::nullopt;
        }
        if (arg == "--mapx") {
            options.mapx = true;
            continue;
        }
        if (arg == "--screenshot" || arg == "--size") {
            if (i + 1 >= argc) {
                std::cerr << "vellant: " << arg << " needs a value\n" << kUsage;
                exitCode = 2;
                return std::nullopt;
            }
            const std::string value = argv[++i];
            if (arg == "--screenshot") {
                options.screenshot = value;
            } else if (const auto size = parseSize(value)) {
                options.size = *size;
            } else {
                std::cerr << "vellant: --size wants WIDTHxHEIGHT, such as 1280x800 (got " << value
                          << ")\n";
                exitCode = 2;
                return std::nullopt;
            }
        } else if (arg.starts_with("-")) {
            std::cerr << "vellant: unknown option " << arg << "\n" << kUsage;
            exitCode = 2;
            return std::nullopt;
        } else if (options.workspace) {
            std::cerr << "vellant: one workspace at a time\n" << kUsage;
            exitCode = 2;
            return std::nullopt;
        } else {
            options.workspace = arg;
        }
    }
    return options;
}

// The demo's workspace, written into the build's demo folder the first time.
std::string demoWorkspace() {
    const std::filesystem::path folder(VELLANT_DEMO_DIR);
#ifdef VELLANT_WORLD_DEMO
    const std::filesystem::path file = folder / vellant::samples::kWorldWorkspace;
    if (std::filesystem::exists(file)) return file.string();
    return vellant::samples::writeWorldDemo(folder.string());
#else
    const std::filesystem::path file = folder / vellant::samples::kDemoWorkspace;
    if (std::filesystem::exists(file)) return file.string();
    return vellant::samples::writeDemoData(folder.string());
#endif
}

// Lets the window settle and every map draw before a picture is taken.
void settle(QApplication& app, vellant::qtui::HostMainWindow& window) {
    for (int round = 0; round < 3; ++round) {
        app.processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    for (QMdiSubWindow* sub : window.mdiArea().subWindowList())
        if (sub->widget() != nullptr) sub->widget()->repaint();
    app.processEvents();
}

// The MapX application: its window on the workspace, shown until closed, or drawn once.
int runMapXClient(QApplication& app, const std::shared_ptr<vellant::engine::Engine>& engine,
                  const Options& options) {
    std::unique_ptr<vellant::desktop::MapXClientWindow> window;
    try {
        const std::string workspace = options.workspace ? *options.workspace : demoWorkspace();
        window = std::make_unique<vellant::desktop::MapXClientWindow>(
            engine, workspace, vellant::desktop::DesktopLayerControl::defaultAppDir());
    } catch (const std::exception& e) {
        std::cerr << "vellant: " << e.what() << "\n";
        return 1;
    }
    window->resize(options.size);
    window->show();
    if (!options.screenshot) return QApplication::exec();
    app.processEvents();
    const QImage picture = window->grab().toImage();
    if (!picture.save(QString::fromStdString(*options.screenshot))) {
        std::cerr << "vellant: cannot write " << *options.screenshot << "\n";
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    int exitCode = 0;
    const std::optional<Options> options = parseArguments(argc, argv, exitCode);
    if (!options) return exitCode;

    // A picture needs no display: without one, draw on the offscreen platform.
    if (options->screenshot && std::getenv("QT_QPA_PLATFORM") == nullptr &&
        std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr)
        setenv("QT_QPA_PLATFORM", "offscreen", 1);

    QApplication app(argc, argv);
    QApplication::setApplicationName("Vellant");
    QApplication::setApplicationVersion("1.0");

    const auto engine = std::make_shared<vellant::engine::Engine>();
    if (options->mapx) return runMapXClient(app, engine, *options);
    vellant::qtui::HostMainWindow window(*engine);
    vellant::desktop::DesktopLayerControl layers(
        engine, window, vellant::desktop::DesktopLayerControl::defaultAppDir());
    window.setLayerControl([&layers](int mapWindowId) { layers.start(mapWindowId); });
    bool failed = false;
    if (options->screenshot) {
        window.setErrorReporter([&failed](int code, const QString& text) {
            std::cerr << "vellant: error " << code << ": " << text.toStdString() << "\n";
            failed = true;
        });
    }
    window.resize(options->size);
    window.show();

    std::string workspace;
    try {
        workspace = options->workspace ? *options->workspace : demoWorkspace();
    } catch (const std::exception& e) {
        window.reportError(0, QString("The demo could not be written: %1").arg(e.what()));
    }
    if (!workspace.empty()) window.openWorkspace(workspace);
    // A single window fills the area; several share it.
    if (window.mdiArea().subWindowList().size() == 1) {
        window.mdiArea().subWindowList().front()->showMaximized();
    } else if (!window.mdiArea().subWindowList().isEmpty()) {
        window.tile();
    }

    if (!options->screenshot) return QApplication::exec();

    window.resize(options->size);
    settle(app, window);
    const QImage picture = window.grab().toImage();
    if (picture.size() != options->size) {
        std::cerr << "vellant: the window was laid out at " << picture.width() << "x"
                  << picture.height() << ", not the size asked for\n";
        failed = true;
    }
    if (!picture.save(QString::fromStdString(*options->screenshot))) {
        std::cerr << "vellant: cannot write " << *options->screenshot << "\n";
        return 1;
    }
    return failed ? 1 : 0;
}
