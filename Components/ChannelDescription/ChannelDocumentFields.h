#pragma once

#include "ChannelDocumentReader.h"

#include <QStringList>
#include <QStringView>

#include <array>
#include <optional>

class Logger;

/// The texts of one channel of the channel document as they stand there, and what is made of them.
class ChannelDocumentFields
{
public:
    /// The elements of a channel, but for the one that may be repeated.
    enum Field {
        Name,
        UniqueShortName,
        Description,
        WebsiteUrl,
        LinkText,
        LogoUrl,
        HasAlerts,
        HasChat,
        ShowBanners,
        ChatroomName,
        AlertsTopic,
        AutobuzzEnabled,
        RepeatedAutobuzz,
        AutobuzzInterval,
        ChannelType,
        LatteUri,
        StreamingUrl,
        AdditionalLatteUri,
        MediaProfile,
        Key,
        Provider,
        Profile,
        Fingerprint,
        UnavailableReason,
        PurchaseUrl,
        ViewerAdded,
        FieldCount
    };

    /// The field of an element's name, in whatever case.
    static std::optional<Field> fieldOf(QStringView name);

    /// Text of white space only is none.
    void set(Field field, QString const& text);

    ChannelDocumentReader::Entry toEntry() const;

    /// Whether a text is an address of a stream in the network.
    static bool isStreamAddress(QString const& text);

private:
    QString const& at(Field field) const { return _texts[field]; }
    void setFlags(ChannelDescription& channel) const;
    void setType(ChannelDescription& channel) const;
    void appendStreams(ChannelDescription& channel) const;
    Uri networkUri(QString const& text, QStringList const& schemes) const;

    static Logger* log;

    std::array<QString, FieldCount> _texts;
    QStringList _additionalUris;
};
