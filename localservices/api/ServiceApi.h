#pragma once

#include "ApiCall.h"
#include "ApiValue.h"
#include "WebRequest.h"

#include <functional>

class Accounts;
class Directory;
class Doorkeeper;
class MessageBoard;
class SignInSettings;
struct Account;
struct DirectoryChannel;
struct ServicePlaces;

/// The SOAP interface at "/client/api": accounts, messages and channels for the viewer's program. What cannot be done
/// is answered with a fault in words. Lives on one thread.
class ServiceApi
{
public:
    using Reply = std::function<void(WebAnswer const& answer)>;

    static constexpr int secondsBetweenMessages = 300; ///< The "ttl" that viewers are told.

    struct Parts {
        Accounts& accounts;
        Doorkeeper& doorkeeper;
        SignInSettings& settings;
        MessageBoard& messages;
        Directory& directory;
        ServicePlaces const& places;
    };

    /// All are borrowed.
    explicit ServiceApi(Parts const& parts) : _parts(parts) {}

    /// Answers a request for the interface's path: a call, or its description with "?wsdl".
    void handle(WebRequest const& request, Reply const& reply);

    /// The method that a request calls; empty when it calls none.
    static QString methodOf(WebRequest const& request);

    static WebAnswer fault(QString const& code, QString const& text);

private:
    /// A call that waits for its answer.
    struct Exchange {
        ApiCall call;
        WebRequest request;
        Reply reply;

        QString argument(char const* name) const { return call.argument(name); }
        void answer(ApiValue const& value) const;
        void fail(QString const& text) const;
    };
    using Handler = void (ServiceApi::*)(Exchange const& exchange);

    static Handler handlerOf(QString const& method);

    void logIn(Exchange const& exchange);
    void signUp(Exchange const& exchange);
    void messages(Exchange const& exchange);
    void allowedChannels(Exchange const& exchange);
    void searchStreams(Exchange const& exchange);
    void topStreams(Exchange const& exchange);
    void addStream(Exchange const& exchange);
    void removeStream(Exchange const& exchange);
    void togglePartner(Exchange const& exchange);
    void createStream(Exchange const& exchange);

    ApiValue signedIn(Account const& account) const;
    ApiValue page(QString const& words, int number, WebRequest const& request) const;
    ApiValue describe(DirectoryChannel const& channel, WebRequest const& request) const;

    /// The account of the node that calls; when there is none, the exchange has been answered.
    Account callerOf(Exchange const& exchange) const;

    Parts const _parts;
};
