#pragma once

#include "LanguageId.h"

class StreamDescription;

/// The tracks that a channel's kind implies, where a document names none.
class ChannelTracks
{
public:
    /// Appends a video track and then an audio track, each as far as the set of ChannelDescription::MediaType has it.
    static void append(StreamDescription& stream, int mediaTypes, LanguageId const& language);
};
