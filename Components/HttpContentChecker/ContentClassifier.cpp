#include "ContentClassifier.h"

#include "Playlist.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace
{

/// The media types of a response, mostly one, without parameters and in lower case.
QStringList mediaTypes(HttpResponseHeader const& header)
{
    QStringList types;
    for (QString const& value : header.allValues("Content-Type"))
        types.append(value.section(';', 0, 0).trimmed().toLower());
    return types;
}

/// Types of playlists, and of files that are mistaken for them.
bool isPlaylistType(QString const& type)
{
    static QStringList const types = {"video/x-ms-asf", "video/x-ms-asx", "video/x-ms-wax", "audio/x-ms-wax",
                                      "video/x-ms-wvx"};
    return type.startsWith("text/") || types.contains(type);
}

bool isMedia(QString const& type)
{
    // Ogg and the playlists of HTTP Live Streaming are registered as applications; FFmpeg plays both.
    static QStringList const applications{"application/ogg", "application/vnd.apple.mpegurl",
                                          "application/x-mpegurl"};
    return type.startsWith("audio/") || type.startsWith("video/") || applications.contains(type);
}

} // namespace

HttpContentChecker::ContentType ContentClassifier::typeOf(HttpResponseHeader const& header)
{
    HttpContentChecker::ContentType result = HttpContentChecker::Unknown;
    for (QString const& type : mediaTypes(header)) {
        if (type == "application/vnd.ms.wms-hdr.asfv1" || type == "application/x-mms-framed")
            return HttpContentChecker::MmsStream;
        if (type == "application/octet-stream" && result != HttpContentChecker::PlainFile)
            result = HttpContentChecker::MmsStream;
        else if (isMedia(type) && !isPlaylistType(type))
            result = HttpContentChecker::PlainFile;
    }
    return result;
}

bool ContentClassifier::needsBody(HttpResponseHeader const& header)
{
    QStringList const types = mediaTypes(header);
    return types.isEmpty() || std::any_of(types.cbegin(), types.cend(), &isPlaylistType);
}

HttpContentChecker::ContentType ContentClassifier::typeOf(QByteArray const& body)
{
    if (isAsfFile(body))
        return HttpContentChecker::PlainFile;
    QString const text = Playlist::decode(body);
    constexpr std::array words = {"ASX", "asx", "Reference", "reference", "REFERENCE"};
    bool const isHit =
        std::any_of(words.begin(), words.end(), [&](char const* word) { return text.contains(QLatin1String(word)); });
    return isHit ? HttpContentChecker::PlaylistDocument : HttpContentChecker::Unknown;
}

bool ContentClassifier::isAsfFile(QByteArray const& body)
{
    // The GUID of the Header object.
    static QByteArray const beginning = QByteArray::fromHex("3026b2758e66cf11a6d900aa0062ce6c");
    return body.startsWith(beginning);
}
