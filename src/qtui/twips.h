#pragma once
// Lengths on the program's forms are twips (1440 an inch); the screen counts pixels. The scale
// comes from the screen's logical resolution, so a form is as large in inches as it was drawn.

#include <QRect>
#include <cmath>

class QWidget;
class QScreen;

namespace vellant::qtui {

class TwipScale {
public:
    static constexpr double kTwipsPerInch = 1440.0;

    explicit TwipScale(double twipsPerPixel = 15.0) : twipsPerPixel_(twipsPerPixel) {}
    // The scale of a screen (the primary one when none is given), from its logical dpi.
    static TwipScale of(const QScreen* screen = nullptr);

    double twipsPerPixel() const { return twipsPerPixel_; }
    int pixels(double twips) const { return static_cast<int>(std::lround(twips / twipsPerPixel_)); }
    double twips(double pixels) const { return pixels * twipsPerPixel_; }
    int wholeTwips(double pixels) const { return static_cast<int>(std::lround(twips(pixels))); }
    QRect pixelRect(int left, int top, int width, int height) const {
        return {pixels(left), pixels(top), pixels(width), pixels(height)};
    }

private:
    double twipsPerPixel_;
};

} // namespace vellant::qtui
