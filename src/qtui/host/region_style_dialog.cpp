#include "qtui/host/region_style_dialog.h"

#include "qtui/host/color_button.h"
#include "qtui/host/style_preview.h"
#include "qtui/host/style_swatches.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>

namespace vellant::qtui {

namespace {

constexpr QSize kPatternSwatch(64, 18);

} // namespace

RegionStyleDialog::RegionStyleDialog(const engine::BrushStyle& start, QWidget* parent)
    : StyleDialog(tr("Region Style"), parent) {
    QFormLayout* rows = nullptr;
    QGroupBox* fill = group(tr("Fill"), rows);

    pattern_ = new QComboBox;
    pattern_->setObjectName("pattern");
    pattern_->setIconSize(kPatternSwatch);
    std::vector<int> patterns = brushPatterns();
    // A pattern the list does not hold is kept as it came.
    if (std::find(patterns.begin(), patterns.end(), start.pattern) == patterns.end())
        patterns.push_back(start.pattern);
    for (int number : patterns)
        pattern_->addItem(QString(), number);
    pattern_->setCurrentIndex(pattern_->findData(start.pattern));
    rows->addRow(tr("&Pattern:"), pattern_);

    fore_ = new ColorButton(start.foreColor);
    fore_->setObjectName("foreground");
    rows->addRow(tr("&Foreground:"), fore_);
    back_ = new ColorButton(start.backColor.value_or(0xFFFFFF));
    back_->setObjectName("background");
    rows->addRow(tr("&Background:"), back_);
    transparent_ = new QCheckBox(tr("&Transparent background"));
    transparent_->setObjectName("transparent");
    transparent_->setChecked(!start.backColor);
    back_->setEnabled(start.backColor.has_value());
    rows->addRow(QString(), transparent_);

    arrange({fill});
    repaintPatterns();

    connect(pattern_, &QComboBox::currentIndexChanged, this, [this] { styleChanged(); });
    connect(fore_, &ColorButton::colorChanged, this, [this] {
        repaintPatterns();
        styleChanged();
    });
    connect(back_, &ColorButton::colorChanged, this, [this] {
        repaintPatterns();
        styleChanged();
    });
    connect(transparent_, &QCheckBox::toggled, this, [this](bool on) {
        back_->setEnabled(!on);
        repaintPatterns();
        styleChanged();
    });
}

engine::BrushStyle RegionStyleDialog::brush() const {
    engine::BrushStyle brush;
    brush.pattern = pattern_->currentData().toInt();
    brush.foreColor = fore_->color();
    if (transparent_->isChecked())
        brush.backColor.reset();
    else
        brush.backColor = back_->color();
    return brush;
}

std::string RegionStyleDialog::clause() const {
    return engine::formatBrush(brush());
}

void RegionStyleDialog::showSample(StylePreview& preview) const {
    preview.setStyle(brush());
}

// The patterns show in the colours chosen, as the fill will.
void RegionStyleDialog::repaintPatterns() {
    const engine::BrushStyle now = brush();
    for (int i = 0; i < pattern_->count(); ++i) {
        const int number = pattern_->itemData(i).toInt();
        pattern_->setItemIcon(
            i, QIcon(brushSwatch(number, now.foreColor, now.backColor, kPatternSwatch)));
    }
}

} // namespace vellant::qtui
