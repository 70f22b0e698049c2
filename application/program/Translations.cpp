#include "Translations.h"

#include <QGuiApplication>
#include <QLibraryInfo>

#include <algorithm>

namespace
{

QString const translationDirectory = QStringLiteral(":/Resources/translations");
constexpr QLocale::Language sourceLanguage = QLocale::English; // Of the sources; for the plural forms.

constexpr Translations::Language all[] = {
    {"en", "English"}, {"de", "Deutsch"}, {"fr", "Français"}, {"it", "Italiano"}};

} // namespace

std::span<Translations::Language const> Translations::languages()
{
    return all;
}

bool Translations::isLanguage(QString const& code)
{
    return std::ranges::any_of(all, [&code](Language const& language) { return code == language.code; });
}

QLocale Translations::localeOf(QString const& code)
{
    QLocale const locale(code);
    return isLanguage(code) && locale.language() != QLocale().language() ? locale : QLocale();
}

Translations::Translations(QLocale const& locale)
{
    Q_INIT_RESOURCE(translations);
    if (!_own.load(locale, "ombravision", "_", translationDirectory) &&
        !_own.load(QLocale(sourceLanguage), "ombravision", "_", translationDirectory))
        return;
    QCoreApplication::installTranslator(&_own);
    // In the same language, so that no dialog speaks two.
    if (_qt.load(QLocale(_own.language()), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&_qt);
    QGuiApplication::setLayoutDirection(locale.textDirection());
}
