#pragma once

#include "ChannelLogo.h"
#include "StreamDescription.h"

#include <QImage>
#include <QList>
#include <QMetaType>
#include <QSet>
#include <QSharedData>
#include <QSharedDataPointer>
#include <QString>

/// One entry of the channel directory, as a copyable value. Copies share their contents until one is changed, so that
/// whole lists of them are cheap to copy and, when they are copies, to compare.
class ChannelDescription
{
public:
    /// One bit each, so that channels can be selected by mask.
    enum ChannelType {
        UnknownChannel = 1,
        PublicChannel = 2,       ///< An ordinary directory channel, television or radio.
        SecureChannel = 4,       ///< Its stream needs entitlement, or its type is not recognised.
        UserChannel = 8,         ///< Added or owned by the viewer.
        SponsorshipChannel = 16, ///< The temporary channel that plays a pre-roll.
        PayPerViewChannel = 32,
        FileChannel = 64,        ///< A local media file.
        UserStreamChannel = 128, ///< Opened by a typed address.
    };

    enum MediaType { AudioMedia = 2, VideoMedia = 4 };

    ChannelDescription();

    // No moves, which would leave an object without contents: a copy costs a count.
    ChannelDescription(ChannelDescription const&) = default;
    ChannelDescription& operator=(ChannelDescription const&) = default;
    ~ChannelDescription() = default;

    static ChannelDescription Null() { return {}; }

    /// Whether this equals Null().
    bool isNull() const;

    /// Unique to this variant of the channel.
    QString id() const { return _data->id; }
    void setId(QString const& id) { _data->id = id; }

    /// Shared by language variants and by all channels derived from one entry of the directory.
    QString rootId() const { return _data->rootId; }
    void setRootId(QString const& rootId) { _data->rootId = rootId; }

    QString title() const { return _data->title; }
    /// One line, which cannot turn round what stands beside it: control characters become blanks, and those that
    /// embed or override a direction (UAX #9) go.
    void setTitle(QString const& title) { _data->title = toLine(title); }
    /// A text from outside as such a line.
    static QString toLine(QString const& text);
    QString summary() const { return _data->summary; }
    void setSummary(QString const& summary) { _data->summary = summary; }
    QString website() const { return _data->website; }
    void setWebsite(QString const& website) { _data->website = website; }

    /// The link text shown for the website.
    QString websiteLabel() const { return _data->websiteLabel; }
    void setWebsiteLabel(QString const& websiteLabel) { _data->websiteLabel = websiteLabel; }

    bool hasAlerts() const { return _data->hasAlerts; }
    void setHasAlerts(bool hasAlerts) { _data->hasAlerts = hasAlerts; }
    bool hasChat() const { return _data->hasChat; }
    void setHasChat(bool hasChat) { _data->hasChat = hasChat; }
    QString chatRoomName() const { return _data->chatRoomName; }
    void setChatRoomName(QString const& chatRoomName) { _data->chatRoomName = chatRoomName; }
    QString alertsTopic() const { return _data->alertsTopic; }
    void setAlertsTopic(QString const& alertsTopic) { _data->alertsTopic = alertsTopic; }

    /// Unpacked anew each time; null for none.
    QImage logo() const { return _data->logo.image(); }
    ChannelLogo const& packedLogo() const { return _data->logo; }
    /// These mark the logo as loaded, whatever it is.
    void setLogo(QImage const& logo) { setLogo(ChannelLogo(logo)); }
    void setLogo(ChannelLogo const& logo);
    bool logoLoaded() const { return _data->logoLoaded; }
    void setLogoLoaded(bool logoLoaded) { _data->logoLoaded = logoLoaded; }

    /// Whether it may be opened; if not, the reason is shown.
    bool isAvailable() const { return _data->available; }
    void setAvailable(bool available) { _data->available = available; }
    QString unavailableReason() const { return _data->unavailableReason; }
    void setUnavailableReason(QString const& unavailableReason) { _data->unavailableReason = unavailableReason; }

