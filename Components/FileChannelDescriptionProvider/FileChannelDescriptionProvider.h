#pragma once

#include "ChannelDescriptionProvider.h"

#include <QDateTime>
#include <QList>
#include <QMultiHash>
#include <QPair>
#include <QString>
#include <QStringList>

#include <atomic>

class Logger;
class MemoQueue;

/// Channels from a local file (ChannelFileReader tells its format), which is read again when it has changed. Each
/// channel's logo is the file of its id and ".png" in a directory.
///
/// start() and refresh() read the file at once; the logos follow, loaded on the queue's thread, which also looks for
/// changes.
class FileChannelDescriptionProvider : public ChannelDescriptionProvider
{
    Q_OBJECT

public:
    /// The queue is borrowed. The file is looked at every `intervalMs`.
    FileChannelDescriptionProvider(MemoQueue* queue, QString const& file, QString const& logoDirectory,
                                   int intervalMs, QObject* parent = nullptr);
    ~FileChannelDescriptionProvider() override;

    long long numChannels() const override { return _channels.size(); }
    ChannelDescription descriptionAt(long long index) const override { return _channels.value(index); }

    /// These two throw std::logic_error when the file cannot be opened or is no XML; the list stays as it is then.
    void start() override;
    void refresh() override;
    void retire() override;
    void stop() override { _isRunning = false; }

    // What the memos do, on the queue's thread.
    void checkFile();
    void loadLogos(QStringList const& ids);
    void queueLogos(QStringList const& ids);

private:
    using Logos = QList<QPair<QString, ChannelLogo>>; ///< By the channel's id.

    void load();
    QList<ChannelDescription> parse() const;
    void parseChangedFile();
    void publish(QList<ChannelDescription> const& channels, int reading);
    void setLogos(Logos const& logos);
    ChannelLogo logoOf(QString const& id) const;
    QDateTime lastModified() const;
    void scheduleCheck();

    static Logger* log;

    MemoQueue* const _queue;
    QString const _file;
    QDateTime _lastModified; ///< When the file was last read; of the queue's thread after the constructor.
    QString const _logoDirectory;
    int const _intervalMs;
    QList<ChannelDescription> _channels; ///< Of this object's thread, as the next.
    QMultiHash<QString, qsizetype> _placesOfId;
    std::atomic<bool> _isRunning{false};
    std::atomic<int> _readings{0}; ///< Numbers them, so that a late one does not replace a later one.
    int _published = 0;            ///< The number of the one in the list; of this object's thread.
};
