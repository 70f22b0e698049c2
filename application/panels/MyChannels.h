#pragma once

#include "ChannelDescription.h"
#include "SoapUserChannels.h"

#include <QList>
#include <QObject>
#include <QString>

#include <memory>

struct SoapService;

/// Changes the list of who is signed in, at the service: one call after the other, whatever is asked for meanwhile.
/// Nothing follows a sign-out any more. Main thread only.
class MyChannels : public QObject
{
    Q_OBJECT

public:
    explicit MyChannels(QObject* parent = nullptr);
    ~MyChannels() override;

    /// From now on calls go there, for who is known by the node id.
    void signIn(SoapService const& service, QString const& nodeId);
    void signOut();
    bool isSignedIn() const { return _calls != nullptr; }

    /// Adds a channel that some viewer has made.
    void add(QString const& id);
    /// Has the service know a channel that nobody has made yet, by the fields of its form, and adds it.
    void create(SoapUserChannels::Form const& form);
    /// Takes a channel off the list: one that a viewer has made or one of a partner, by its type. Once, however often
    /// it is asked for until that has ended.
    void remove(ChannelDescription const& description);

signals:
    void added(SoapUserChannel channel);
    /// After added(), where it was create() that has asked for it.
    void created();
    void removed(QString rootId);
    /// In words; with the method of the service.
    void failed(QString method, QString text);

private:
    struct Change {
        enum class Kind { Add, Create, RemoveOwn, RemovePartner } kind;
        QString id;
        SoapUserChannels::Form form = {};

        bool operator==(Change const& other) const = default;
    };

    void enqueue(Change const& change);
    void submitNext();
    /// The change that is under way has ended.
    Change take();
    void onRemoved(char const* method, bool done);

    std::unique_ptr<SoapUserChannels> _calls; ///< Null while nobody is signed in.
    QString _nodeId;
    QList<Change> _changes; ///< The first one is under way.
};
