#include "FFwrapper.h"

#include "Clips.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <gmock/gmock.h>

TEST(FFwrapper, ContextFromHeaderOfAnAsfFile)
{
    QByteArray const file = Clips::bytes(Clips::wmv());
    qsizetype const data = file.indexOf(QByteArray::fromHex("3626b2758e66cf11a6d900aa0062ce6c")); // The data object.
    ASSERT_GT(data, 0);
    QByteArray const header = file.left(data + 50);

    FormatContextPointer context(FFwrapper::contextFromHeader(header.constData(), static_cast<int>(header.size())));
    ASSERT_TRUE(context);
    EXPECT_EQ(context->nb_streams, 2u);
    EXPECT_EQ(FFwrapper::getAsfPacketSize(context.get()), 3200);
    EXPECT_EQ(FFwrapper::getMaxBitrate(context.get()), 464000);
}

TEST(FFwrapper, ContextFromEveryCutOfAHeaderIsNullOrWhole)
{
    QByteArray const header = Clips::bytes(Clips::wmv()).left(1200);
    for (int size = 0; size < header.size(); ++size) {
        QByteArray const cut(header.constData(), size); // Its own storage, so that a read past the end is seen.
        FormatContextPointer const context(FFwrapper::contextFromHeader(cut.constData(), size));
        EXPECT_GE(FFwrapper::getMaxBitrate(context.get()), 0);
    }
}

TEST(FFwrapper, UnknownHeaderGivesNoContext)
{
    QByteArray const noise(5000, '\xA7');
    EXPECT_EQ(FFwrapper::contextFromHeader(noise.constData(), static_cast<int>(noise.size())), nullptr);
    EXPECT_EQ(FFwrapper::contextFromHeader(nullptr, 0), nullptr);
}

TEST(FFwrapper, HandlerNeedsAContextAndMayBeReplaced)
{
    auto const nothing = [](void*, std::uint8_t*, int) { return AVERROR_EOF; };
    EXPECT_EQ(FFwrapper::setFFHandler(nullptr, nothing, nullptr, nullptr), -1);
    FormatContextPointer const context(avformat_alloc_context());
    EXPECT_EQ(FFwrapper::setFFHandler(context.get(), nothing, nullptr, nullptr), 0);
    EXPECT_EQ(FFwrapper::setFFHandler(context.get(), nothing, nullptr, nullptr), 0);
    EXPECT_EQ(context->pb->buffer_size, 32768);
    EXPECT_EQ(context->pb->seekable, 0);
}
