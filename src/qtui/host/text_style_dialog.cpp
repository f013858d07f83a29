#include "qtui/host/text_style_dialog.h"

#include "qtui/host/color_button.h"
#include "qtui/host/style_preview.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <cmath>
#include <stdexcept>

namespace vellant::qtui {

namespace {

constexpr int kHalo = 256;
constexpr int kSmallest = 1;
constexpr int kLargest = 240;

struct Effect {
    int bit;
    const char* caption;
    const char* name;
};

constexpr Effect kEffects[] = {
    {1, "&Bold", "bold"},
    {2, "&Italic", "italic"},
    {4, "&Underline", "underline"},
    {8, "S&trikeout", "strikeout"},
    {32, "S&hadow", "shadow"},
    {512, "&All caps", "allcaps"},
    {1024, "&Expanded", "expanded"},
};

} // namespace

TextStyleDialog::TextStyleDialog(const engine::FontStyle& start, QWidget* parent)
    : StyleDialog(tr("Text Style"), parent) {
    QFormLayout* rows = nullptr;
    QGroupBox* fontGroup = group(tr("Font"), rows);

    family_ = new QFontComboBox;
    family_->setObjectName("family");
    // A font the desktop lacks keeps its name; the sample draws its nearest match.
    family_->setEditText(QString::fromStdString(start.name));
    rows->addRow(tr("&Font:"), family_);
    size_ = new QSpinBox;
    size_->setObjectName("size");
    size_->setRange(kSmallest, kLargest);
    size_->setSuffix(tr(" pt"));
    size_->setValue(std::clamp(static_cast<int>(std::lround(start.size)), kSmallest, kLargest));
    rows->addRow(tr("&Size:"), size_);
    color_ = new ColorButton(start.foreColor);
    color_->setObjectName("color");
    rows->addRow(tr("&Color:"), color_);

    QFormLayout* backRows = nullptr;
    QGroupBox* background = group(tr("Background"), backRows);
    plain_ = new QRadioButton(tr("&None"));
    halo_ = new QRadioButton(tr("&Halo"));
    halo_->setObjectName("halo");
    box_ = new QRadioButton(tr("B&ox"));
    box_->setObjectName("box");
    backgroundChoice_ = new QButtonGroup(this);
    auto* choiceRow = new QHBoxLayout;
    for (QRadioButton* choice : {plain_, halo_, box_}) {
        backgroundChoice_->addButton(choice);
        choiceRow->addWidget(choice);
    }
    backRows->addRow(choiceRow);
    back_ = new ColorButton(start.backColor.value_or(0xFFFFFF));
    back_->setObjectName("background");
    backRows->addRow(tr("Co&lor:"), back_);
    if (!start.backColor)
        plain_->setChecked(true);
    else if ((start.style & kHalo) != 0)
        halo_->setChecked(true);
    else
        box_->setChecked(true);
    back_->setEnabled(!plain_->isChecked());

    auto* effectsGroup = new QGroupBox(tr("Effects"));
    auto* grid = new QGridLayout(effectsGroup);
    int handled = kHalo;
    int at = 0;
    for (const Effect& effect : kEffects) {
        auto* box = new QCheckBox(tr(effect.caption));
        box->setObjectName(effect.name);
        box->setChecked((start.style & effect.bit) != 0);
        grid->addWidget(box, at / 3, at % 3);
        effects_.emplace_back(effect.bit, box);
        handled |= effect.bit;
        ++at;
        connect(box, &QCheckBox::toggled, this, [this] { styleChanged(); });
    }
    otherBits_ = start.style & ~handled;

    arrange({fontGroup, background, effectsGroup});

    connect(family_, &QComboBox::currentTextChanged, this, [this] { styleChanged(); });
    connect(size_, &QSpinBox::valueChanged, this, [this] { styleChanged(); });
    connect(color_, &ColorButton::colorChanged, this, [this] { styleChanged(); });
    connect(back_, &ColorButton::colorChanged, this, [this] { styleChanged(); });
    for (QRadioButton* choice : {plain_, halo_, box_}) {
        connect(choice, &QRadioButton::toggled, this, [this] {
            back_->setEnabled(!plain_->isChecked());
            styleChanged();
        });
    }
}

QCheckBox& TextStyleDialog::effect(int bit) const {
    for (const auto& [effectBit, box] : effects_)
        if (effectBit == bit) return *box;
    throw std::out_of_range("no effect of that bit");
}

engine::FontStyle TextStyleDialog::fontStyle() const {
    engine::FontStyle font;
    font.name = family_->currentText().trimmed().toStdString();
    font.size = size_->value();
    font.foreColor = color_->color();
    font.style = otherBits_;
    for (const auto& [bit, box] : effects_)
        if (box->isChecked()) font.style |= bit;
    if (halo_->isChecked()) font.style |= kHalo;
    if (!plain_->isChecked()) font.backColor = back_->color();
    return font;
}

std::string TextStyleDialog::clause() const {
    return engine::formatFont(fontStyle());
}

void TextStyleDialog::showSample(StylePreview& preview) const {
    preview.setStyle(fontStyle());
}

} // namespace vellant::qtui
