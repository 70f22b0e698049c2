#pragma once

#include <QObject>
#include <QSettings>
#include <QThreadPool>
#include <QTimer>

class Logger;

/// The settings file as the program uses it. What is set can be read at once; a thread of its own writes it, for the
/// disk may take its time: some moments later, together with what was set meanwhile, and the rest when this is
/// deleted, which waits for it. Main thread only.
class SettingsWriter : public QObject
{
    Q_OBJECT

public:
    static constexpr int msBeforeWriting = 100; ///< A sign-in sets much in several places.

    explicit SettingsWriter(QObject* parent = nullptr);
    ~SettingsWriter() override;

    /// A group of the file, or all of it without a name, as long as this is there; what was set is written then. The
    /// one that is made last counts.
    class Group
    {
    public:
        explicit Group(SettingsWriter& writer, QString const& name = {});
        ~Group();
        Q_DISABLE_COPY_MOVE(Group)

        QSettings& operator*() const { return _writer._file; }
        QSettings* operator->() const { return &_writer._file; }

    private:
        SettingsWriter& _writer;
        QString const _outer; ///< The group before.
    };

signals:
    /// It could not be written: in words, for the viewer.
    void failed(QString problem);

private:
    /// Its changes do not wait for the next turn of the event loop, but for the writer.
    class File : public QSettings
    {
    public:
        File();
        bool event(QEvent* event) override;
        void enter(QString const& group);
    };

    void write();

    static Logger* log;

    File _file;
    QTimer _timer;
    QThreadPool _thread; ///< One.
};
