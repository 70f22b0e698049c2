// Where a channel's film is, and what it looks like as a whole.

#include "Channel.h"

#include <algorithm>

double Channel::movieTime() const
{
    auto const found = std::ranges::find_if(_streams, [](auto const& stream) { return stream->isSeekable(); });
    return found == _streams.end() ? 0.0 : (*found)->movieTime();
}

double Channel::movieDuration() const
{
    auto const found = std::ranges::find_if(_streams, [](auto const& stream) { return stream->isSeekable(); });
    return found == _streams.end() ? 0.0 : (*found)->movieDuration();
}

void Channel::setMovieTime(double seconds)
{
    for (auto const& stream : _streams)
        stream->setMovieTime(seconds);
}

void Channel::setPaused(bool paused)
{
    for (auto const& stream : _streams)
        stream->setPaused(paused);
}

bool Channel::isPaused() const
{
    return std::ranges::any_of(_streams, [](auto const& stream) { return stream->isPaused(); });
}

double Channel::aspectRatio() const
{
    double const first = _streams.empty() ? 0.0 : _streams.front()->aspectRatio();
    int const across = std::max(columns(), 1);
    int const down = (static_cast<int>(_streams.size()) + across - 1) / across;
    return down > 0 ? first * across / down : 0.0;
}