    bool isFavourite() const { return _data->favourite; }
    void setFavourite(bool favourite) { _data->favourite = favourite; }

    /// Whether the service has it on the viewer's own list, as a channel that some viewer has made.
    bool isViewerAdded() const { return _data->viewerAdded; }
    void setViewerAdded(bool viewerAdded) { _data->viewerAdded = viewerAdded; }

    ChannelType channelType() const { return _data->channelType; }
    void setChannelType(ChannelType channelType) { _data->channelType = channelType; }

    /// A set of MediaType bits; the default, 1, means neither.
    int channelMediaTypes() const { return _data->channelMediaTypes; }
    void setChannelMediaTypes(int channelMediaTypes) { _data->channelMediaTypes = channelMediaTypes; }

    bool autoBuzzEnabled() const { return _data->autoBuzzEnabled; }
    void setAutoBuzzEnabled(bool autoBuzzEnabled) { _data->autoBuzzEnabled = autoBuzzEnabled; }
    bool repeatedAutoBuzz() const { return _data->repeatedAutoBuzz; }
    void setRepeatedAutoBuzz(bool repeatedAutoBuzz) { _data->repeatedAutoBuzz = repeatedAutoBuzz; }

    /// Milliseconds.
    int autoBuzzInterval() const { return _data->autoBuzzInterval; }
    void setAutoBuzzInterval(int autoBuzzInterval) { _data->autoBuzzInterval = autoBuzzInterval; }

    /// Whether a pay-per-view purchase exists, and where to buy one. Neither takes part in equality.
    bool purchased() const { return _data->purchased; }
    void setPurchased(bool purchased) { _data->purchased = purchased; }
    QString purchaseUrl() const { return _data->purchaseUrl; }
    void setPurchaseUrl(QString const& purchaseUrl) { _data->purchaseUrl = purchaseUrl; }

    /// Whether banner advertising may show. Takes no part in equality.
    bool showBanners() const { return _data->showBanners; }
    void setShowBanners(bool showBanners) { _data->showBanners = showBanners; }

    /// The streams, in order of preference.
    QList<StreamDescription> streamDescriptions() const { return _data->streamDescriptions; }
    void appendStreamDescription(StreamDescription const& stream) { _data->streamDescriptions.append(stream); }
    /// Removes every stream that equals the given one.
    void removeStreamDescription(StreamDescription const& stream);
    void clearStreamDescriptions() { _data->streamDescriptions.clear(); }

    /// Sums over all streams.
    int numAudioTracks() const;
    int numVideoTracks() const;
    int numSubtitleTracks() const;

    /// Unions over all streams.
    QSet<LanguageId> audioLanguages() const;
    QSet<LanguageId> videoLanguages() const;
    QSet<LanguageId> subtitleLanguages() const;

    /// For the log only.
    QString toString() const;

    /// Compares every field but purchased, purchaseUrl and showBanners.
    bool operator==(ChannelDescription const& other) const;
    bool operator!=(ChannelDescription const& other) const { return !(*this == other); }

private:
    struct Data : QSharedData {
        QString id;
        QString rootId;
        QString title;
        QString summary;
        QString website;
        QString websiteLabel;
        bool hasAlerts = false;
        bool hasChat = true;
        QString chatRoomName;
        QString alertsTopic;
        ChannelLogo logo;
        bool logoLoaded = false;
        bool available = true;
        QString unavailableReason;
        bool favourite = false;
        bool viewerAdded = false;
        ChannelType channelType = UnknownChannel;
        int channelMediaTypes = 1;
        bool autoBuzzEnabled = false;
        bool repeatedAutoBuzz = false;
        int autoBuzzInterval = 120000;
        bool purchased = false;
        QString purchaseUrl;
        bool showBanners = true;
        QList<StreamDescription> streamDescriptions;
    };

    QSharedDataPointer<Data> _data; ///< Never null.
};

Q_DECLARE_TYPEINFO(ChannelDescription, Q_RELOCATABLE_TYPE);
Q_DECLARE_METATYPE(ChannelDescription)
