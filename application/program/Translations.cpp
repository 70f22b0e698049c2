#include "Translations.h"

#include <QGuiApplication>
#include <QLibraryInfo>

namespace
{

QString const directory = QStringLiteral(":/Resources/translations");
constexpr QLocale::Language fallback = QLocale::English; // Of the sources; for the plural forms.

} // namespace

Translations::Translations(QLocale const& locale)
{
    Q_INIT_RESOURCE(translations);
    if (!_own.load(locale, "ombravision", "_", directory) &&
        !_own.load(QLocale(fallback), "ombravision", "_", directory))
        return;
    QCoreApplication::installTranslator(&_own);
    // In the same language, so that no dialog speaks two.
    if (_qt.load(QLocale(_own.language()), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&_qt);
    QGuiApplication::setLayoutDirection(locale.textDirection());
}
