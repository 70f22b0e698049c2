#pragma once

#include "OmbravisionUserGroup.h"
#include "OmbravisionUserRole.h"

#include <QList>
#include <QMetaType>
#include <QString>

class SoapValue;

/// What the service answers to a sign-in. What it does not say has the value that stands here.
struct SoapLoginResponse {
    static constexpr int criticalUpdateCode = 2; ///< Nobody signs in with this version any more.

    /// Reads the structure that the call returned.
    static SoapLoginResponse read(SoapValue const& value);

    bool isUpdateOffered() const { return !updateVersion.isEmpty(); }
    bool isUpdateCritical() const { return responseCode == criticalUpdateCode; }

    bool authenticated = false;
    bool behindProxy = false;
    QString message; ///< Why it failed.
    int responseCode = 0;
    QString updateMd5;
    QString updateMessage;
    QString updateUrl;
    QString updateVersion;
    QString userId;
    bool showBanners = false;
    QString bannersBaseUrl;
    int bannerRefreshRate = 120; ///< seconds
    QString bannerSizes;         ///< Separated by commas.
    bool chatAllowed = false;
    bool showSponsorship = true;
    bool chatTethering = true;  ///< The viewer may change the chat room.
    int multiviewChannels = -1; ///< How many channels may be open at once; -1 for any number.
    bool videoPostprocessing = false;
    QString buyPremiumMessage;
    QString tpck; ///< The key of this program for sharing pictures,
    QString tck;  ///< and for Twitter,
    QString tcs;  ///< with its secret.
    QList<OmbravisionUserGroup> groups;
    QList<OmbravisionUserRole> roles;
};

Q_DECLARE_METATYPE(SoapLoginResponse)
