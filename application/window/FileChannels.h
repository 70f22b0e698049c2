#pragma once

#include "ChannelDescription.h"

#include <QObject>
#include <QStringList>

class AppData;
class QMimeData;
class QWidget;

/// Files and addresses that the viewer names, by the menu's dialogs or by dropping them, as channels. Main thread
/// only.
class FileChannels : public QObject
{
    Q_OBJECT

public:
    /// The parent is that of the dialogs; it outlives this.
    FileChannels(AppData& appData, QWidget& parent);

    /// The channel of these files: one stream for each, which are shown beside each other. Not for an empty list.
    static ChannelDescription createFileChannel(QStringList const& names);

    /// Files and addresses of something that is dragged; an address that is plain text counts.
    static QStringList namesOf(QMimeData const& data);

    /// In place of what plays.
    void openVideoFile(QString const& name);
    /// The first in place of what plays, the others beside it.
    void openVideoFilesAsMultipleChannels(QStringList const& names);
    /// Beside what plays.
    void addVideoFiles(QStringList const& names);

    /// Plays what was dropped: beside what plays with Ctrl, otherwise in its place.
    void drop(QStringList const& names, Qt::KeyboardModifiers modifiers);

public slots:
    void onOpenVideoFile();
    void onOpenVideoFiles();
    void onAddVideoFiles();

private:
    QStringList choose(QString const& title, bool several);
    void open(QString const& name, bool alone);

    AppData& _appData;
    QWidget& _parent;
};
