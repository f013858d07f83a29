// The interpreter's contracts with the other parts of the engine: how statements are found,
// what a Cursor hands a statement handler, and what Create leaves in a variable.

#include "engine/engine.h"
#include "engine/lang/cursor.h"
#include "engine/lang/registry.h"
#include "engine/lang/variables.h"
#include "engine/map_object.h"
#include "engine/mb_error.h"

#include <gtest/gtest.h>

namespace vellant::engine {
namespace {

std::string errorText(const auto& action) {
    try {
        action();
    } catch (const MbError& e) {
        return std::to_string(e.code()) + " " + e.what();
    }
    return "no error";
}

TEST(StatementLookup, TheLongestRegisteredLeadingWordsWin) {
    Engine engine;
    std::string ran;
    engine.registry().addStatement({"zap"},
                                   [&](Engine&, Cursor& c) { ran = "zap:" + c.identifier(); });
    engine.registry().addStatement({"zap", "map"},
                                   [&](Engine&, Cursor& c) { ran = "zap map:" + c.identifier(); });
    engine.run("ZAP  Map  x");
    EXPECT_EQ(ran, "zap map:x");
    engine.run("zap window");
    EXPECT_EQ(ran, "zap:window");
    // Words beyond the handler's reach make the statement fail after it ran.
    EXPECT_EQ(errorText([&] { engine.run("zap a b"); }),
              "1 Found [b] while searching for [end of statement].");
}

TEST(StatementLookup, AnAssignmentToAVariableNamedLikeAStatementIsAnAssignment) {
    Engine engine;
    engine.run("Dim create as integer");
    engine.run("create = 4");
    EXPECT_EQ(engine.evaluate("create * 2").toEvalText(), "8");
}

TEST(CursorApi, NameOrStringTakesWordsStringsVariablesAndFunctionCalls) {
    Engine engine;
    std::vector<std::string> names;
    engine.registry().addStatement({"name", "it"},
                                   [&](Engine&, Cursor& c) { names.push_back(c.nameOrString()); });
    engine.run("Dim t as String");
    engine.run("t = \"World\"");
    engine.run("name it vlStyle");
    engine.run("name it \"C:\\maps\\x.tab\"");
    engine.run("name it t");
    engine.run("name it UCase$(\"mi\")");
    EXPECT_EQ(names, (std::vector<std::string>{"vlStyle", "C:\\maps\\x.tab", "World", "MI"}));
    EXPECT_EQ(errorText([&] { engine.run("name it"); }),
              "1 Found [end of statement] while searching for [name].");
}

TEST(CursorApi, ExpressionsStopAtTheFirstTokenThatCannotContinueThem) {
    Engine engine;
    std::vector<std::string> seen;
    engine.registry().addStatement({"probe"}, [&](Engine&, Cursor& c) {
        seen.push_back(c.expression().toEvalText());
        seen.push_back(c.identifier());
        seen.push_back(std::to_string(c.numberExpression()));
        c.expectSymbol("(");
        seen.push_back(c.stringExpression());
        c.expectSymbol(")");
    });
    engine.run("probe 3 * 2 Units 1.5 (\"a\" & 1)");
    EXPECT_EQ(seen, (std::vector<std::string>{"6", "Units", "1.500000", "a1"}));
}

TEST(CursorApi, AResolverAnswersBareNamesBeforeVariables) {
    Engine engine;
    engine.run("Dim pop as integer");
    engine.run("pop = 1");
    std::vector<std::string> seen;
    engine.registry().addStatement({"where"}, [&](Engine&, Cursor& c) {
        const NameResolver resolver = [](std::string_view name) -> std::optional<MbValue> {
            if (name == "pop") return MbValue::integer(500);
            return std::nullopt;
        };
        const std::size_t start = c.mark();
        c.setNameResolver(&resolver);
        seen.push_back(c.expression().toEvalText());
        c.reset(start);
        c.setNameResolver(nullptr);
        seen.push_back(c.expression().toEvalText());
    });
    engine.run("where POP > 100");
    EXPECT_EQ(seen, (std::vector<std::string>{"T", "F"}));
}

TEST(CursorApi, SyntaxErrorsNameTheTokenFoundAndWhatWasWanted) {
    Engine engine;
    engine.registry().addStatement({"need"}, [](Engine&, Cursor& c) { c.expectWord("units"); });
    engine.registry().addStatement({"bad"}, [](Engine&, Cursor& c) { c.syntaxError(); });
    EXPECT_EQ(errorText([&] { engine.run("need \"mi\""); }),
              "1 Found [\"mi\"] while searching for [units].");
    EXPECT_EQ(errorText([&] { engine.run("bad 5"); }),
              "1 Found [5] while searching for [a clause].");
}

TEST(Functions, RegisteredFunctionsGetTheirArgumentsAndCountsAreChecked) {
    Engine engine;
    engine.registry().addFunction("Pair", 1, 2, [](Engine&, std::vector<MbValue>& args) {
        return MbValue::string(args[0].asString() + "|" +
                               (args.size() > 1 ? args[1].asString() : "-"));
    });
    EXPECT_EQ(engine.evaluate("pair(1)").toEvalText(), "1|-");
    EXPECT_EQ(engine.evaluate("PAIR(1, 2 + 3)").toEvalText(), "1|5");
    EXPECT_EQ(errorText([&] { engine.evaluate("Pair()"); }),
              "1051 Wrong number of arguments for function Pair.");
    EXPECT_EQ(errorText([&] { engine.evaluate("Pair(1,2,3)"); }),
              "1051 Wrong number of arguments for function Pair.");
}

TEST(Functions, AStringVariableBeforeParenthesesIsAValueNotACall) {
    // Create Text into variable tobj s (1,1) (2,2): s is the text, the points follow.
    Engine engine;
    engine.run("Dim s as String, tobj as Object");
    engine.run("s = \"Ab\"");
    engine.run("Create Text into variable tobj s (1,1) (2,2)");
    EXPECT_EQ(engine.variables().find("tobj")->value.asObject()->text, "Ab");
}

TEST(CreateStatements, ObjectsKeepTheirPointsAndCanonicalStyles) {
    Engine engine;
    engine.run("Dim tobj as object");
    engine.run("Create Region into variable tobj 1 4 (0,0) (10,0) (10,5) (0,5)  pen (1, 2, 255 )"
               "   brush (01, 0, 0) ");
    auto region = engine.variables().find("tobj")->value.asObject();
    ASSERT_TRUE(region);
    EXPECT_EQ(region->kind, ObjectKind::Region);
    ASSERT_EQ(region->parts.size(), 1u);
    EXPECT_EQ(region->parts[0], (std::vector<MapPoint>{{0, 0}, {10, 0}, {10, 5}, {0, 5}}));
    EXPECT_EQ(region->pen, "Pen (1,2,255)");
    EXPECT_EQ(region->brush, "Brush (1,0,0)");

    engine.run("Create Text into variable tobj \"Ab\" (1,1) (2,2) Font (\"Arial\",0,9,0)");
    auto text = engine.variables().find("tobj")->value.asObject();
    EXPECT_EQ(text->kind, ObjectKind::Text);
    EXPECT_EQ(text->text, "Ab");
    EXPECT_EQ(text->font, "Font (\"Arial\",0,9,0)");
    EXPECT_EQ(text->parts[0], (std::vector<MapPoint>{{1, 1}, {2, 2}}));

    engine.run("Create Pline into variable tobj Multiple 2 2 (0,0) (1,1) 3 (3,3) (4,4) (5,3)");
    auto pline = engine.variables().find("tobj")->value.asObject();
    ASSERT_EQ(pline->parts.size(), 2u);
    EXPECT_EQ(pline->parts[1].size(), 3u);
    EXPECT_EQ(pline->pen, "Pen (1,2,0)"); // the host's pen when none is given
}

TEST(CreateStatements, AStyleVariableOrParenthesisedStyleServesAsTheClause) {
    Engine engine;
    engine.run("Dim tobj as object, p as Pen, b as Brush");
    engine.run("p = MakePen(3, 2, 65280)");
    engine.run("b = MakeBrush(2, 255, 0)");
    engine.run("Create Rect into variable tobj (0,0) (1,1) Pen p Brush (b)");
    auto rect = engine.variables().find("tobj")->value.asObject();
    EXPECT_EQ(rect->pen, "Pen (3,2,65280)");
    EXPECT_EQ(rect->brush, "Brush (2,255,0)");
}

TEST(CreateStatements, WithoutIntoVariableTheObjectGoesToAWindowOrFailsClearly) {
    Engine engine;
    const std::string error = errorText([&] { engine.run("Create Point (1,1)"); });
    // No map is open: whatever part takes cosmetic objects must refuse, not crash.
    EXPECT_NE(error, "no error");
}

} // namespace
} // namespace vellant::engine
