#include "RollingFileLogger.h"

#include "BoundedNumber.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>
#include <cstring>
#include <functional>

namespace
{

constexpr BoundedNumber maximumFileSizeNumber = {"logger/maximumFileSize", 10000000,
                                                 RollingFileLogger::leastMaximumFileSize,
                                                 RollingFileLogger::mostMaximumFileSize};
constexpr BoundedNumber numberOfOldFilesNumber = {"logger/numberOfOldFiles", 3, 0, RollingFileLogger::mostOldFiles};
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
    _maximumFileSize = read(settings, maximumFileSizeNumber);
    _numberOfOldFiles = read(settings, numberOfOldFilesNumber);
    _fileName = configuredFileName();
}

QString RollingFileLogger::configuredFileName()
{
    QSettings const settings;
    return settings.value("logger/logFileName", defaultFileName(settings)).toString();
}

RollingFileLogger::~RollingFileLogger() = default;

qint64 RollingFileLogger::read(QSettings const& settings, BoundedNumber const& number)
{
    auto [value, complaint] = number.read(settings);
    if (!complaint.isEmpty())
        _complaints.append(complaint);
    return value;
}

void RollingFileLogger::log(char const* text)
{
    QMutexLocker locker(&_mutex);
    if (!_file)
        create();
    if (_failed)
        return;
    _currentSize += static_cast<qint64>(std::strlen(text)) + lineEndBytes;
    *_stream << QString::fromUtf8(text) << Qt::endl;
    if (_currentSize >= _maximumFileSize)
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

/// The numbers of the old files that are there, highest first, up to the number to keep.
QList<qint64> RollingFileLogger::oldFiles() const
{
    QFileInfo const current(_fileName);
    QString const beginning = current.fileName() + '.';
    QList<qint64> numbers;
    for (QString const& name : current.dir().entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        qint64 const number = name.startsWith(beginning) ? name.mid(beginning.size()).toLongLong() : 0;
        if (number >= 1 && number <= _numberOfOldFiles && name == beginning + QString::number(number))
            numbers.append(number);
    }
    std::ranges::sort(numbers, std::greater());
    return numbers;
}

void RollingFileLogger::roll()
{
    auto const oldName = [this](qint64 number) {
        return QStringLiteral("%1.%2").arg(_fileName, QString::number(number));
    };
    if (_numberOfOldFiles == 0) {
        QFile::remove(_fileName);
    } else {
        for (qint64 const number : oldFiles()) {
            if (number == _numberOfOldFiles)
                QFile::remove(oldName(number));
            else
                QFile::rename(oldName(number), oldName(number + 1));
        }
        QFile::rename(_fileName, oldName(1));
    }
    _stream.reset();
    _file.reset();
    _currentSize = 0;
}
