#include "EffectsStore.h"

#include "EffectNames.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStringDecoder>

#include <algorithm>
#include <optional>

Logger* EffectsStore::log = LoggerManager::logger();

namespace
{

constexpr char const* indexFile = "effects.json";
constexpr char const* markerFile = "trying.json";

/// Nothing for what is too long, no text, or no file at all: a link or a pipe is none.
std::optional<QByteArray> readEffectFile(QString const& path, qint64 maximum)
{
    QFileInfo const info(path);
    QFile file(path);
    if (!info.isFile() || info.isSymLink() || info.size() > maximum || !file.open(QIODevice::ReadOnly))
        return {};
    QByteArray bytes = file.read(maximum + 1);
    return bytes.size() > maximum ? std::nullopt : std::optional(bytes);
}

std::optional<QString> sourceOf(QByteArray const& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(bytes);
    return decoder.hasError() || text.contains(QChar::Null) ? std::nullopt : std::optional(text);
}

QList<Effect>::iterator findEffect(QList<Effect>& effects, QString const& name)
{
    return std::ranges::find(effects, name, &Effect::name);
}

} // namespace

QList<Effect> EffectsStore::templates()
{
    QList<Effect> effects;
    for (char const* const name : {"Sharpen", "Black and White", "Film Grain", "Scan Lines"}) {
        QFile file(":/Resources/Shaders/" + QString(name).remove(' ') + ".frag");
        if (file.open(QIODevice::ReadOnly))
            effects.append({.name = name, .source = QString::fromUtf8(file.readAll()), .isTemplate = true});
        else
            LOG_ERROR("Could not open file %s", qPrintable(file.fileName()));
    }
    return effects;
}

EffectsStore::Contents EffectsStore::load() const
{
    Contents contents;
    contents.effects = templates();
    readSources(contents);
    readIndex(contents);
    readMarker(contents);
    for (QString const& problem : contents.problems)
        LOG_WARNING("%s", qUtf8Printable(problem));
    return contents;
}

void EffectsStore::readSources(Contents& contents) const
{
    QStringList const files = QDir(_directory).entryList({"*.frag"}, QDir::Files | QDir::Hidden, QDir::Name);
    for (QString const& file : files) {
        if (contents.effects.size() >= mostEffects) {
            contents.problems.append(tr("There are too many effects in %1.").arg(_directory));
            return;
        }
        std::optional<QString> const name = EffectNames::fromFileName(file);
        std::optional<QByteArray> const bytes = readEffectFile(pathOf(file), maximumSource);
        std::optional<QString> const source = bytes ? sourceOf(*bytes) : std::nullopt;
        if (!name || findEffect(contents.effects, *name) != contents.effects.end())
            contents.problems.append(tr("The file %1 is not named as effects are.").arg(pathOf(file)));
        else if (!source)
            contents.problems.append(tr("The effect in %1 can't be read.").arg(pathOf(file)));
        else
            contents.effects.append({.name = *name, .source = *source});
    }
}

/// What the index does not know comes last, off.
void EffectsStore::readIndex(Contents& contents) const
{
    if (!QFileInfo::exists(pathOf(indexFile)))
        return;
    std::optional<QByteArray> const bytes = readEffectFile(pathOf(indexFile), maximumIndex);
    QJsonObject const index = bytes ? QJsonDocument::fromJson(*bytes).object() : QJsonObject();
    if (!index.value("effects").isArray()) {
        contents.problems.append(tr("The order of the effects in %1 can't be read.").arg(pathOf(indexFile)));
        return;
    }
    contents.isEnabled = index.value("enabled").toBool();
    QList<Effect> ordered;
    for (QJsonValue const& value : index.value("effects").toArray()) {
        QJsonObject const entry = value.toObject();
        auto const effect = findEffect(contents.effects, entry.value("name").toString());
        if (effect == contents.effects.end())
            continue;
        effect->isOn = entry.value("on").toBool();
        effect->fault = entry.value("fault").toString().left(1000);
        effect->cost = entry.value("cost").toDouble(-1.0);
        if (effect->cost >= 0.0) // Else it is to be tried again.
            effect->passed = entry.value("passed").toString().left(200).toLatin1();
        effect->cost = std::max(0.0, effect->cost);
        ordered.append(*effect);
        contents.effects.erase(effect);
    }
    contents.effects = ordered + contents.effects;
}

void EffectsStore::readMarker(Contents& contents) const
{
    contents.hadMarker = QFileInfo::exists(pathOf(markerFile));
    if (!contents.hadMarker)
        return;
    std::optional<QByteArray> const bytes = readEffectFile(pathOf(markerFile), maximumIndex);
    QJsonArray const names = bytes ? QJsonDocument::fromJson(*bytes).array() : QJsonArray();
    for (Effect& effect : contents.effects) {
        // A marker that can't be read may have meant any of them.
        if (!effect.isOn || (!names.isEmpty() && !names.contains(effect.name)))
            continue;
        effect.isOn = false;
        effect.passed.clear();
        effect.fault = tr("The program ended while this effect was being tried. It was switched off.");
        contents.problems.append(
            tr("The program ended while the effect \"%1\" was being tried. It was switched off.").arg(effect.name));
    }
}

QString EffectsStore::save(QString const& file, QByteArray const& bytes) const
{
    QDir().mkpath(_directory);
    QSaveFile target(pathOf(file));
    if (target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size() && target.commit())
        return {};
    return tr("%1 could not be written: %2").arg(pathOf(file), target.errorString());
}

QString EffectsStore::write(QString const& name, QString const& source) const
{
    return save(EffectNames::fileName(name), source.toUtf8());
}

QString EffectsStore::remove(QString const& name) const
{
    QString const path = pathOf(EffectNames::fileName(name));
    return QFile::remove(path) || !QFileInfo::exists(path) ? QString() : tr("%1 could not be removed.").arg(path);
}

QString EffectsStore::writeIndex(QList<Effect> const& effects, bool isEnabled) const
{
    QJsonArray entries;
    for (Effect const& effect : effects)
        entries.append(QJsonObject{{"name", effect.name},
                                   {"on", effect.isOn},
                                   {"fault", effect.fault},
                                   {"passed", QString::fromLatin1(effect.passed)},
                                   {"cost", effect.cost}});
    return save(indexFile, QJsonDocument(QJsonObject{{"enabled", isEnabled}, {"effects", entries}}).toJson());
}

QString EffectsStore::writeMarker(QStringList const& names) const
{
    return save(markerFile, QJsonDocument(QJsonArray::fromStringList(names)).toJson());
}

QString EffectsStore::removeMarker() const
{
    QString const path = pathOf(markerFile);
    return QFile::remove(path) || !QFileInfo::exists(path) ? QString() : tr("%1 could not be removed.").arg(path);
}
