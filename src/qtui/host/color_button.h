#pragma once
// A colour choice as the host's style dialogs offer it: a button showing the colour, whose menu
// holds the sixteen basic colours and "More Colors...", the full colour picker.

#include <QToolButton>

namespace vellant::qtui {

class ColorButton : public QToolButton {
    Q_OBJECT
public:
    explicit ColorButton(int rgb = 0, QWidget* parent = nullptr);

    // MapInfo's R * 65536 + G * 256 + B.
    int color() const { return rgb_; }
    void setColor(int rgb);

signals:
    void colorChanged(int rgb);

private:
    void chooseOther();

    int rgb_ = 0;
};

} // namespace vellant::qtui
