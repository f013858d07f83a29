#include "qtui/host/symbol_style_dialog.h"

#include "qtui/host/color_button.h"
#include "qtui/host/style_preview.h"
#include "qtui/host/style_swatches.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QRadioButton>
#include <QSpinBox>
#include <cmath>

namespace vellant::qtui {

namespace {

constexpr QSize kCell(34, 34);
constexpr int kSmallest = 1;
constexpr int kLargest = 48;
// The characters a font offers as symbols.
constexpr int kFirstCharacter = 33;
constexpr int kLastCharacter = 255;
// Font symbol style bits.
constexpr int kBold = 1;
constexpr int kBorder = 16;
constexpr int kShadow = 32;
constexpr int kHalo = 256;
// Bitmap symbol custom style bits.
constexpr int kOpaque = 1;
constexpr int kApplyColor = 2;

} // namespace

QString SymbolStyleDialog::ownSymbolsName() {
    return tr("MapInfo 3.0 Compatible");
}

SymbolStyleDialog::SymbolStyleDialog(const engine::SymbolStyle& start, QWidget* parent)
    : StyleDialog(tr("Symbol Style"), parent), start_(start) {
    QFormLayout* rows = nullptr;
    QGroupBox* symbolGroup = group(tr("Symbol"), rows);

    set_ = new QComboBox;
    set_->setObjectName("set");
    set_->addItem(ownSymbolsName());
    for (const QString& family : QFontDatabase::families())
        set_->addItem(family);
    if (start.kind == engine::SymbolKind::Bitmap)
        set_->addItem(tr("Custom: %1").arg(QString::fromStdString(start.fileName)));
    rows->addRow(tr("&Font:"), set_);

    symbols_ = new QListWidget;
    symbols_->setObjectName("symbols");
    symbols_->setViewMode(QListView::IconMode);
    symbols_->setIconSize(kCell);
    symbols_->setGridSize(kCell + QSize(6, 6));
    symbols_->setResizeMode(QListView::Adjust);
    symbols_->setMovement(QListView::Static);
    symbols_->setMinimumSize(kCell.width() * 8 + 30, kCell.height() * 4 + 12);
    rows->addRow(symbols_);

    color_ = new ColorButton(start.color);
    color_->setObjectName("color");
    rows->addRow(tr("&Color:"), color_);
    size_ = new QSpinBox;
    size_->setObjectName("size");
    size_->setRange(kSmallest, kLargest);
    size_->setSuffix(tr(" pt"));
    size_->setValue(std::clamp(start.size, kSmallest, kLargest));
    rows->addRow(tr("&Size:"), size_);
    rotation_ = new QDoubleSpinBox;
    rotation_->setObjectName("rotation");
    rotation_->setRange(0, 360);
    rotation_->setSuffix(tr("°"));
    rotation_->setValue(start.rotation);
    rows->addRow(tr("&Rotation angle:"), rotation_);

    QFormLayout* effectRows = nullptr;
    QGroupBox* effects = group(tr("Effects"), effectRows);
    plain_ = new QRadioButton(tr("&None"));
    halo_ = new QRadioButton(tr("&Halo"));
    halo_->setObjectName("halo");
    border_ = new QRadioButton(tr("Bo&rder"));
    border_->setObjectName("border");
    background_ = new QButtonGroup(this);
    auto* backgroundRow = new QHBoxLayout;
    for (QRadioButton* choice : {plain_, halo_, border_}) {
        background_->addButton(choice);
        backgroundRow->addWidget(choice);
    }
    effectRows->addRow(tr("Background:"), backgroundRow);
    bold_ = new QCheckBox(tr("&Bold"));
    bold_->setObjectName("bold");
    shadow_ = new QCheckBox(tr("&Drop shadow"));
    shadow_->setObjectName("shadow");
    opaque_ = new QCheckBox(tr("Show &background"));
    applyColor_ = new QCheckBox(tr("&Apply color"));
    auto* effectRow = new QHBoxLayout;
    for (QCheckBox* box : {bold_, shadow_, opaque_, applyColor_})
        effectRow->addWidget(box);
    effectRows->addRow(effectRow);

    const int style = start.fontStyle;
    bold_->setChecked((style & kBold) != 0);
    shadow_->setChecked((style & kShadow) != 0);
    if ((style & kHalo) != 0)
        halo_->setChecked(true);
    else if ((style & kBorder) != 0)
        border_->setChecked(true);
    else
        plain_->setChecked(true);
    opaque_->setChecked((start.customStyle & kOpaque) != 0);
    applyColor_->setChecked((start.customStyle & kApplyColor) != 0);

    arrange({symbolGroup, effects});

    switch (start.kind) {
    case engine::SymbolKind::Vector:
        set_->setCurrentIndex(0);
        break;
    case engine::SymbolKind::TrueType: {
        // A font the desktop lacks is kept by its name.
        const QString family = QString::fromStdString(start.fontName);
        if (set_->findText(family) < 0) set_->addItem(family);
        set_->setCurrentIndex(set_->findText(family));
        break;
    }
    case engine::SymbolKind::Bitmap:
        set_->setCurrentIndex(set_->count() - 1);
        break;
    }
    setChanged();
    fillSymbols(start.shape);

    connect(set_, &QComboBox::currentIndexChanged, this, [this] {
        setChanged();
        fillSymbols(symbols_->currentItem() ? symbols_->currentItem()->data(Qt::UserRole).toInt()
                                            : 0);
        styleChanged();
    });
    connect(symbols_, &QListWidget::currentRowChanged, this, [this] { styleChanged(); });
    connect(color_, &ColorButton::colorChanged, this, [this] {
        fillSymbols(symbol().shape);
        styleChanged();
    });
    connect(size_, &QSpinBox::valueChanged, this, [this] { styleChanged(); });
    connect(rotation_, &QDoubleSpinBox::valueChanged, this, [this] { styleChanged(); });
    for (QAbstractButton* box : std::initializer_list<QAbstractButton*>{
             bold_, shadow_, plain_, halo_, border_, opaque_, applyColor_})
        connect(box, &QAbstractButton::toggled, this, [this] { styleChanged(); });
}

SymbolStyleDialog::Set SymbolStyleDialog::currentSet() const {
    if (set_->currentIndex() == 0) return Set::Own;
    if (start_.kind == engine::SymbolKind::Bitmap && set_->currentIndex() == set_->count() - 1)
        return Set::Bitmap;
    return Set::Font;
}

// What applies to the set at hand: rotation and effects to a font, the two bitmap settings to
// the bitmap.
void SymbolStyleDialog::setChanged() {
    const Set set = currentSet();
    rotation_->setEnabled(set == Set::Font);
    for (QWidget* effect : std::initializer_list<QWidget*>{bold_, shadow_, plain_, halo_, border_})
        effect->setEnabled(set == Set::Font);
    opaque_->setEnabled(set == Set::Bitmap);
    applyColor_->setEnabled(set == Set::Bitmap);
    symbols_->setEnabled(set != Set::Bitmap);
}

// The set's symbols in the colour chosen; the one given is selected when the set has it.
void SymbolStyleDialog::fillSymbols(int select) {
    const QSignalBlocker quiet(symbols_);
    symbols_->clear();
    const Set set = currentSet();
    if (set == Set::Bitmap) return;
    engine::SymbolStyle shown;
    shown.color = color_->color();
    shown.size = 18;
    std::vector<int> codes;
    if (set == Set::Own) {
        shown.kind = engine::SymbolKind::Vector;
        codes = vectorSymbols();
    } else {
        shown.kind = engine::SymbolKind::TrueType;
        shown.fontName = set_->currentText().toStdString();
        for (int code = kFirstCharacter; code <= kLastCharacter; ++code)
            codes.push_back(code);
    }
    for (int code : codes) {
        shown.shape = code;
        auto* item = new QListWidgetItem(QIcon(symbolSwatch(shown, kCell)), QString());
        item->setData(Qt::UserRole, code);
        item->setToolTip(tr("Symbol %1").arg(code));
        symbols_->addItem(item);
        if (code == select) symbols_->setCurrentItem(item);
    }
    if (!symbols_->currentItem()) symbols_->setCurrentRow(0);
}

engine::SymbolStyle SymbolStyleDialog::symbol() const {
    engine::SymbolStyle symbol;
    symbol.color = color_->color();
    symbol.size = size_->value();
    const QListWidgetItem* chosen = symbols_->currentItem();
    switch (currentSet()) {
    case Set::Own:
        symbol.kind = engine::SymbolKind::Vector;
        symbol.shape = chosen ? chosen->data(Qt::UserRole).toInt() : start_.shape;
        break;
    case Set::Font:
        symbol.kind = engine::SymbolKind::TrueType;
        symbol.shape = chosen ? chosen->data(Qt::UserRole).toInt() : start_.shape;
        symbol.fontName = set_->currentText().toStdString();
        symbol.rotation = rotation_->value();
        symbol.fontStyle = (bold_->isChecked() ? kBold : 0) | (shadow_->isChecked() ? kShadow : 0) |
                           (halo_->isChecked() ? kHalo : 0) | (border_->isChecked() ? kBorder : 0);
        break;
    case Set::Bitmap:
        symbol.kind = engine::SymbolKind::Bitmap;
        symbol.fileName = start_.fileName;
        symbol.customStyle =
            (opaque_->isChecked() ? kOpaque : 0) | (applyColor_->isChecked() ? kApplyColor : 0);
        break;
    }
    return symbol;
}

std::string SymbolStyleDialog::clause() const {
    return engine::formatSymbol(symbol());
}

void SymbolStyleDialog::showSample(StylePreview& preview) const {
    preview.setStyle(symbol());
}

} // namespace vellant::qtui
