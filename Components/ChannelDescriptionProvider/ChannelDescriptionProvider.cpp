#include "ChannelDescriptionProvider.h"

void ChannelDescriptionProvider::updated()
{
    emit channelsUpdated();
}

void ChannelDescriptionProvider::logoUpdated(ChannelDescription description)
{
    emit channelLogoUpdated(description);
}
