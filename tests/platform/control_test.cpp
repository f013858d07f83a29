#include "error_number.h"
#include "platform/control.h"
#include "platform/control_array.h"
#include "platform/option_button.h"

#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <vector>

namespace vellant::platform {
namespace {

using testing::raisedBy;

Picture namedPicture(const std::string& name) {
    Picture p;
    p.name = name;
    return p;
}

struct Recorder {
    std::vector<Property> seen;
    void attach(Control& c) {
        c.subscribe([this](Control&, Property p) { seen.push_back(p); });
    }
};

TEST(Control, ObserversHearOnlyRealChanges) {
    Control c("OK");
    Recorder r;
    r.attach(c);
    c.setCaption("OK");
    c.setCaption("OK");
    c.setEnabled(true); // already enabled
    c.setEnabled(false);
    c.setToolTipText("");
    c.setPicture(namedPicture("VisiblePic"));
    c.setPicture(namedPicture("VisiblePic"));
    EXPECT_EQ(r.seen, (std::vector{Property::Caption, Property::Enabled, Property::Picture}));
}

TEST(Control, MoveReportsEachEdgeThatMoved) {
    Control c("Mapframe");
    c.Move(10, 20, 300, 400);
    Recorder r;
    r.attach(c);
    c.Move(10, 25, 300, 410);
    EXPECT_EQ(r.seen, (std::vector{Property::Top, Property::Height}));
    EXPECT_EQ(c.Top(), 25);
    EXPECT_EQ(c.Height(), 410);
}

TEST(Control, ValueChangeClicksLikeACheckBox) {
    Control check("MapImmediate");
    int clicks = 0;
    int valueSeenInClick = -1;
    check.onClick = [&] {
        ++clicks;
        valueSeenInClick = check.Value();
    };
    check.setValue(1);
    check.setValue(1);
    check.setValue(0);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(valueSeenInClick, 0);
}

TEST(OptionButton, SelectingOneClearsItsGroupAndClicksOnlyItself) {
    OptionButton a("A"), b("B"), c("C");
    OptionButton::group({&a, &b, &c});
    std::vector<std::string> clicks;
    for (OptionButton* option : {&a, &b, &c})
        option->onClick = [&clicks, option] { clicks.push_back(option->Name()); };
    Recorder seenByA;
    seenByA.attach(a);

    a.select();
    b.select();
    b.select(); // already set: no click
    EXPECT_EQ(clicks, (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(a.Value(), 0);
    EXPECT_EQ(b.Value(), OptionButton::kSet);
    EXPECT_EQ(c.Value(), 0);
    // The cleared neighbour's view still hears that its value went.
    EXPECT_EQ(seenByA.seen, (std::vector<Property>{Property::Value, Property::Value}));
}

TEST(Control, ObserverMayUnsubscribeAnotherDuringDelivery) {
    Control c("LyrGrid");
    int laterCalls = 0;
    int later = 0;
    c.subscribe([&](Control& self, Property) { self.unsubscribe(later); });
    later = c.subscribe([&](Control&, Property) { ++laterCalls; });
    c.setLeft(5);
    c.setLeft(6);
    EXPECT_EQ(laterCalls, 0);
}

TEST(Control, WindowHandlesAreDistinctAndClearOfTheSpecialHandles) {
    std::set<std::int32_t> handles;
    std::vector<std::unique_ptr<Control>> controls;
    for (int i = 0; i < 50; ++i) {
        controls.push_back(std::make_unique<Control>("c", i));
        handles.insert(controls.back()->hWnd());
    }
    EXPECT_EQ(handles.size(), 50u);
    EXPECT_GE(*handles.begin(), 0x10000);
}

TEST(ControlArray, ElementsKnowTheirNameAndIndex) {
    ControlArray<Control> pics("LabelOrient", 0, 8);
    EXPECT_EQ(pics.Count(), 9);
    EXPECT_EQ(pics(8).Name(), "LabelOrient");
    EXPECT_EQ(pics(8).Index(), 8);
    EXPECT_EQ(pics[3].Index(), 3);
    int total = 0;
    for (Control& c : pics.all())
        total += c.Index();
    EXPECT_EQ(total, 36);
}

TEST(ControlArray, IndexOutsideTheRangeIsError340) {
    ControlArray<Control> pics("ToggleStatusPic", 1, 3);
    EXPECT_EQ(pics.LBound(), 1);
    EXPECT_EQ(pics.UBound(), 3);
    const auto below = raisedBy([&] { pics(0); });
    EXPECT_EQ(below.number, 340);
    EXPECT_EQ(below.description, "Control array element '0' doesn't exist");
    EXPECT_EQ(raisedBy([&] { pics(4); }).number, 340);
    EXPECT_EQ(raisedBy([&] { pics(3); }).number, 0);
}

} // namespace
} // namespace vellant::platform
