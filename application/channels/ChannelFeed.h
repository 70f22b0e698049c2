#pragma once

#include "ChannelDescription.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class AppData;
class ChannelDescriptionProvider;
class Logger;
class RestfulChannelDescriptionProvider;
class Timer;
class TimerFactory;
class UserChannelGizmo;

/// Where the channels of the directory come from while they are checked: owns the provider, follows what the service
/// says with it, and asks again when there is no list at all. Main thread only.
class ChannelFeed : public QObject
{
    Q_OBJECT

public:
    static constexpr int retryTime = 5000;           ///< ms
    static constexpr int fileCheckInterval = 600000; ///< ms

    using ProviderFactory = std::function<std::unique_ptr<ChannelDescriptionProvider>()>;

    /// The timers are borrowed. Without a factory the provider is the local file's in demo mode, else the service's.
    ChannelFeed(AppData& appData, TimerFactory* timers, ProviderFactory const& factory, QObject* parent = nullptr);
    ~ChannelFeed() override;

    void startChecking();
    void stopChecking();
    /// Reads the source again.
    void refresh();

    /// Null while nothing is checked.
    ChannelDescriptionProvider const* provider() const { return _provider.get(); }

    // What the service has told of this viewer.
    QString ipAddress() const { return _ipAddress; }
    void setIpAddress(QString const& address) { _ipAddress = address; }
    QString countryId() const { return _countryId; }
    void setCountryId(QString const& id) { _countryId = id; }
    QString confidenceFactor() const { return _confidenceFactor; }
    void setConfidenceFactor(QString const& factor) { _confidenceFactor = factor; }
    QString defaultChannelId() const { return _defaultChannelId; }

signals:
    void channelsUpdated();
    void channelLogoUpdated(ChannelDescription description);
    /// For the viewer, in words; empty when what was told last is over.
    void failed(QString text);
    /// The service has answered, or has not: why, in words. What it told before stays.
    void refreshed(QString problem);

public slots:
    void onAllowedChannelsLoaded(QString const& ipAddress, QString const& countryId, QString const& confidenceFactor,
                                 QString const& defaultId);
    void onAllowedChannelsError(QString const& text);
    void onChannelParsingError(QString const& text);
    void onStartChecking();

private:
    std::unique_ptr<ChannelDescriptionProvider> createProvider();
    std::unique_ptr<ChannelDescriptionProvider> createServiceProvider();
    void start();
    void stopWaiting();
    void clearErrors();

    static Logger* log;

    AppData& _appData;
    TimerFactory* const _timers;
    ProviderFactory const _factory;
    Timer* const _retryTimer; ///< Of the factory.
    std::unique_ptr<ChannelDescriptionProvider> _provider;
    std::unique_ptr<UserChannelGizmo> _gizmo;
    bool _hasError = false;  ///< Told, and not over.
    bool _isWaiting = false; ///< For the time to ask again.
    QString _ipAddress;
    QString _countryId;
    QString _confidenceFactor;
    QString _defaultChannelId;
};
