#include "qtui/host/browser_model.h"

#include "base/basic_text.h"
#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/tables/catalog.h"
#include "engine/tables/column_type.h"
#include "engine/windows/window_manager.h"

#include <QBrush>
#include <QColor>
#include <algorithm>
#include <cctype>
#include <limits>

namespace vellant::qtui {

BrowserModel::BrowserModel(engine::Engine& engine, int windowId, QObject* parent)
    : QAbstractTableModel(parent), engine_(engine), windowId_(windowId) {
    reload();
}

engine::Table* BrowserModel::table() const {
    const engine::Window* window = engine_.windows().find(windowId_);
    if (window == nullptr) return nullptr;
    return engine_.catalog().find(window->browseTable);
}

void BrowserModel::reload() {
    beginResetModel();
    columns_.clear();
    totalRows_ = 0;
    shownRows_ = 0;
    const engine::Window* window = engine_.windows().find(windowId_);
    if (const engine::Table* source = table(); source != nullptr && window != nullptr) {
        const auto& defs = source->columns();
        for (const std::string& written : window->browseColumns) {
            const std::string wanted = Trim(written);
            if (wanted == "*") {
                for (std::size_t i = 0; i < defs.size(); ++i)
                    columns_.push_back({defs[i].name, i, {}});
                continue;
            }
            const auto named = std::ranges::find_if(defs, [&](const engine::ColumnDef& def) {
                return LCase(def.name) == LCase(wanted);
            });
            if (named != defs.end()) {
                columns_.push_back(
                    {named->name, static_cast<std::size_t>(named - defs.begin()), {}});
            } else {
                columns_.push_back({std::string(wanted), std::nullopt, std::string(wanted)});
            }
        }
        totalRows_ = source->rowCount();
        shownRows_ = static_cast<int>(std::min<std::int64_t>(totalRows_, kBatchRows));
    }
    endResetModel();
}

int BrowserModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownRows_;
}

int BrowserModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

bool BrowserModel::canFetchMore(const QModelIndex& parent) const {
    return !parent.isValid() && shownRows_ < totalRows_ &&
           shownRows_ < std::numeric_limits<int>::max();
}

void BrowserModel::fetchMore(const QModelIndex& parent) {
    if (!canFetchMore(parent)) return;
    const std::int64_t limit = std::min<std::int64_t>(totalRows_, std::numeric_limits<int>::max());
    const int more = static_cast<int>(std::min<std::int64_t>(limit - shownRows_, kBatchRows));
    beginInsertRows({}, shownRows_, shownRows_ + more - 1);
    shownRows_ += more;
    endInsertRows();
}

QString BrowserModel::cellText(std::int64_t row, const Column& column) const {
    engine::Table* source = table();
    if (source == nullptr || !source->rowExists(row)) return {};
    try {
        if (column.index)
            return QString::fromStdString(source->value(row, *column.index).asString());
        // An expression reads the table's columns at its current row, as after a Fetch; the
        // program's own position is given back.
        const std::int64_t before = source->currentRow;
        source->currentRow = row;
        struct Restore {
            engine::Table& table;
            std::int64_t row;
            ~Restore() { table.currentRow = row; }
        } restore{*source, before};
        return QString::fromStdString(engine_.evaluate(column.expression).asString());
    } catch (const engine::MbError&) {
        return {};
    }
}

QVariant BrowserModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.column() >= static_cast<int>(columns_.size())) return {};
    const std::int64_t row = index.row() + 1;
    const Column& column = columns_[static_cast<std::size_t>(index.column())];
    if (role == Qt::DisplayRole) return cellText(row, column);
    if (role == Qt::TextAlignmentRole) {
        const engine::Table* source = table();
        if (source != nullptr && column.index) {
            // Numbers line up on the right, as in the host's browser.
            switch (source->columns()[*column.index].type) {
            case engine::kColDecimal:
            case engine::kColInteger:
            case engine::kColSmallInt:
            case engine::kColFloat:
                return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
            default:
                break;
            }
        }
        return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
    }
    if (role == Qt::ForegroundRole) {
        const engine::Table* source = table();
        if (source != nullptr && !source->rowExists(row)) return QBrush(QColor(150, 150, 150));
    }
    return {};
}

QVariant BrowserModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return QAbstractTableModel::headerData(section, orientation, role);
    if (orientation == Qt::Vertical) return section + 1;
    if (section < 0 || section >= static_cast<int>(columns_.size())) return {};
    return QString::fromStdString(columns_[static_cast<std::size_t>(section)].heading);
}

} // namespace vellant::qtui
