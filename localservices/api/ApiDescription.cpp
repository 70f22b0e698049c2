#include "ApiDescription.h"

#include "ApiNames.h"
#include "SignInSettings.h"

#include <QXmlStreamWriter>

namespace
{
using ApiDescription::Method;
using ApiDescription::Type;

Type signInType()
{
    Type type{QStringLiteral("SignIn"), {{"authenticated", {}}, {"message", {}}, {"user_id", {}}}};
    for (SignInSettings::Setting const& setting : SignInSettings::all())
        type.fields.append({QString::fromLatin1(setting.name), {}});
    type.fields.append({QStringLiteral("groups"), QStringLiteral("GroupList")});
    type.fields.append({QStringLiteral("roles"), QStringLiteral("RoleList")});
    return type;
}

Type streamType()
{
    Type type{QStringLiteral("Stream"), {}};
    for (QString const& field : ApiDescription::streamFields())
        type.fields.append({field, {}});
    return type;
}

Type listOf(QString const& type, QString const& name)
{
    return {name, {{"item", type}}, true};
}

/// Writes the document, part by part.
class WsdlWriter
{
public:
    explicit WsdlWriter(QByteArray& bytes) : _xml(&bytes) {}

    void write(QString const& address)
    {
        _xml.writeStartDocument();
        _xml.writeDefaultNamespace(ApiNames::wsdl);
        _xml.writeNamespace(ApiNames::wsdlSoap, "soap");
        _xml.writeNamespace(ApiNames::schema, "xsd");
        _xml.writeNamespace(ApiNames::own, "own");
        start("definitions", {{"name", "ClientApi"}, {"targetNamespace", ApiNames::own}});
        writeTypes();
        for (Method const& method : ApiDescription::methods())
            writeMessages(method);
        start("portType", {{"name", "ClientPort"}});
        for (Method const& method : ApiDescription::methods())
            writeOperation(method);
        _xml.writeEndElement();
        writeBinding();
        start("service", {{"name", "ClientApi"}});
        start("port", {{"name", "ClientPort"}, {"binding", "own:ClientBinding"}});
        empty(ApiNames::wsdlSoap, "address", {{"location", address}});
        _xml.writeEndDocument();
    }

private:
    using Attributes = QList<std::pair<char const*, QString>>;

    void start(char const* name, Attributes const& attributes, char const* space = ApiNames::wsdl)
    {
        _xml.writeStartElement(space, name);
        for (auto const& [key, value] : attributes)
            _xml.writeAttribute(key, value);
    }

    void empty(char const* space, char const* name, Attributes const& attributes)
    {
        start(name, attributes, space);
        _xml.writeEndElement();
    }

    static QString nameOf(QString const& type) { return type.isEmpty() ? QString("xsd:string") : "own:" + type; }

    void writeTypes()
    {
        start("types", {});
        start("schema", {{"targetNamespace", ApiNames::own}}, ApiNames::schema);
        for (Type const& type : ApiDescription::types()) {
            start("complexType", {{"name", type.name}}, ApiNames::schema);
            start("sequence", {}, ApiNames::schema);
            for (auto const& [name, fieldType] : type.fields)
                empty(ApiNames::schema, "element",
                      type.isList ? Attributes{{"name", name},
                                               {"type", nameOf(fieldType)},
                                               {"minOccurs", "0"},
                                               {"maxOccurs", "unbounded"}}
                                  : Attributes{{"name", name}, {"type", nameOf(fieldType)}, {"minOccurs", "0"}});
            _xml.writeEndElement();
            _xml.writeEndElement();
        }
        _xml.writeEndElement();
        _xml.writeEndElement();
    }

    void writeMessages(Method const& method)
    {
        start("message", {{"name", method.name + "Request"}});
        for (QString const& argument : method.arguments)
            empty(ApiNames::wsdl, "part", {{"name", argument}, {"type", "xsd:string"}});
        _xml.writeEndElement();
        start("message", {{"name", method.name + "Response"}});
        empty(ApiNames::wsdl, "part", {{"name", "return"}, {"type", nameOf(method.returns)}});
        _xml.writeEndElement();
    }

