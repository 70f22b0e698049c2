#include "Translations.h"

#include <QGuiApplication>
#include <QLibraryInfo>

namespace
{

QString const translationDirectory = QStringLiteral(":/Resources/translations");
constexpr QLocale::Language sourceLanguage = QLocale::English; // Of the sources; for the plural forms.

} // namespace

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
