#pragma once

#include <QString>

/// The variables that the service gives to groups and roles, as one text: entries "name=value", separated by
/// semicolons or line ends.
namespace UserVariables
{

/// The value of the first entry of that name, without the blanks around it; a null string if there is none.
QString value(QString const& variables, QString const& name);

} // namespace UserVariables
