#include "program_session.h"

#include "app/sample_tables/sample_tables.h"
#include "base/basic_text.h"
#include "base/runtime_error.h"
#include "engine/host/host_services.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <stdexcept>

namespace vellant::engine::testing {

namespace {

std::filesystem::path freshFolder(const char* prefix) {
    std::string templ = (std::filesystem::temp_directory_path() / prefix).string() + "-XXXXXX";
    if (mkdtemp(templ.data()) == nullptr) throw std::runtime_error("no temporary folder");
    return templ;
}

// Removes the tables' folder when the run ends.
class TableFolderCleanup : public ::testing::Environment {
public:
    void TearDown() override { std::filesystem::remove_all(ProgramSession::tableFolder()); }
};
[[maybe_unused]] ::testing::Environment* const cleanup =
    ::testing::AddGlobalTestEnvironment(new TableFolderCleanup);

} // namespace

const std::filesystem::path& ProgramSession::tableFolder() {
    static const std::filesystem::path folder = [] {
        const std::filesystem::path made = freshFolder("vellant-program-tables");
        samples::writeSampleTables(made.string());
        return made;
    }();
    return folder;
}

ProgramSession::ProgramSession()
    : engine(std::make_shared<Engine>()), app(std::make_shared<MapInfoAutomation>(engine)),
      appDir(freshFolder("vellant-program-app")) {
    for (const char* table : {"points", "regions", "text", "mixed", "lines", "empty"})
        run("Open Table \"" + (tableFolder() / table).string() + ".tab\"");
    run("Map From points, regions, text, mixed");
    mapWin = std::stoi(eval("FrontWindow()"));
    app->RunMenuCommand(811);
    viewWin = std::stoi(eval("WindowID(0)"));
    run("Run Application \"vellant.mbx\"");
    app->SetCallback(callback);
}

ProgramSession::~ProgramSession() {
    app->close();
    std::error_code ignored;
    std::filesystem::remove_all(appDir, ignored);
}

std::string ProgramSession::fill(std::string_view text, const Fills& rowFills) const {
    std::string filled(text);
    const auto replaceAll = [&filled](const std::string& key, const std::string& value) {
        for (std::size_t at = filled.find(key); at != std::string::npos;
             at = filled.find(key, at + value.size()))
            filled.replace(at, key.size(), value);
    };
    for (const auto& [key, value] : rowFills)
        replaceAll(key, value);
    const std::string view = Str(std::int64_t{viewWin});
    const std::string layer = Str(std::int64_t{kLayer});
    const Fills own = {
        {"<gViewWin>", view},
        {"<view map id>", view},
        {"<w>", view},
        {"<win>", view},
        {"<window id>", view},
        {"<id>", view},
        {"<gMapWin>", Str(std::int64_t{mapWin})},
        {"<gSpareWin>", Str(std::int64_t{spareWin})},
        {"<gStyleWin>", Str(std::int64_t{styleWin})},
        {"<gLayer>", layer},
        {"<layer>", layer},
        {"<i>", layer},
        {"<t>", kLayerTable},
        {"<name>", kLayerTable},
        {"<hwnd>", Str(std::int64_t{frame.hWnd()})},
        // The sample code writes its handles as plain numbers.
        {"<hwnd of MapInfoFrame>", CStr(std::int64_t{frame.hWnd()})},
        {"<hwnd of MapInfoframe2>", CStr(std::int64_t{frame2.hWnd()})},
        {"<path>", appDir.string()},
    };
    for (const auto& [key, value] : own)
        replaceAll(key, value);
    return filled;
}

Answer ProgramSession::send(Via via, const std::string& text) {
    Answer answer;
    try {
        switch (via) {
        case Via::Do:
            app->Do(text);
            break;
        case Via::Eval:
            answer.text = app->eval(text);
            break;
        case Via::Companion:
            app->MBApplications(1).Do(text);
            break;
        case Via::Menu:
            app->RunMenuCommand(std::stoi(text));
            break;
        }
    } catch (const RuntimeError& e) {
        answer.error = e.number();
        answer.message = e.description();
    }
    return answer;
}

std::string ProgramSession::eval(const std::string& expression) {
    const Answer answer = send(Via::Eval, expression);
    if (answer.error != 0)
        ADD_FAILURE() << "eval " << expression << ": " << answer.error << " " << answer.message;
    return answer.text;
}

void ProgramSession::run(const std::string& statement) {
    const Answer answer = send(Via::Do, statement);
    if (answer.error != 0)
        ADD_FAILURE() << "Do " << statement << ": " << answer.error << " " << answer.message;
}

} // namespace vellant::engine::testing
