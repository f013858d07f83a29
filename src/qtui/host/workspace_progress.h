#pragma once
// Opening files the way the desktop does it: a busy cursor for the whole of it and, for a
// workspace of many statements, a progress dialog that counts them (unless "Set ProgressBars
// Off" turned progress bars off). The dialog's Cancel stops the load after the statement that
// is running; what ran stays, as after a failing statement.

#include <QApplication>
#include <filesystem>

class QWidget;

namespace vellant::engine {
class Engine;
}

namespace vellant::qtui {

// The wait cursor while it lives.
class BusyCursor {
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

// A workspace of at least this many statements gets a progress dialog; it shows only once the
// load has taken long enough to need it.
inline constexpr int kProgressStatements = 10;
inline constexpr int kProgressDelayMs = 400;

// As engine::loadWorkspace (its errors included), with the busy cursor and the progress dialog
// parented to dialogParent. Answers false when the user cancelled.
bool loadWorkspaceWithProgress(engine::Engine& engine, const std::filesystem::path& file,
                               QWidget* dialogParent);

} // namespace vellant::qtui
