// The desktop program's Layer Control: a session on the front map with the Qt toolkit, the
// host's window usable meanwhile, and a second start bringing the running session forward.

#include "app/desktop/desktop_layer_control.h"
#include "app/sample_tables/demo_data.h"
#include "engine/windows/window_manager.h"
#include "engine/workspace/workspace_loader.h"
#include "qtui/host/host_main_window.h"
#include "session/session.h"
#include "support/session_fixture.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace vellant::desktop {
namespace {

TEST(DesktopLayerControl, ASessionRunsBesideAUsableHostWindowAndASecondStartBringsItForward) {
    vellant::testing::TempDir dir;
    const std::string workspace = samples::writeDemoData(dir.file("data"));
    auto engine = std::make_shared<engine::Engine>();
    qtui::HostMainWindow window(*engine);
    window.show();
    ASSERT_TRUE(window.openWorkspace(workspace));
    DesktopLayerControl layers(engine, window, dir.file("app"));
    const int map = engine->windows().frontWindow();

    bool hostUsable = false;
    bool formShown = false;
    std::string secondStart = "not called";
    QTimer::singleShot(0, [&] {
        session::Session* s = layers.layer().currentSession();
        ASSERT_NE(s, nullptr);
        qtui::FormView* form = layers.toolkit().viewOf(*s->gLayerForm);
        formShown = form != nullptr && form->isVisible();
        hostUsable = window.isEnabled() && QApplication::activeModalWidget() == nullptr;
        secondStart = layers.start(map);
        // The user leaves by Cancel, with a real click.
        QWidget* cancel = layers.toolkit().widgetOf(s->gLayerForm->Cancel);
        ASSERT_NE(cancel, nullptr);
        QTest::mouseClick(cancel, Qt::LeftButton);
    });
    EXPECT_EQ(layers.start(map), "ok");
    EXPECT_TRUE(formShown);
    EXPECT_TRUE(hostUsable);
    EXPECT_EQ(secondStart, "");
    EXPECT_FALSE(layers.running());
    // The user's map is there as it was: Cancel hands nothing over.
    EXPECT_NE(engine->windows().find(map), nullptr);
}

} // namespace
} // namespace vellant::desktop
