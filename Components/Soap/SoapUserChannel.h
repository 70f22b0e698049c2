#pragma once

#include <QMetaType>
#include <QString>

class SoapValue;

/// A channel of a viewer's own list, as the service describes it.
struct SoapUserChannel {
    static SoapUserChannel read(SoapValue const& value);

    bool operator==(SoapUserChannel const& other) const = default;

    QString uri;
    QString name;
    QString id;
    QString rootId;
    QString logoUrl;
    bool hasAlerts = false;
    bool hasChat = false;
    bool showBanners = false;
    QString chatroomName;
    QString alertsTopic;
    QString channelType;
    bool autobuzzEnabled = false;
    bool repeatedAutobuzz = false;
    int autobuzzInterval = 0;
    double ratingAverage = 0;
    QString description;
};

Q_DECLARE_METATYPE(SoapUserChannel)