    void writeOperation(Method const& method)
    {
        start("operation", {{"name", method.name}, {"parameterOrder", method.arguments.join(' ')}});
        empty(ApiNames::wsdl, "input", {{"message", "own:" + method.name + "Request"}});
        empty(ApiNames::wsdl, "output", {{"message", "own:" + method.name + "Response"}});
        _xml.writeEndElement();
    }

    void writeBinding()
    {
        start("binding", {{"name", "ClientBinding"}, {"type", "own:ClientPort"}});
        empty(ApiNames::wsdlSoap, "binding", {{"style", "rpc"}, {"transport", ApiNames::transport}});
        for (Method const& method : ApiDescription::methods()) {
            start("operation", {{"name", method.name}});
            empty(ApiNames::wsdlSoap, "operation", {{"soapAction", "urn:" + method.name}});
            for (char const* const direction : {"input", "output"}) {
                start(direction, {});
                empty(ApiNames::wsdlSoap, "body", {{"use", "literal"}, {"namespace", "urn:" + method.name}});
                _xml.writeEndElement();
            }
            _xml.writeEndElement();
        }
        _xml.writeEndElement();
    }

    QXmlStreamWriter _xml;
};
} // namespace

QStringList const& ApiDescription::streamFields()
{
    static QStringList const fields = {"uri",
                                       "name",
                                       "id",
                                       "root_id",
                                       "logo_url",
                                       "has_alerts",
                                       "has_chat",
                                       "show_banners",
                                       "chatroom_name",
                                       "alerts_topic",
                                       "channel_type",
                                       "autobuzz_enabled",
                                       "repeated_autobuzz",
                                       "autobuzz_interval",
                                       "rating_average",
                                       "description"};
    return fields;
}

QList<ApiDescription::Method> const& ApiDescription::methods()
{
    static QList<Method> const all = {
        {"LoginWithErrorHandling", {"login"}, "SignIn"},
        {"Register", {"user_name", "password", "email_allowed"}, {}},
        {"GetMessages", {"node_identifier"}, "Messages"},
        {"GetAllowedChannels", {"node_identifier"}, "AllowedChannels"},
        {"GetUserStreams", {"Query", "Page", "node_identifier"}, "StreamPage"},
        {"GetTopUserStreams", {"node_identifier"}, "StreamPage"},
        {"AddUserStream", {"node_identifier", "user_stream_id"}, "Stream"},
        {"DestroyUserStream", {"node_identifier", "user_stream_id"}, {}},
        {"TogglePartnerChannel", {"node_identifier", "channel_id"}, {}},
        {"CreateUserStream",
         {"node_identifier", "uri", "name", "description", "channel_type", "logo_url", "chatroom_name"},
         "Stream"},
    };
    return all;
}

QList<ApiDescription::Type> const& ApiDescription::types()
{
    static QList<Type> const all = {
        listOf({}, "TextList"),
        {"Group", {{"name", {}}, {"description", {}}, {"abbr", {}}, {"variables", {}}, {"id", {}}}},
        listOf("Group", "GroupList"),
        {"Role", {{"title", {}}, {"abbr", {}}, {"variables", {}}, {"id", {}}}},
        listOf("Role", "RoleList"),
        signInType(),
        {"Messages", {{"ttl", {}}, {"messages", "TextList"}}},
        {"AllowedChannels",
         {{"ip_address", {}},
          {"country_id", {}},
          {"confidence_factor", {}},
          {"default_channel", {}},
          {"channels", "TextList"}}},
        streamType(),
        listOf("Stream", "StreamList"),
        {"StreamPage", {{"total_entries", {}}, {"user_streams", "StreamList"}}},
    };
    return all;
}

QByteArray ApiDescription::wsdl(QString const& address)
{
    QByteArray bytes;
    WsdlWriter(bytes).write(address);
    return bytes;
}
