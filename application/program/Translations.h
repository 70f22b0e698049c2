#pragma once

#include <QLocale>
#include <QTranslator>

/// The program's texts, and Qt's own, in the viewer's language, and the direction in which that is written. Where
/// there is no translation the texts are English. To be made after the application and before anything that shows a
/// text; main thread only.
class Translations
{
public:
    /// Installs in the application what there is for the locale.
    explicit Translations(QLocale const& locale);

private:
    QTranslator _own;
    QTranslator _qt; ///< From where Qt's translations are installed; none is no harm.
};
