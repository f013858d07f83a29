// The host's style dialogs as a user meets them: each opens seeded with the client's clause and
// answers the style chosen in its controls; opened by the companion's request, OK and Cancel
// reach the companion's globals and its button.

#include "engine/engine.h"
#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "qtui/host/color_button.h"
#include "qtui/host/line_style_dialog.h"
#include "qtui/host/region_style_dialog.h"
#include "qtui/host/style_dialog_host.h"
#include "qtui/host/symbol_style_dialog.h"
#include "qtui/host/text_style_dialog.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace vellant::qtui {
namespace {

using engine::StyleDialogKind;

struct Seed {
    const char* name;
    StyleDialogKind kind;
    const char* clause;
};

class SeededDialog : public ::testing::TestWithParam<Seed> {};

// A clause the dialog can show comes back unchanged when the user only presses OK.
TEST_P(SeededDialog, ShowsTheClauseAndGivesItBackUntouched) {
    const auto dialog = StyleDialog::create(GetParam().kind, GetParam().clause);
    EXPECT_EQ(dialog->kind(), GetParam().kind);
    EXPECT_EQ(dialog->clause(), GetParam().clause);
}

INSTANTIATE_TEST_SUITE_P(
    Clauses, SeededDialog,
    ::testing::Values(
        Seed{"SolidRegion", StyleDialogKind::Region, "Brush (2,16711680,16777215)"},
        Seed{"TransparentHatch", StyleDialogKind::Region, "Brush (5,255)"},
        Seed{"ScreenRegion", StyleDialogKind::Region, "Brush (15,65280,0)"},
        Seed{"PixelLine", StyleDialogKind::Line, "Pen (3,5,255)"},
        Seed{"PointLine", StyleDialogKind::Line, "Pen (35,2,0)"},
        Seed{"InterleavedLine", StyleDialogKind::Line, "Pen (1,130,8421504)"},
        Seed{"ComplexLinePattern", StyleDialogKind::Line, "Pen (2,60,0)"},
        Seed{"OwnSymbol", StyleDialogKind::Symbol, "Symbol (35,255,12)"},
        Seed{"FontSymbol", StyleDialogKind::Symbol,
             "Symbol (66,16711680,24,\"DejaVu Sans\",257,45)"},
        Seed{"BitmapSymbol", StyleDialogKind::Symbol, "Symbol (\"pin.bmp\",255,18,3)"},
        Seed{"PlainFont", StyleDialogKind::Text, "Font (\"DejaVu Sans\",0,9,0)"},
        Seed{"HaloFont", StyleDialogKind::Text, "Font (\"DejaVu Serif\",259,14,255,16777215)"},
        Seed{"BoxFont", StyleDialogKind::Text, "Font (\"Arial\",1,12,0,16776960)"}),
    [](const ::testing::TestParamInfo<Seed>& seed) { return std::string(seed.param.name); });

TEST(StyleDialog, AClauseItCannotReadOpensOnTheHostsInitialStyle) {
    EXPECT_EQ(StyleDialog::create(StyleDialogKind::Region, "Brush (x")->clause(),
              "Brush (2,16777215,16777215)");
    EXPECT_EQ(StyleDialog::create(StyleDialogKind::Line, "")->clause(), "Pen (1,2,0)");
    EXPECT_EQ(StyleDialog::create(StyleDialogKind::Text, "Pen (1,2,0)")->clause(),
              "Font (\"Arial\",0,9,0)");
}

// A click on a check box's box, where its text ends or not.
void tick(QAbstractButton& box) {
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(6, box.height() / 2));
}

void pickColor(ColorButton& button, const char* name) {
    QAction* action = button.menu()->findChild<QAction*>(name);
    ASSERT_NE(action, nullptr) << name;
    action->trigger();
}

TEST(StyleDialog, RegionControlsMakeTheBrush) {
    RegionStyleDialog dialog({}, nullptr);
    dialog.show();
    dialog.pattern().setCurrentIndex(dialog.pattern().findData(8));
    pickColor(dialog.foreground(), "Red");
    pickColor(dialog.background(), "Yellow");
    EXPECT_EQ(dialog.clause(), "Brush (8,16711680,16776960)");
    tick(dialog.transparent());
    EXPECT_FALSE(dialog.background().isEnabled());
    EXPECT_EQ(dialog.clause(), "Brush (8,16711680)");
}

TEST(StyleDialog, LineWidthsGoInPixelsOrInPoints) {
    LineStyleDialog dialog({}, nullptr);
    dialog.show();
    dialog.pattern().setCurrentIndex(dialog.pattern().findData(10));
    pickColor(dialog.color(), "Blue");
    dialog.lineWidth().setValue(4);
    EXPECT_EQ(dialog.clause(), "Pen (4,10,255)");
    dialog.widthUnits().setCurrentIndex(1);
    dialog.lineWidth().setValue(2.5);
    tick(dialog.interleaved());
    EXPECT_EQ(dialog.clause(), "Pen (35,138,255)");
}

