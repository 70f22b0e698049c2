#include "ChannelDescriptionProvider.h"

#include <QPointer>

void ChannelDescriptionProvider::updated()
{
    emit channelsUpdated();
}

void ChannelDescriptionProvider::logoUpdated(ChannelDescription description)
{
    emit channelLogoUpdated(description);
}

void ChannelDescriptionProvider::logosUpdated(QList<ChannelDescription> const& descriptions)
{
    QPointer<ChannelDescriptionProvider> const self(this);
    for (auto description = descriptions.cbegin(); self && description != descriptions.cend(); ++description)
        logoUpdated(*description);
}
