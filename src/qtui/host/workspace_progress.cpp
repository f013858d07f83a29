#include "qtui/host/workspace_progress.h"

#include "engine/engine.h"
#include "engine/host/host_services.h"
#include "engine/mb_error.h"
#include "engine/workspace/workspace_loader.h"

#include <QProgressDialog>
#include <fstream>
#include <iterator>
#include <memory>

namespace vellant::qtui {

namespace {

std::string readWorkspaceFile(const std::filesystem::path& file) {
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    std::ifstream in(file, std::ios::binary);
    if (error || !in)
        throw engine::MbError(engine::kMbCantAccessFile,
                              "Unable to open workspace " + file.string() + ".");
    if (size > engine::kMaxWorkspaceBytes)
        throw engine::MbError(engine::kMbCantAccessFile,
                              "Workspace " + file.string() + " is too large.");
    std::string text;
    text.reserve(static_cast<std::size_t>(size));
    text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    if (in.bad())
        throw engine::MbError(engine::kMbCantAccessFile,
                              "Unable to open workspace " + file.string() + ".");
    return text;
}

} // namespace

bool loadWorkspaceWithProgress(engine::Engine& engine, const std::filesystem::path& file,
                               QWidget* dialogParent) {
    BusyCursor busy;
    const std::string text = readWorkspaceFile(file);
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::absolute(file, error).parent_path();
    // Counted up front so that the bar knows its length; the header's errors surface here.
    const auto statements = static_cast<int>(engine::parseWorkspaceText(text).statements.size());

    std::unique_ptr<QProgressDialog> progress;
    if (statements >= kProgressStatements && engine.host().progressBars()) {
        progress = std::make_unique<QProgressDialog>(
            QObject::tr("Opening workspace %1...")
                .arg(QString::fromStdString(file.filename().string())),
            QObject::tr("Cancel"), 0, statements, dialogParent);
        progress->setWindowTitle(QObject::tr("Vellant"));
        progress->setWindowModality(Qt::ApplicationModal);
        progress->setMinimumDuration(kProgressDelayMs);
        progress->setValue(0);
    }
    int done = 0;
    bool cancelled = false;
    engine::loadWorkspaceText(engine, text, folder, [&](const engine::WorkspaceStatement&) {
        if (progress) {
            // The workspace itself may turn progress bars off part way.
            if (!engine.host().progressBars()) {
                progress.reset();
            } else {
                cancelled = cancelled || progress->wasCanceled();
                progress->setValue(done);
            }
        }
        ++done;
        return !cancelled;
    });
    if (progress) progress->setValue(statements);
    return !cancelled;
}

} // namespace vellant::qtui
