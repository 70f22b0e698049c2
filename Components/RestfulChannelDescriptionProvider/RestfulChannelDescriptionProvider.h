#pragma once

#include "ChannelDescriptionProvider.h"
#include "ChannelDirectory.h"
#include "NetworkErrors.h"
#include "OmbravisionUser.h"
#include "Uri.h"

#include <QByteArray>
#include <QDateTime>
#include <QImage>
#include <QMutex>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class DateTimeBuilder;
class Logger;
class MemoQueue;
class SoapAllowedChannels;
class WebCache;

/// Channels of the directory service: those of the channel document, which the cache keeps fresh, that the service
/// allows to the user who is signed in. (ChannelDocumentReader tells the document's format.)
///
/// Documents are read and logos are decoded on the thread of the cache's queue; what comes of it is handed over to
/// this object's thread, where the list changes and all signals are emitted. A document that cannot be read, a
/// service that fails or is gone leave the list as it is.
class RestfulChannelDescriptionProvider : public ChannelDescriptionProvider
{
    Q_OBJECT

public:
    /// Makes what asks the service at an address.
    using AllowedChannelsFactory = std::function<std::unique_ptr<SoapAllowedChannels>(Uri const& serviceUri)>;

    /// So many logos that are in the cache come with the list; the others follow.
    static constexpr int logosWithList = 64;

    /// The cache and the builder are borrowed. `defaultLogo` is shown until a logo is here, `noLogo` where a channel
    /// has none. Without a factory the service is asked over a connection of the provider's own.
    RestfulChannelDescriptionProvider(WebCache* webCache, OmbravisionUser const& user,
                                      DateTimeBuilder* dateTimeBuilder, Uri const& channelsUri, Uri const& serviceUri,
                                      QImage const& defaultLogo, QImage const& noLogo, QObject* parent = nullptr,
                                      AllowedChannelsFactory const& allowedChannelsFactory = {});
    ~RestfulChannelDescriptionProvider() override;

    /// These two may be called from any thread.
    long long numChannels() const override;
    ChannelDescription descriptionAt(long long index) const override;

    void start() override;
    void stop() override;
    void retire() override;

    /// Reads the document that is in the cache, and asks again what is allowed; without one it is fetched.
    void refresh() override;

    /// What the service told last.
    QString confidenceFactor() const { return _confidenceFactor; }
    QString countryId() const { return _countryId; }
    QString ipAddress() const { return _ipAddress; }
    QString defaultChannel() const { return _defaultChannel; }

    /// Whether the list is of the last document and what the service allows of that. Any thread.
    bool isAllowedLoaded() const;

    /// When the list was last published; not valid before.
    QDateTime lastPublished() const { return _lastPublished; }

signals:
    void allowedChannelsLoaded(QString ipAddress, QString countryId, QString confidenceFactor,
                               QString defaultChannel);

    /// There is no list, and this is why, in words.
    void allowedChannelsError(QString text);

    /// The list stays as it is, since its source has failed; why, in words.
    void refreshFailed(QString text);

    /// The document could not be read, and is fetched again.
    void channelParsingError(QString text);

public slots:
    /// From the cache. On its queue's thread.
    void onUpdated(Uri const& uri, bool hasChanged, QDateTime const& lastUpdated);

    // From the service. On this object's thread.
    void onAllowedChannelsReceived(QString const& confidenceFactor, QString const& countryId,
                                   QString const& ipAddress, QString const& defaultChannel, QStringList const& ids);
    void onAllowedChannelsError(QString const& text);

    /// Asks the service which channels are allowed, unless it is being asked.
    void readAllowedChannels();

private:
    void followCache();
    void post(std::function<void(RestfulChannelDescriptionProvider&)> const& call);
    void later(std::function<void()> const& call);

    // On the thread of the cache's queue.
    void onAvailable(Uri const& uri);
    void onRefused(Uri const& uri, QString const& fault);
    void onUnavailable(Uri const& uri, NetworkErrors::NetworkError error);
    void readCachedDocument();
    void parse(QByteArray const& xml);
    void parsingFailed(QString const& fault);
    void loadCachedLogos(ChannelDirectory& directory) const;
    void takeDirectory(ChannelDirectory const& directory);
    void loadLogo(Uri const& logo);
    bool isMissingLogo(Uri const& uri) const;

    // On this object's thread.
    void onDirectoryTaken();
    void takeLogo(Uri const& logo, ChannelLogo const& image);
    void parseAllowedChannels();
    void reportFailure(QString const& text);

    static Logger* log;

    WebCache* const _webCache;
    MemoQueue* const _queue; ///< The cache's.
    DateTimeBuilder* const _dateTimeBuilder;
    Uri const _channelsUri;
    QImage const _defaultLogo;
    QImage const _noLogo;

    QByteArray _parsedDigest; ///< Of the document that was parsed last. Of the queue's thread.

    mutable QMutex _mutex; ///< Guards the fields below. Never held while a signal is emitted or the cache is called.
    bool _isRunning = false;
    bool _isResetPending = false;
    bool _isRefreshPosted = false;
    ChannelDirectory _directory; ///< All channels of the last document.
    ChannelDirectory _published; ///< Those of them that are allowed: the list.
    bool _isAllowedRequestInFlight = false;
    bool _isAllowedLoaded = false; ///< Whether the list is of the last document and the last answer.
    bool _isListOld = false;       ///< Whether document or answer differ from those that the list was made of.
    QSet<QString> _allowed;        ///< Ids, as the service told last.

    // Of this object's thread.
    QString _confidenceFactor;
    QString _countryId;
    QString _ipAddress;
    QString _defaultChannel;
    QDateTime _lastPublished;
    OmbravisionUser const _user;
    std::unique_ptr<SoapAllowedChannels> _allowedChannels;
};
