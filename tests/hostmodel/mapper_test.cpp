// The map facade: each member's expression and answer, and the log line and empty answer of
// each once the host has gone.

#include "facade_host.h"

#include <functional>

namespace vellant::hostmodel::testing {
namespace {

using MapperTest = FacadeHost;

struct MapperGet {
    std::function<std::string(Mapper&)> call;
    const char* asked;
    const char* log;
    const char* failed; // the answer once the host is gone
};

std::vector<MapperGet> mapperGets(std::int32_t& window) {
    return {
        {[&](Mapper& m) { return text(m.wintype(window)); }, "WIndowInfo(<w>,3)",
         "Error from get wintype ", " 0"},
        {read<&Mapper::titletext>(), "WindowInfo(<w>,1)", "Error from get titletext ", ""},
        {read<&Mapper::zoom>(), "mapperinfo(<w>,1)", "Error from get zoom ", " 0"},
        {[](Mapper& m) { return m.TableName(2); }, "tableinfo( 2,1)", "Error from get tablename ",
         ""},
        {[](Mapper& m) { return text(m.TableMappable(3)); }, "tableinfo( 3,5)",
         "Error from get TableMappable ", "F"},
        {[](Mapper& m) { return m.mapunit().toString(); }, "mapperinfo(<w>,12)",
         "Error from get mapunit ", ""},
    };
}

TEST_F(MapperTest, EachMemberAsksItsExpression) {
    std::int32_t window = context.view;
    const std::string expected[] = {" 1",
                                    ask(fill("WindowInfo(<w>,1)")),
                                    Str(static_cast<float>(Val(ask(fill("mapperinfo(<w>,1)"))))),
                                    "lines",
                                    "T",
                                    ask(fill("mapperinfo(<w>,12)"))};
    std::size_t row = 0;
    for (const MapperGet& get : mapperGets(window)) {
        clear();
        EXPECT_EQ(get.call(*map), expected[row++]) << get.asked;
        EXPECT_EQ(app->asked, Strings{fill(get.asked)});
    }
    // Window 0 is no window: nothing is asked. A table past the last is a logged failure.
    window = 0;
    clear();
    EXPECT_EQ(mapperGets(window)[0].call(*map), " 0");
    EXPECT_TRUE(app->asked.empty());
    EXPECT_TRUE(context.logged.empty());
    EXPECT_FALSE(map->TableMappable(99));
    EXPECT_EQ(context.logged.size(), 1U);
}

TEST_F(MapperTest, AGoneHostGivesEmptyAnswersAndOneLogLineEach) {
    std::int32_t window = context.view;
    const std::string gone = closeHost();
    for (const MapperGet& get : mapperGets(window)) {
        context.logged.clear();
        EXPECT_EQ(get.call(*map), get.failed) << get.asked;
        EXPECT_EQ(context.logged, Strings{get.log + gone});
    }
}

} // namespace
} // namespace vellant::hostmodel::testing
