#pragma once
// A picture of windows as a desktop shows them: each window's contents where it stands, under
// a frame and a title bar drawn for the picture, since the offscreen platform has no window
// manager to draw them. Windows are painted in the order given, the last on top.

#include <QImage>
#include <vector>

class QWidget;

namespace vellant::replay {

QImage desktopPicture(const std::vector<QWidget*>& windows);

} // namespace vellant::replay
