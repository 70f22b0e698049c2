#include "Clips.h"
#include "DirectoryFixture.h"
#include "MyChannelsPage.h"
#include "Seeds.h"

#include <QFile>

namespace
{
QString freshFile(QString const& name)
{
    QString const file = Clips::write(name, {});
    QFile::remove(file);
    return file;
}
} // namespace

TEST(Database, KeepsWhatWasCommittedAndRefusesWhatItDoesNotKnow)
{
    QString const file = freshFile("services.sqlite");
    QString error;
    {
        auto const database = Database::open(file, error);
        ASSERT_TRUE(database) << qPrintable(error);
        Accounts accounts(*database);
        EXPECT_FALSE(accounts.add("ann@example.org", PasswordHash::make("password", 2), true, error).isNull());
        Database::Transaction transaction(*database);
        database->run("DELETE FROM accounts");
        database->run("INSERT INTO nothing VALUES (1)");
        EXPECT_FALSE(transaction.commit());
    }
    {
        auto const database = Database::open(file, error);
        ASSERT_TRUE(database) << qPrintable(error);
        EXPECT_TRUE(Accounts(*database).password(Accounts(*database).find("ANN@example.org").id).matches("password"));
        database->run("UPDATE schema_version SET version = 99");
    }
    EXPECT_FALSE(Database::open(file, error));
    EXPECT_TRUE(error.contains("version 99")) << qPrintable(error);
    EXPECT_FALSE(Database::open(Clips::write("no.sqlite", QByteArray(5000, 'x')), error));
    EXPECT_TRUE(error.contains("no database")) << qPrintable(error);
    EXPECT_FALSE(Database::open("/proc/none/services.sqlite", error));
}

using DirectoryTest = DirectoryFixture;

TEST_F(DirectoryTest, ChangesAreNeverOfTheSameSecondAndBadOnesChangeNothing)
{
    int changes = 0;
    QObject::connect(&directory, &Directory::changed, [&] { ++changes; });
    QList<qint64> times;
    for (char const* const id : {"a", "b", "c"}) {
        EXPECT_EQ(directory.put(channel(id)), QString());
        times.append(directory.lastChanged());
    }
    EXPECT_TRUE(directory.remove("b"));
    EXPECT_LT(times.at(0), times.at(1));
    EXPECT_LT(times.at(2), directory.lastChanged());
    QList<std::pair<QString, QString>> const wrong = {{"has_chat", "perhaps"},
                                                      {"logo_url", "file:///etc/passwd"},
                                                      {"nothing", "x"},
                                                      {"name", " "},
                                                      {"name", "a\tb"}};
    for (auto const& [field, text] : wrong) {
        DirectoryChannel bad = channel("a");
        bad.fields.insert(field, text);
        EXPECT_NE(directory.put(bad), QString()) << qPrintable(field);
    }
    for (char const* const uri : {"file:///etc/passwd", "{other}/x", "mms://a b", ""}) {
        DirectoryChannel bad = channel("a");
        bad.uris = {uri};
        EXPECT_NE(directory.put(bad), QString()) << uri;
    }
    EXPECT_NE(directory.put(channel("../x")), QString());
    EXPECT_EQ(directory.all().size(), 2);
    EXPECT_EQ(changes, 4);
}

TEST_F(DirectoryTest, SeedsArePlantedOnceEach)
{
    Seeds::plant(*database, accounts, directory, {{"/one", "/two", "/vault", "/cinema"}, {}, {}, {}});
    QStringList const first = directory.idsFor(0);
    EXPECT_EQ(first, (QStringList{"one", "twin", "vault", "cinema", "static"}));
    EXPECT_TRUE(directory.find("vault").isSecure());
    EXPECT_FALSE(accounts.password(accounts.find(Seeds::guest).id).matches({})) << "nobody knows a password yet";
    directory.remove("static");
    Seeds::plant(*database, accounts, directory, {{"/one"}, {"/radio"}, {"/relay"}, "/live"});
    EXPECT_EQ(directory.idsFor(0), first.mid(0, 4) + QStringList({"radio", "harbour", "relay"}));
}

