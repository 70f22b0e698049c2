#include "SettingsWriter.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "SettingsFile.h"

#include <QEvent>

Logger* SettingsWriter::log = LoggerManager::logger();

SettingsWriter::File::File() : QSettings(QSettings::IniFormat, QSettings::UserScope, "Ombravision", "Ombravision") {}

bool SettingsWriter::File::event(QEvent* event)
{
    return event->type() == QEvent::UpdateRequest || QSettings::event(event);
}

void SettingsWriter::File::enter(QString const& group)
{
    while (!this->group().isEmpty())
        endGroup();
    if (!group.isEmpty())
        beginGroup(group);
}

SettingsWriter::Group::Group(SettingsWriter& writer, QString const& name)
    : _writer(writer), _outer(writer._file.group())
{
    _writer._file.enter(name);
}

SettingsWriter::Group::~Group()
{
    _writer._file.enter(_outer);
    if (!_writer._timer.isActive())
        _writer._timer.start(msBeforeWriting);
}

SettingsWriter::SettingsWriter(QObject* parent) : QObject(parent)
{
    _thread.setMaxThreadCount(1);
    _timer.setSingleShot(true);
    connect(&_timer, &QTimer::timeout, this, &SettingsWriter::write);
}

SettingsWriter::~SettingsWriter()
{
    if (_timer.isActive())
        write();
    _thread.waitForDone();
}

/// All that know the file share what was set in it: whoever opens it next writes that.
void SettingsWriter::write()
{
    _thread.start([this] {
        QSettings file = settingsFile();
        QString const problem = writeSettingsFile(file);
        if (problem.isEmpty())
            return;
        LOG_ERROR("%s", qUtf8Printable(problem));
        QMetaObject::invokeMethod(
            this, [this, problem] { emit failed(problem); }, Qt::QueuedConnection);
    });
}
