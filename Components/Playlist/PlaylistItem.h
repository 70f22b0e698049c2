#pragma once

#include <QHashFunctions>
#include <QMetaType>
#include <QString>
#include <QStringList>

/// One entry of a playlist: what it is called and the addresses it can be had from, as a copyable value.
class PlaylistItem
{
public:
    /// More addresses are not taken: an entry has a handful, and adding looks at all of them.
    static constexpr qsizetype maximumUrls = 100;

    static constexpr qint64 unknownTime = -1;

    /// What the item is known by: its first address, unless set otherwise.
    QString key() const { return _key; }
    void setKey(QString const& key) { _key = key; }
    size_t hashCode() const { return qHash(_key); }

    QString title() const { return _title; }
    void setTitle(QString const& title) { _title = title; }
    QString author() const { return _author; }
    void setAuthor(QString const& author) { _author = author; }
    QString copyright() const { return _copyright; }
    void setCopyright(QString const& copyright) { _copyright = copyright; }
    QString album() const { return _album; }
    void setAlbum(QString const& album) { _album = album; }
    QString abstract() const { return _abstract; }
    void setAbstract(QString const& abstract) { _abstract = abstract; }
    QString banner() const { return _banner; }
    void setBanner(QString const& banner) { _banner = banner; }

    /// Adds an address unless it is there already. The first one becomes the key of an item that has none.
    void addUrl(QString const& url);
    QStringList urls() const { return _urls; }

    /// The index of the address to try next; always one of urls(), or 0 when there are none.
    int nextUrl() const { return _nextUrl; }

    /// Goes on to the next address. False when that was the last one: the next is the first again.
    bool incNextUrl();

    /// A value of HttpContentChecker::ContentType.
    int type() const { return _type; }
    void setType(int type) { _type = type; }

    /// Whether all addresses have been tried.
    bool isChecked() const { return _isChecked; }
    void setChecked(bool isChecked) { _isChecked = isChecked; }

    bool useHttp() const { return _useHttp; }
    void setUseHttp(bool useHttp) { _useHttp = useHttp; }

    /// How often the playlist wants the entry played.
    int repeat() const { return _repeat; }
    void setRepeat(int repeat) { _repeat = repeat; }

    /// Whether the playlist says in so many words that the viewer may skip the entry.
    bool isSkippable() const { return _isSkippable; }
    void setSkippable(bool isSkippable) { _isSkippable = isSkippable; }

    /// Times within the entry, in ms, or unknownTime.
    qint64 duration() const { return _duration; }
    void setDuration(qint64 ms) { _duration = ms; }
    qint64 startMarker() const { return _startMarker; }
    void setStartMarker(qint64 ms) { _startMarker = ms; }
    qint64 startTime() const { return _startTime; }
    void setStartTime(qint64 ms) { _startTime = ms; }
    qint64 endMarker() const { return _endMarker; }
    void setEndMarker(qint64 ms) { _endMarker = ms; }
    qint64 previewDuration() const { return _previewDuration; }
    void setPreviewDuration(qint64 ms) { _previewDuration = ms; }

private:
    QString _key;
    QString _title;
    QString _author;
    QString _copyright;
    QString _album;
    QString _abstract;
    QString _banner;
    QStringList _urls;
    int _nextUrl = 0;
    int _type = 0;
    bool _isChecked = false;
    bool _useHttp = false;
    bool _isSkippable = false;
    int _repeat = 1;
    qint64 _duration = unknownTime;
    qint64 _startMarker = unknownTime;
    qint64 _startTime = unknownTime;
    qint64 _endMarker = unknownTime;
    qint64 _previewDuration = unknownTime;
};

Q_DECLARE_METATYPE(PlaylistItem)
