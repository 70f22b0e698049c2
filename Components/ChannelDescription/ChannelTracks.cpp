#include "ChannelTracks.h"

#include "ChannelDescription.h"

void ChannelTracks::append(StreamDescription& stream, int mediaTypes, LanguageId const& language)
{
    if (mediaTypes & ChannelDescription::VideoMedia)
        stream.appendTrackDescription({language, TrackDescription::VideoTrack});
    if (mediaTypes & ChannelDescription::AudioMedia)
        stream.appendTrackDescription({language, TrackDescription::AudioTrack});
}