TEST_F(DirectoryTest, WhoseAccountWasRemovedIsNobodyOnThePageEither)
{
    EXPECT_EQ(directory.put(channel("a")), QString());
    qint64 const ann = addAccount("ann@example.org", "correct horse");
    directory.setRemoved(ann, "a", true);
    MyChannelsPage page(accounts, directory, doorkeeper, clock);
    QString shown;
    auto const post = [&](QByteArray const& body) {
        shown.clear();
        WebRequest request;
        request.method = WebRequest::Method::Post;
        request.body = body;
        page.handle(request, [&shown](WebAnswer const& answer) { shown = answer.body; });
        EXPECT_TRUE(processEventsUntil([&] { return !shown.isEmpty(); }));
    };
    post("email=ann%40example.org&password=correct+horse");
    QByteArray const session = shown.section("name=\"session\" value=\"", 1).section('"', 0, 0).toLatin1();
    EXPECT_FALSE(session.isEmpty()) << qPrintable(shown);
    EXPECT_TRUE(accounts.remove(ann));
    EXPECT_EQ(addAccount("bob@example.org", "correct horse"), ann) << "the database gives numbers again";
    post("session=" + session + "&channel=a");
    EXPECT_TRUE(shown.contains("Please sign in again."));
}

TEST_F(DirectoryTest, FailuresAreLateAlikeAndCountedForAnAddress)
{
    addAccount("ann@example.org", "correct horse");
    QStringList reasons;
    auto const signIn = [&](QString const& email, QString const& password, QString const& peer = "1.2.3.4") {
        qsizetype const before = reasons.size();
        doorkeeper.signIn(peer, email, password, [&](Account const& account, QString const& why) {
            reasons.append(account.isNull() ? why : "in");
        });
        EXPECT_TRUE(processEventsUntil([&] { return reasons.size() > before || timers.timers().size() > 0; }));
        timers.advance(Doorkeeper::msPenalty - 1);
        EXPECT_TRUE(reasons.size() == before || reasons.last() == "in");
        timers.advance(1);
        return reasons.last();
    };
    for (int i = 0; i < 2 * AttemptLimiter::maximumAttempts; ++i)
        EXPECT_EQ(signIn("Ann@Example.org ", "correct horse"), "in");
    for (int i = 0; i < AttemptLimiter::maximumAttempts; ++i)
        EXPECT_EQ(signIn(i % 2 ? "ann@example.org" : "bob@example.org", "wrong horse"), Doorkeeper::wrong);
    EXPECT_EQ(signIn("ann@example.org", "correct horse"), Doorkeeper::tooOften);
    EXPECT_EQ(signIn("ann@example.org", "correct horse", "1.2.3.5"), "in");
    timers.advance(AttemptLimiter::msOfMinute);
    EXPECT_EQ(signIn("ann@example.org", "correct horse"), "in");
}

TEST_F(DirectoryTest, NodesBelongToWhoSignedInLastAndAreBounded)
{
    qint64 const ann = addAccount("ann@example.org", "correct horse");
    qint64 const bob = addAccount("bob@example.org", "correct horse");
    for (int i = 0; i <= Accounts::maximumNodes; ++i)
        EXPECT_TRUE(accounts.rememberNode(QString("node%1").arg(i), ann, 1000 + i));
    EXPECT_TRUE(accounts.ofNode("node0").isNull());
    EXPECT_TRUE(accounts.rememberNode("node1", bob, 5000));
    EXPECT_EQ(accounts.ofNode("node1").id, bob);
    EXPECT_FALSE(accounts.rememberNode(QString(Accounts::maximumNodeLength + 1, 'x'), bob, 1));
    EXPECT_EQ(accounts.lastSeen(10), (QList<qint64>{bob, ann}));
    EXPECT_TRUE(accounts.remove(bob));
    EXPECT_TRUE(accounts.ofNode("node1").isNull());
}
