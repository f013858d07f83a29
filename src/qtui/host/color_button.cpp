#include "qtui/host/color_button.h"

#include "engine/render/style_painter.h"
#include "qtui/host/style_swatches.h"

#include <QColorDialog>
#include <QMenu>

namespace vellant::qtui {

namespace {

struct NamedColor {
    const char* name;
    int rgb;
};

// The basic colours of the host's palette, in its order.
constexpr NamedColor kBasicColors[] = {
    {"Black", 0x000000}, {"White", 0xFFFFFF},  {"Red", 0xFF0000},    {"Green", 0x00FF00},
    {"Blue", 0x0000FF},  {"Yellow", 0xFFFF00}, {"Cyan", 0x00FFFF},   {"Magenta", 0xFF00FF},
    {"Gray", 0x808080},  {"Silver", 0xC0C0C0}, {"Maroon", 0x800000}, {"Dark Green", 0x008000},
    {"Navy", 0x000080},  {"Olive", 0x808000},  {"Teal", 0x008080},   {"Purple", 0x800080},
};

constexpr QSize kButtonSwatch(36, 14);
constexpr QSize kMenuSwatch(16, 16);

} // namespace

ColorButton::ColorButton(int rgb, QWidget* parent) : QToolButton(parent) {
    setPopupMode(QToolButton::InstantPopup);
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setIconSize(kButtonSwatch);
    auto* menu = new QMenu(this);
    for (const NamedColor& basic : kBasicColors) {
        QAction* action =
            menu->addAction(QIcon(colorSwatch(basic.rgb, kMenuSwatch)), tr(basic.name), this,
                            [this, rgb = basic.rgb] { setColor(rgb); });
        action->setObjectName(basic.name);
    }
    menu->addSeparator();
    menu->addAction(tr("More Colors..."), this, &ColorButton::chooseOther)
        ->setObjectName("More Colors");
    setMenu(menu);
    rgb_ = -1;
    setColor(rgb);
}

void ColorButton::setColor(int rgb) {
    rgb &= 0xFFFFFF;
    if (rgb == rgb_) return;
    rgb_ = rgb;
    setIcon(QIcon(colorSwatch(rgb_, kButtonSwatch)));
    const QColor shown = engine::mapInfoColor(rgb_);
    setToolTip(
        tr("Red %1, green %2, blue %3").arg(shown.red()).arg(shown.green()).arg(shown.blue()));
    emit colorChanged(rgb_);
}

void ColorButton::chooseOther() {
    const QColor chosen = QColorDialog::getColor(engine::mapInfoColor(rgb_), window(), tr("Color"));
    if (chosen.isValid()) setColor(chosen.red() * 65536 + chosen.green() * 256 + chosen.blue());
}

} // namespace vellant::qtui
