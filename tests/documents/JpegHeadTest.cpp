#include "Vantry/documents/JpegHead.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/documents/PictureSamples.h"

namespace vantry::test {
namespace {

using namespace std::string_literals;

/// A frame header of that marker: 300 wide, 200 high, three components.
std::string frame(char marker, char bits = 8) {
    return "\xFF"s + marker + "\0\x11"s + bits + "\0\xC8\x01\x2C\3"s + std::string(9, '\1');
}

TEST(JpegHead, TellsSizeAndComponents) {
    const struct {
        int width, height, components;
    } cases[] = {{1, 1, 1}, {64, 32, 3}, {640, 480, 4}, {65535, 1, 1}};
    for (const auto& [width, height, components] : cases) {
        const auto head = JpegHead::read(plainJpeg(width, height, components));
        ASSERT_TRUE(head);
        EXPECT_EQ(head->width, width);
        EXPECT_EQ(head->height, height);
        EXPECT_EQ(head->components, components);
    }
}

TEST(JpegHead, IsReadOfBaselineExtendedAndProgressiveFilesOnly) {
    for (int marker = 0xC0; marker <= 0xCF; ++marker) {
        const auto head = JpegHead::read("\xFF\xD8"s + frame(static_cast<char>(marker)));
        ASSERT_EQ(head.has_value(), marker <= 0xC2) << marker;
        if (head) {
            EXPECT_EQ(head->width, 300);
        }
    }
}

TEST(JpegHead, IsReadOfEightBitsOnly) {
    for (const char bits : {2, 12, 16})
        EXPECT_FALSE(JpegHead::read("\xFF\xD8"s + frame('\xC1', bits))) << +bits;
}

TEST(JpegHead, StandsBehindWhateverSegmentsThereAre) {
    const std::string note = "\xFF\xE1\0\x08"s + "\xFF\xC0\xFF\xD8"s + "ab"s;
    EXPECT_TRUE(JpegHead::read("\xFF\xD8"s + note + note + frame('\xC0')));
    EXPECT_FALSE(JpegHead::read("\xFF\xD8\xFF\xFF\xFF"s + frame('\xC2')))
        << "fill bytes, which Cairo cannot pass";
    EXPECT_TRUE(JpegHead::read("\xFF\xD8\xFF\xC4\0\x04\0\0"s + frame('\xC0'))) << "a table in front";
}

TEST(JpegHead, IsNotInWhatIsNoJpegOrEndsTooEarly) {
    const std::string whole = "\xFF\xD8"s + frame('\xC0');
    for (std::size_t size = 0; size < 12; ++size)
        EXPECT_FALSE(JpegHead::read(std::string_view(whole).substr(0, size))) << size;
    for (const auto& file : {"not an image"s, "\x89PNG\r\n\x1A\n0123456789"s,
                             "\xFF\xD8\xFF\xDA\0\x08\1\1\0\0\x3F\0"s + frame('\xC0'),
                             "\xFF\xD8\xFF\xE0\xFF\xFF"s + frame('\xC0'),
                             "\xFF\xD8"s + std::string(50, '\xFF'), "\xFF\xD8zz"s + frame('\xC0')})
        EXPECT_FALSE(JpegHead::read(file));
}

TEST(JpegHead, IsLookedForWithoutAnEndInNoFile) {
    // A segment that claims no length moves on all the same.
    EXPECT_FALSE(JpegHead::read("\xFF\xD8"s + "\xFF\xE0\0\0\xFF\xE0\0\0\xFF\xE0\0\0\xFF\xE0\0\0"s));
}

}  // namespace
}  // namespace vantry::test
