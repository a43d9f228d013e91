#include "VantryCore/records/Node.h"

#include <gtest/gtest.h>

#include "VantryCore/records/Library.h"

namespace vantry {
namespace {

/// Tells how often it was compared and copied.
struct Probe {
    int id = 0;
    int value = 0;
    static inline int copies = 0;
    static inline int comparisons = 0;

    Probe() = default;
    Probe(int recordID, int content)
        : id(recordID)
        , value(content) {}
    Probe(const Probe& other)
        : id(other.id)
        , value(other.value) {
        ++copies;
    }
    Probe(Probe&&) = default;
    Probe& operator=(const Probe&) = default;
    Probe& operator=(Probe&&) = default;
    friend bool operator==(const Probe& a, const Probe& b) {
        ++comparisons;
        return a.value == b.value;
    }
};

TEST(Node, CopiesAPointerAndNoValue) {
    const Node<Probe> first(Probe{1, 5});
    Probe::copies = 0;
    const Node<Probe> second = first;
    EXPECT_EQ(Probe::copies, 0);
    EXPECT_TRUE(first.isSameAs(second));
    EXPECT_EQ(&*first, &*second);
}

TEST(Node, IsEditedInPlaceWhenNobodySharesIt) {
    Node<Probe> node(Probe{1, 5});
    const Probe* before = &*node;
    Probe::copies = 0;
    node.edit().value = 6;
    EXPECT_EQ(&*node, before);
    EXPECT_EQ(Probe::copies, 0);
    EXPECT_EQ(node->value, 6);
}

TEST(Node, IsCopiedByAnEditWhenSomebodySharesIt) {
    Node<Probe> node(Probe{1, 5});
    const Node<Probe> snapshot = node;
    node.edit().value = 6;
    EXPECT_EQ(snapshot->value, 5);
    EXPECT_EQ(node->value, 6);
    EXPECT_FALSE(node.isSameAs(snapshot));
}

TEST(Node, CountsAHandleAsASharer) {
    Node<Probe> node(Probe{1, 5});
    const auto handle = node.handle();
    node.edit().value = 6;
    EXPECT_EQ(handle->value, 5);
}

TEST(Node, ComparesThePointerBeforeTheValue) {
    const Node<Probe> node(Probe{1, 5});
    const Node<Probe> same = node;
    Probe::comparisons = 0;
    EXPECT_TRUE(node == same);
    EXPECT_EQ(Probe::comparisons, 0);
    EXPECT_TRUE(node == Node<Probe>(Probe{1, 5}));
    EXPECT_FALSE(node == Node<Probe>(Probe{1, 6}));
    EXPECT_EQ(Probe::comparisons, 2);
}

TEST(Node, HoldsADefaultValueWhenMadeFromNothing) {
    EXPECT_EQ(Node<Probe>()->value, 0);
}

TEST(NodeList, FindsTheFirstRecordOfAnIdentifier) {
    NodeList<Probe> list{Probe{1, 10}, Probe{2, 20}, Probe{2, 30}};
    EXPECT_EQ(indexOfRecord(list, 2), 1U);
    EXPECT_EQ(indexOfRecord(list, 9), 3U);
    ASSERT_NE(findRecord(list, 2), nullptr);
    EXPECT_EQ(findRecord(list, 2)->value, 20);
    EXPECT_EQ(findRecord(list, 9), nullptr);
    EXPECT_EQ(editRecord(list, 9), nullptr);
}

TEST(NodeList, EditsARecordWithoutTouchingASnapshot) {
    NodeList<Probe> list{Probe{1, 10}, Probe{2, 20}};
    const NodeList<Probe> snapshot = list;
    editRecord(list, 2)->value = 21;
    EXPECT_EQ(snapshot[1]->value, 20);
    EXPECT_EQ(list[1]->value, 21);
    EXPECT_TRUE(list[0].isSameAs(snapshot[0]));
}

TEST(Library, SharesEverythingOutsideThePathOfAnEdit) {
    Library library;
    library.projects = {Project::make("a"), Project::make("b")};
    library.projects[0].edit().acts = {Act::make("one"), Act::make("two")};
    const Library snapshot = library;
    library.projects[0].edit().acts[1].edit().title = "changed";
    EXPECT_EQ(snapshot.projects[0]->acts[1]->title, Text("two"));
    EXPECT_TRUE(library.projects[1].isSameAs(snapshot.projects[1]));
    EXPECT_TRUE(library.projects[0]->acts[0].isSameAs(snapshot.projects[0]->acts[0]));
    EXPECT_FALSE(library == snapshot);
    library.projects[0].edit().acts[1].edit().title = "two";
    EXPECT_TRUE(library == snapshot);
}

}  // namespace
}  // namespace vantry
