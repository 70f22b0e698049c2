#pragma once

#include "SponsorshipResponse.h"

#include <QObject>
#include <QString>

/// Who may have a pre-roll for a channel that is about to open, and hears how it plays. Main thread only.
class SponsorshipSource : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Answered by sponsorshipRequestCompleted(), at once or later, also where one was cancelled before. The user is
    /// known by `nodeId`; `previousChannel` played for `seconds`; `showTips` says whether the viewer wants advice.
    virtual void requestSponsorship(QString const& channelRootId, QString const& nodeId, int seconds,
                                    QString const& previousChannel, bool showTips) = 0;
    /// The answer to what was asked does not come any more.
    virtual void cancelRequest() = 0;

    virtual void onPlaybackStarted() = 0;
    virtual void onPlaybackTimeUpdated(double seconds) = 0;
    virtual void onPlaybackCompleted() = 0;
    virtual void onPlaybackIncomplete() = 0;
    virtual void onPlaybackError() = 0;
    virtual void onPlaybackClick() = 0;
    virtual void onPlaybackMutedChanged(bool muted) = 0;
    virtual void onPlaybackVolumeChanged(double volume) = 0;
    virtual void onPlaybackFullScreenChanged(bool fullScreen) = 0;

signals:
    void sponsorshipRequestCompleted(bool ok, SponsorshipResponse response);
};

/// Has none.
class NoSponsorship : public SponsorshipSource
{
public:
    using SponsorshipSource::SponsorshipSource;

    void requestSponsorship(QString const&, QString const&, int, QString const&, bool) override
    {
        emit sponsorshipRequestCompleted(false, {});
    }
    void cancelRequest() override {}
    void onPlaybackStarted() override {}
    void onPlaybackTimeUpdated(double) override {}
    void onPlaybackCompleted() override {}
    void onPlaybackIncomplete() override {}
    void onPlaybackError() override {}
    void onPlaybackClick() override {}
    void onPlaybackMutedChanged(bool) override {}
    void onPlaybackVolumeChanged(double) override {}
    void onPlaybackFullScreenChanged(bool) override {}
};
