#include "TokenStreamAddress.h"

#include "DateTimeBuilder.h"
#include "StreamToken.h"

#include <QUrl>

Uri TokenStreamAddress::addressOf(StreamDescription const& stream)
{
    if (!stream.secure() || stream.key().isEmpty())
        return stream.uri();
    QString address = stream.uri().toString();
    QString const path = QUrl(address).path(QUrl::FullyDecoded);
    QString const item = QLatin1String(StreamToken::queryItem) + '=' +
                         generatorOf(stream).token(stream.key(), path, _clock->currentDateTime());
    qsizetype const fragment = address.indexOf('#');
    address.insert(fragment < 0 ? address.size() : fragment, (address.contains('?') ? '&' : '?') + item);
    return Uri(address);
}

TokenGenerator const& TokenStreamAddress::generatorOf(StreamDescription const& stream) const
{
    bool const isLevelThree = stream.provider().compare(QLatin1String(levelThree), Qt::CaseInsensitive) == 0;
    return isLevelThree ? static_cast<TokenGenerator const&>(_levelThree) : _akamai;
}
