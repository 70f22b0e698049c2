#pragma once

#include "StreamAddress.h"
#include "TokenGenerator.h"

class DateTimeBuilder;

/// The address of the description, for a secure stream with a token that lets in for some time. The description's
/// provider chooses the way, its key makes the token; without a key there is none. Main thread only.
class TokenStreamAddress : public StreamAddress
{
public:
    /// What a description of a stream that LevelThreeTokenGenerator serves has as its provider, in whatever case.
    static constexpr char const* levelThree = "LevelThree";

    /// The clock is borrowed.
    explicit TokenStreamAddress(DateTimeBuilder* clock) : _clock(clock) {}

    Uri addressOf(StreamDescription const& stream) override;

private:
    TokenGenerator const& generatorOf(StreamDescription const& stream) const;

    DateTimeBuilder* const _clock;
    AkamaiTokenGenerator const _akamai;
    LevelThreeTokenGenerator const _levelThree;
};
