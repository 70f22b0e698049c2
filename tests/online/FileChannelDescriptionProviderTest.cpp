#include "FileChannelDescriptionProvider.h"

#include "SignalRecorder.h"
#include "WebFixture.h"

#include <QDir>

#include <stdexcept>
#include <sys/stat.h>

namespace
{

class FileProviderTest : public WebFixture
{
protected:
    static constexpr int interval = 600000;

    FileProviderTest()
    {
        QDir(directory.path()).mkdir("logos");
        QImage(3, 3, QImage::Format_RGB32).save(file("logos/a.png"));
        QImage(9, 9, QImage::Format_RGB32).save(file("secret.png"));
    }

    void writeChannels(QByteArray const& inside, int seconds)
    {
        write(file("Channels.xml"), "<channels>" + inside + "</channels>");
        QFile channels(file("Channels.xml"));
        ASSERT_TRUE(channels.open(QIODevice::ReadWrite));
        channels.setFileTime(QDateTime::fromSecsSinceEpoch(seconds), QFileDevice::FileModificationTime);
    }

    FileChannelDescriptionProvider& provider()
    {
        if (!_provider)
            _provider = std::make_unique<FileChannelDescriptionProvider>(&queue, file("Channels.xml"), file("logos"),
                                                                         interval);
        return *_provider;
    }

private:
    std::unique_ptr<FileChannelDescriptionProvider> _provider;
};

} // namespace

TEST_F(FileProviderTest, ReadsAtOnceAndAgainWhenTheFileHasChanged)
{
    writeChannels("<channel id='a' type='tv'/><channel id='../secret' type='tv'/>", 1000);
    SignalRecorder const updates(&provider(), &ChannelDescriptionProvider::channelsUpdated);
    SignalRecorder const logos(&provider(), &ChannelDescriptionProvider::channelLogoUpdated);
    provider().refresh(); // Not running.
    EXPECT_EQ(provider().numChannels(), 0);
    provider().start();
    EXPECT_EQ(provider().numChannels() * 10 + updates.count(), 21);
    ASSERT_TRUE(logos.wait(2));
    EXPECT_EQ(provider().descriptionAt(0).logo().width(), 3);
    EXPECT_TRUE(provider().descriptionAt(1).logo().isNull());

    advance(interval);
    EXPECT_TRUE(log.contains("No changes."));
    writeChannels("<channel id='b'/><channel id='a' type='tv'/>", 2000);
    EXPECT_EQ(updates.count(), 1);
    advance(interval);
    EXPECT_TRUE(log.contains("Channels.xml has changed - reparsing."));
    EXPECT_EQ(updates.count(), 2);
    EXPECT_EQ(provider().descriptionAt(0).id(), "b");
    EXPECT_EQ(provider().descriptionAt(1).logo().width(), 3);

    provider().stop();
    writeChannels("", 3000);
    advance(interval);
    EXPECT_EQ(provider().numChannels(), 2);
}

TEST_F(FileProviderTest, APipeIsNoFileAndNotWaitedFor)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(file("Channels.xml")).constData(), S_IRUSR | S_IWUSR), 0);
    ASSERT_EQ(mkfifo(QFile::encodeName(file("logos/b.png")).constData(), S_IRUSR | S_IWUSR), 0);
    EXPECT_THROW(provider().start(), std::logic_error);
    QFile::remove(file("Channels.xml"));
    writeChannels("<channel id='b'/><channel id='a'/>", 1000);
    SignalRecorder const logos(&provider(), &ChannelDescriptionProvider::channelLogoUpdated);
    provider().refresh();
    ASSERT_TRUE(logos.wait(2));
    EXPECT_TRUE(provider().descriptionAt(0).logo().isNull());
    EXPECT_EQ(provider().descriptionAt(1).logo().width(), 3);
}

TEST_F(FileProviderTest, AFileThatCannotBeReadCostsNothing)
{
    EXPECT_THROW(provider().start(), std::logic_error);
    writeChannels("<channel id='a'/><channel id='b'>", 1000); // Cut off: what is whole counts.
    advance(interval);
    EXPECT_EQ(provider().numChannels(), 1);
    QFile::remove(file("Channels.xml"));
    advance(interval);
    EXPECT_TRUE(log.contains("Caught unhandled exception in memo queue."));
    write(file("Channels.xml"), "no XML");
    EXPECT_THROW(provider().refresh(), std::logic_error);
    EXPECT_EQ(provider().numChannels(), 1);
    writeChannels("<channel id='a'/><channel id='b'/>", 2000);
    advance(interval);
    EXPECT_EQ(provider().numChannels(), 2);
}
