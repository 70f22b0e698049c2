#pragma once

#include "Effect.h"
#include "EffectsStore.h"

#include <QList>
#include <QObject>
#include <QThreadPool>

#include <functional>

/// The effects there are, in the order in which they are applied: those that come with the program, which can be
/// switched and moved only, and the viewer's own. What changes here is written at once, on a thread of its own that
/// does one thing after the other; the destructor waits for what is left.
///
/// Operations that may be refused return why, in words; empty when they were carried out. Main thread only.
class EffectsLibrary : public QObject
{
    Q_OBJECT

public:
    /// Has the templates only, all off, until load(); nothing can be changed before that has come to its end.
    explicit EffectsLibrary(QString const& directory, QObject* parent = nullptr);
    ~EffectsLibrary() override;

    /// Begins to read; loaded() follows.
    void load();
    bool isLoaded() const { return _isLoaded; }

    QList<Effect> const& effects() const { return _effects; }
    /// Null for a name that there is not.
    Effect const* find(QString const& name) const;

    /// Whether effects are shown at all, as it was kept.
    bool isEnabled() const { return _isEnabled; }
    void setEnabled(bool enabled);

    /// Puts a new one after another, or last where there is none of that name. By value: the texts may be those of an
    /// effect in the list, which moves.
    QString add(QString name, QString source, QString after = {});
    QString rename(QString const& name, QString const& newName);
    QString remove(QString const& name);
    QString setSource(QString const& name, QString const& source);
    void setOn(QString const& name, bool isOn);
    void move(int from, int to);
    /// In the order of these names; those that are not there follow.
    void setOrder(QStringList const& names);

    /// Switches an effect off for a reason.
    void setFault(QString const& name, QString const& fault);
    /// A trial of its present source went well; it took so many microseconds for a megapixel.
    void setPassed(QString const& name, QByteArray const& mark, double cost);

    /// A name that is free, made of another.
    QString freeName(QString const& name) const;

    /// Calls back once the disk knows that these are being tried; endTrying() says that they have done no harm.
    void beginTrying(QStringList const& names, std::function<void()> const& then);
    void endTrying();

signals:
    void loaded();
    /// Anything of effects().
    void changed();
    /// The viewer wants it, maybe again; changed() follows.
    void switchedOn(QString name);
    /// Something could not be read or written, in words.
    void failed(QString words);

private:
    int indexOf(QString const& name) const;
    QString nameProblem(QString const& name, QString const& except) const;
    void keepIndex();
    void run(std::function<QString()> const& work, std::function<void()> const& then = {});

    EffectsStore const _store;
    QThreadPool _disk;
    QList<Effect> _effects;
    bool _isEnabled = false;
    bool _isLoaded = false;
};
