#include "FileChannels.h"

#include "AppData.h"
#include "ChannelManager.h"
#include "FileName.h"
#include "OwnChannels.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

FileChannels::FileChannels(AppData& appData, QWidget& parent) : _appData(appData), _parent(parent) {}

ChannelDescription FileChannels::createFileChannel(QStringList const& names)
{
    ChannelDescription channel = OwnChannels::describeFile(names.constFirst());
    for (QString const& name : names.mid(1)) {
        ChannelDescription const other = OwnChannels::describeFile(name);
        for (StreamDescription const& stream : other.streamDescriptions())
            channel.appendStreamDescription(stream);
    }
    return channel;
}

QStringList FileChannels::namesOf(QMimeData const& data)
{
    QStringList names;
    for (QUrl const& url : data.urls())
        // A local name need not have characters; its address always has.
        names.append(url.isLocalFile() ? QString::fromLatin1(url.toEncoded()) : url.toString());
    if (names.isEmpty())
        for (QString const& line : data.text().split('\n'))
            if (OwnChannels::isAddress(line.trimmed()))
                names.append(line.trimmed());
    return names;
}

void FileChannels::open(QString const& name, bool alone)
{
    if (OwnChannels::isAddress(name) && !FileName::isAddress(name))
        _appData.channelManager()->openUserStream(name, Uri::withoutUserInfo(name), alone);
    else
        _appData.channelManager()->openOwnChannel(createFileChannel({name}), alone);
}

void FileChannels::openVideoFile(QString const& name)
{
    open(name, true);
}

void FileChannels::openVideoFilesAsMultipleChannels(QStringList const& names)
{
    bool isFirst = true;
    for (QString const& name : names)
        open(name, std::exchange(isFirst, false));
}

void FileChannels::addVideoFiles(QStringList const& names)
{
    for (QString const& name : names)
        open(name, false);
}

void FileChannels::drop(QStringList const& names, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ControlModifier)
        addVideoFiles(names);
    else
        openVideoFilesAsMultipleChannels(names);
}

QStringList FileChannels::choose(QString const& title, bool several)
{
    QString const filter =
        tr("Media files (*.mp4 *.m4v *.mov *.mkv *.webm *.avi *.wmv *.wma *.asf *.mpg *.mpeg *.ts *.flv *.ogg *.ogv "
           "*.mp3 *.m4a *.aac *.flac *.wav);;All files (*)");
    QString const directory = _appData.settings.videoFileDirectory();
    QStringList names;
    if (several)
        names = QFileDialog::getOpenFileNames(&_parent, title, directory, filter);
    else
        names = QStringList(QFileDialog::getOpenFileName(&_parent, title, directory, filter));
    names.removeAll(QString());
    if (!names.isEmpty())
        _appData.settings.setVideoFileDirectory(QFileInfo(names.constFirst()).absolutePath());
    return names;
}

void FileChannels::onOpenVideoFile()
{
    for (QString const& name : choose(tr("Open Video File"), false))
        openVideoFile(name);
}

void FileChannels::onOpenVideoFiles()
{
    openVideoFilesAsMultipleChannels(choose(tr("Open Video Files"), true));
}

void FileChannels::onAddVideoFiles()
{
    addVideoFiles(choose(tr("Add Video Files"), true));
}
