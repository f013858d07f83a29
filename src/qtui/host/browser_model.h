#pragma once
// The rows of a browser window's table, read on demand: the view asks only for the cells it
// shows, and rows are revealed in batches so that a table of millions of rows opens at once.
// Columns are the Browse statement's ("*" for all of the table's); a column expression that
// names no column is worked out for each row as Fetch would see it.

#include <QAbstractTableModel>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vellant::engine {
class Engine;
class Table;
} // namespace vellant::engine

namespace vellant::qtui {

class BrowserModel : public QAbstractTableModel {
    Q_OBJECT
public:
    static constexpr int kBatchRows = 2000;

    BrowserModel(engine::Engine& engine, int windowId, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

    // The table or its columns changed: read them again.
    void reload();

private:
    struct Column {
        std::string heading;
        std::optional<std::size_t> index; // a column of the table
        std::string expression;           // otherwise
    };

    engine::Table* table() const;
    QString cellText(std::int64_t row, const Column& column) const;

    engine::Engine& engine_;
    int windowId_;
    std::vector<Column> columns_;
    std::int64_t totalRows_ = 0;
    int shownRows_ = 0;
};

} // namespace vellant::qtui
