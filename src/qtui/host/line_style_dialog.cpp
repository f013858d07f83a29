#include "qtui/host/line_style_dialog.h"

#include "qtui/host/color_button.h"
#include "qtui/host/style_preview.h"
#include "qtui/host/style_swatches.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <cmath>

namespace vellant::qtui {

namespace {

constexpr QSize kPatternSwatch(96, 16);
constexpr int kInterleaved = 128;
// Widths up to 10 count pixels (1 to 7 are drawn); above, 10 + points * 10.
constexpr int kLargestPixelWidth = 7;
constexpr double kLargestPoints = 203.7;
enum Units { kPixels = 0, kPoints = 1 };

} // namespace

LineStyleDialog::LineStyleDialog(const engine::PenStyle& start, QWidget* parent)
    : StyleDialog(tr("Line Style"), parent) {
    QFormLayout* rows = nullptr;
    QGroupBox* line = group(tr("Line"), rows);

    const int startPattern = start.pattern & ~kInterleaved;
    pattern_ = new QComboBox;
    pattern_->setObjectName("pattern");
    pattern_->setIconSize(kPatternSwatch);
    std::vector<int> patterns = penPatterns();
    if (std::find(patterns.begin(), patterns.end(), startPattern) == patterns.end())
        patterns.push_back(startPattern);
    for (int number : patterns)
        pattern_->addItem(QString(), number);
    pattern_->setCurrentIndex(pattern_->findData(startPattern));
    rows->addRow(tr("&Style:"), pattern_);

    color_ = new ColorButton(start.color);
    color_->setObjectName("color");
    rows->addRow(tr("&Color:"), color_);

    width_ = new QDoubleSpinBox;
    width_->setObjectName("width");
    units_ = new QComboBox;
    units_->setObjectName("units");
    units_->addItems({tr("Pixels"), tr("Points")});
    const bool points = start.width > 10;
    units_->setCurrentIndex(points ? kPoints : kPixels);
    unitsChanged();
    width_->setValue(points ? (start.width - 10) / 10.0 : std::max(start.width, 1));
    auto* widthRow = new QHBoxLayout;
    widthRow->addWidget(width_, 1);
    widthRow->addWidget(units_);
    auto* widthLabel = new QLabel(tr("&Width:"));
    widthLabel->setBuddy(width_);
    rows->addRow(widthLabel, widthRow);

    interleaved_ = new QCheckBox(tr("&Interleave"));
    interleaved_->setObjectName("interleaved");
    interleaved_->setChecked((start.pattern & kInterleaved) != 0);
    rows->addRow(QString(), interleaved_);

    arrange({line});
    repaintPatterns();

    connect(pattern_, &QComboBox::currentIndexChanged, this, [this] { styleChanged(); });
    connect(color_, &ColorButton::colorChanged, this, [this] {
        repaintPatterns();
        styleChanged();
    });
    connect(width_, &QDoubleSpinBox::valueChanged, this, [this] { styleChanged(); });
    connect(units_, &QComboBox::currentIndexChanged, this, [this] {
        unitsChanged();
        styleChanged();
    });
    connect(interleaved_, &QCheckBox::toggled, this, [this] { styleChanged(); });
}

// Pixels are whole; points go by tenths.
void LineStyleDialog::unitsChanged() {
    if (units_->currentIndex() == kPoints) {
        width_->setDecimals(1);
        width_->setRange(0.1, kLargestPoints);
        width_->setSingleStep(0.5);
    } else {
        width_->setDecimals(0);
        width_->setRange(1, kLargestPixelWidth);
        width_->setSingleStep(1);
    }
}

engine::PenStyle LineStyleDialog::pen() const {
    engine::PenStyle pen;
    pen.pattern = pattern_->currentData().toInt() | (interleaved_->isChecked() ? kInterleaved : 0);
    pen.color = color_->color();
    if (units_->currentIndex() == kPoints)
        pen.width = 10 + static_cast<int>(std::lround(width_->value() * 10));
    else
        pen.width = static_cast<int>(std::lround(width_->value()));
    return pen;
}

std::string LineStyleDialog::clause() const {
    return engine::formatPen(pen());
}

void LineStyleDialog::showSample(StylePreview& preview) const {
    preview.setStyle(pen());
}

void LineStyleDialog::repaintPatterns() {
    for (int i = 0; i < pattern_->count(); ++i) {
        engine::PenStyle swatch;
        swatch.pattern = pattern_->itemData(i).toInt();
        swatch.color = color_->color();
        swatch.width = 2;
        pattern_->setItemIcon(i, QIcon(penSwatch(swatch, kPatternSwatch)));
    }
}

} // namespace vellant::qtui
