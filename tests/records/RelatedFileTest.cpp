#include "VantryCore/records/RelatedFile.h"

#include <gtest/gtest.h>

namespace vantry {
namespace {

using Kind = RelatedFileKind;

RelatedFile reference(Kind kind, const char* location) {
    return RelatedFile::make(kind, "name", location);
}

TEST(RelatedFile, IsMadeWithAFreshIdentifierAndNothingElse) {
    const auto file = RelatedFile::make(Kind::folder, "Locations", "/films");
    EXPECT_NE(file.id, Identifier());
    EXPECT_EQ(file.kind, Kind::folder);
    EXPECT_EQ(file.name, Text("Locations"));
    EXPECT_EQ(file.location, Text("/films"));
    EXPECT_FALSE(file.bookmark);
    EXPECT_TRUE(file.notes.empty());
    EXPECT_NE(RelatedFile::make(Kind::folder, "", "").id, file.id);
}

TEST(RelatedFile, TellsAnAbsentBookmarkFromAnEmptyOne) {
    RelatedFile absent = reference(Kind::file, "/a");
    RelatedFile empty = absent;
    empty.bookmark.emplace();
    EXPECT_FALSE(absent == empty);
}

TEST(RelatedFile, OpensALinkOnTheWebOnlyForHttpAndHttps) {
    struct Case {
        Kind kind;
        const char* location;
        bool web;
    };
    const Case cases[] = {
        {Kind::link, "https://a.de", true},
        {Kind::link, "HTTP://a.de", true},
        {Kind::link, "a.de", true},
        {Kind::link, "mailto:m@a.de", false},
        {Kind::link, "httpx://a.de", false},
        {Kind::link, "javascript:x", false},
        {Kind::link, "", false},
        {Kind::file, "/a/https://a.de", false},
        {Kind::folder, "/a", false},
        {Kind::file, "https://a.de", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(reference(c.kind, c.location).isWebLink(), c.web) << c.location;
}

TEST(RelatedFile, HasTheAddressOfItsLinkOrNone) {
    EXPECT_EQ(reference(Kind::link, " a.de ").url()->text, "https://a.de");
    EXPECT_FALSE(reference(Kind::link, "data:x").url());
    EXPECT_FALSE(reference(Kind::link, "  ").url());
}

TEST(RelatedFile, AlwaysHasAFileAddressForAPath) {
    struct Case {
        const char *path, *text;
    };
    const Case cases[] = {
        {"/films/a.pdf", "file:///films/a.pdf"},
        {"/a b/雨.mov", "file:///a%20b/%E9%9B%A8.mov"},
        {"/50%/x?y#z", "file:///50%25/x%3Fy%23z"},
        {"/a%41", "file:///a%2541"},
        {"/", "file:///"},
        {"/a:b@c", "file:///a:b@c"},
        {"/[a]\\", "file:///%5Ba%5D%5C"},
    };
    for (const auto& c : cases)
        for (const auto kind : {Kind::file, Kind::folder}) {
            const auto url = reference(kind, c.path).url();
            ASSERT_TRUE(url);
            EXPECT_EQ(url->text, c.text);
            EXPECT_EQ(url->scheme, "file");
            EXPECT_EQ(url->host, "");
        }
}

TEST(RelatedFile, IsIdentifiedByItsPathWithoutDots) {
    struct Case {
        const char *location, *identity;
    };
    const Case cases[] = {
        {"/a/b", "/a/b"},
        {"/a/./b", "/a/b"},
        {"/a/c/../b", "/a/b"},
        {"/a/b/", "/a/b"},
        {"/a//b", "/a/b"},
        {"/", "/"},
        {"/..", "/"},
        {"/../a", "/a"},
        {"/a/b/..", "/a"},
        {"/a/.../b", "/a/.../b"},
        {"/a b/%41", "/a b/%41"},
        {"/.", "/"},
        {"//a", "/a"},
    };
    for (const auto& c : cases)
        for (const auto kind : {Kind::file, Kind::folder})
            EXPECT_EQ(reference(kind, c.location).identity().utf8(), c.identity) << c.location;
}

TEST(RelatedFile, IsIdentifiedByItsAddressWhenItIsALink) {
    struct Case {
        const char *location, *identity;
    };
    const Case cases[] = {
        {" https://a.de/x\n", "https://a.de/x"},
        {"a.de", "https://a.de"},
        {"https://a.de/a b", "https://a.de/a%20b"},
        {"javascript:x", "javascript:x"},
        {"https://", "https://"},
        {"  ", "  "},
        {"", ""},
        {"/a/../b", "/a/../b"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(reference(Kind::link, c.location).identity().utf8(), c.identity) << c.location;
}

}  // namespace
}  // namespace vantry
