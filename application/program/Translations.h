#pragma once

#include <QLocale>
#include <QTranslator>

#include <span>

/// The program's texts, and Qt's own, in the viewer's language, and the direction in which that is written. Where
/// there is no translation the texts are English. To be made after the application and before anything that shows a
/// text; main thread only.
class Translations
{
public:
    struct Language {
        char const* code; ///< ISO 639-1
        char const* name; ///< In the language itself, which everyone finds who reads no other.
    };
    /// Those that the program speaks.
    static std::span<Language const> languages();
    static bool isLanguage(QString const& code);
    /// The default locale, if it is in the language or that is none of them; else the language's own.
    static QLocale localeOf(QString const& code);

    /// Installs in the application what there is for the locale.
    explicit Translations(QLocale const& locale);

private:
    QTranslator _own;
    QTranslator _qt; ///< From where Qt's translations are installed; none is no harm.
};
