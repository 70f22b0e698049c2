#include "MultiTrie.h"

#include <QMap>

#include <gmock/gmock.h>
#include <random>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

using Model = QMap<QString, QSet<int>>;

/// The values of the keys that are the given one or, recursively, below it.
QSet<int> valuesOf(Model const& model, QString const& key, bool recursive)
{
    QSet<int> values;
    for (auto entry = model.begin(); entry != model.end(); ++entry)
        if (entry.key() == key || (recursive && (key.isEmpty() || entry.key().startsWith(key + '.'))))
            values.unite(entry.value());
    return values;
}

void expectSame(MultiTrie<int> const& trie, Model const& model, QString const& key)
{
    bool exact = false;
    MultiTrieNode<int> const* const deepest = trie.find(key, &exact);
    ASSERT_NE(deepest, nullptr);
    ASSERT_EQ(trie.find(key, nullptr), exact ? deepest : nullptr);
    ASSERT_EQ(exact, key.isEmpty() || !valuesOf(model, key, true).isEmpty()) << qPrintable(key);

    QString present = key;
    while (!present.isEmpty() && valuesOf(model, present, true).isEmpty())
        present = present.left(std::max<qsizetype>(present.lastIndexOf('.'), 0));
    ASSERT_EQ(deepest->values(false), valuesOf(model, present, false)) << qPrintable(key);
    ASSERT_EQ(deepest->values(true), valuesOf(model, present, true)) << qPrintable(key);
    ASSERT_EQ(deepest->count(false), deepest->values(false).size());
}

} // namespace

TEST(MultiTrie, SplitsKeysIntoParts)
{
    MultiTrie<int> const dots(".", true);
    EXPECT_THAT(dots.splitKey(""), IsEmpty());
    EXPECT_THAT(dots.splitKey("a.B"), ElementsAre("a", "B"));
    EXPECT_THAT(dots.splitKey(".a..b."), ElementsAre("", "a", "", "b", ""));
    EXPECT_THAT(MultiTrie<int>("X", false).splitKey("AxBXc"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(MultiTrie<int>("X", true).splitKey("AxBXc"), ElementsAre("AxB", "c"));
    EXPECT_THAT(MultiTrie<int>("", false).splitKey("A.b"), ElementsAre("a", ".", "b"));
    EXPECT_THAT(MultiTrie<int>("", true).splitKey("Ab"), ElementsAre("A", "b"));
    EXPECT_THAT(MultiTrie<int>("", true).splitKey(""), IsEmpty());
}

TEST(MultiTrie, KeepsNodesForAsLongAsTheyAreInUse)
{
    MultiTrie<int> trie(".", true);
    trie.insert("a", 1);
    trie.insert("a.b.c", 2);
    trie.remove("a", 1);
    EXPECT_NE(trie.find("a", nullptr), nullptr);
    trie.remove("a.b", 2);
    trie.remove("a.b.c.d", 2);
    EXPECT_NE(trie.find("a.b.c", nullptr), nullptr);
    trie.insert("a", 3);
    trie.remove("a.b.c", 2);
    EXPECT_EQ(trie.find("a.b", nullptr), nullptr);
    EXPECT_NE(trie.find("a", nullptr), nullptr);
    trie.remove("a", 3);
    EXPECT_EQ(trie.find("a", nullptr), nullptr);
    trie.remove("", 3);
    EXPECT_NE(trie.find("", nullptr), nullptr);
}

TEST(MultiTrie, HoldsWhatASimpleMapHolds)
{
    std::mt19937 random(3);
    auto const below = [&random](unsigned int end) { return static_cast<int>(random() % end); };
    QStringList const parts{"a", "b", "cd"};
    MultiTrie<int> trie(".", true);
    Model model;
    for (int i = 0; i < 5000 && !HasFatalFailure(); ++i) {
        QStringList key;
        for (int depth = below(5); depth > 0; --depth)
            key.append(parts.at(below(3)));
        QString const text = key.join('.');
        int const value = below(4);
        if (below(2) == 0) {
            trie.insert(text, value);
            model[text].insert(value);
        } else {
            trie.remove(text, value);
            model[text].remove(value);
            if (model[text].isEmpty())
                model.remove(text);
        }
        expectSame(trie, model, text);
        expectSame(trie, model, text + ".b.x");
    }
    for (auto entry = model.begin(); entry != model.end(); ++entry)
        for (int const value : entry.value())
            trie.remove(entry.key(), value);
    bool exact = true;
    for (QString const& part : parts)
        EXPECT_EQ(trie.find(part, &exact)->parent(), nullptr);
    EXPECT_EQ(trie.find("", nullptr)->count(true), 0);
}

TEST(MultiTrie, IsDestroyedWithABranchOfAnyDepth)
{
    MultiTrie<int> trie("", true);
    trie.insert(QString(300000, 'a'), 1);
    EXPECT_EQ(trie.find("", nullptr)->count(true), 1);
}

TEST(MultiTrie, FindsWhatIsLeftOfManyValues)
{
    MultiTrie<int> trie(".", true);
    for (int i = 0; i < 10000; ++i)
        trie.insert("a", i);
    for (int i = 0; i < 10000; ++i)
        if (i % 100 != 0)
            trie.remove("a", i);
    QSet<int> const left = trie.find("a", nullptr)->values(true);
    EXPECT_EQ(left.size(), 100);
    EXPECT_TRUE(left.contains(9900));
    EXPECT_LT(left.capacity(), 2000) << "Going over the values costs what they were, not what they are.";
}
