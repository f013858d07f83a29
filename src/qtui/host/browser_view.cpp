#include "qtui/host/browser_view.h"

#include "qtui/host/browser_model.h"

#include <QHeaderView>

namespace vellant::qtui {

BrowserView::BrowserView(engine::Engine& engine, int windowId, QWidget* parent)
    : QTableView(parent), windowId_(windowId), model_(new BrowserModel(engine, windowId, this)) {
    setModel(model_);
    setAlternatingRowColors(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setDefaultSectionSize(110);
    horizontalHeader()->setStretchLastSection(true);
}

void BrowserView::contentsChanged() {
    model_->reload();
}

} // namespace vellant::qtui
