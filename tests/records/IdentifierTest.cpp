#include "VantryCore/records/Identifier.h"

#include <set>

#include <gtest/gtest.h>

#include "tests/support/RandomRecords.h"

namespace vantry {
namespace {

TEST(Identifier, WritesItsBytesInOrderAsCapitals) {
    Identifier::Bytes bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 17);
    EXPECT_EQ(Identifier(bytes).text(), "00112233-4455-6677-8899-AABBCCDDEEFF");
}

TEST(Identifier, ReadsLettersInEitherCase) {
    const auto capitals = Identifier::parse("C481DA24-3205-FA3B-35F7-8A0F0EA80633");
    const auto small = Identifier::parse("c481da24-3205-fa3b-35f7-8a0f0ea80633");
    const auto mixed = Identifier::parse("c481DA24-3205-fA3b-35F7-8a0f0EA80633");
    ASSERT_TRUE(capitals && small && mixed);
    EXPECT_EQ(*capitals, *small);
    EXPECT_EQ(*capitals, *mixed);
    EXPECT_EQ(small->text(), "C481DA24-3205-FA3B-35F7-8A0F0EA80633");
}

TEST(Identifier, ReadsNothingButTheCanonicalForm) {
    const std::string unreadable[] = {
        "",
        "C481DA24-3205-FA3B-35F7-8A0F0EA8063",
        "C481DA24-3205-FA3B-35F7-8A0F0EA806333",
        " C481DA24-3205-FA3B-35F7-8A0F0EA8063",
        "C481DA24-3205-FA3B-35F7-8A0F0EA80633 ",
        "{C481DA24-3205-FA3B-35F7-8A0F0EA80633}",
        "C481DA2432 05-FA3B-35F7-8A0F0EA80633",
        "C481DA243205FA3B35F78A0F0EA80633",
        "C481DA24_3205_FA3B_35F7_8A0F0EA80633",
        "C481DA243-205-FA3B-35F7-8A0F0EA80633",
        "C481DA24-3205-FA3B-35F78-A0F0EA80633",
        "G481DA24-3205-FA3B-35F7-8A0F0EA80633",
        "C481DA24-3205-FA3B-35F7-8A0F0EA8063G",
        "C481DA24-3205-FA3B-35F7-8A0F0EA8063\n",
        "-481DA24-3205-FA3B-35F7-8A0F0EA80633",
        "+481DA24-3205-FA3B-35F7-8A0F0EA80633",
        "0x81DA24-3205-FA3B-35F7-8A0F0EA80633",
        "\uFF10\uFF10\uFF10\uFF10\uFF10\uFF10\uFF10\uFF10\uFF10\uFF10\uFF10\uFF10",
        "C481DA24-3205-FA3B-35F7-8A0F0EA806\u00E9",
    };
    for (const auto& text : unreadable)
        EXPECT_FALSE(Identifier::parse(text).has_value()) << text;
}

TEST(Identifier, ReadsBackEveryTextItWrites) {
    support::RandomRecords random(3);
    for (int round = 0; round < 2000; ++round) {
        const Identifier id = random.identifier();
        ASSERT_EQ(Identifier::parse(id.text()), id);
    }
}

TEST(Identifier, RefusesEveryForeignByteAtEveryPlace) {
    const std::string good = "C481DA24-3205-FA3B-35F7-8A0F0EA80633";
    for (std::size_t place = 0; place < good.size(); ++place)
        for (int byte = 0; byte < 256; ++byte) {
            std::string text = good;
            text[place] = static_cast<char>(byte);
            const bool allowed = good[place] == '-' ? byte == '-' : byte < 128 && std::isxdigit(byte) != 0;
            ASSERT_EQ(Identifier::parse(text).has_value(), allowed) << place << " " << byte;
        }
}

TEST(Identifier, IsFreshAndOfVersion4WhenRandom) {
    std::set<Identifier> all;
    for (int round = 0; round < 1000; ++round) {
        const Identifier id = Identifier::random();
        EXPECT_TRUE(all.insert(id).second);
        EXPECT_EQ(id.text()[14], '4') << id.text();
        EXPECT_NE(std::string("89AB").find(id.text()[19]), std::string::npos) << id.text();
    }
}

TEST(Identifier, HashesDifferentlyWhenAnyOneBitDiffers) {
    support::RandomRecords random(6);
    const Identifier id = random.identifier();
    const std::hash<Identifier> hash;
    for (std::size_t place = 0; place < 16; ++place)
        for (int bit = 0; bit < 8; ++bit) {
            Identifier::Bytes bytes = id.bytes();
            bytes[place] ^= static_cast<std::uint8_t>(1 << bit);
            EXPECT_NE(hash(Identifier(bytes)), hash(id)) << place << " " << bit;
        }
    EXPECT_EQ(hash(*Identifier::parse(id.text())), hash(id));
}

}  // namespace
}  // namespace vantry
