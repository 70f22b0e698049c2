#pragma once

#include <QHashFunctions>
#include <QMetaType>
#include <QString>

/// A language by its ISO 639-3 code, as a copyable value. Any text is taken as a code; the empty one is null.
class LanguageId
{
public:
    LanguageId() = default;
    explicit LanguageId(QString const& code) : _code(code) {}

    static LanguageId Null() { return {}; }
    static LanguageId English() { return LanguageId(QStringLiteral("eng")); }
    static LanguageId French() { return LanguageId(QStringLiteral("fra")); }
    static LanguageId German() { return LanguageId(QStringLiteral("deu")); }
    static LanguageId Italian() { return LanguageId(QStringLiteral("ita")); }

    bool isNull() const { return _code.isEmpty(); }

    /// The code; "<LanguageId::Null>" for the null language.
    QString toIso639_3() const { return isNull() ? QStringLiteral("<LanguageId::Null>") : _code; }

    bool operator==(LanguageId const& other) const = default;

    /// Orders by toIso639_3(), so the null language comes before all codes of letters.
    bool operator<(LanguageId const& other) const { return toIso639_3() < other.toIso639_3(); }

private:
    QString _code;
};

inline size_t qHash(LanguageId const& language, size_t seed = 0)
{
    return qHash(language.toIso639_3(), seed);
}

Q_DECLARE_METATYPE(LanguageId)
