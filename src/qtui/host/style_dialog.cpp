#include "qtui/host/style_dialog.h"

#include "engine/lang/style_clause.h"
#include "engine/mb_error.h"
#include "qtui/host/line_style_dialog.h"
#include "qtui/host/region_style_dialog.h"
#include "qtui/host/style_preview.h"
#include "qtui/host/symbol_style_dialog.h"
#include "qtui/host/text_style_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace vellant::qtui {

namespace {

// The clause read by its kind's reader, or the host's initial style when it cannot be read.
template <class Style, class Parse>
Style seeded(const std::string& clause, Parse parse, const char* initial) {
    try {
        return parse(clause);
    } catch (const engine::MbError&) {
        return parse(initial);
    }
}

} // namespace

std::unique_ptr<StyleDialog> StyleDialog::create(engine::StyleDialogKind kind,
                                                 const std::string& startClause, QWidget* parent) {
    std::unique_ptr<StyleDialog> dialog;
    switch (kind) {
    case engine::StyleDialogKind::Region:
        dialog = std::make_unique<RegionStyleDialog>(
            seeded<engine::BrushStyle>(startClause, engine::parseBrush, engine::kInitialBrush),
            parent);
        break;
    case engine::StyleDialogKind::Line:
        dialog = std::make_unique<LineStyleDialog>(
            seeded<engine::PenStyle>(startClause, engine::parsePen, engine::kInitialPen), parent);
        break;
    case engine::StyleDialogKind::Symbol:
        dialog = std::make_unique<SymbolStyleDialog>(
            seeded<engine::SymbolStyle>(startClause, engine::parseSymbol, engine::kInitialSymbol),
            parent);
        break;
    case engine::StyleDialogKind::Text:
        dialog = std::make_unique<TextStyleDialog>(
            seeded<engine::FontStyle>(startClause, engine::parseFont, engine::kInitialFont),
            parent);
        break;
    }
    dialog->styleChanged();
    return dialog;
}

StyleDialog::StyleDialog(const QString& title, QWidget* parent) : QDialog(parent) {
    setWindowTitle(title);
    setModal(true);
}

QGroupBox* StyleDialog::group(const QString& title, QFormLayout*& rows) {
    auto* box = new QGroupBox(title);
    rows = new QFormLayout(box);
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return box;
}

void StyleDialog::arrange(std::initializer_list<QGroupBox*> groups) {
    auto* controls = new QVBoxLayout;
    for (QGroupBox* box : groups)
        controls->addWidget(box);
    controls->addStretch();

    preview_ = new StylePreview;
    auto* sample = new QVBoxLayout;
    auto* caption = new QLabel(tr("Sample"));
    sample->addWidget(caption);
    sample->addWidget(preview_, 1);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    sample->addStretch();
    sample->addWidget(buttons);

    auto* layout = new QHBoxLayout(this);
    layout->addLayout(controls, 3);
    layout->addLayout(sample, 2);
}

void StyleDialog::styleChanged() {
    if (preview_) showSample(*preview_);
}

} // namespace vellant::qtui
