#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// Small films, made by the ffmpeg command when they are first asked for: a picture that moves, 160x120 at 25 per
/// second, and a tone of 440 Hz at 44100 Hz.
class Clips
{
public:
    static QString h264Aac(int seconds = 2); ///< MP4 with the index in front, H.264 and stereo AAC.
    static QString h264AacIndexLast();       ///< Two seconds of the same, with the index at the end.
    static QString wmv(int seconds = 2);     ///< ASF with WMV2 and stereo WMAV2, in packets of 3200 bytes.
    /// Two seconds of ASF with so many streams of WMV2 and of WMAV2, the pictures first, each of another bit rate.
    static QString asf(int videoStreams, int audioStreams);
    static QString audioOnly();                ///< Two seconds of MP3.
    static QString videoOnly(int seconds = 2); ///< MPEG transport stream with H.264.
    static QString wrappingVideo();            ///< Two seconds of it, in the middle of which the clock begins anew.
    static QString laterVideo();               ///< Two seconds of it whose time stamps begin at 76 seconds.
    static QString rareKeyFrames(int seconds); ///< The same with AAC, and ten seconds from one key frame to the next.
    /// Four seconds of sound with a cover, in the container that the suffix names.
    static QString withCover(QString const& suffix);

    /// The bytes of a file.
    static QByteArray bytes(QString const& path);

    /// A path in the directory of the clips, which lives as long as the process.
    static QString scratch(QString const& name);

    /// Makes a file of the given bytes there, and returns its path.
    static QString write(QString const& name, QByteArray const& bytes);

private:
    static QTemporaryDir& directory();
    static QString make(QString const& name, int seconds, QString const& arguments);
};