TEST(StyleDialog, ASymbolComesFromTheOwnSetOrAFont) {
    SymbolStyleDialog dialog({}, nullptr);
    dialog.show();
    QListWidget& symbols = dialog.symbols();
    ASSERT_EQ(symbols.count(), 37);
    symbols.setCurrentRow(3); // 34, the filled circle
    pickColor(dialog.color(), "Green");
    dialog.pointSize().setValue(20);
    EXPECT_FALSE(dialog.rotation().isEnabled());
    EXPECT_EQ(dialog.clause(), "Symbol (34,65280,20)");

    dialog.symbolSet().setCurrentText("DejaVu Sans");
    ASSERT_GT(symbols.count(), 100);
    symbols.setCurrentRow(static_cast<int>('A') - 33);
    dialog.rotation().setValue(90);
    tick(dialog.bold());
    dialog.halo().setChecked(true);
    EXPECT_EQ(dialog.clause(), "Symbol (65,65280,20,\"DejaVu Sans\",257,90)");
}

TEST(StyleDialog, TextEffectsAndBackgroundMakeTheFont) {
    TextStyleDialog dialog({}, nullptr);
    dialog.show();
    dialog.family().setEditText("DejaVu Serif");
    dialog.pointSize().setValue(16);
    pickColor(dialog.color(), "Navy");
    tick(dialog.effect(2));
    tick(dialog.effect(512));
    EXPECT_EQ(dialog.clause(), "Font (\"DejaVu Serif\",514,16,128)");
    dialog.box().setChecked(true);
    pickColor(dialog.background(), "Yellow");
    EXPECT_EQ(dialog.clause(), "Font (\"DejaVu Serif\",514,16,128,16776960)");
    dialog.halo().setChecked(true);
    EXPECT_EQ(dialog.clause(), "Font (\"DejaVu Serif\",770,16,128,16776960)");
}

// The companion running in an engine, its client's button pad there to be pressed.
class DialogFromCompanion : public ::testing::Test {
protected:
    void SetUp() override {
        engine.run("Run Application \"vellant.mbx\"");
        engine.run("Create ButtonPad \"Callback\" As PushButton ID 2001 Calling OLE \"RunCommand\" "
                   "Hide");
        host = std::make_unique<StyleDialogHost>(engine, [] { return nullptr; });
    }
    engine::Companion& companion() { return *engine.host().companion(); }

    // The client asks; once its call has returned, the dialog opens and the user does this.
    void ask(const std::string& message, std::function<void(StyleDialog&)> user) {
        QObject::connect(host.get(), &StyleDialogHost::dialogOpened, host.get(),
                         [user](StyleDialog* dialog) {
                             QTimer::singleShot(0, dialog, [dialog, user] { user(*dialog); });
                         });
        companion().Do(message);
        EXPECT_EQ(host->openDialog(), nullptr) << "nothing opens inside the client's call";
        QApplication::processEvents();
        QApplication::processEvents();
    }

    static void press(StyleDialog& dialog, QDialogButtonBox::StandardButton which) {
        auto* buttons = dialog.findChild<QDialogButtonBox*>();
        ASSERT_NE(buttons, nullptr);
        QTest::mouseClick(buttons->button(which), Qt::LeftButton);
    }

    engine::Engine engine;
    std::unique_ptr<StyleDialogHost> host;
};

TEST_F(DialogFromCompanion, OKStoresTheChosenClauseAndCallsTheClientBack) {
    bool seeded = false;
    ask("Dialog 1 Pen (1,2,0)", [&](StyleDialog& dialog) {
        seeded = dialog.clause() == "Pen (1,2,0)";
        auto& line = dynamic_cast<LineStyleDialog&>(dialog);
        line.lineWidth().setValue(3);
        press(dialog, QDialogButtonBox::Ok);
    });
    EXPECT_TRUE(seeded);
    EXPECT_EQ(companion().global("currstyle"), "Pen (3,2,0)");
    EXPECT_EQ(companion().global("VLadvice"), "style");
    EXPECT_FALSE(companion().styleDialogPending());
    EXPECT_EQ(host->openDialog(), nullptr);
}

TEST_F(DialogFromCompanion, CancelLeavesNoStyleAndStillCallsBack) {
    companion().setGlobal("currstyle", "Brush (2,0,0)");
    ask("Dialog 5 Font (\"Arial\",0,9,0)", [](StyleDialog& dialog) {
        EXPECT_EQ(dialog.kind(), StyleDialogKind::Text);
        press(dialog, QDialogButtonBox::Cancel);
    });
    EXPECT_EQ(companion().global("currstyle"), "");
    EXPECT_EQ(companion().global("VLadvice"), "style");
}

} // namespace
} // namespace vellant::qtui
