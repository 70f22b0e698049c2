#pragma once

#include "Effect.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

class Logger;

/// The effects on the disk: a directory with a file for each of the viewer's, an index of order and state, and, while
/// effects are being tried, a marker with their names, which tells the next start what it was that the program died
/// of. The templates are among the resources.
///
/// Any thread, one at a time. Operations that write return what went wrong, in words; empty if nothing did.
class EffectsStore
{
    Q_DECLARE_TR_FUNCTIONS(EffectsStore)

public:
    static constexpr qint64 maximumSource = 256 << 10; ///< Bytes.
    static constexpr qint64 maximumIndex = 1 << 20;    ///< Bytes.
    static constexpr int mostEffects = 200;

    struct Contents {
        QList<Effect> effects;  ///< In order.
        bool isEnabled = false; ///< Whether they are shown at all.
        QStringList problems;   ///< What could not be read, in words.
        bool hadMarker = false;
    };

    explicit EffectsStore(QString const& directory) : _directory(directory) {}

    /// All that can be read, the templates in any case. What the program died of is off, and says so.
    Contents load() const;

    QString write(QString const& name, QString const& source) const;
    QString remove(QString const& name) const;
    QString writeIndex(QList<Effect> const& effects, bool isEnabled) const;
    QString writeMarker(QStringList const& names) const;
    QString removeMarker() const;

    static QList<Effect> templates();

private:
    static Logger* log;

    QString pathOf(QString const& file) const { return _directory + '/' + file; }
    void readSources(Contents& contents) const;
    void readIndex(Contents& contents) const;
    void readMarker(Contents& contents) const;
    QString save(QString const& file, QByteArray const& bytes) const;

    QString const _directory;
};
