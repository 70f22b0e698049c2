"""The message schema for pyasn1: the types and tags that the messages have on the wire."""

from pyasn1.type import char, namedtype, namedval, tag, univ


def implicit(number, form=tag.tagFormatSimple):
    return {"implicitTag": tag.Tag(tag.tagClassContext, form, number)}


def explicit(number):
    return {"explicitTag": tag.Tag(tag.tagClassContext, tag.tagFormatConstructed, number)}


def member(name, number, kind=char.UTF8String, optional=False):
    form = tag.tagFormatConstructed if issubclass(kind, (univ.Sequence, univ.SequenceOf)) else tag.tagFormatSimple
    tagging = explicit(number) if issubclass(kind, univ.Choice) else implicit(number, form)
    named = namedtype.OptionalNamedType if optional else namedtype.NamedType
    return named(name, kind().subtype(**tagging))


def members(*names):
    return namedtype.NamedTypes(*names)


class Time(univ.Sequence):
    componentType = members(*(member(name, number, univ.Integer) for number, name in enumerate(
        ("year", "month", "day", "hour", "minute", "second", "millisecond"))))


class Heartbeat(univ.Sequence):
    componentType = members()


class Ack(univ.Sequence):
    componentType = members(member("ackMsgId", 0), member("ackCode", 1, univ.Integer),
                            member("ackDescription", 2, optional=True))


class SubChoice(univ.Choice):
    componentType = members(member("subFact", 0), member("subInterest", 1))


class Sub(univ.Sequence):
    componentType = members(member("subscriptionId", 0), member("subscriberId", 1), member("subChoice", 2, SubChoice))


class Unsub(univ.Sequence):
    componentType = members(member("unsubId", 0))


class Topics(univ.SequenceOf):
    componentType = char.UTF8String()


class Post(univ.Sequence):
    componentType = members(member("postId", 0), member("postTopics", 1, Topics),
                            member("postAudience", 2, optional=True),
                            member("postBody", 3, univ.OctetString, optional=True))


class Msg(univ.Choice):
    componentType = members(member("heartbeat", 0, Heartbeat), member("ack", 1, Ack), member("sub", 2, Sub),
                            member("unsub", 3, Unsub), member("post", 4, Post))


class BaseMsg(univ.Sequence):
    componentType = members(member("msgId", 0), member("senderId", 1, optional=True),
                            member("senderName", 2, optional=True), member("senderReplyTo", 3, optional=True),
                            member("sendUtc", 4, Time, optional=True), member("msg", 5, Msg))


class HashAlg(univ.Enumerated):
    namedValues = namedval.NamedValues(("sha1", 0))


class SignedMsg(univ.Sequence):
    componentType = members(member("sigId", 0, optional=True), member("hashAlg", 1, HashAlg),
                            member("baseMsg", 2, univ.OctetString), member("sig", 3, univ.OctetString))


class Envelope(univ.Choice):
    componentType = members(member("signedMsg", 0, SignedMsg), member("unsignedMsg", 1, BaseMsg))


def envelope_of(content):
    """An envelope from nested dictionaries, lists and plain values."""
    result = Envelope()
    fill(result, content)
    return result


def fill(target, content):
    for name, value in content.items():
        if isinstance(value, dict):
            part = target.setComponentByName(name).getComponentByName(name)
            part.clear() if not value else fill(part, value)
        elif isinstance(value, list):
            part = target.setComponentByName(name).getComponentByName(name)
            part.clear()
            part.extend(value)
        else:
            target[name] = value


def content_of(value):
    """What envelope_of() takes, from a decoded value."""
    if isinstance(value, univ.Choice):
        return {value.getName(): content_of(value.getComponent())}
    if isinstance(value, univ.Sequence):
        return {name: content_of(value[name]) for name in value if value[name].isValue}
    if isinstance(value, univ.SequenceOf):
        return [content_of(element) for element in value]
    if isinstance(value, char.UTF8String):
        return str(value)
    return bytes(value) if isinstance(value, univ.OctetString) else int(value)
