#pragma once
// QPainter draws text on a QImage only once a QGuiApplication exists. A desktop program makes
// its own before anything is drawn; headless tools (the MapBasic shell, the replay runner,
// tests) get one on the offscreen platform the first time something is drawn.

namespace vellant::engine {

void ensureGuiApplication();

} // namespace vellant::engine
