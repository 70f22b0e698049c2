#include "ChannelDirectory.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <algorithm>

Logger* ChannelDirectory::log = LoggerManager::logger();

ChannelDirectory::ChannelDirectory(QList<ChannelDocumentReader::Entry> const& entries, QImage const& defaultLogo,
                                   QImage const& noLogo)
{
    _channels.reserve(entries.size());
    for (ChannelDocumentReader::Entry const& entry : entries) {
        ChannelDescription channel = entry.description;
        if (_rowOfId.contains(channel.id())) {
            LOG_WARNING("The id %s stands for more than one channel.", qPrintable(channel.id()));
            continue;
        }
        channel.setLogo(entry.logo.isNull() ? noLogo : defaultLogo);
        append(channel, entry.logo);
        LOG_DEBUG("Inserted channel description %s", qPrintable(channel.toString()));
    }
}

void ChannelDirectory::append(ChannelDescription const& channel, Uri const& logo)
{
    _rowOfId.insert(channel.id(), _channels.size());
    _channels.append(channel);
    if (logo.isNull())
        return;
    _idsOfLogo.insert(logo, channel.id());
    _logoOfId.insert(channel.id(), logo);
}

ChannelDirectory ChannelDirectory::only(QSet<QString> const& ids) const
{
    ChannelDirectory directory;
    for (ChannelDescription const& channel : _channels)
        if (ids.contains(channel.id()))
            directory.append(channel, _logoOfId.value(channel.id()));
    directory._images = _images;
    return directory;
}

QSet<Uri> ChannelDirectory::logos() const
{
    QSet<Uri> logos;
    for (Uri const& logo : _logoOfId)
        logos.insert(logo);
    return logos;
}

QList<ChannelDescription> ChannelDirectory::setLogo(Uri const& logo, QImage const& image)
{
    QList<qsizetype> rows;
    for (auto id = _idsOfLogo.constFind(logo); id != _idsOfLogo.cend() && id.key() == logo; ++id)
        rows.append(_rowOfId.value(*id));
    if (rows.isEmpty())
        return {};
    _images.insert(logo, image);
    std::sort(rows.begin(), rows.end());
    QList<ChannelDescription> changed;
    for (qsizetype const row : std::as_const(rows)) {
        if (_channels.at(row).logo() == image)
            continue;
        _channels[row].setLogo(image);
        changed.append(_channels.at(row));
    }
    return changed;
}

void ChannelDirectory::adoptLogos(ChannelDirectory const& other)
{
    for (auto image = other._images.cbegin(); image != other._images.cend(); ++image)
        if (!isLogoSet(image.key()))
            setLogo(image.key(), image.value());
}
