#include "engine/lang/lexer.h"
#include "engine/mb_error.h"

#include <gtest/gtest.h>

namespace vellant::engine {
namespace {

using Kind = Token::Kind;

std::vector<std::string> texts(const std::vector<Token>& tokens) {
    std::vector<std::string> out;
    for (const Token& t : tokens) {
        if (t.kind != Kind::End) out.push_back(t.text);
    }
    return out;
}

int errorCode(std::string_view source) {
    try {
        tokenize(source);
    } catch (const MbError& e) {
        return e.code();
    }
    return 0;
}

TEST(Lexer, SplitsAColumnReferenceAndKeepsWordsAsWritten) {
    const auto tokens = tokenize("insert into vlStyle (obj) Values (tobj)");
    EXPECT_EQ(texts(tokens), (std::vector<std::string>{"insert", "into", "vlStyle", "(", "obj", ")",
                                                       "Values", "(", "tobj", ")"}));
    EXPECT_EQ(tokens[2].lower, "vlstyle");
    EXPECT_EQ(texts(tokenize("vlStyle.obj")), (std::vector<std::string>{"vlStyle", ".", "obj"}));
    EXPECT_EQ(tokens.back().kind, Kind::End);
    EXPECT_EQ(tokens.back().position,
              std::string("insert into vlStyle (obj) Values (tobj)").size());
}

TEST(Lexer, FunctionNamesKeepTheirDollarSign) {
    const auto tokens = tokenize("Str$(x)+LEFT$ (a, 2)");
    EXPECT_EQ(tokens[0].text, "Str$");
    EXPECT_EQ(tokens[0].kind, Kind::Identifier);
    EXPECT_EQ(tokens[5].lower, "left$");
}

TEST(Lexer, ReadsEveryFormOfNumber) {
    const auto tokens = tokenize(".5 12 3.25 1e3 2.5E-2 7E+1 &HFF &h1a");
    ASSERT_EQ(tokens.size(), 9u);
    const double expected[] = {0.5, 12, 3.25, 1000, 0.025, 70, 255, 26};
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(tokens[i].kind, Kind::Number) << i;
        EXPECT_DOUBLE_EQ(tokens[i].number, expected[i]) << i;
    }
}

TEST(Lexer, AWordRightAfterANumberIsAWordOfItsOwn) {
    // "set Window 3Width 8 Units" is how one command of the client goes out.
    EXPECT_EQ(texts(tokenize("3Width")), (std::vector<std::string>{"3", "Width"}));
    // An "e" without digits is no exponent.
    EXPECT_EQ(texts(tokenize("2else")), (std::vector<std::string>{"2", "else"}));
    EXPECT_EQ(texts(tokenize("2e+x")), (std::vector<std::string>{"2", "e", "+", "x"}));
    // "&" without hexadecimal digits joins strings.
    EXPECT_EQ(texts(tokenize("a &hz")), (std::vector<std::string>{"a", "&", "hz"}));
}

TEST(Lexer, StringsUndoubleQuotesAndKeepBlanks) {
    const auto tokens = tokenize(R"(title " a ""b"" " "")");
    ASSERT_EQ(tokens.size(), 4u);
    EXPECT_EQ(tokens[1].kind, Kind::String);
    EXPECT_EQ(tokens[1].text, R"( a "b" )");
    EXPECT_EQ(tokens[2].kind, Kind::String);
    EXPECT_EQ(tokens[2].text, "");
    // A path with backslashes is plain text.
    EXPECT_EQ(tokenize(R"("C:\temp\vlstyle")")[0].text, R"(C:\temp\vlstyle)");
}

TEST(Lexer, TwoCharacterComparisonsAreOneToken) {
    EXPECT_EQ(texts(tokenize("a<>b<=c>=d<e>f=g")),
              (std::vector<std::string>{"a", "<>", "b", "<=", "c", ">=", "d", "<", "e", ">", "f",
                                        "=", "g"}));
    EXPECT_EQ(texts(tokenize("< >")), (std::vector<std::string>{"<", ">"}));
}

TEST(Lexer, RefusesWhatNoTokenStartsWith) {
    EXPECT_EQ(errorCode("units \"mi"), kMbSyntax);
    EXPECT_EQ(errorCode("\"ends with a doubled quote\"\""), kMbSyntax);
    EXPECT_EQ(errorCode("a ? b"), kMbSyntax);
    EXPECT_EQ(errorCode(std::string_view("a \0 b", 5)), kMbSyntax);
    EXPECT_EQ(errorCode("1e999"), kMbSyntax);
    try {
        tokenize(std::string_view("x\x01", 2));
        FAIL();
    } catch (const MbError& e) {
        EXPECT_STREQ(e.what(), "Invalid character [&H01] in statement.");
    }
}

TEST(Lexer, BlanksOfAnyKindSeparateAndEmptyInputIsJustTheEnd) {
    EXPECT_EQ(texts(tokenize("\tLayer  3\r\n")), (std::vector<std::string>{"Layer", "3"}));
    const auto tokens = tokenize("   ");
    ASSERT_EQ(tokens.size(), 1u);
    EXPECT_EQ(tokens[0].kind, Kind::End);
}

TEST(Lexer, HighBytesBelongToWords) {
    // Table names in a Latin code page or UTF-8 stay one identifier.
    const auto tokens = tokenize("St\xC3\xA4"
                                 "dte.obj");
    EXPECT_EQ(texts(tokens), (std::vector<std::string>{"St\xC3\xA4"
                                                       "dte",
                                                       ".", "obj"}));
}

} // namespace
} // namespace vellant::engine
