#include "RsaProvider.h"

#include "Clips.h"
#include "LogCapture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cstdlib>
#include <gtest/gtest.h>
#include <unistd.h>

namespace
{

class RsaProviderTest : public testing::Test
{
protected:
    /// A key takes as long as chance wants.
    static bool waitForKey(RsaProvider& provider)
    {
        return provider.isReady() || QSignalSpy(&provider, &RsaProvider::ready).wait(patience);
    }

    static constexpr int patience = 100000; // ms

    QTemporaryDir _directory;
    QString const _file = _directory.filePath("below/key.pem");
};

} // namespace

TEST_F(RsaProviderTest, SecretsComeBackAtTheNextStartAndOpensslReadsThem)
{
    RsaProvider first(_file);
    QSignalSpy ready(&first, &RsaProvider::ready);
    EXPECT_EQ(first.encrypt("too early"), "") << "nobody waits for a key";
    ASSERT_TRUE(waitForKey(first));
    EXPECT_EQ(ready.count(), 1);
    EXPECT_EQ(QFileInfo(_file).permissions() & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(QDir(QFileInfo(_file).path()).entryList(QDir::Files), QStringList("key.pem"));

    RsaProvider second(_file);
    for (QByteArray const& secret :
         {QByteArray(""), QByteArray("p w\"\0ü", 6), QByteArray(RsaKey::plainBlockBytes, 'x'), QByteArray(5000, 'y')})
        EXPECT_EQ(second.decrypt(first.encrypt(secret)), secret);
    QByteArray const enciphered = second.encrypt("hush");
    EXPECT_NE(enciphered, second.encrypt("hush"));
    for (QByteArray const& other :
         {QByteArray(), enciphered.chopped(1), QByteArray(enciphered + "x"), QByteArray(RsaKey::blockBytes, '\xFF')})
        EXPECT_EQ(second.decrypt(other), std::nullopt);
    EXPECT_EQ(second.encrypt(QByteArray(30000, 'z')), "");

    QString const from = Clips::write("secret", enciphered);
    QString const to = Clips::scratch("plain");
    QString const command = "openssl pkeyutl -decrypt -inkey " + _file + " -in " + from + " -out " + to +
                            " -pkeyopt rsa_padding_mode:oaep -pkeyopt rsa_oaep_md:sha256 -pkeyopt rsa_mgf1_md:sha256";
    EXPECT_EQ(std::system(qPrintable(command)), 0);
    EXPECT_EQ(Clips::bytes(to), "hush");
}

TEST_F(RsaProviderTest, AKeyThatIsGoneDamagedOrWasReadByOthersIsReplacedWithOneLine)
{
    std::pair<char const*, std::function<void()>> const cases[] = {
        {"there is none yet", [this] { QFile::remove(_file); }},
        {"it is damaged", [this] { QFile::resize(_file, 700); }},
        {"others may have read it",
         [this] { QFile::setPermissions(_file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup); }},
    };
    RsaProvider first(_file);
    first.prepare();
    ASSERT_TRUE(waitForKey(first));
    QByteArray enciphered = first.encrypt("hush");
    for (auto const& [complaint, spoil] : cases) {
        spoil();
        LogCapture capture;
        RsaProvider next(_file);
        EXPECT_EQ(next.decrypt(enciphered), std::nullopt);
        ASSERT_TRUE(waitForKey(next));
        EXPECT_EQ(next.decrypt(enciphered), std::nullopt);
        EXPECT_EQ(capture.count(complaint), 1) << complaint;
        EXPECT_EQ(capture.lines().size(), 1) << complaint;
        enciphered = next.encrypt("hush");
        EXPECT_EQ(RsaProvider(_file).decrypt(enciphered), "hush");
    }
}

TEST_F(RsaProviderTest, WithoutAPlaceForAKeyNothingIsEnciphered)
{
    Clips::write("no-directory", "");
    LogCapture capture;
    RsaProvider provider(Clips::scratch("no-directory") + "/key.pem");
    provider.prepare();
    ASSERT_TRUE(QSignalSpy(&provider, &RsaProvider::unavailable).wait(patience));
    EXPECT_EQ(capture.count("Secrets cannot be stored"), 1);
    EXPECT_EQ(provider.encrypt("hush"), "");
    RsaProvider(_file).prepare(); // Its key is not waited for.
    EXPECT_FALSE(QFile::exists(_file));
}
