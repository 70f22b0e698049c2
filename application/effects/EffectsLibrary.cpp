#include "EffectsLibrary.h"

#include "EffectNames.h"

#include <QFutureWatcher>
#include <QPromise>
#include <QRegularExpression>

#include <algorithm>
#include <memory>

namespace
{

/// Runs work on a pool's thread; its result comes back to the thread of the context, unless that has gone.
template<class Result>
void runOnPool(QThreadPool& pool, QObject* context, std::function<Result()> const& work,
               std::function<void(Result const&)> const& then)
{
    auto const promise = std::make_shared<QPromise<Result>>();
    auto* const watcher = new QFutureWatcher<Result>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context, [watcher, then] {
        watcher->deleteLater();
        then(watcher->result());
    });
    promise->start();
    watcher->setFuture(promise->future());
    pool.start([promise, work] {
        promise->addResult(work());
        promise->finish();
    });
}

} // namespace

EffectsLibrary::EffectsLibrary(QString const& directory, QObject* parent)
    : QObject(parent), _store(directory), _effects(EffectsStore::templates())
{
    _disk.setMaxThreadCount(1);
}

EffectsLibrary::~EffectsLibrary()
{
    _disk.waitForDone();
}

void EffectsLibrary::load()
{
    runOnPool<EffectsStore::Contents>(
        _disk, this, [store = _store] { return store.load(); },
        [this](EffectsStore::Contents const& contents) {
            _effects = contents.effects;
            _isEnabled = contents.isEnabled;
            _isLoaded = true;
            if (contents.hadMarker) {
                keepIndex(); // Before the marker goes.
                endTrying();
            }
            emit loaded();
            emit changed();
            if (!contents.problems.isEmpty())
                emit failed(contents.problems.join('\n'));
        });
}

void EffectsLibrary::run(std::function<QString()> const& work, std::function<void()> const& then)
{
    runOnPool<QString>(_disk, this, work, [this, then](QString const& problem) {
        if (!problem.isEmpty())
            emit failed(problem);
        if (then)
            then();
    });
}

void EffectsLibrary::keepIndex()
{
    run([store = _store, effects = _effects, enabled = _isEnabled] { return store.writeIndex(effects, enabled); });
}

int EffectsLibrary::indexOf(QString const& name) const
{
    auto const found = std::ranges::find(_effects, name, &Effect::name);
    return found == _effects.end() ? -1 : static_cast<int>(found - _effects.begin());
}

Effect const* EffectsLibrary::find(QString const& name) const
{
    int const index = indexOf(name);
    return index < 0 ? nullptr : &_effects.at(index);
}

QString EffectsLibrary::nameProblem(QString const& name, QString const& except) const
{
    if (QString const problem = EffectNames::problem(name); !problem.isEmpty())
        return problem;
    for (Effect const& effect : _effects)
        if (effect.name != except && effect.name.compare(name, Qt::CaseInsensitive) == 0)
            return tr("There is an effect called \"%1\" already.").arg(effect.name);
    return {};
}

void EffectsLibrary::setEnabled(bool enabled)
{
    if (!_isLoaded || _isEnabled == enabled)
        return;
    _isEnabled = enabled;
    keepIndex();
}

QString EffectsLibrary::add(QString name, QString source, QString after)
{
    QString const tidied = EffectNames::tidied(name);
    if (QString const problem = nameProblem(tidied, {}); !problem.isEmpty())
        return problem;
    if (!_isLoaded)
        return tr("The effects are still being read.");
    if (_effects.size() >= EffectsStore::mostEffects)
        return tr("There can be %n effect(s) at most.", nullptr, EffectsStore::mostEffects);
    if (source.toUtf8().size() > EffectsStore::maximumSource)
        return tr("This effect is too long.");
    int const place = indexOf(after);
    _effects.insert(place < 0 ? _effects.size() : place + 1, {.name = tidied, .source = source});
    run([store = _store, tidied, source] { return store.write(tidied, source); });
    keepIndex();
    emit changed();
    return {};
}

