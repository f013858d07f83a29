#include "qtui/host/info_panel.h"

#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/tables/catalog.h"

#include <QHeaderView>
#include <QTableWidget>

namespace vellant::qtui {

InfoPanel::InfoPanel(engine::Engine& engine, QWidget* parent)
    : QDockWidget(tr("Info Tool"), parent), engine_(engine), grid_(new QTableWidget(0, 2, this)) {
    setObjectName("InfoPanel");
    grid_->setHorizontalHeaderLabels({tr("Column"), tr("Value")});
    grid_->verticalHeader()->hide();
    grid_->horizontalHeader()->setStretchLastSection(true);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setAlternatingRowColors(true);
    setWidget(grid_);
    setMinimumWidth(240);
}

void InfoPanel::showRecord(const std::string& table, std::int64_t row) {
    grid_->setRowCount(0);
    const engine::Table* source = engine_.catalog().find(table);
    if (source == nullptr || !source->rowExists(row)) {
        setWindowTitle(tr("Info Tool"));
        return;
    }
    setWindowTitle(
        tr("Info Tool: %1, row %2").arg(QString::fromStdString(source->name())).arg(row));
    const auto& columns = source->columns();
    grid_->setRowCount(static_cast<int>(columns.size()));
    for (std::size_t i = 0; i < columns.size(); ++i) {
        QString value;
        try {
            value = QString::fromStdString(source->value(row, i).asString());
        } catch (const engine::MbError& e) {
            value = QString::fromStdString(e.what());
        }
        const int at = static_cast<int>(i);
        grid_->setItem(at, 0, new QTableWidgetItem(QString::fromStdString(columns[i].name)));
        grid_->setItem(at, 1, new QTableWidgetItem(value));
    }
    grid_->resizeColumnToContents(0);
    show();
    raise();
}

} // namespace vellant::qtui
