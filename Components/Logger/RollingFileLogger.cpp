#include "RollingFileLogger.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <cstring>

namespace
{

constexpr unsigned int defaultMaximumFileSize = 10000000;
constexpr unsigned int defaultNumberOfOldFiles = 3;
constexpr int lineEndBytes = 2; // Counted for every line, whatever the platform writes.

QString defaultFileName(QSettings const& settings)
{
    QString const name = QCoreApplication::applicationName();
    QString const suffix = settings.value("logger/logFileNameSuffix", "").toString();
    QString const extension = settings.value("logger/logFileNameExtension", ".log").toString();
    return QDir::homePath() + QDir::separator() + "." + name + QDir::separator() + name + suffix + extension;
}

} // namespace

RollingFileLogger::RollingFileLogger(QObject* parent) : QObject(parent)
{
    QSettings const settings;
    _maximumFileSize = settings.value("logger/maximumFileSize", defaultMaximumFileSize).toUInt();
    _numberOfOldFiles = settings.value("logger/numberOfOldFiles", defaultNumberOfOldFiles).toUInt();
    _fileName = settings.value("logger/logFileName", defaultFileName(settings)).toString();
}

RollingFileLogger::~RollingFileLogger() = default;

void RollingFileLogger::log(char const* text)
{
    QMutexLocker locker(&_mutex);
    if (!_file)
        create();
    if (_failed)
        return;
    _currentSize += static_cast<qint64>(std::strlen(text)) + lineEndBytes;
    *_stream << QString::fromUtf8(text) << Qt::endl;
    if (_currentSize >= static_cast<qint64>(_maximumFileSize))
        roll();
}

void RollingFileLogger::create()
{
    QDir().mkpath(QFileInfo(_fileName).absolutePath());
    _file = std::make_unique<QFile>(_fileName);
    if (!_file->open(QIODevice::Append | QIODevice::Text | QIODevice::Unbuffered)) {
        qWarning("An error occured opening %s", qPrintable(_fileName));
        _failed = true;
        return;
    }
    _currentSize = _file->size();
    _stream = std::make_unique<QTextStream>(_file.get());
}

void RollingFileLogger::roll()
{
    auto const oldName = [this](unsigned int number) {
        return QStringLiteral("%1.%2").arg(_fileName, QString::number(number));
    };
    if (_numberOfOldFiles == 0) {
        QFile::remove(_fileName);
    } else {
        QFile::remove(oldName(_numberOfOldFiles));
        for (unsigned int i = _numberOfOldFiles - 1; i >= 1; --i)
            QFile::rename(oldName(i), oldName(i + 1));
        QFile::rename(_fileName, oldName(1));
    }
    _stream.reset();
    _file.reset();
    _currentSize = 0;
}
