#include "BiscottiTopic.h"

#include "BiscottiTopicExpression.h"

#include <gmock/gmock.h>
#include <stdexcept>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

BiscottiTopic topic(char const* text)
{
    return BiscottiTopic(QString::fromLatin1(text));
}

BiscottiTopicExpression expression(char const* text)
{
    return BiscottiTopicExpression(QString::fromLatin1(text));
}

} // namespace

TEST(BiscottiTopic, NormalisesTexts)
{
    struct {
        char const* text;
        char const* normal;
    } const cases[] = {
        {"Foo Bar.Baz", ".foobar.baz"},
        {"..a...b..", ".a.b"},
        {"", ""},
        {"a.*.?", ".a"},
        {"-_0-9_", ".-_0-9_"},
        {"caf\u00e9.\u6771\u4eac.\U0001f600x", ".caf.x"},
        {"\u212aelvin.\u0130stanbul", ".kelvin.istanbul"}, // Their lower case is ASCII.
    };
    for (auto const& [text, normal] : cases) {
        EXPECT_EQ(BiscottiTopic::normalise(QString::fromUtf8(text)), normal);
        EXPECT_EQ(BiscottiTopic::normalise(normal), normal);
    }
    // What grows in lower case grows by moving all that follows, when done in place.
    EXPECT_EQ(BiscottiTopic::normalise(QString(1 << 20, QChar(0x130))), '.' + QString(1 << 20, 'i'));
}

TEST(BiscottiTopic, SplitsIntoLevelsAndAppendsThem)
{
    EXPECT_THAT(topic("a.b.c").split(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(topic("a.bc").last(), "bc");
    for (BiscottiTopic const& none : {BiscottiTopic::Null(), BiscottiTopic::Root()}) {
        EXPECT_THAT(none.split(), IsEmpty());
        EXPECT_TRUE(none.last().isNull());
        EXPECT_EQ(none.append("S.t"), topic(".s.t"));
        EXPECT_EQ(none.append("!"), none);
    }
    EXPECT_EQ(topic("a").append(".B..c."), topic(".a.b.c"));
}

TEST(BiscottiTopic, MatchesItselfAndWhatIsAboveAndBelow)
{
    struct {
        char const* left;
        char const* right;
        bool match;
    } const cases[] = {
        {"", "", false},      {"", ".a", false},    {".", ".a.b", true},     {".a", ".a", true},
        {".a", ".ab", false}, {".a.b", ".a", true}, {".a.b", ".a.c", false}, {".a.b", ".b", false},
    };
    for (auto const& [left, right, match] : cases) {
        EXPECT_EQ(topic(left).matches(topic(right)), match) << left << " and " << right;
        EXPECT_EQ(topic(right).matches(topic(left)), match) << right << " and " << left;
    }
}

TEST(BiscottiTopicExpression, MeansOneTopicOrAllOfThem)
{
    EXPECT_TRUE(expression("!").matches(topic("anything")));
    EXPECT_FALSE(expression("!").matches(BiscottiTopic::Null()));
    EXPECT_TRUE(expression("A.b").matches(topic("a")));
    EXPECT_FALSE(expression("a.b").matches(topic("a.c")));
    for (char const* text : {"a&b", "a|b", "~a"})
        EXPECT_THROW(expression(text), std::logic_error) << text;
    EXPECT_THROW(expression("a").butNot(expression("a.b")), std::logic_error);
    EXPECT_THROW(expression("a").andOr(expression("b")), std::logic_error);
    EXPECT_THROW(expression("a").andAlso(expression("b")), std::logic_error);
}
