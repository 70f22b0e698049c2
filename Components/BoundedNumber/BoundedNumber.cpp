#include "BoundedNumber.h"

#include <QSettings>

#include <algorithm>
#include <cmath>

BoundedNumber::Reading BoundedNumber::read(QSettings const& settings) const
{
    if (!settings.contains(key))
        return {fallback, {}};
    QString const text = settings.value(key).toString();
    bool isNumber = false;
    double const number = text.toDouble(&isNumber); // Wide enough for numbers that no integer holds.
    bool const isUsable = isNumber && !std::isnan(number);
    qint64 value = fallback;
    if (isUsable)
        value = static_cast<qint64>(
            std::clamp(std::trunc(number), static_cast<double>(minimum), static_cast<double>(maximum)));
    if (isUsable && static_cast<double>(value) == number)
        return {value, {}};
    QString const name = settings.group().isEmpty() ? QString(key) : settings.group() + '/' + key;
    return {value, QStringLiteral("The setting %1 is \"%2\", which is no whole number from %3 to %4; taking %5.")
                       .arg(name, text.left(100), QString::number(minimum), QString::number(maximum),
                            QString::number(value))};
}
