#include "FileName.h"

#include <QStringDecoder>
#include <QUrl>

#include <filesystem>

namespace
{

QLatin1String const fileAddress("file://");
QLatin1String const localHost("localhost/");

bool isUtf8(QByteArray const& bytes)
{
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString const text = decode(bytes);
    return !decode.hasError() && !text.isNull();
}

/// With nothing but "%XX" decoded: a percent sign by itself stands for itself, and no name holds a zero byte.
QByteArray decoded(QByteArray const& encoded)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < encoded.size(); ++i) {
        bool isCode = false;
        int const code = encoded.at(i) == '%' ? encoded.mid(i + 1, 2).toInt(&isCode, 16) : 0;
        isCode = isCode && code > 0 && std::isxdigit(static_cast<unsigned char>(encoded.at(i + 1))) &&
                 i + 2 < encoded.size();
        bytes += isCode ? static_cast<char>(code) : encoded.at(i);
        i += isCode ? 2 : 0;
    }
    return bytes;
}

QByteArray absolute(QByteArray const& path)
{
    if (path.startsWith('/'))
        return path;
    std::error_code failure;
    std::string const directory = std::filesystem::current_path(failure).native();
    return QByteArray(directory.data(), static_cast<qsizetype>(directory.size())) + '/' + path;
}

QByteArray addressOf(QByteArray const& path)
{
    return "file://" + absolute(path).toPercentEncoding("/");
}

} // namespace

QString FileName::fromArgument(char const* argument)
{
    QByteArray const bytes(argument);
    if (bytes.startsWith('-') || bytes.isEmpty() || isUtf8(bytes))
        return QString::fromLocal8Bit(bytes);
    if (!bytes.contains("://"))
        return QString::fromLatin1(addressOf(bytes));
    QByteArray address;
    for (char const byte : bytes)
        address +=
            static_cast<unsigned char>(byte) < 0x80 ? QByteArray(1, byte) : QByteArray(1, byte).toPercentEncoding();
    return QString::fromLatin1(address);
}

QString FileName::fromLocal8Bit(QByteArray const& path)
{
    return isUtf8(path) || path.isEmpty() ? QString::fromUtf8(path) : QString::fromLatin1(addressOf(path));
}

bool FileName::isAddress(QString const& text)
{
    return text.startsWith(fileAddress, Qt::CaseInsensitive);
}

QString FileName::fromAddress(QString const& name)
{
    if (!isAddress(name))
        return name;
    QByteArray const path = toLocal8Bit(name);
    return path.isEmpty() ? name : fromLocal8Bit(path);
}

QByteArray FileName::toLocal8Bit(QString const& name)
{
    if (!isAddress(name))
        return name.toLocal8Bit();
    QString path = name.mid(fileAddress.size());
    if (path.startsWith(localHost, Qt::CaseInsensitive))
        path.remove(0, localHost.size() - 1);
    return path.startsWith('/') ? decoded(path.toUtf8()) : QByteArray();
}

QString FileName::toAddress(QString const& name)
{
    QByteArray const path = toLocal8Bit(name);
    return path.isEmpty() ? name : QString::fromLatin1(addressOf(path));
}

QString FileName::title(QString const& name)
{
    QByteArray const path = toLocal8Bit(name);
    return path.isEmpty() ? name : QString::fromUtf8(path.mid(path.lastIndexOf('/') + 1));
}
