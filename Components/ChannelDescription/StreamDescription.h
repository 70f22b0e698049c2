#pragma once

#include "TrackDescription.h"
#include "Uri.h"

#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QSet>
#include <QString>

/// One stream of a channel: its address, its tracks and what is needed to be let in. A copyable value.
class StreamDescription
{
public:
    StreamDescription() = default;
    explicit StreamDescription(Uri const& uri) : _uri(uri) {}

    Uri uri() const { return _uri; }
    void setUri(Uri const& uri) { _uri = uri; }

    QList<TrackDescription> trackDescriptions() const { return _trackDescriptions; }
    void appendTrackDescription(TrackDescription const& track) { _trackDescriptions.append(track); }

    /// The directory's media profile: opaque bytes that can stand in for a stream header.
    QByteArray descriptor() const { return _descriptor; }
    void setDescriptor(QByteArray const& descriptor) { _descriptor = descriptor; }

    /// Whether the address needs the entitlement step before it is opened. The four texts below belong to that step.
    bool secure() const { return _secure; }
    void setSecure(bool secure) { _secure = secure; }

    /// The delivery network's name.
    QString provider() const { return _provider; }
    void setProvider(QString const& provider) { _provider = provider; }

    QString key() const { return _key; }
    void setKey(QString const& key) { _key = key; }

    QString profile() const { return _profile; }
    void setProfile(QString const& profile) { _profile = profile; }

    QString fingerprint() const { return _fingerprint; }
    void setFingerprint(QString const& fingerprint) { _fingerprint = fingerprint; }

    int numAudioTracks() const { return numTracks(TrackDescription::AudioTrack); }
    int numVideoTracks() const { return numTracks(TrackDescription::VideoTrack); }
    int numSubtitleTracks() const { return numTracks(TrackDescription::SubtitleTrack); }

    QSet<LanguageId> audioLanguages() const { return languages(TrackDescription::AudioTrack); }
    QSet<LanguageId> videoLanguages() const { return languages(TrackDescription::VideoTrack); }
    QSet<LanguageId> subtitleLanguages() const { return languages(TrackDescription::SubtitleTrack); }

    /// Compares address, tracks and descriptor. A secure stream on the left compares only the base of the addresses,
    /// since the rest is a token that changes; the right side's security does not count, so this is not symmetric.
    bool operator==(StreamDescription const& other) const;
    bool operator!=(StreamDescription const& other) const { return !(*this == other); }

private:
    int numTracks(TrackDescription::TrackType type) const;
    QSet<LanguageId> languages(TrackDescription::TrackType type) const;

    Uri _uri;
    QList<TrackDescription> _trackDescriptions;
    QByteArray _descriptor;
    bool _secure = false;
    QString _provider;
    QString _key;
    QString _profile;
    QString _fingerprint;
};

Q_DECLARE_METATYPE(StreamDescription)
