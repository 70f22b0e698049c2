#include "ChannelDirectory.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <algorithm>

Logger* ChannelDirectory::log = LoggerManager::logger();

ChannelDirectory::ChannelDirectory(QList<ChannelDocumentReader::Entry> const& entries, QImage const& defaultLogo,
                                   QImage const& noLogo)
{
    _channels.reserve(entries.size());
    ChannelLogo const unloaded(defaultLogo);
    ChannelLogo const none(noLogo);
    for (ChannelDocumentReader::Entry const& entry : entries) {
        ChannelDescription channel = entry.description;
        if (_placeOfId.contains(channel.id())) {
            LOG_WARNING("The id %s stands for more than one channel.", qPrintable(channel.id()));
            continue;
        }
        qsizetype const place = _channels.size();
        _placeOfId.insert(channel.id(), place);
        _rowOfPlace.append(place);
        if (!entry.logo.isNull()) {
            _placesOfLogo.insert(entry.logo, place);
            _logos.insert(entry.logo);
        }
        channel.setLogo(entry.logo.isNull() ? none : unloaded);
        _channels.append(channel);
        LOG_DEBUG("Inserted channel description %s", qPrintable(channel.toString()));
    }
}

ChannelDirectory ChannelDirectory::only(QSet<QString> const& ids) const
{
    ChannelDirectory part = *this;
    part._channels.clear();
    part._rowOfPlace.fill(-1);
    for (ChannelDescription const& channel : _channels) {
        if (!ids.contains(channel.id()))
            continue;
        part._rowOfPlace[_placeOfId.value(channel.id())] = part._channels.size();
        part._channels.append(channel);
    }
    return part;
}

QList<ChannelDescription> ChannelDirectory::setLogo(Uri const& logo, ChannelLogo const& image)
{
    if (!hasLogo(logo) || (isLogoSet(logo) && _images.value(logo) == image))
        return {};
    _images.insert(logo, image);
    QList<qsizetype> rows;
    for (qsizetype const place : _placesOfLogo.values(logo))
        rows.append(_rowOfPlace.at(place));
    std::sort(rows.begin(), rows.end());
    QList<ChannelDescription> changed;
    for (qsizetype const row : std::as_const(rows)) {
        if (row < 0 || _channels.at(row).packedLogo() == image)
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
