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

TEST(FFwrapper, UnknownHeaderGivesNoContext)
{
    QByteArray const noise(5000, '\xA7');
    EXPECT_EQ(FFwrapper::contextFromHeader(noise.constData(), static_cast<int>(noise.size())), nullptr);
    EXPECT_EQ(FFwrapper::contextFromHeader(nullptr, 0), nullptr);
}
