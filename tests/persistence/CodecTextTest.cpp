#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/JsonText.h"
#include "tests/support/RandomRecords.h"

namespace vantry {
namespace {

std::string written(const std::string& text) {
    return support::membersOf(Codec::encode(CastMember{{}, {}, Text(text)})).front().value;
}

CastMember read(const std::string& quoted) {
    return Codec::decode<CastMember>("{\"actor\":" + quoted +
                                     ",\"character\":\"\",\"id\":\"00000000-0000-0000-0000-000000000000\"}");
}

bool isRefused(const std::string& quoted) {
    try {
        (void)read(quoted);
    } catch (const DecodingError&) {
        return true;
    }
    return false;
}

TEST(TextForm, EscapesExactlyWhatItMust) {
    struct Case {
        std::string text;
        std::string json;
    };
    const Case cases[] = {
        {"", R"("")"},
        {"plain text", R"("plain text")"},
        {"\"", R"("\"")"},
        {"\\", R"("\\")"},
        {"/", R"("\/")"},
        {"1/48 and 1/8/", R"("1\/48 and 1\/8\/")"},
        {"\b\f\n\r\t", R"("\b\f\n\r\t")"},
        {"\x7F", "\"\x7F\""},
        {"\u0080\u009F", "\"\u0080\u009F\""},
        {"雨夜", "\"雨夜\""},
        {"\u2028\u2029", "\"\u2028\u2029\""},
        {"\uFEFF", "\"\uFEFF\""},
        {"🎬", "\"🎬\""},
        {"\U0010FFFF", "\"\U0010FFFF\""},
        {"e\u0301", "\"e\u0301\""},
        {"<b>&'</b>", R"("<b>&'<\/b>")"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(written(c.text), c.json);
        EXPECT_EQ(read(c.json).actor.utf8(), c.text);
    }
}

TEST(TextForm, EscapesAllControlCharactersAtEveryPlaceOfAWord) {
    for (int control = 0; control < 0x20; ++control) {
        char longForm[8];
        std::snprintf(longForm, sizeof longForm, "\\u%04x", control);
        std::string escape = longForm;
        if (const auto at = std::string("\b\f\n\r\t").find(static_cast<char>(control));
            at != std::string::npos)
            escape = std::string("\\") + "bfnrt"[at];
        for (std::size_t before = 0; before < 18; ++before)
            for (std::size_t after = 0; after < 10; ++after) {
                const std::string text =
                    std::string(before, 'a') + static_cast<char>(control) + std::string(after, '\x7F');
                const std::string json =
                    "\"" + std::string(before, 'a') + escape + std::string(after, '\x7F') + "\"";
                ASSERT_EQ(written(text), json) << control << " " << before << " " << after;
                ASSERT_EQ(read(json).actor.utf8(), text) << control;
            }
    }
}

TEST(TextForm, WritesEveryCharacterOfUnicodeSoThatItReadsBack) {
    std::string chunk;
    for (char32_t point = 0; point <= 0x10FFFF; ++point) {
        if (point >= 0xD800 && point <= 0xDFFF)
            continue;
        support::appendUtf8(chunk, point);
        if (point % 4096 == 4095) {
            ASSERT_EQ(read(written(chunk)).actor.utf8(), chunk) << "up to " << std::uint32_t(point);
            chunk.clear();
        }
    }
}

TEST(TextForm, ReadsEveryEscape) {
    struct Case {
        const char* json;
        std::string text;
    };
    const Case cases[] = {
        {R"("\u0041\u00e9\u00E9\u96e8")", "A\u00E9\u00E9雨"},
        {R"("\ud83c\udfac")", "🎬"},
        {R"("\uD83C\uDFAC")", "🎬"},
        {R"("\udbff\udfff")", "\U0010FFFF"},
        {R"("\u0000")", std::string("\0", 1)},
        {R"("\/\\\"")", "/\\\""},
        {R"("/")", "/"},
        {R"("\u002f")", "/"},
        {R"("\uFFFF\uFEFF")", "\uFFFF\uFEFF"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(read(c.json).actor.utf8(), c.text) << c.json;
}

TEST(TextForm, RefusesWhatIsNoText) {
    const std::string refused[] = {
        R"("\ud83c")",
        R"("\udfac")",
        R"("\ud83c\ud83c")",
        R"("\udfac\ud83c")",
        R"("\ud83cx")",
        R"("\ud83c\n")",
        R"("\ud83c\u0041")",
        R"("\u12")",
        R"("\u12g4")",
        R"("\x41")",
        R"("\')",
        R"("\a")",
        R"("\U0041")",
        "\"a\nb\"",
        "\"a\tb\"",
        std::string("\"a\0b\"", 5),
        "\"\x1F\"",
        "\"\x80\"",
        "\"\xFF\"",
        "\"\xC3\"",
        "\"\xC3(\"",
        "\"\xC0\xAF\"",
        "\"\xE0\x80\xAF\"",
        "\"\xED\xA0\x80\"",
        "\"\xED\xBF\xBF\"",
        "\"\xF0\x80\x80\xAF\"",
        "\"\xF4\x90\x80\x80\"",
        "\"\xF5\x80\x80\x80\"",
        "\"\xE9\x9B\"",
        "\"caf\xE9\"",
        "'x'",
        "\"x",
    };
    for (const auto& json : refused)
        EXPECT_TRUE(isRefused(json)) << json;
}

TEST(TextForm, RefusesBrokenTextInPartsThatNoRecordKnowsToo) {
    const std::string id = "\"id\":\"00000000-0000-0000-0000-000000000000\"";
    for (const std::string broken : {R"("\ud83c")", "\"\xFF\"", "\"\x01\"", R"("\x")", "\"\xED\xA0\x80\""}) {
        for (const std::string& unknown :
             {"\"zz\":" + broken, "\"zz\":[{\"k\":" + broken + "}]", broken + ":1"})
            EXPECT_THROW((void)Codec::decode<CastMember>("{\"actor\":\"\",\"character\":\"\"," + id + "," +
                                                         unknown + "}"),
                         DecodingError)
                << unknown;
    }
}

TEST(TextForm, KeepsTheSpellingOfEquivalentTexts) {
    EXPECT_EQ(read("\"e\u0301\u212A\"").actor.utf8(), "e\u0301\u212A");
    EXPECT_TRUE(read("\"e\u0301\"").actor == read("\"\u00E9\"").actor);
}

TEST(MapForm, SortsItsKeysByUnicodeScalarValue) {
    Parameters parameters;
    for (const auto* key :
         {"\U0001F3AC", "\uFF21", "b", "雨", "a", "A", "", "ab", "/", "\x1F", "\"", "\u00E9"})
        parameters.set(key, "x");
    EXPECT_EQ(Codec::encode(parameters),
              "{\"values\":{\"\":\"x\",\"\\u001f\":\"x\",\"\\\"\":\"x\",\"\\/"
              "\":\"x\",\"A\":\"x\",\"a\":\"x\",\"ab\":\"x\","
              "\"b\":\"x\",\"\u00E9\":\"x\",\"雨\":\"x\",\"\uFF21\":\"x\",\"\U0001F3AC\":\"x\"}}");
}

TEST(MapForm, KeepsKeysThatItDoesNotKnowAndEmptyValues) {
    const std::string json = R"({"values":{"":"","id":"1","iso":"","自己":"x"}})";
    EXPECT_EQ(Codec::encode(Codec::decode<Parameters>(json)), json);
    EXPECT_EQ(Codec::encode(Parameters{}), R"({"values":{}})");
}

TEST(MapForm, LetsTheLastOfEquivalentKeysWin) {
    struct Case {
        const char *json, *expected;
    };
    const Case cases[] = {
        {"{\"caf\u00E9\":\"1\",\"cafe\u0301\":\"2\"}", "{\"cafe\u0301\":\"2\"}"},
        {"{\"cafe\u0301\":\"1\",\"caf\u00E9\":\"2\"}", "{\"caf\u00E9\":\"2\"}"},
        {"{\"K\":\"1\",\"\u212A\":\"2\"}", "{\"\u212A\":\"2\"}"},
        {"{\"\\u212a\":\"1\",\"K\":\"2\",\"a\":\"3\"}", "{\"K\":\"2\",\"a\":\"3\"}"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Codec::encode(Codec::decode<Parameters>(std::string("{\"values\":") + c.json + "}")),
                  std::string("{\"values\":") + c.expected + "}");
        const std::string sheet = Codec::encode(CallSheet{});
        EXPECT_EQ(Codec::encode(Codec::decode<CallSheet>(support::withValue(sheet, "fields", c.json))),
                  support::withValue(sheet, "fields", c.expected));
    }
}

TEST(MapForm, RefusesByteEqualKeysHoweverTheyAreWritten) {
    for (const std::string map :
         {R"({"iso":"1","iso":"1"})", R"({"iso":"1","fps":"2","iso":"3"})", R"({"iso":"1","\u0069so":"2"})",
          R"({"a":"1","b":"2","c":"3","b":"4"})", R"({"":"1","":"2"})", R"({"\/":"1","/":"2"})",
          R"({"é":"1","\u00e9":"2"})", R"({"🎬":"1","\ud83c\udfac":"2"})"}) {
        EXPECT_THROW((void)Codec::decode<Parameters>("{\"values\":" + map + "}"), DecodingError) << map;
        EXPECT_THROW(
            (void)Codec::decode<CallSheet>(support::withValue(Codec::encode(CallSheet{}), "fields", map)),
            DecodingError)
            << map;
    }
}

}  // namespace
}  // namespace vantry
