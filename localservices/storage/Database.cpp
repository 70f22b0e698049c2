#include "Database.h"

#include "DatabaseSchema.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QUuid>

namespace
{
/// Which the driver would make NULL.
bool isNullText(QVariant const& value)
{
    return value.typeId() == QMetaType::QString && value.toString().isNull();
}
} // namespace

Logger* Database::log = LoggerManager::logger();

std::unique_ptr<Database> Database::open(QString const& file, QString& error)
{
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLITE"))) {
        error = QStringLiteral("Qt has no driver for SQLite; the package libqt6sql6-sqlite brings it");
        return nullptr;
    }
    if (!file.isEmpty()) {
        // It holds what passwords are checked against: made for its owner before SQLite writes to it.
        QFile place(file);
        bool const isThere = QDir().mkpath(QFileInfo(file).absolutePath()) && place.open(QIODevice::ReadWrite) &&
                             place.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        if (!isThere) {
            error = QStringLiteral("cannot open the database %1: %2").arg(file, place.errorString());
            return nullptr;
        }
    }
    std::unique_ptr<Database> database(new Database(QUuid::createUuid().toString()));
    database->_database.setDatabaseName(file.isEmpty() ? QStringLiteral(":memory:") : file);
    if (!database->_database.open())
        error = database->_database.lastError().text();
    else if (database->prepare(error))
        return database;
    error = QStringLiteral("cannot open the database %1: %2").arg(file, error);
    return nullptr;
}

Database::Database(QString const& connection)
    : _connection(connection), _database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection))
{
}

Database::~Database()
{
    _database.close();
    _database = {}; // Before its name goes, as QtSql wants it.
    QSqlDatabase::removeDatabase(_connection);
}

bool Database::prepare(QString& error)
{
    run(QStringLiteral("PRAGMA foreign_keys = ON"));
    run(QStringLiteral("PRAGMA busy_timeout = 2000"));
    run(QStringLiteral("PRAGMA journal_mode = WAL"));
    if (_isOk)
        return DatabaseSchema::update(*this, error);
    error = QStringLiteral("it is no database, or cannot be written");
    return false;
}

QSqlQuery Database::run(QString const& statement, QVariantList const& values)
{
    QSqlQuery query(_database);
    query.setForwardOnly(true);
    bool isDone = query.prepare(statement);
    for (QVariant const& value : values)
        query.addBindValue(isNullText(value) ? QVariant(QLatin1String("")) : value);
    isDone = isDone && query.exec();
    if (!isDone) {
        _isOk = false;
        LOG_ERROR("The database does not take \"%s\": %s", qUtf8Printable(statement),
                  qUtf8Printable(query.lastError().text()));
    }
    return query;
}

QVariant Database::value(QString const& statement, QVariantList const& values)
{
    QSqlQuery query = run(statement, values);
    return query.next() ? query.value(0) : QVariant();
}

Database::Transaction::Transaction(Database& database) : _database(database)
{
    _database._isOk = true;
    _isOpen = _database._database.transaction();
    _database._isOk = _isOpen;
}

Database::Transaction::~Transaction()
{
    if (_isOpen)
        _database._database.rollback();
}

bool Database::Transaction::commit()
{
    if (!_isOpen || !_database._isOk || !_database._database.commit())
        return false;
    _isOpen = false;
    return true;
}
