#pragma once

#include "SettingsValues.h"

#include <QVariant>

/// The form that values have in the settings file, type by type.
namespace SettingsText
{

/// What is stored as text, also where a comma in text that was written by hand has made it a list.
QString textOf(QVariant const& stored);

/// Takes the value from what is stored. Returns whether that made sense; else the value stays as it is.
bool parse(QVariant const& stored, bool& value);
bool parse(QVariant const& stored, double& value);
bool parse(QVariant const& stored, QString& value);
bool parse(QVariant const& stored, Uri& value);
bool parse(QVariant const& stored, SettingsValues::ColourConversion& value);
bool parse(QVariant const& stored, SettingsValues::Presentation& value);
bool parse(QVariant const& stored, QHash<QString, bool>& value); ///< A list of "ID,true" and "ID,false".

/// Types that the file knows by themselves.
template<class T>
bool parse(QVariant const& stored, T& value)
{
    constexpr bool isTextToo = std::is_same_v<T, QStringList> || std::is_same_v<T, QByteArray>;
    if (!isTextToo && stored.metaType() != QMetaType::fromType<T>())
        return false;
    value = stored.value<T>();
    return true;
}

QVariant form(Uri const& value);
QVariant form(SettingsValues::ColourConversion value);
QVariant form(SettingsValues::Presentation value);
QVariant form(QHash<QString, bool> const& value);

template<class T>
QVariant form(T const& value)
{
    return QVariant::fromValue(value);
}

} // namespace SettingsText