QString EffectsLibrary::rename(QString const& name, QString const& newName)
{
    QString const tidied = EffectNames::tidied(newName);
    int const index = indexOf(name);
    if (index < 0 || _effects.at(index).isTemplate)
        return tr("This effect can't be renamed.");
    if (QString const problem = nameProblem(tidied, name); !problem.isEmpty())
        return problem;
    if (tidied == name)
        return {};
    _effects[index].name = tidied;
    // The new file is there before the old one goes.
    run([store = _store, name, tidied, source = _effects.at(index).source] {
        QString const problem = store.write(tidied, source);
        return problem.isEmpty() ? store.remove(name) : problem;
    });
    keepIndex();
    emit changed();
    return {};
}

QString EffectsLibrary::remove(QString const& name)
{
    int const index = indexOf(name);
    if (index < 0 || _effects.at(index).isTemplate)
        return tr("This effect can't be deleted.");
    _effects.removeAt(index);
    run([store = _store, name] { return store.remove(name); });
    keepIndex();
    emit changed();
    return {};
}

QString EffectsLibrary::setSource(QString const& name, QString const& source)
{
    int const index = indexOf(name);
    if (index < 0 || _effects.at(index).isTemplate)
        return tr("This effect can't be changed.");
    if (source.toUtf8().size() > EffectsStore::maximumSource)
        return tr("This effect is too long.");
    Effect& effect = _effects[index];
    if (effect.source == source)
        return {};
    effect.source = source;
    effect.passed.clear();
    effect.fault.clear();
    run([store = _store, name, source] { return store.write(name, source); });
    emit changed();
    return {};
}

void EffectsLibrary::setOn(QString const& name, bool isOn)
{
    int const index = indexOf(name);
    if (!_isLoaded || index < 0 || (_effects.at(index).isOn == isOn && _effects.at(index).fault.isEmpty()))
        return;
    _effects[index].isOn = isOn;
    _effects[index].fault.clear();
    keepIndex();
    if (isOn)
        emit switchedOn(name);
    emit changed();
}

void EffectsLibrary::move(int from, int to)
{
    bool const isInside = from >= 0 && to >= 0 && from < _effects.size() && to < _effects.size();
    if (!_isLoaded || !isInside || from == to)
        return;
    _effects.move(from, to);
    keepIndex();
    emit changed();
}

void EffectsLibrary::setOrder(QStringList const& names)
{
    QList<Effect> ordered = _effects;
    std::ranges::stable_sort(ordered, {}, [&names](Effect const& effect) {
        qsizetype const place = names.indexOf(effect.name);
        return place < 0 ? names.size() : place;
    });
    if (!_isLoaded || ordered == _effects)
        return;
    _effects = ordered;
    keepIndex();
    emit changed();
}

void EffectsLibrary::setFault(QString const& name, QString const& fault)
{
    int const index = indexOf(name);
    if (index < 0)
        return;
    _effects[index].isOn = false;
    _effects[index].fault = fault;
    keepIndex();
    emit changed();
}

void EffectsLibrary::setPassed(QString const& name, QByteArray const& mark, double cost)
{
    int const index = indexOf(name);
    if (index < 0 || _effects.at(index).passed == mark)
        return;
    _effects[index].passed = mark;
    _effects[index].cost = cost;
    keepIndex();
    emit changed();
}

QString EffectsLibrary::freeName(QString const& name) const
{
    static QRegularExpression const counted(QStringLiteral(" \\d{1,4}$"));
    QString base = EffectNames::tidied(name);
    if (base.size() > counted.match(base).capturedLength())
        base.remove(counted);                           // A copy of a copy counts on.
    constexpr int room = EffectNames::maximumBytes - 5; // For a number.
    while (base.toUtf8().size() > room)
        base.chop(1);
    QString free = base;
    for (int number = 2; !nameProblem(free, {}).isEmpty() && number < 2 * EffectsStore::mostEffects; ++number)
        free = QString("%1 %2").arg(base).arg(number);
    return free;
}

void EffectsLibrary::beginTrying(QStringList const& names, std::function<void()> const& then)
{
    run([store = _store, names] { return store.writeMarker(names); }, then);
}

void EffectsLibrary::endTrying()
{
    run([store = _store] { return store.removeMarker(); });
}
