// A MapX application on the desktop: its map control drawn, its Layers button running a session
// on the real widgets with the view map in the layer form, and the answer in its status bar.

#include "app/desktop/mapx_client_window.h"
#include "app/sample_tables/demo_data.h"
#include "qtui/mapx/dialog_style_picker.h"
#include "qtui/mapx/map_picture_widget.h"
#include "support/session_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace vellant::desktop {
namespace {

// How many pixels of the picture differ from its top left corner's colour.
int pixelsApartFromTheCorner(const QImage& image) {
    int count = 0;
    const QRgb corner = image.pixel(0, 0);
    for (int y = 0; y < image.height(); y += 2)
        for (int x = 0; x < image.width(); x += 2)
            if (image.pixel(x, y) != corner) ++count;
    return count;
}

TEST(MapXClientWindow, TheLayersButtonRunsASessionWithTheViewMapInTheFormsMapPanel) {
    vellant::testing::TempDir dir;
    const std::string workspace = samples::writeDemoData(dir.file("data"));
    MapXClientWindow window(std::make_shared<engine::Engine>(), workspace, dir.file("app"));
    window.resize(800, 600);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_GT(pixelsApartFromTheCorner(window.mapControl().grab().toImage()), 100);
    // The demo's map holds a query, which MapX cannot open from a file.
    EXPECT_EQ(window.map().Layers()->Count(), 7);

    int viewPixels = 0;
    bool viewShown = false;
    QTimer::singleShot(0, [&] {
        for (QWidget* widget : QApplication::allWidgets()) {
            auto* view = dynamic_cast<qtui::MapPictureWidget*>(widget);
            if (view == nullptr || view == &window.mapControl()) continue;
            viewShown = view->isVisible();
            viewPixels = pixelsApartFromTheCorner(view->grab().toImage());
            // The user leaves with OK, with a real click.
            QWidget* form = view->window();
            for (auto* button : form->findChildren<QAbstractButton*>())
                if (button->text() == "OK") QTest::mouseClick(button, Qt::LeftButton);
        }
    });
    QTest::mouseClick(&window.layersButton(), Qt::LeftButton);

    EXPECT_TRUE(viewShown);
    EXPECT_GT(viewPixels, 100);
    EXPECT_EQ(window.statusBar()->currentMessage(), "RunLayer answered \"ok\"");
    EXPECT_TRUE(window.layersButton().isEnabled());
}

// MapX's picker is the host's dialog of the kind, seeded with the style: OK answers what it
// shows, Cancel nothing.
TEST(DialogStylePicker, OpensTheHostsDialogOfTheKindAndAnswersItsClause) {
    qtui::DialogStylePicker picker([] { return nullptr; });
    bool accept = true;
    QString title;
    picker.onDialogOpened = [&](QDialog& dialog) {
        title = dialog.windowTitle();
        QTimer::singleShot(0, &dialog, accept ? &QDialog::accept : &QDialog::reject);
    };
    const auto chosen = picker.pick({mapx::PickKind::Line, "Pen (3,2,255)"});
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(*chosen, "Pen (3,2,255)");
    EXPECT_EQ(title, "Line Style");

    accept = false;
    EXPECT_FALSE(picker.pick({mapx::PickKind::Text, "Font (\"Arial\",0,9,0)"}).has_value());
    EXPECT_EQ(title, "Text Style");
}

} // namespace
} // namespace vellant::desktop
