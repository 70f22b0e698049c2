#include "ChannelDescriptionList.h"

#include "BoundedImage.h"
#include "ChannelDescriptionProvider.h"
#include "FilterableChannelDescriptionList.h"

#include <QBuffer>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace
{

class FakeProvider : public ChannelDescriptionProvider
{
public:
    long long numChannels() const override { return channels.size(); }
    ChannelDescription descriptionAt(long long index) const override { return channels.value(index); }
    void start() override {}
    void stop() override {}
    void refresh() override {}

    QList<ChannelDescription> channels;
};

ChannelDescription channel(QString const& title, QList<LanguageId> const& languages = {})
{
    StreamDescription stream;
    for (LanguageId const& language : languages)
        stream.appendTrackDescription({language, TrackDescription::AudioTrack});
    ChannelDescription result;
    result.setId(title);
    result.setTitle(title);
    result.setSummary("about " + title);
    result.appendStreamDescription(stream);
    return result;
}

QStringList titles(QAbstractItemModel const& model)
{
    QStringList result;
    for (int row = 0; row < model.rowCount(); ++row)
        result.append(model.index(row, 0).data().toString());
    return result;
}

class ChannelListTest : public testing::Test
{
protected:
    ChannelListTest()
    {
        provider.channels = {channel("delta"), channel("Alpha", {LanguageId::French(), LanguageId::Null()}),
                             channel("charlie", {LanguageId::English()}), channel("Bravo")};
        provider.channels[0].setAvailable(false);
        provider.channels[1].setFavourite(true);
    }

    FakeProvider provider;
};

} // namespace

TEST_F(ChannelListTest, ShowsWhatTheProviderHadAtItsLastSignal)
{
    ChannelDescriptionList list(provider);
    QModelIndex const alpha = list.index(1);
    EXPECT_EQ(alpha.data(0), "Alpha");
    EXPECT_EQ(alpha.data(3), "about Alpha");
    EXPECT_EQ(alpha.data(34), "about Alpha");
    EXPECT_EQ(alpha.data(32), true);
    EXPECT_EQ(alpha.data(33), true);
    EXPECT_EQ(alpha.data(35), QStringList{"fra"});
    EXPECT_FALSE(alpha.data(Qt::EditRole).isValid() || list.data(list.index(4)).isValid());
    EXPECT_EQ(list.headerData(7, Qt::Horizontal).toString() + list.headerData(7, Qt::Vertical).toString(),
              "Column 7Row 7");
    EXPECT_FALSE(list.headerData(7, Qt::Vertical, Qt::ToolTipRole).isValid());

    QSignalSpy resets(&list, &QAbstractItemModel::modelReset);
    QSignalSpy changes(&list, &QAbstractItemModel::dataChanged);
    provider.channels.removeLast();
    EXPECT_EQ(list.rowCount(), 4);
    provider.updated();
    EXPECT_EQ(list.rowCount() * 10 + resets.count(), 31);
    provider.channels[2].setLogo(QImage(1, 1, QImage::Format_RGB32));
    provider.logoUpdated(provider.channels[2]);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_FALSE(list.index(2).data(1).value<QImage>().isNull());
}

TEST_F(ChannelListTest, FiltersAndSorts)
{
    ChannelDescriptionList list(provider);
    FilterableChannelDescriptionList shown;
    shown.setSourceModel(&list);
    EXPECT_EQ(shown.rowCount(), 4);
    shown.sort(0);
    EXPECT_THAT(titles(shown), testing::ElementsAre("Alpha", "Bravo", "charlie", "delta"));

    shown.setAvailableFilter(true);
    EXPECT_THAT(titles(shown), testing::ElementsAre("Alpha", "Bravo", "charlie"));
    shown.setTitleFilter(QRegularExpression("a[vr]"));
    EXPECT_THAT(titles(shown), testing::ElementsAre("Bravo", "charlie"));
    shown.setTitleFilter(QRegularExpression("("));
    EXPECT_EQ(shown.rowCount(), 0);
    shown.setTitleFilter({});
    shown.setAudioLanguagesFilter({LanguageId::German(), LanguageId::English()});
    EXPECT_THAT(titles(shown), testing::ElementsAre("charlie"));
    shown.setAudioLanguagesFilter({LanguageId::German(), LanguageId::Null()});
    EXPECT_EQ(shown.rowCount(), 3);
    shown.setFavouritesFilter(true);
    EXPECT_THAT(titles(shown), testing::ElementsAre("Alpha"));
}

TEST(BoundedImage, DecodesPicturesWithinBoundsOnly)
{
    auto const encoded = [](int width, int height, char const* format) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QImage image(width, height, QImage::Format_Grayscale8);
        image.fill(0);
        image.save(&buffer, format);
        return bytes;
    };
    auto const png = [&](int width, int height) { return encoded(width, height, "PNG"); };
    for (char const* const format : {"PNG", "JPG", "WEBP"})
        EXPECT_EQ(BoundedImage::decode(encoded(32, 16, format)).size(), QSize(32, 16)) << format;
    EXPECT_TRUE(BoundedImage::decode(encoded(32, 16, "BMP")).isNull());
    EXPECT_EQ(BoundedImage::decode(png(2048, 1024)).size(), QSize(512, 256));
    EXPECT_TRUE(BoundedImage::decode(png(4001, 4000)).isNull());
    EXPECT_TRUE(BoundedImage::decode(png(32, 16).first(40)).isNull());
    QByteArray const svg =
        "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><image href='file:///x'/></svg>";
    EXPECT_TRUE(BoundedImage::decode(svg).isNull());
    EXPECT_NE(BoundedImage::faultOf("<html/>"), "");
    EXPECT_EQ(BoundedImage::faultOf(png(32, 16)), "");
}
