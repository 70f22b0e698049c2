#include "UserVariables.h"

#include <QRegularExpression>

QString UserVariables::value(QString const& variables, QString const& name)
{
    static QRegularExpression const separator(QStringLiteral("[;\\r\\n]"));
    for (QString const& entry : variables.split(separator, Qt::SkipEmptyParts)) {
        qsizetype const sign = entry.indexOf('=');
        if (sign >= 0 && entry.left(sign).trimmed() == name)
            return entry.mid(sign + 1).trimmed();
    }
    return {};
}
