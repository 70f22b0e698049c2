#pragma once

/// What a click on a channel does.
enum ChannelClickAction {
    NoClickAction,
    OpenClickAction,      ///< Replace what is on screen.
    AddClickAction,       ///< Show it beside that.
    CloseClickAction,     ///< Close this one.
    ReconnectClickAction, ///< Close it and open it in place.
    SponsorClickAction,   ///< Follow the link of the pre-roll that plays.
};
