#include "app/replay/qt/qt_hands.h"

#include "platform/combo_box.h"
#include "platform/flexgrid.h"
#include "platform/form.h"
#include "qtui/forms/form_view.h"
#include "qtui/grid/grid_view.h"
#include "qtui/toolkit/qt_toolkit.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <stdexcept>

namespace vellant::replay {

namespace {

struct GridPoint {
    QWidget* viewport;
    QPoint pixel;
};

GridPoint gridPoint(QWidget& widget, float x, float y) {
    auto* view = qobject_cast<qtui::GridView*>(&widget);
    if (view == nullptr) throw std::logic_error("the grid has no grid view");
    const qtui::TwipScale& scale = view->scale();
    return {view->viewport(), QPoint(scale.pixels(x), scale.pixels(y))};
}

// Where a user clicks a control: a check box or option button on its mark, anything else in
// its middle.
QPoint clickPoint(QWidget& widget) {
    QStyle::SubElement mark = QStyle::SE_CustomBase;
    if (qobject_cast<QCheckBox*>(&widget) != nullptr) mark = QStyle::SE_CheckBoxIndicator;
    if (qobject_cast<QRadioButton*>(&widget) != nullptr) mark = QStyle::SE_RadioButtonIndicator;
    if (mark != QStyle::SE_CustomBase) {
        QStyleOptionButton option;
        option.initFrom(&widget);
        return widget.style()->subElementRect(mark, &option, &widget).center();
    }
    return widget.rect().center();
}

// Lets what the last event set off (a popup opening, a deferred paint) happen.
void settle() {
    QCoreApplication::processEvents();
}

} // namespace

void typeCharacter(QWidget& widget, int character) {
    switch (character) {
    case 13:
        QTest::keyClick(&widget, Qt::Key_Return);
        return;
    case 27:
        QTest::keyClick(&widget, Qt::Key_Escape);
        return;
    case 8:
        QTest::keyClick(&widget, Qt::Key_Backspace);
        return;
    case 9:
        QTest::keyClick(&widget, Qt::Key_Tab);
        return;
    default:
        QTest::keyClick(&widget, static_cast<char>(character));
    }
}

QWidget& QtHands::widgetOf(const platform::Control& control) const {
    QWidget* widget = toolkit_.widgetOf(control);
    if (widget == nullptr)
        throw std::logic_error("the control " + control.Name() + " is not on the screen");
    return *widget;
}

QWidget& QtHands::keyTarget(const platform::Control& control) const {
    QWidget& widget = widgetOf(control);
    if (auto* combo = qobject_cast<QComboBox*>(&widget); combo && combo->lineEdit())
        return *combo->lineEdit();
    if (auto* form = qobject_cast<qtui::FormView*>(&widget))
        if (QWidget* focus = form->focusWidget()) return *focus;
    return widget;
}

void QtHands::act(const std::function<void()>& action) {
    action();
    if (afterAction_) afterAction_();
}

void QtHands::click(platform::FlexGrid& grid, float x, float y) {
    act([&] {
        const GridPoint at = gridPoint(widgetOf(grid), x, y);
        QTest::mouseClick(at.viewport, Qt::LeftButton, {}, at.pixel);
    });
}

void QtHands::rightClick(platform::FlexGrid& grid, float x, float y) {
    act([&] {
        const GridPoint at = gridPoint(widgetOf(grid), x, y);
        QTest::mouseClick(at.viewport, Qt::RightButton, {}, at.pixel);
    });
}

void QtHands::doubleClick(platform::FlexGrid& grid, float x, float y) {
    act([&] {
        const GridPoint at = gridPoint(widgetOf(grid), x, y);
        QTest::mouseClick(at.viewport, Qt::LeftButton, {}, at.pixel);
        QTest::mouseDClick(at.viewport, Qt::LeftButton, {}, at.pixel);
        QTest::mouseRelease(at.viewport, Qt::LeftButton, {}, at.pixel);
    });
}

void QtHands::drag(platform::FlexGrid& grid, float fromX, float fromY, float toX, float toY) {
    act([&] {
        QWidget& view = widgetOf(grid);
        const GridPoint from = gridPoint(view, fromX, fromY);
        const GridPoint to = gridPoint(view, toX, toY);
        QTest::mousePress(from.viewport, Qt::LeftButton, {}, from.pixel);
        QTest::mouseMove(to.viewport, to.pixel);
        QTest::mouseRelease(to.viewport, Qt::LeftButton, {}, to.pixel);
    });
}

void QtHands::keyToGrid(platform::FlexGrid& grid, int character) {
    act([&] { typeCharacter(widgetOf(grid), character); });
}

void QtHands::press(platform::Control& control) {
    act([&] {
        QWidget& widget = widgetOf(control);
        QTest::mouseClick(&widget, Qt::LeftButton, {}, clickPoint(widget));
    });
}

void QtHands::doubleClick(platform::Control& control) {
    act([&] {
        QWidget& widget = widgetOf(control);
        const QPoint at = clickPoint(widget);
        QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
        QTest::mouseDClick(&widget, Qt::LeftButton, {}, at);
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, at);
    });
}

void QtHands::keyToControl(platform::Control& control, int character) {
    act([&] { typeCharacter(keyTarget(control), character); });
}

void QtHands::typeAndEnter(platform::Control& box, const std::string& text) {
    act([&] {
        QWidget& target = keyTarget(box);
        QTest::keyClick(&target, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&target, Qt::Key_Backspace);
        QTest::keyClicks(&target, QString::fromStdString(text));
        QTest::keyClick(&target, Qt::Key_Return);
    });
}

void QtHands::pick(platform::ComboBox& box, int index) {
    act([&] {
        auto* combo = qobject_cast<QComboBox*>(&widgetOf(box));
        if (combo == nullptr) throw std::logic_error("the list " + box.Name() + " is no combo box");
        // The list opens with its key, and the item is reached with the arrow keys and taken
        // with Enter (a click so soon after the list opened would be taken for the opening click).
        QTest::keyClick(combo, Qt::Key_F4);
        settle();
        QAbstractItemView* list = combo->view();
        QTest::keyClick(list, Qt::Key_Home);
        for (int step = 0; step < index; ++step)
            QTest::keyClick(list, Qt::Key_Down);
        // Enter as the list receives it: a press and a release. (QTest's click would first offer
        // it as a shortcut, which the open list takes as a choice of its own.)
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QApplication::sendEvent(list, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QApplication::sendEvent(list, &release);
    });
}

} // namespace vellant::replay
