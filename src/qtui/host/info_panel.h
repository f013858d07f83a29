#pragma once
// The info tool's window: the record under the click, one row a column.

#include <QDockWidget>
#include <cstdint>
#include <string>

class QTableWidget;

namespace vellant::engine {
class Engine;
}

namespace vellant::qtui {

class InfoPanel : public QDockWidget {
    Q_OBJECT
public:
    InfoPanel(engine::Engine& engine, QWidget* parent = nullptr);

    // Shows the row's values; a table that is gone or a row that does not exist shows nothing.
    void showRecord(const std::string& table, std::int64_t row);
    QTableWidget& grid() const { return *grid_; }

private:
    engine::Engine& engine_;
    QTableWidget* grid_;
};

} // namespace vellant::qtui
