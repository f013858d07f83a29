#include "error_number.h"
#include "platform/automation.h"

#include <gtest/gtest.h>

namespace vellant::platform {
namespace {

using testing::raisedBy;

struct Mapper : AutomationObject {
    int id = 0;
};
struct Other : AutomationObject {};

TEST(AutomationRegistry, CreateObjectMakesANewObjectEachTimeInAnyLetterCase) {
    AutomationRegistry reg;
    int made = 0;
    reg.registerClass("Vellant.Mapper", [&] {
        auto m = std::make_shared<Mapper>();
        m->id = ++made;
        return m;
    });
    auto a = AutomationRegistry::as<Mapper>(reg.CreateObject("Vellant.Mapper"));
    auto b = AutomationRegistry::as<Mapper>(reg.CreateObject("vellant.MAPPER"));
    EXPECT_EQ(a->id, 1);
    EXPECT_EQ(b->id, 2);
}

TEST(AutomationRegistry, UnknownClassOrEmptyFactoryIsError429) {
    AutomationRegistry reg;
    const auto unknown = raisedBy([&] { reg.CreateObject("MapX.Map.4"); });
    EXPECT_EQ(unknown.number, 429);
    EXPECT_EQ(unknown.description, "ActiveX component can't create object");
    reg.registerClass("Broken.Class", [] { return std::shared_ptr<AutomationObject>(); });
    EXPECT_EQ(raisedBy([&] { reg.CreateObject("Broken.Class"); }).number, 429);
    reg.registerClass("MapX.Map.4", [] { return std::make_shared<Other>(); });
    reg.unregisterClass("mapx.map.4");
    EXPECT_EQ(raisedBy([&] { reg.CreateObject("MapX.Map.4"); }).number, 429);
}

TEST(AutomationRegistry, GetObjectFindsTheRunningObjectUntilItIsRevoked) {
    AutomationRegistry reg;
    EXPECT_EQ(raisedBy([&] { reg.GetObject("MapInfo.Application"); }).number, 429);
    auto host = std::make_shared<Mapper>();
    reg.registerRunning("MapInfo.Application", host);
    EXPECT_EQ(reg.GetObject("mapinfo.application"), host);
    // A registered class is no running object.
    reg.registerClass("MapInfo.Runtime", [] { return std::make_shared<Other>(); });
    EXPECT_EQ(raisedBy([&] { reg.GetObject("MapInfo.Runtime"); }).number, 429);
    reg.revokeRunning("MapInfo.Application");
    EXPECT_EQ(raisedBy([&] { reg.GetObject("MapInfo.Application"); }).number, 429);
}

TEST(AutomationRegistry, WrongInterfaceIsATypeMismatch) {
    AutomationRegistry reg;
    reg.registerClass("Vellant.MIProps", [] { return std::make_shared<Other>(); });
    EXPECT_EQ(raisedBy([&] {
                  AutomationRegistry::as<Mapper>(reg.CreateObject("Vellant.MIProps"));
              }).number,
              13);
}

} // namespace
} // namespace vellant::platform
