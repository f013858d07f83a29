#include "engine/workspace/workspace_writer.h"

#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/tables/catalog.h"
#include "engine/windows/window_manager.h"
#include "engine/windows/window_workspace.h"
#include "engine/workspace/workspace_charset.h"
#include "engine/workspace/workspace_format.h"

#include <fstream>

namespace vellant::engine {

namespace {

constexpr const char* kFrontVariable = "WorkspaceFrontWindow";

// A file inside the workspace's folder by its relative name, so the folder can move.
std::string tableFileText(const std::string& path, const std::filesystem::path& folder) {
    const std::filesystem::path file(path);
    std::error_code error;
    const std::filesystem::path relative = std::filesystem::relative(file, folder, error);
    const bool inside = !error && !relative.empty() && *relative.begin() != "..";
    return (inside ? relative : file).generic_string();
}

class Writer {
public:
    Writer(Engine& engine, const std::filesystem::path& folder)
        : engine_(engine), folder_(folder) {}

    SavedWorkspace write() {
        out_.text = "!Workspace\n!Version 950\n!Charset Neutral\n";
        writeTables();
        WindowManager& windows = engine_.windows();
        const std::vector<int> ids = windows.ids();
        const int front = windows.frontWindow();
        const std::vector<std::string>& kept = engine_.settings().keptWorkspaceText;
        // Windows kept as text open after the shown ones and would take the front.
        const bool frontIsLast = !ids.empty() && ids.back() == front && kept.empty();
        for (int id : ids) {
            if (!writeWindow(windows.get(id))) continue;
            if (id == front && !frontIsLast) {
                out_.text += std::string("Dim ") + kFrontVariable + " As Integer\n" +
                             kFrontVariable + " = FrontWindow()\n";
                frontSaved_ = true;
            }
        }
        for (const std::string& block : kept)
            out_.text += block;
        if (frontSaved_)
            out_.text += std::string("Set Window ") + kFrontVariable + " Front\nUndim " +
                         kFrontVariable + "\n";
        // The engine's text is UTF-8; the header says so once anything is not plain ASCII.
        const std::string neutral = "!Charset Neutral\n";
        out_.text.replace(out_.text.find(neutral), neutral.size(),
                          "!Charset " + charsetForText(out_.text) + "\n");
        return std::move(out_);
    }

private:
    void writeTables() {
        const Catalog& catalog = engine_.catalog();
        for (int n = 1; n <= catalog.count(); ++n) {
            const Table& table = catalog.at(n);
            if (table.path().empty()) {
                out_.leftOut.push_back("Table " + table.name() + ": it has no file.");
                continue;
            }
            out_.text += "Open Table " + workspaceString(tableFileText(table.path(), folder_)) +
                         " As " + table.name() + " Interactive" +
                         (table.readOnly ? " ReadOnly" : "") + "\n";
        }
    }

    bool saved(const std::string& table) const {
        const Table* found = engine_.catalog().find(table);
        return found && !found->path().empty();
    }

    bool writeWindow(const Window& window) {
        if (window.type() == WindowType::Browser) {
            if (!saved(window.browseTable)) {
                out_.leftOut.push_back("Window " + window.title() + ": its table has no file.");
                return false;
            }
            out_.text += windowWorkspaceText(engine_, window);
            return true;
        }
        const MapState& map = *window.map;
        std::vector<int> kept;
        for (int number = 1; number <= map.layerCount(); ++number) {
            const std::string& name = map.layerAt(number)->name;
            if (!saved(name)) {
                out_.leftOut.push_back("Layer " + name + " of " + window.title() +
                                       ": its table has no file.");
                continue;
            }
            kept.push_back(number);
        }
        if (map.hasCosmeticObjects())
            out_.leftOut.push_back("The objects in the cosmetic layer of " + window.title() + ".");
        if (kept.empty()) {
            out_.leftOut.push_back("Window " + window.title() + ": no layer is left to show.");
            return false;
        }
        out_.text += windowWorkspaceText(engine_, window, kept);
        return true;
    }

    Engine& engine_;
    std::filesystem::path folder_;
    SavedWorkspace out_;
    bool frontSaved_ = false;
};

} // namespace

SavedWorkspace workspaceFor(Engine& engine, const std::filesystem::path& folder) {
    return Writer(engine, folder).write();
}

std::vector<std::string> saveWorkspace(Engine& engine, const std::filesystem::path& file) {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::absolute(file, error).parent_path();
    SavedWorkspace saved = workspaceFor(engine, folder);
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << saved.text;
    out.close();
    if (error || !out)
        raiseMb(kMbCantAccessFile, "Unable to write workspace " + file.string() + ".");
    return std::move(saved.leftOut);
}

} // namespace vellant::engine
