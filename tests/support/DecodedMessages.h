#pragma once

#include "CentralisedBiscottiMessageDecoder.h"

#include <QList>
#include <QObject>
#include <QString>

/// A decoder and all that it has said: each message as its text, the errors as a number.
class DecodedMessages
{
public:
    struct Message {
        QString id;
        QString text; ///< What toString() of the message says, all its members.
        QByteArray rawBytes;
        bool isTrusted = false; ///< Verified, under the null signature id.
        bool operator==(Message const&) const = default;
    };

    explicit DecodedMessages(CentralisedBiscottiMessageDecoding decoding = CentralisedBiscottiMessageDecoding::Ber)
        : decoder(nullptr)
    {
        using Decoder = CentralisedBiscottiMessageDecoder;
        decoder.setDecoding(decoding);
        auto const record = [this](CentralisedBiscottiMessageId const& id, BiscottiMessage const& message,
                                   BiscottiSignatureId const& signatureId, bool verified,
                                   QByteArray const& rawBytes) {
            messages.append({id.toString(), message.toString(), rawBytes, verified && signatureId.isNull()});
        };
        QObject::connect(&decoder, &Decoder::heartbeatAvailable, record);
        QObject::connect(&decoder, &Decoder::ackAvailable, record);
        QObject::connect(&decoder, &Decoder::subscriptionAvailable, record);
        QObject::connect(&decoder, &Decoder::unsubscriptionAvailable, record);
        QObject::connect(&decoder, &Decoder::postAvailable, record);
        QObject::connect(&decoder, &Decoder::postAvailable,
                         [this](CentralisedBiscottiMessageId const&, BiscottiPost const& post) { lastPost = post; });
        QObject::connect(&decoder, &Decoder::errorDecoding, [this] { ++errors; });
    }

    CentralisedBiscottiMessageDecoder decoder;
    QList<Message> messages;
    BiscottiPost lastPost;
    int errors = 0;
};
