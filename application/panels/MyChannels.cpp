#include "MyChannels.h"

#include "SoapService.h"

MyChannels::MyChannels(QObject* parent) : QObject(parent) {}

MyChannels::~MyChannels() = default;

void MyChannels::signIn(SoapService const& service, QString const& nodeId)
{
    signOut();
    _nodeId = nodeId;
    _calls = std::make_unique<SoapUserChannels>(service);
    for (auto const completed :
         {&SoapUserChannels::addUserChannelCompleted, &SoapUserChannels::createUserChannelCompleted})
        connect(_calls.get(), completed, this, [this](SoapUserChannel const& channel) {
            bool const isNew = take().kind == Change::Kind::Create;
            emit added(channel);
            if (isNew)
                emit created();
            submitNext();
        });
    connect(_calls.get(), &SoapUserChannels::removeUserChannelCompleted, this,
            [this](bool done) { onRemoved("DestroyUserStream", done); });
    connect(_calls.get(), &SoapUserChannels::removePartnerChannelCompleted, this,
            [this](bool done) { onRemoved("TogglePartnerChannel", done); });
    connect(_calls.get(), &SoapUserChannels::requestFailed, this, [this](QString const& method, QString const& text) {
        take();
        emit failed(method, text);
        submitNext();
    });
}

void MyChannels::signOut()
{
    _changes.clear();
    if (!_calls)
        return;
    _calls->disconnect(this);
    _calls->cancelRequest();
    _calls.release()->deleteLater(); // A signal of its own may be what has led here.
}

void MyChannels::add(QString const& id)
{
    enqueue({Change::Kind::Add, id, {}});
}

void MyChannels::create(SoapUserChannels::Form const& form)
{
    enqueue({Change::Kind::Create, {}, SoapUserChannels::Form{{"node_identifier", _nodeId}} + form});
}

void MyChannels::remove(ChannelDescription const& description)
{
    bool const isOwn = description.channelType() == ChannelDescription::UserChannel;
    enqueue({isOwn ? Change::Kind::RemoveOwn : Change::Kind::RemovePartner, description.rootId(), {}});
}

void MyChannels::enqueue(Change const& change)
{
    // The call for a partner's channel would put it back the second time.
    if (!_calls || _changes.contains(change))
        return;
    _changes.append(change);
    if (_changes.size() == 1)
        submitNext();
}

void MyChannels::submitNext()
{
    if (!_calls || _changes.isEmpty() || _calls->isWaitingForResponse())
        return;
    Change const& next = _changes.constFirst();
    if (next.kind == Change::Kind::Add)
        _calls->addUserChannel(_nodeId, next.id);
    else if (next.kind == Change::Kind::Create)
        _calls->createUserChannel(next.form);
    else if (next.kind == Change::Kind::RemoveOwn)
        _calls->removeUserChannel(_nodeId, next.id);
    else
        _calls->removePartnerChannel(_nodeId, next.id);
}

MyChannels::Change MyChannels::take()
{
    return _changes.isEmpty() ? Change() : _changes.takeFirst();
}

void MyChannels::onRemoved(char const* method, bool done)
{
    QString const id = take().id;
    if (done)
        emit removed(id);
    else
        emit failed(QString::fromLatin1(method), tr("The service has not removed it."));
    submitNext();
}
