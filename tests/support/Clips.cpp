#include "Clips.h"

#include <QFile>

#include <cstdlib>
#include <gtest/gtest.h>

namespace
{
QString const picture = QStringLiteral("-f lavfi -t %1 -i testsrc2=size=160x120:rate=25 ");
QString const tone = QStringLiteral("-f lavfi -t %1 -i sine=frequency=440:sample_rate=44100 ");
QString const h264 = QStringLiteral("-c:v libx264 -preset ultrafast -pix_fmt yuv420p -g 25 ");
} // namespace

QString Clips::h264Aac(int seconds)
{
    return make("film%1.mp4", seconds, picture + tone + h264 + "-c:a aac -ac 2 -movflags +faststart");
}

QString Clips::h264AacIndexLast()
{
    return make("last%1.mp4", 2, picture + tone + h264 + "-c:a aac -ac 2");
}

QString Clips::wmv(int seconds)
{
    return make("film%1.wmv", seconds, picture + tone + "-c:v wmv2 -b:v 400k -g 25 -c:a wmav2 -b:a 64k -ac 2 -f asf");
}

QString Clips::asf(int videoStreams, int audioStreams)
{
    QString streams = picture + tone + "-c:v wmv2 -g 25 -c:a wmav2 -ac 2 -f asf";
    for (int i = 0; i < videoStreams; ++i)
        streams += QString(" -map 0 -b:v:%1 %2k").arg(i).arg(100 + 200 * i);
    for (int i = 0; i < audioStreams; ++i)
        streams += QString(" -map 1 -b:a:%1 %2k").arg(i).arg(48 + 32 * i);
    return make(QString("streams%1-%2").arg(videoStreams).arg(audioStreams) + "-%1.asf", 2, streams);
}

QString Clips::audioOnly()
{
    return make("tone%1.mp3", 2, tone + "-c:a libmp3lame");
}

QString Clips::videoOnly(int seconds)
{
    return make("picture%1.ts", seconds, picture + h264);
}

QString Clips::wrappingVideo()
{
    return make("wrapping%1.ts", 2, "-i " + videoOnly() + " -c copy -output_ts_offset 95441.3");
}

QString Clips::laterVideo()
{
    return make("later%1.ts", 2, "-i " + videoOnly() + " -c copy -output_ts_offset 76");
}

QString Clips::rareKeyFrames(int seconds)
{
    return make("rare%1.ts", seconds, picture + tone + h264 + "-g 250 -sc_threshold 0 -c:a aac");
}

QString Clips::withCover(QString const& suffix)
{
    QString const cover = "-f lavfi -i color=red:size=64x64,trim=end_frame=1 ";
    return make("cover%1." + suffix, 4, tone + cover + "-map 0 -map 1 -c:v mjpeg -disposition:v attached_pic");
}

QByteArray Clips::bytes(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString Clips::scratch(QString const& name)
{
    return directory().filePath(name);
}

QString Clips::write(QString const& name, QByteArray const& bytes)
{
    QFile file(scratch(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
}

QTemporaryDir& Clips::directory()
{
    static QTemporaryDir directory;
    return directory;
}

QString Clips::make(QString const& name, int seconds, QString const& arguments)
{
    QString const path = scratch(name.arg(seconds));
    if (QFile::exists(path))
        return path;
    QString const command = "ffmpeg -hide_banner -loglevel error -nostdin -y " +
                            QString(arguments).replace("%1", QString::number(seconds));
    EXPECT_EQ(std::system(qPrintable(QString(command + " " + path))), 0) << qPrintable(command);
    return path;
}
