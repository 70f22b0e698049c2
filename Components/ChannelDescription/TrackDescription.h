#pragma once

#include "LanguageId.h"

/// One track of a stream: what it carries, and in which language. A copyable value.
class TrackDescription
{
public:
    enum TrackType { UnsetTrack = 0, AudioTrack = 1, VideoTrack = 2, SubtitleTrack = 3 };

    TrackDescription() = default;
    TrackDescription(LanguageId const& languageId, TrackType trackType)
        : _languageId(languageId), _trackType(trackType)
    {
    }

    LanguageId languageId() const { return _languageId; }
    void setLanguageId(LanguageId const& languageId) { _languageId = languageId; }

    TrackType trackType() const { return _trackType; }
    void setTrackType(TrackType trackType) { _trackType = trackType; }

    bool operator==(TrackDescription const& other) const = default;

private:
    LanguageId _languageId;
    TrackType _trackType = UnsetTrack;
};

Q_DECLARE_METATYPE(TrackDescription)
