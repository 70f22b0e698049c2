// From the beginning of a pre-roll to the channel after it.

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "SponsorshipSequence.h"
#include "SponsorshipSource.h"
#include "TickCounter.h"

#include <utility>

void SponsorshipSequence::onSponsorshipPlaybackStarted(Channel*, ChannelStream*)
{
    if (_wait == Wait::Start)
        wait(Wait::None, 0);
    _isStarted = true;
    _msStarted = _appData.tickCounter()->msSinceEpoch();
    _source->onPlaybackStarted();
    emit sponsorshipDisplayCompanionAds();
}

void SponsorshipSequence::onSponsorshipPlaybackTimeUpdated(Channel*, ChannelStream*, double seconds)
{
    _source->onPlaybackTimeUpdated(seconds);
}

void SponsorshipSequence::onSponsorshipPlaybackCompleted(Channel*, ChannelStream*)
{
    qint64 const left = _msStarted + qint64{_response.duration} * 1000 - _appData.tickCounter()->msSinceEpoch();
    if (_response.type == SponsorshipResponse::StaticImage && left > 0) {
        wait(Wait::StillImage, left);
        return;
    }
    _channel->disconnect(this);
    _isStarted = false;
    _source->onPlaybackCompleted();
    finish();
}

void SponsorshipSequence::onSponsorshipPlaybackLooped(Channel* channel, ChannelStream* stream)
{
    onSponsorshipPlaybackCompleted(channel, stream);
}

void SponsorshipSequence::onSponsorshipPlaybackError(Channel*, ChannelStream*, QString const& text)
{
    if (text.isEmpty())
        return;
    _channel->disconnect(this);
    _isStarted = false;
    _source->onPlaybackError();
    finish();
}

void SponsorshipSequence::onSponsorshipStaticImageCompleted()
{
    _channel->disconnect(this);
    _isStarted = false;
    if (_nextId.isEmpty()) {
        _source->onPlaybackIncomplete();
        return;
    }
    _source->onPlaybackCompleted();
    finish();
}

void SponsorshipSequence::finish()
{
    emit sponsorshipCloseCompanionAds();
    wait(Wait::WantedChannel, afterPlayback);
}

void SponsorshipSequence::openPostSponsorshipChannel()
{
    if (_nextId.isEmpty())
        return;
    QString const id = _nextId;
    QStringList const beside = std::exchange(_beside, {});
    setNextId({}); // First: what opens next is no choice of what comes after a pre-roll.
    Channel* const next = _channels.getChannelByRootId(id);
    if (Channel* const wanted = next ? next : _channels.defaultChannel())
        _channels.openChannel(wanted, false, true);
    for (QString const& each : beside)
        _channels.openChannel(each, false, false);
}
