#include "LanguageNames.h"

#include "FoldedText.h"

#include <QHash>
#include <QLocale>

namespace
{

struct Names {
    QString name;
    QString filterKey;
};

/// A locale names its variant, such as that of its most speakers' country.
QString ownName(QLocale::Language language)
{
    if (language == QLocale::English)
        return QStringLiteral("English");
    if (language == QLocale::Spanish)
        return QStringLiteral("Espa\u00F1ol");
    QString name = QLocale(language).nativeLanguageName();
    if (!name.isEmpty())
        name[0] = name.at(0).toUpper();
    return name;
}

Names lookUp(QString const& code)
{
    QLocale::Language const language = QLocale::codeToLanguage(code);
    if (language == QLocale::AnyLanguage || language == QLocale::C)
        return {code, FoldedText::fold(code)};
    QString const english = QLocale::languageToString(language);
    QString const own = ownName(language);
    return {own.isEmpty() ? english : own, FoldedText::fold(own + ' ' + english + ' ' + code)};
}

Names const& namesOf(LanguageId const& language)
{
    constexpr qsizetype mostKept = 1000; // Codes come from outside.
    static QHash<QString, Names> known;
    if (known.size() >= mostKept)
        known.clear();
    QString const code = language.isNull() ? QString() : language.toIso639_3().left(8);
    auto found = known.constFind(code);
    if (found == known.constEnd())
        found = known.insert(code, code.isEmpty() ? Names() : lookUp(code));
    return *found;
}

} // namespace

QString LanguageNames::name(LanguageId const& language)
{
    return namesOf(language).name;
}

QString LanguageNames::filterKey(LanguageId const& language)
{
    return namesOf(language).filterKey;
}
