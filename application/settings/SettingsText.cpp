#include "SettingsText.h"

#include <algorithm>
#include <stdexcept>

namespace
{

using ColourConversion = SettingsValues::ColourConversion;

template<class T>
struct Word {
    char const* text;
    T value;
};

constexpr Word<ColourConversion> colourConversions[] = {{"auto", ColourConversion::Automatic},
                                                        {"shader", ColourConversion::Shader},
                                                        {"fragmentProgram", ColourConversion::FragmentProgram},
                                                        {"software", ColourConversion::Software}};
constexpr Word<SettingsValues::Presentation> presentations[] = {{"auto", SettingsValues::Presentation::Automatic},
                                                                {"opengl", SettingsValues::Presentation::OpenGl},
                                                                {"shm", SettingsValues::Presentation::SharedMemory}};
constexpr Word<bool> switches[] = {{"true", true}, {"false", false}, {"1", true}, {"0", false}};

template<class T, size_t count>
bool parseWord(Word<T> const (&words)[count], QVariant const& stored, T& value)
{
    QString const text = SettingsText::textOf(stored).trimmed();
    auto const isIt = [&text](Word<T> const& word) { return text.compare(word.text, Qt::CaseInsensitive) == 0; };
    auto const found = std::ranges::find_if(words, isIt);
    if (found == std::end(words))
        return false;
    value = found->value;
    return true;
}

template<class T, size_t count>
QString wordFor(Word<T> const (&words)[count], T value)
{
    return std::ranges::find(words, value, &Word<T>::value)->text;
}

} // namespace

namespace SettingsText
{

QString textOf(QVariant const& stored)
{
    bool const isList = stored.metaType() == QMetaType::fromType<QStringList>();
    return isList ? stored.toStringList().join(',') : stored.toString();
}

bool parse(QVariant const& stored, bool& value)
{
    return parseWord(switches, stored, value);
}

bool parse(QVariant const& stored, double& value)
{
    bool isNumber = false;
    double const number = textOf(stored).toDouble(&isNumber);
    if (isNumber && !qIsNaN(number))
        value = number;
    return isNumber && !qIsNaN(number);
}

bool parse(QVariant const& stored, QString& value)
{
    value = textOf(stored);
    return true;
}

bool parse(QVariant const& stored, Uri& value)
{
    try {
        value = Uri(textOf(stored));
        return true;
    } catch (std::invalid_argument const&) {
        return false;
    }
}

bool parse(QVariant const& stored, ColourConversion& value)
{
    return parseWord(colourConversions, stored, value);
}

bool parse(QVariant const& stored, SettingsValues::Presentation& value)
{
    return parseWord(presentations, stored, value);
}

bool parse(QVariant const& stored, QHash<QString, bool>& value)
{
    value.clear();
    for (QString const& entry : stored.toStringList()) {
        qsizetype const comma = entry.lastIndexOf(',');
        if (comma > 0)
            value.insert(entry.left(comma), entry.mid(comma + 1) == "true");
    }
    return true;
}

QVariant form(Uri const& value)
{
    return value.toString();
}

QVariant form(ColourConversion value)
{
    return wordFor(colourConversions, value);
}

QVariant form(SettingsValues::Presentation value)
{
    return wordFor(presentations, value);
}

QVariant form(QHash<QString, bool> const& value)
{
    QStringList entries;
    for (auto entry = value.begin(); entry != value.end(); ++entry)
        entries.append(entry.key() + (entry.value() ? ",true" : ",false"));
    entries.sort(); // The same values make the same file.
    return entries;
}

} // namespace SettingsText
