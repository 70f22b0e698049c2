#include "StreamDescription.h"

#include <algorithm>

namespace
{
[[maybe_unused]] int const languageTypeId = qRegisterMetaType<LanguageId>("LanguageId");
[[maybe_unused]] int const trackTypeId = qRegisterMetaType<TrackDescription>("TrackDescription");
[[maybe_unused]] int const streamTypeId = qRegisterMetaType<StreamDescription>("StreamDescription");
} // namespace

bool StreamDescription::operator==(StreamDescription const& other) const
{
    bool const sameAddress = _secure ? _uri.base() == other._uri.base() : _uri == other._uri;
    return sameAddress && _trackDescriptions == other._trackDescriptions && _descriptor == other._descriptor;
}

int StreamDescription::numTracks(TrackDescription::TrackType type) const
{
    return static_cast<int>(
        std::count_if(_trackDescriptions.cbegin(), _trackDescriptions.cend(),
                      [type](TrackDescription const& track) { return track.trackType() == type; }));
}

QSet<LanguageId> StreamDescription::languages(TrackDescription::TrackType type) const
{
    QSet<LanguageId> result;
    for (TrackDescription const& track : _trackDescriptions)
        if (track.trackType() == type)
            result.insert(track.languageId());
    return result;
}
