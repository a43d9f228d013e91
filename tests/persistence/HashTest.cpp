#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"

namespace vantry {
namespace {

TEST(Hash, IsTheSHA256OfTheBytes) {
    struct Case {
        std::string bytes;
        const char* digits;
    };
    const Case cases[] = {
        {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
         "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
        {std::string(1'000'000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
        {std::string(1, '\0'), "6e340b9cffb37a989ca544e6bb780a2c78901d3fb33738768511a30617afa01d"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Codec::hash(c.bytes), c.digits);
        const std::vector<std::uint8_t> bytes(c.bytes.begin(), c.bytes.end());
        EXPECT_EQ(Codec::hash(std::span(bytes)), c.digits);
    }
}

TEST(StableIdentifier, IsTheFirstHalfOfTheSHA256) {
    EXPECT_EQ(Codec::stableID("").text(), "E3B0C442-98FC-1C14-9AFB-F4C8996FB924");
    EXPECT_EQ(Codec::stableID("abc").text(), "BA7816BF-8F01-CFEA-4141-40DE5DAE2223");
}

TEST(StableIdentifier, IsTheSameForTheSameBytesOnly) {
    EXPECT_EQ(Codec::stableID("雨夜"), Codec::stableID("雨夜"));
    EXPECT_NE(Codec::stableID("\u00E9"), Codec::stableID("e\u0301"));
    EXPECT_NE(Codec::stableID("a"), Codec::stableID("a "));
}

}  // namespace
}  // namespace vantry
