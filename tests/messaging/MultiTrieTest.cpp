#include "MultiTrie.h"

#include <gtest/gtest.h>

TEST(MultiTrie, KeepsNodesForAsLongAsTheyAreInUse)
{
    MultiTrie<int> trie(".", true);
    trie.insert("a", 1);
    trie.insert("a.b.c", 2);
    trie.remove("a", 1);
    EXPECT_NE(trie.find("a", nullptr), nullptr);
    trie.remove("a.b", 2);
    EXPECT_NE(trie.find("a.b.c", nullptr), nullptr);
    trie.insert("a", 3);
    trie.remove("a.b.c", 2);
    EXPECT_EQ(trie.find("a.b", nullptr), nullptr);
    EXPECT_NE(trie.find("a", nullptr), nullptr);
    trie.remove("a", 3);
    EXPECT_EQ(trie.find("a", nullptr), nullptr);
}

TEST(MultiTrie, FindsWhatIsLeftOfManyValuesAndIsDestroyedAtAnyDepth)
{
    MultiTrie<int> trie("", true);
    for (int i = 0; i < 5000; ++i)
        trie.insert("a", i);
    for (int i = 1; i < 5000; ++i)
        trie.remove("a", i);
    EXPECT_LT(trie.find("a", nullptr)->values(true).capacity(), 2000) << "a look costs what is left, not what was";
    trie.insert(QString(150000, 'a'), 1);
    EXPECT_EQ(trie.find("", nullptr)->values(true), (QSet{0, 1}));
}
