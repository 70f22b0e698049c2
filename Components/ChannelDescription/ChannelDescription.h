#pragma once

#include "StreamDescription.h"

#include <QImage>
#include <QList>
#include <QMetaType>
#include <QSet>
#include <QString>

/// One entry of the channel directory, as a copyable value.
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

    static ChannelDescription Null() { return {}; }

    /// Whether this equals Null().
    bool isNull() const;

    /// Unique to this variant of the channel.
    QString id() const { return _id; }
    void setId(QString const& id) { _id = id; }

    /// Shared by language variants and by all channels derived from one entry of the directory.
    QString rootId() const { return _rootId; }
    void setRootId(QString const& rootId) { _rootId = rootId; }

    QString title() const { return _title; }
    void setTitle(QString const& title) { _title = title; }
    QString summary() const { return _summary; }
    void setSummary(QString const& summary) { _summary = summary; }
    QString website() const { return _website; }
    void setWebsite(QString const& website) { _website = website; }

    /// The link text shown for the website.
    QString websiteLabel() const { return _websiteLabel; }
    void setWebsiteLabel(QString const& websiteLabel) { _websiteLabel = websiteLabel; }

    bool hasAlerts() const { return _hasAlerts; }
    void setHasAlerts(bool hasAlerts) { _hasAlerts = hasAlerts; }
    bool hasChat() const { return _hasChat; }
    void setHasChat(bool hasChat) { _hasChat = hasChat; }
    QString chatRoomName() const { return _chatRoomName; }
    void setChatRoomName(QString const& chatRoomName) { _chatRoomName = chatRoomName; }
    QString alertsTopic() const { return _alertsTopic; }
    void setAlertsTopic(QString const& alertsTopic) { _alertsTopic = alertsTopic; }

    QImage logo() const { return _logo; }
    /// Marks the logo as loaded, whatever the image.
    void setLogo(QImage const& logo);
    bool logoLoaded() const { return _logoLoaded; }
    void setLogoLoaded(bool logoLoaded) { _logoLoaded = logoLoaded; }

    /// Whether it may be opened; if not, the reason is shown.
    bool isAvailable() const { return _available; }
    void setAvailable(bool available) { _available = available; }
    QString unavailableReason() const { return _unavailableReason; }
    void setUnavailableReason(QString const& unavailableReason) { _unavailableReason = unavailableReason; }

    bool isFavourite() const { return _favourite; }
    void setFavourite(bool favourite) { _favourite = favourite; }

    ChannelType channelType() const { return _channelType; }
    void setChannelType(ChannelType channelType) { _channelType = channelType; }

    /// A set of MediaType bits; the default, 1, means neither.
    int channelMediaTypes() const { return _channelMediaTypes; }
    void setChannelMediaTypes(int channelMediaTypes) { _channelMediaTypes = channelMediaTypes; }

    bool autoBuzzEnabled() const { return _autoBuzzEnabled; }
    void setAutoBuzzEnabled(bool autoBuzzEnabled) { _autoBuzzEnabled = autoBuzzEnabled; }
    bool repeatedAutoBuzz() const { return _repeatedAutoBuzz; }
    void setRepeatedAutoBuzz(bool repeatedAutoBuzz) { _repeatedAutoBuzz = repeatedAutoBuzz; }

    /// Milliseconds.
    int autoBuzzInterval() const { return _autoBuzzInterval; }
    void setAutoBuzzInterval(int autoBuzzInterval) { _autoBuzzInterval = autoBuzzInterval; }

    /// Whether a pay-per-view purchase exists, and where to buy one. Neither takes part in equality.
    bool purchased() const { return _purchased; }
    void setPurchased(bool purchased) { _purchased = purchased; }
    QString purchaseUrl() const { return _purchaseUrl; }
    void setPurchaseUrl(QString const& purchaseUrl) { _purchaseUrl = purchaseUrl; }

    /// Whether banner advertising may show. Takes no part in equality.
    bool showBanners() const { return _showBanners; }
    void setShowBanners(bool showBanners) { _showBanners = showBanners; }

    /// The streams, in order of preference.
    QList<StreamDescription> streamDescriptions() const { return _streamDescriptions; }
    void appendStreamDescription(StreamDescription const& stream) { _streamDescriptions.append(stream); }
    /// Removes every stream that equals the given one.
    void removeStreamDescription(StreamDescription const& stream);
    void clearStreamDescriptions() { _streamDescriptions.clear(); }

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
    QString _id;
    QString _rootId;
    QString _title;
    QString _summary;
    QString _website;
    QString _websiteLabel;
    bool _hasAlerts = false;
    bool _hasChat = true;
    QString _chatRoomName;
    QString _alertsTopic;
    QImage _logo;
    bool _logoLoaded = false;
    bool _available = true;
    QString _unavailableReason;
    bool _favourite = false;
    ChannelType _channelType = UnknownChannel;
    int _channelMediaTypes = 1;
    bool _autoBuzzEnabled = false;
    bool _repeatedAutoBuzz = false;
    int _autoBuzzInterval = 120000;
    bool _purchased = false;
    QString _purchaseUrl;
    bool _showBanners = true;
    QList<StreamDescription> _streamDescriptions;
};

Q_DECLARE_METATYPE(ChannelDescription)
