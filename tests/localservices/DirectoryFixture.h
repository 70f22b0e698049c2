#pragma once

#include "Accounts.h"
#include "Database.h"
#include "Directory.h"
#include "Doorkeeper.h"
#include "EventLoop.h"
#include "FakeTimerFactory.h"

#include <gtest/gtest.h>

/// A database in memory with what works on it, and time that goes by hand.
class DirectoryFixture : public testing::Test
{
protected:
    static constexpr int iterations = 2; ///< Nobody waits for passwords here.

    qint64 addAccount(QString const& email, QString const& password)
    {
        QString error;
        return accounts.add(email, PasswordHash::make(password, iterations), false, error).id;
    }

    static DirectoryChannel channel(QString const& id, qint64 owner = 0)
    {
        DirectoryChannel made;
        made.id = id;
        made.owner = owner;
        made.uris = {"mms://host/" + id};
        made.fields = {{"name", "Channel " + id}};
        return made;
    }

    FakeTickCounter clock;
    FakeTimerFactory timers{clock};
    QString openError;
    std::unique_ptr<Database> database = Database::open({}, openError);
    Accounts accounts{*database};
    Directory directory{*database};
    Doorkeeper doorkeeper{accounts, clock, timers, iterations};
};
