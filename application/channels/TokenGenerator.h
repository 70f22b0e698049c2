#pragma once

#include <QDateTime>
#include <QString>

/// Makes the tokens that a delivery network asks for. A stream may be lost and opened anew at its address for as long
/// as a token holds, so that one has to outlast an evening.
class TokenGenerator
{
public:
    virtual ~TokenGenerator() = default;

    /// A token of the path of an address, decoded; `now` is the time of the opening.
    QString token(QString const& key, QString const& path, QDateTime const& now) const;

protected:
    /// The second since the epoch up to which a token of now holds.
    virtual qint64 expiry(qint64 now) const = 0;
};

/// Each token holds for a day.
class AkamaiTokenGenerator : public TokenGenerator
{
protected:
    qint64 expiry(qint64 now) const override;
};

/// All tokens of a day end with the next one (UTC), so that everybody opens the same address and caches can serve it.
class LevelThreeTokenGenerator : public TokenGenerator
{
protected:
    qint64 expiry(qint64 now) const override;
};
