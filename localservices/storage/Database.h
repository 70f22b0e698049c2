#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <memory>

class Logger;

/// What the services remember, in a file of SQLite or in memory. Statements take their values bound, never in their
/// text; they keep to SQL that other databases know as well. Lives on one thread.
///
/// The file is its owner's alone. It is brought up to the present schema when it is opened (see DatabaseSchema); each
/// step happens whole or not at all, and so does each Transaction, also for a process that is killed in the middle.
class Database
{
public:
    /// Opens the file, with its directory, or a database in memory for an empty name. Null, and a text that tells
    /// why, when it cannot be had, is no database or was made by a newer version.
    static std::unique_ptr<Database> open(QString const& file, QString& error);
    ~Database();
    Database(Database const&) = delete;
    Database& operator=(Database const&) = delete;

    /// Runs a statement with these values in place of its question marks: an invalid one is NULL, a null text is
    /// empty. What failed is in the log, and in isOk().
    QSqlQuery run(QString const& statement, QVariantList const& values = {});

    /// The first column of the first row; invalid when there is none.
    QVariant value(QString const& statement, QVariantList const& values = {});

    /// Whether all statements since the last transaction began, or since it was opened, have gone well.
    bool isOk() const { return _isOk; }

    /// All statements between its making and commit(), or none of them. One at a time.
    class Transaction
    {
    public:
        explicit Transaction(Database& database);
        ~Transaction();
        Transaction(Transaction const&) = delete;
        Transaction& operator=(Transaction const&) = delete;

        /// False when one of the statements failed, or the disk took none of them: nothing has been changed then.
        bool commit();

    private:
        Database& _database;
        bool _isOpen;
    };

private:
    explicit Database(QString const& connection);
    bool prepare(QString& error);

    QString const _connection; ///< The name that QtSql knows it by.
    QSqlDatabase _database;
    bool _isOk = true;

    static Logger* log;
};
