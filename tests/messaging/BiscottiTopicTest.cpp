#include "BiscottiTopic.h"

#include "BiscottiTopicExpression.h"

#include <QRegularExpression>

#include <gmock/gmock.h>
#include <random>
#include <stdexcept>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

constexpr int longest = 65535;

/// What normalising means, step by step. Slow, which is why it is only here.
QString normalStepByStep(QString const& text)
{
    static QRegularExpression const disallowed("[^a-z0-9\\-\\_\\.]");
    static QRegularExpression const delimiters("\\.+");
    QString normal = text.toLower();
    normal.remove(disallowed);
    normal.replace(delimiters, ".");
    if (normal.isEmpty())
        return normal;
    if (!normal.startsWith('.'))
        normal.prepend('.');
    if (normal.endsWith('.') && normal != ".")
        normal.chop(1);
    return normal;
}

void expectNormal(QString const& text, QString const& normal)
{
    ASSERT_EQ(BiscottiTopic::normalise(text), normal) << qPrintable(text);
    ASSERT_EQ(BiscottiTopic::normalise(normal), normal) << qPrintable(text);
}

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
        {".", "."},
        {"...", "."},
        {". ! .", "."},
        {"", ""},
        {"!!!", ""},
        {"a.*.?", ".a"},
        {"a.!.b", ".a.b"},
        {"-_0-9_", ".-_0-9_"},
        {"caf\u00e9.\u6771\u4eac.\U0001f600x", ".caf.x"},
        {"\u212aelvin.\u0130stanbul", ".kelvin.istanbul"}, // Their lower case is ASCII.
        {"/Chat/News_FR/", ".chatnews_fr"},
    };
    for (auto const& [text, normal] : cases)
        expectNormal(QString::fromUtf8(text), QString::fromUtf8(normal));
}

TEST(BiscottiTopic, NormalisesEveryCharacterAsTheStepsDo)
{
    for (int code = 0; code <= 0xffff && !HasFatalFailure(); ++code) {
        QString const text = QString("a%1B").arg(QChar(code));
        // Half a surrogate pair is no text to a regular expression.
        expectNormal(text, QChar(code).isSurrogate() ? QString(".ab") : normalStepByStep(text));
    }
    std::mt19937 random(1);
    QString const alphabet = QString::fromUtf8("..aAz09-_ !\u00e9\u0130");
    for (int i = 0; i < 20000 && !HasFatalFailure(); ++i) {
        QString text;
        for (auto length = random() % 12; length > 0; --length)
            text += alphabet.at(static_cast<qsizetype>(random() % static_cast<size_t>(alphabet.size())));
        expectNormal(text, normalStepByStep(text));
    }
}

TEST(BiscottiTopic, TakesTextsOfAnyLengthAndDepth)
{
    expectNormal(QString(longest, '.'), ".");
    expectNormal(QString(longest, 'X'), '.' + QString(longest, 'x'));
    // What grows in lower case grows by moving all that follows, when done in place.
    expectNormal(QString(1 << 20, QChar(0x130)), '.' + QString(1 << 20, 'i'));

    BiscottiTopic const deep(QString("a.").repeated(longest));
    EXPECT_EQ(deep.split().size(), longest);
    EXPECT_TRUE(deep.matches(topic("a.a")));
    EXPECT_FALSE(deep.matches(topic("a.b")));
    EXPECT_EQ(deep.append("b").last(), "b");
}

TEST(BiscottiTopic, SplitsIntoLevelsAndAppendsThem)
{
    EXPECT_THAT(topic("a.b.c").split(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(topic("a.bc").last(), "bc");
    for (BiscottiTopic const& none : {BiscottiTopic::Null(), BiscottiTopic::Root()}) {
        EXPECT_THAT(none.split(), IsEmpty());
        EXPECT_TRUE(none.last().isNull());
        EXPECT_EQ(none.append("S"), topic(".s"));
        EXPECT_EQ(none.append("s.t"), topic(".s.t"));
        EXPECT_EQ(none.append("!"), none);
    }
    EXPECT_EQ(topic("a").append(".B..c."), topic(".a.b.c"));
    EXPECT_EQ(topic("a").append("!"), topic(".a"));
    EXPECT_EQ(BiscottiTopic::Null().append("."), BiscottiTopic::Root());
}

TEST(BiscottiTopic, MatchesItselfAndWhatIsAboveAndBelow)
{
    struct {
        char const* left;
        char const* right;
        bool match;
    } const cases[] = {
        {"", "", false},          {"", ".", false},         {"", ".a", false},       {".", ".", true},
        {".", ".a.b", true},      {".a", ".a", true},       {".a", ".ab", false},    {".a.b", ".a", true},
        {".a.b", ".a.b.c", true}, {".a.b", ".a.bc", false}, {".a.b", ".a.c", false}, {".a.b", ".b", false},
        {".a.b", ".a-b", false},
    };
    for (auto const& [left, right, match] : cases) {
        EXPECT_EQ(topic(left).matches(topic(right)), match) << left << " and " << right;
        EXPECT_EQ(topic(right).matches(topic(left)), match) << right << " and " << left;
    }
}

TEST(BiscottiTopicExpression, MeansOneTopicOrAllOfThem)
{
    EXPECT_TRUE(BiscottiTopicExpression::Empty().matches(topic("anything")));
    EXPECT_FALSE(BiscottiTopicExpression::Empty().matches(BiscottiTopic::Null()));
    EXPECT_TRUE(expression("A.b").matches(topic("a")));
    EXPECT_FALSE(expression("a.b").matches(topic("a.c")));
    EXPECT_FALSE(expression("a").matches(BiscottiTopic::Null()));

    EXPECT_TRUE(BiscottiTopicExpression(BiscottiTopic::Null()).isEmpty());
    EXPECT_TRUE(expression("!").isEmpty());
    EXPECT_EQ(expression("!").toString(), "<EMPTY>");
    EXPECT_EQ(BiscottiTopicExpression(topic("a")), expression(".A."));
}

TEST(BiscottiTopicExpression, RefusesBooleanOperators)
{
    auto const refuses = [](auto const& attempt) {
        try {
            attempt();
        } catch (std::logic_error const& error) {
            EXPECT_STREQ(error.what(), "ERROR: Boolean topic expressions not yet implemented.");
            return true;
        }
        return false;
    };
    for (char const* text : {"a&b", "a|b", "~a", "&"})
        EXPECT_TRUE(refuses([text] { expression(text); })) << text;
    BiscottiTopicExpression const one = expression("a");
    EXPECT_TRUE(refuses([&one] { one.butNot(one); }));
    EXPECT_TRUE(refuses([&one] { one.andOr(one); }));
    EXPECT_TRUE(refuses([&one] { one.andAlso(one); }));
}
