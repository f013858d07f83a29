#pragma once
// A browser window of the host: the table's rows in a grid, read as they scroll into view.

#include <QTableView>

namespace vellant::engine {
class Engine;
}

namespace vellant::qtui {

class BrowserModel;

class BrowserView : public QTableView {
    Q_OBJECT
public:
    BrowserView(engine::Engine& engine, int windowId, QWidget* parent = nullptr);

    int windowId() const { return windowId_; }
    BrowserModel& model() const { return *model_; }
    // The engine says the table or the columns changed.
    void contentsChanged();

private:
    int windowId_;
    BrowserModel* model_;
};

} // namespace vellant::qtui
