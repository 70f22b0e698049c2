#pragma once

#include "Playlist.h"

class QDomElement;

/// An ASX playlist: an XML dialect whose names are in any case and whose addresses hold bare ampersands.
///
///     <asx> [base] (entry | entryref | repeat count="n" (entry...) | event (entry...))... </asx>
///     <entry clientskip="yes"> title author copyright album abstract: text; base ref banner: href;
///         duration startmarker starttime endmarker previewduration: value="h:m:s.z" </entry>
class AsxPlaylist : public Playlist
{
    Q_OBJECT

public:
    using Playlist::Playlist;

    void parse() override;

private:
    static QString lowerNames(QString const& text);
    static QString escapeAmpersands(QString const& text);
    static qint64 timeOf(QDomElement const& element);

    void parseEntries(QDomElement const& parent, int repeat);
    void parseEntry(QDomElement const& entry, int repeat);
    void parseEntryChild(QDomElement const& child, PlaylistItem& item);
    void addAddress(QDomElement const& element, PlaylistItem& item) const;

    QString _base; ///< What relative addresses stand against, by the innermost "base" so far.
};
