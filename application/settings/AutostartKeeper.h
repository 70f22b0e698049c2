#pragma once

#include <QObject>
#include <QString>
#include <QThreadPool>

class Logger;

/// Brings the desktop's entry for the start of this program, see RunAtStartup, to what is wanted, and tells what it
/// says: on a thread of its own, one thing after the other, so that the last wish holds. Main thread only; deleting
/// it waits for what has been wished.
class AutostartKeeper : public QObject
{
    Q_OBJECT

public:
    /// The name under which the program is started.
    explicit AutostartKeeper(QString const& name, QObject* parent = nullptr);
    ~AutostartKeeper() override;

    /// Looks at the entry, and then tells what it says by found().
    void look();
    /// found() is told only if that fails, after failed().
    void set(bool run);

signals:
    /// Whether the program is started, unless something else has been wished since.
    void found(bool runs);
    /// In words, for the viewer.
    void failed(QString const& problem);

private:
    void tellFound(int wish, bool runs);

    static Logger* log;

    QString const _name;
    int _wishes = 0;     ///< Counted, so that an answer from before one is known.
    QThreadPool _thread; ///< One.
};
