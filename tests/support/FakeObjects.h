#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <gtest/gtest.h>

/// The objects that a fake factory has made, as it hands them out and takes them back.
template<typename Fake>
class FakeObjects
{
public:
    Fake* add(Fake* object)
    {
        _objects.append(object);
        return object;
    }

    void dispose(QObject* object)
    {
        if (!object)
            return;
        EXPECT_TRUE(_objects.removeOne(qobject_cast<Fake*>(object))) << "not of this factory";
        object->blockSignals(true);
        object->deleteLater();
    }

    /// Those that exist and have not been given back, the oldest first.
    QList<Fake*> living() const
    {
        QList<Fake*> living;
        for (QPointer<Fake> const& object : _objects)
            if (object)
                living.append(object);
        return living;
    }

private:
    QList<QPointer<Fake>> _objects; ///< Those that were not given back; null once deleted.
};
