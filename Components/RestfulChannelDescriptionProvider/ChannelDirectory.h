#pragma once

#include "ChannelDescription.h"
#include "ChannelDocumentReader.h"

#include <QHash>
#include <QImage>
#include <QList>
#include <QMultiHash>
#include <QSet>

class Logger;

/// The channels of one channel document and their logos. A value, whose copies share what they have.
class ChannelDirectory
{
public:
    ChannelDirectory() = default;

    /// Takes the channels in their order; of those with the same id the first. Until its logo is set a channel has
    /// the default one; one that has none of its own keeps the other image.
    ChannelDirectory(QList<ChannelDocumentReader::Entry> const& entries, QImage const& defaultLogo,
                     QImage const& noLogo);

    QList<ChannelDescription> const& channels() const { return _channels; }

    /// Those of the channels that have one of these ids.
    ChannelDirectory only(QSet<QString> const& ids) const;

    /// The addresses of all logos; of the whole document.
    QSet<Uri> logos() const { return _logos; }
    bool hasLogo(Uri const& logo) const { return _logos.contains(logo); }
    bool isLogoSet(Uri const& logo) const { return _images.contains(logo); }

    /// Sets the logo at an address. Returns the channels that have another logo now.
    QList<ChannelDescription> setLogo(Uri const& logo, ChannelLogo const& image);

    /// Sets the logos that another directory has and this one has not.
    void adoptLogos(ChannelDirectory const& other);

private:
    static Logger* log;

    QList<ChannelDescription> _channels;

    // Of the whole document, and shared with those that have only a part of it.
    QHash<QString, qsizetype> _placeOfId;     ///< In the document.
    QMultiHash<Uri, qsizetype> _placesOfLogo; ///< Likewise.
    QSet<Uri> _logos;

    QList<qsizetype> _rowOfPlace;    ///< Where in the list a channel of the document is; -1 for nowhere.
    QHash<Uri, ChannelLogo> _images; ///< Those that were set.
};
