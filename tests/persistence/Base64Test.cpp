#include "VantryCore/persistence/Base64.h"

#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/JsonText.h"
#include "tests/support/RandomRecords.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

std::string encoded(std::string_view text) {
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    std::string out = "in front:";
    appendBase64(out, bytes);
    EXPECT_TRUE(out.starts_with("in front:"));
    return out.substr(9);
}

std::optional<std::string> decoded(std::string_view text) {
    const auto bytes = decodeBase64(text);
    if (!bytes)
        return std::nullopt;
    return std::string(bytes->begin(), bytes->end());
}

TEST(Base64, IsTheCodingOfItsStandard) {
    struct Case {
        std::string bytes;
        const char* text;
    };
    const Case cases[] = {
        {"", ""},
        {"f", "Zg=="},
        {"fo", "Zm8="},
        {"foo", "Zm9v"},
        {"foob", "Zm9vYg=="},
        {"fooba", "Zm9vYmE="},
        {"foobar", "Zm9vYmFy"},
        {std::string("\0", 1), "AA=="},
        {"\xFB\xFF\xBF", "+/+/"},
        {"\xFF\xFF\xFF", "////"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(encoded(c.bytes), c.text);
        EXPECT_EQ(decoded(c.text), c.bytes) << c.text;
    }
}

TEST(Base64, RefusesEverythingOutsideOfIt) {
    for (const std::string text :
         {"Z",      "Zg",           "Zg=",    "Zg===",    "=",        "==",   "===",     "====",  "Z===",
          "=Zg=",   "Zg==Zg==",     "Zm9v=",  "Zm9v====", "Zm=v",     "Z=9v", " Zm9v",   "Zm9v ", "Zm 9v",
          "Zm9v\n", "Zm9vZm9v\r\n", "\nZm9",  "   Zm9v",  "Zm9v    ", "Zm9-", "Zm9_",    "Zm9!",  "Zm9*",
          "Zm9.",   "Zm9,",         "Zg==\n", "Zg==    ", "Zm9\xC3",  "雨夜", "Zm==Zm9v"})
        EXPECT_FALSE(decoded(text)) << text;
    EXPECT_FALSE(decoded(std::string_view("Zm9\0", 4)));
    EXPECT_FALSE(decoded(std::string_view("\0\0\0\0", 4)));
}

TEST(Base64, RefusesEveryForeignByteAtEveryPlace) {
    const std::string good = "Zm9vYmFy";
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (std::size_t place = 0; place < good.size(); ++place)
        for (int byte = 0; byte < 256; ++byte) {
            std::string text = good;
            text[place] = static_cast<char>(byte);
            const bool isPadding = byte == '=' && place == good.size() - 1;
            const bool allowed = alphabet.find(static_cast<char>(byte)) != std::string::npos || isPadding;
            ASSERT_EQ(decoded(text).has_value(), allowed) << place << " " << byte;
        }
}

TEST(Base64, ReadsBackBytesOfAnyLength) {
    support::RandomRecords random(10);
    for (std::size_t length = 0; length < 300; ++length) {
        std::string bytes;
        for (std::size_t i = 0; i < length; ++i)
            bytes += static_cast<char>(random.number(0, 255));
        ASSERT_EQ(decoded(encoded(bytes)), bytes) << length;
        ASSERT_EQ(encoded(bytes).size(), (length + 2) / 3 * 4);
    }
}

TEST(Base64, GoesBeyondTheLengthThatIsCodedAtOnce) {
    std::string bytes((3U << 24) + 5, 'x');
    bytes[3U << 24] = 'y';
    bytes.back() = 'z';
    const std::string text = encoded(bytes);
    EXPECT_EQ(text.size(), (bytes.size() + 2) / 3 * 4);
    EXPECT_TRUE(decoded(text) == bytes);
    EXPECT_EQ(text.find('\0'), std::string::npos);
    EXPECT_EQ(text.substr(text.size() - 8), "eXh4eHo=");
}

TEST(Base64, IsTheFormOfABookmark) {
    const std::string json = Codec::encode(support::completeRecord<RelatedFile>());
    EXPECT_NE(json.find("\"bookmark\":\"AP8+Pw==\""), std::string::npos) << json;
    auto reference = support::completeRecord<RelatedFile>();
    reference.bookmark = Bytes{0xFF, 0xFF, 0xFF};
    EXPECT_NE(Codec::encode(reference).find("\"bookmark\":\"\\/\\/\\/\\/\""), std::string::npos);
    EXPECT_TRUE(Codec::decode<RelatedFile>(Codec::encode(reference)) == reference);
    reference.bookmark.emplace();
    EXPECT_TRUE(Codec::decode<RelatedFile>(Codec::encode(reference)) == reference);
    for (const std::string wrong : {"\"#\"", "\"AP8\"", "\"AP8+Pw==\\n\"", "\"AP8-Pw==\"", "12"})
        EXPECT_THROW((void)Codec::decode<RelatedFile>(support::withValue(json, "bookmark", wrong)),
                     DecodingError)
            << wrong;
}

}  // namespace
}  // namespace vantry
