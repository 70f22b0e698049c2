#pragma once

#include <QString>

/// Who can sign in. A value; null with the id 0.
struct Account {
    qint64 id = 0;
    QString email; ///< In lower case.
    QString name;  ///< What others may see of it.

    bool isNull() const { return id == 0; }
};

/// What accounts have in common. `variables` is a text of the viewer's program, such as "chatSuffix=Moderator".
struct AccountGroup {
    qint64 id = 0;
    QString name;
    QString description;
    QString abbr;
    QString variables;
};

/// What an account may do.
struct AccountRole {
    qint64 id = 0;
    QString title;
    QString abbr;
    QString variables;
};
