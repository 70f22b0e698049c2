#include "EffectNames.h"

#include "Effect.h"

#include <QCoreApplication>
#include <QUrl>

#include <algorithm>

namespace
{

constexpr char const* effectEnding = ".frag";

bool isUnseen(QChar c)
{
    return c.category() == QChar::Other_Control || c.category() == QChar::Other_Format ||
           c.category() == QChar::Separator_Line || c.category() == QChar::Separator_Paragraph;
}

} // namespace

QString EffectNames::tidied(QString const& name)
{
    QString text = name.simplified();
    text.removeIf(isUnseen);
    return text.trimmed();
}

QString EffectNames::problem(QString const& name)
{
    if (name.isEmpty())
        return QCoreApplication::translate("EffectNames", "An effect needs a name.");
    if (name.toUtf8().size() > maximumBytes)
        return QCoreApplication::translate("EffectNames", "This name is too long.");
    return {};
}

QString EffectNames::shown(Effect const& effect)
{
    [[maybe_unused]] constexpr char const* known[] = {
        QT_TRANSLATE_NOOP("EffectNames", "Sharpen"),
        QT_TRANSLATE_NOOP("EffectNames", "Black and White"),
        QT_TRANSLATE_NOOP("EffectNames", "Film Grain"),
        QT_TRANSLATE_NOOP("EffectNames", "Scan Lines"),
    };
    return effect.isTemplate ? QCoreApplication::translate("EffectNames", effect.name.toUtf8().constData())
                             : effect.name;
}

QString EffectNames::fileName(QString const& name)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(name, {}, ".~") + effectEnding);
}

std::optional<QString> EffectNames::fromFileName(QString const& fileName)
{
    if (!fileName.endsWith(QLatin1String(effectEnding)))
        return {};
    QString const name =
        QUrl::fromPercentEncoding(fileName.chopped(static_cast<qsizetype>(qstrlen(effectEnding))).toLatin1());
    bool const isOurs = tidied(name) == name && problem(name).isEmpty() && EffectNames::fileName(name) == fileName;
    return isOurs ? std::optional(name) : std::nullopt;
}
