#include "exchange/JsonTree.h"

#include "support/Mutation.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace strativo {
namespace {

std::string RuleOf(const std::string& text) {
    JsonTree tree;
    const auto fault = ParseJson(text, tree);
    return fault ? fault->rule : "";
}

struct BadJson {
    const char* name;
    std::string json;
    std::string rule;
    int line; ///< 0: the fault has no place
    int column;
    std::string text;
};

class JsonFaults : public testing::TestWithParam<BadJson> {};

TEST_P(JsonFaults, AreToldWithTheirPlace) {
    const BadJson& bad = GetParam();
    JsonTree tree;
    const auto fault = ParseJson(bad.json, tree);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->rule, bad.rule);
    EXPECT_EQ(fault->text, bad.text);
    EXPECT_EQ(fault->place ? fault->place->line : 0, bad.line);
    EXPECT_EQ(fault->place ? fault->place->column : 0, bad.column);
}

std::string Nested(int levels) {
    return std::string(levels, '[') + std::string(levels, ']');
}

INSTANTIATE_TEST_SUITE_P(
    Exchange, JsonFaults,
    testing::Values(
        BadJson{"Empty", "", "json-syntax", 1, 1, "expected a value, got the end of the text"},
        BadJson{"NoComma", "{\"a\": 1\n \"b\": 2}", "json-syntax", 2, 2,
                "expected a comma or a closing brace"},
        BadJson{"NoCommaInArray", "[1 2]", "json-syntax", 1, 4,
                "expected a comma or a closing bracket"},
        BadJson{"NoColon", "{\"a\" 1}", "json-syntax", 1, 6, "expected a colon"},
        BadJson{"NoKey", "{a: 1}", "json-syntax", 1, 2, "expected a key in double quotes"},
        BadJson{"TrailingComma", "[1,\n]", "json-syntax", 1, 3,
                "a comma behind the last one, which JSON has not"},
        BadJson{"Open", "[1, {\"a\": [", "json-syntax", 1, 12,
                "expected a value, got the end of the text"},
        BadJson{"NaN", "[NaN]", "json-syntax", 1, 2,
                "expected a value, got NaN, which is no number in JSON"},
        BadJson{"Infinity", "[-Infinity]", "json-syntax", 1, 3,
                "expected a value, got Infinity, which is no number in JSON"},
        BadJson{"Comment", "[1, // one\n2]", "json-syntax", 1, 5,
                "expected a value, got a comment, which JSON has not"},
        BadJson{"CommentBehind", "[1] /* one */", "json-syntax", 1, 5,
                "expected the end of the text, got a comment, which JSON has not"},
        BadJson{"Apostrophes", "{\"a\": 'b'}", "json-syntax", 1, 7,
                "expected a value, got an apostrophe; a string stands in double quotes"},
        BadJson{"LeadingZero", "[012]", "json-syntax", 1, 2,
                "a number that begins with a needless zero"},
        BadJson{"NoDecimals", "[1.]", "json-syntax", 1, 4, "expected a digit"},
        BadJson{"PlusSign", "[+1]", "json-syntax", 1, 2, "expected a value"},
        BadJson{"LineEndInString", "\"a\nb\"", "json-syntax", 1, 3,
                "a control character in a string, which has to be escaped"},
        BadJson{"UnknownEscape", "\"\\x\"", "json-syntax", 1, 3,
                "expected one of \" \\ / b f n r t u behind a backslash"},
        BadJson{"OpenString", "\"ab", "json-syntax", 1, 4,
                "expected a closing double quote, got the end of the text"},
        BadJson{"ColumnsAreCharacters", "[\"\xC3\xA9\xE2\x82\xAC\" 1]", "json-syntax", 1, 7,
                "expected a comma or a closing bracket"},
        BadJson{"MarkIsNoCharacter", "\xEF\xBB\xBFx", "json-syntax", 1, 1, "expected a value"},
        BadJson{"NotUtf8", "[\"\xE9\"]", "json-encoding", 1, 3, "a byte that is not UTF-8"},
        BadJson{"Utf16", std::string("\xFF\xFE[\0", 4), "json-encoding", 1, 1,
                "the text is UTF-16 or UTF-32; it has to be UTF-8"},
        BadJson{"Utf16WithoutMark", std::string("[\0]\0", 4), "json-encoding", 1, 1,
                "the text is UTF-16 or UTF-32; it has to be UTF-8"},
        BadJson{"LoneSurrogate", "[\"a\\ud800\"]", "json-encoding", 1, 4,
                "half of a surrogate pair"},
        BadJson{"SurrogateBeforeALetter", "[\"\\ud800\\u0041\"]", "json-encoding", 1, 3,
                "half of a surrogate pair"},
        BadJson{"SurrogateBeforeAPrivateCharacter", "[\"\\ud800\\ue000\"]", "json-encoding", 1, 3,
                "half of a surrogate pair"},
        BadJson{"LowSurrogateFirst", "[\"\\udc00\\ud800\"]", "json-encoding", 1, 3,
                "half of a surrogate pair"},
        BadJson{"TooDeep", "\n" + Nested(33), "json-limit", 0, 0,
                "more than 32 levels of arrays and objects, in line 2"},
        BadJson{"LongNumber", "[1" + std::string(1000, '0') + "]", "json-limit", 0, 0,
                "a number of more than 1,000 characters, in line 1"},
        BadJson{"TooLarge", std::string(largestJson + 1, ' '), "json-limit", 0, 0,
                "the text is larger than 64 MiB"},
        BadJson{"DuplicateKey", "{\"a\": 1, \"a\": 2}", "duplicate-key", 0, 0,
                "the object has this key already"}),
    [](const auto& test) { return test.param.name; });

