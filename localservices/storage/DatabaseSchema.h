#pragma once

#include <QString>

class Database;

/// The tables of the services, and how they came to be: a list of steps, each from one version to the next. A step
/// that has been published is never changed; what is to be different is a further step.
namespace DatabaseSchema
{

/// Takes the steps that the database has not taken yet. False, and a text that tells why, when one fails or the
/// database has taken steps that are not known here.
bool update(Database& database, QString& error);

} // namespace DatabaseSchema