TEST(JsonTree, LimitsThemselvesAreAllowed) {
    EXPECT_EQ(RuleOf(Nested(32)), "");
    EXPECT_EQ(RuleOf("[1" + std::string(999, '0') + "]"), "");
}

TEST(JsonTree, AMarkAndBlanksAroundADocumentAreAllowed) {
    EXPECT_EQ(RuleOf("\xEF\xBB\xBF \t\r\n{}\n"), "");
    EXPECT_EQ(RuleOf(" \v{}"), "json-syntax");
}

TEST(JsonTree, StringsAreTakenWithTheirEscapesResolved) {
    JsonTree tree;
    ASSERT_FALSE(ParseJson(R"("\"\\\/\b\f\n\r\t\u00e9\u20AC\ud83d\ude00 plain")", tree));
    EXPECT_EQ(JsonValue(tree, 0).Text(),
              "\"\\/\b\f\n\r\t\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80 plain");
}

TEST(JsonTree, TheFirstDuplicateKeyIsTheOneTold) {
    const auto pointerOf = [](const std::string& text) {
        JsonTree tree;
        const auto fault = ParseJson(text, tree);
        return fault && fault->pointer ? *fault->pointer : "none";
    };
    EXPECT_EQ(pointerOf(R"({"x": [{"a": 1, "\u0061": 2}], "x": 3})"), "/x/0/a");
    EXPECT_EQ(pointerOf(R"({"b": 1, "b": 2, "c": {"a": 1, "a": 2}})"), "/b");
    EXPECT_EQ(pointerOf(R"([0, {"a/b~": 1, "a/b~": 2}])"), "/1/a~1b~0");
    EXPECT_EQ(pointerOf(R"({"a": {"a": 1}, "b": [{"a": 1}, {"a": 1}]})"), "none");
}

TEST(JsonTree, ObjectsAndArraysAreWalkedInOrder) {
    JsonTree tree;
    ASSERT_FALSE(ParseJson(R"({"a": [1, [2, 3], {}], "b": null})", tree));
    std::string seen;
    JsonValue(tree, 0).ForEachMember([&](JsonValue key, JsonValue value) {
        seen += key.Text() + "=" + std::string(value.Raw()) + ";";
        if (value.Kind() == JsonKind::array)
            seen += std::to_string(value.ItemCount()) + ";";
    });
    EXPECT_EQ(seen, "a=[1, [2, 3], {}];3;b=null;");
}

/// What another parser accepts of texts damaged at random is what is accepted here, but for what
/// is stricter here on purpose: duplicate keys, the limits and numbers of any size.
TEST(JsonTree, AcceptsWhatAnotherParserAcceptsOfDamagedTexts) {
    const std::string sample =
        R"([{"name": "Wall \u00e9\n", "list": [1, -0.5, 1.25e-3, true, null], "o": {"k": "é"}}])";
    Mutation mutation(7);
    int accepted = 0;
    for (int round = 0; round < 30000; ++round) {
        const std::string text = mutation.Of(sample);
        const std::string rule = RuleOf(text);
        if (rule == "duplicate-key" || text.find('e') == std::string::npos)
            continue;
        const bool here = rule.empty();
        const bool there = nlohmann::json::accept(text);
        accepted += here ? 1 : 0;
        // The other one takes a number beyond a double for a fault.
        if (here != there && text.find("e9") == std::string::npos
            && text.find("e39") == std::string::npos)
            FAIL() << text << "\n" << rule;
    }
    EXPECT_GT(accepted, 1000);
}

} // namespace
} // namespace strativo
