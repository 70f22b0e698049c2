"""Our messages held against pyasn1 and OpenSSL: what one writes the other reads, in all forms that BER has."""

import datetime
import json
import os
import subprocess
import unittest

from pyasn1.codec.ber import encoder as ber_encoder
from pyasn1.codec.der import decoder as der_decoder
from pyasn1.codec.der import encoder as der_encoder

from message_schema import Envelope, content_of, envelope_of

DER, BER = 2, 1
SENDER = {"senderId": "zoë", "senderName": "Zoë 😀", "senderReplyTo": "x" * 300, "sendUtc": "2010-12-31T23:59:59.999Z"}
NOBODY = {"senderId": "", "senderName": "", "senderReplyTo": "", "sendUtc": ""}
DESCRIPTIONS = {200: "OK", 4092: "Message ID already exists."}
KINDS = [
    {"kind": "heartbeat"},
    {"kind": "ack", "ackMsgId": "c,1", "ackCode": 200},
    {"kind": "ack", "ackMsgId": "c,1", "ackCode": 4092},
    {"kind": "sub", "subscriptionId": "c,2", "fact": "", "interest": ".chat.news"},
    {"kind": "sub", "subscriptionId": "c,2", "fact": ".vote", "interest": ""},
    {"kind": "unsub", "subscriptionId": "c,2"},
    {"kind": "post", "postId": "c,3", "topics": [], "audience": "", "body": ""},
    {"kind": "post", "postId": "c,3", "topics": [".a", ".b.c"], "audience": ".fans", "body": bytes(range(256)).hex()},
    {"kind": "post", "postId": "c,3", "topics": ["."] * 200, "audience": "", "body": "00" * 70000},
]
MESSAGES = [{"id": "c,7", **kind, **sender} for kind in KINDS for sender in (NOBODY, SENDER)]


def body_of(message):
    """What the schema says of a message, as nested dictionaries."""
    kind = message["kind"]
    if kind == "heartbeat":
        return {}
    if kind == "ack":
        return {"ackMsgId": message["ackMsgId"], "ackCode": message["ackCode"],
                "ackDescription": DESCRIPTIONS[message["ackCode"]]}
    if kind == "unsub":
        return {"unsubId": message["subscriptionId"]}
    if kind == "sub":
        choice = {"subFact": message["fact"]} if message["fact"] else {"subInterest": message["interest"]}
        return {"subscriptionId": message["subscriptionId"], "subscriberId": "c,chat", "subChoice": choice}
    post = {"postId": message["postId"], "postTopics": message["topics"], "postAudience": message["audience"],
            "postBody": bytes.fromhex(message["body"])}
    return {name: value for name, value in post.items() if value or name in ("postId", "postTopics")}


def envelope_content(message):
    base = {"msgId": message["id"]}
    base.update({name: message[name] for name in ("senderId", "senderName", "senderReplyTo") if message[name]})
    if message["sendUtc"]:
        time = datetime.datetime.fromisoformat(message["sendUtc"].replace("Z", "+00:00"))
        base["sendUtc"] = {name: getattr(time, name) for name in ("year", "month", "day", "hour", "minute", "second")}
        base["sendUtc"]["millisecond"] = time.microsecond // 1000
    return {"unsignedMsg": {**base, "msg": {message["kind"]: body_of(message)}}}


def ask(requests):
    """The answers of our encoder and decoder."""
    lines = "".join(json.dumps(request) + "\n" for request in requests)
    answers = subprocess.run([os.environ["OMBRAVISION_MESSAGE_CODEC_TOOL"]], input=lines, capture_output=True,
                             text=True, timeout=60, check=True).stdout
    return [json.loads(line) for line in answers.splitlines()]


def encoded(messages):
    requests = [{"encode": {**message, "subscriberId": "c,chat"}, "as": DER} for message in messages]
    return [bytes.fromhex(answer["bytes"]) for answer in ask(requests)]


class OtherImplementation(unittest.TestCase):
    maxDiff = 2000

    def test_it_reads_what_we_write(self):
        for message, ours in zip(MESSAGES, encoded(MESSAGES), strict=True):
            value, rest = der_decoder.decode(ours, asn1Spec=Envelope())
            self.assertEqual(rest, b"")
            self.assertEqual(content_of(value), envelope_content(message))

    def test_it_writes_the_same_bytes(self):
        for message, ours in zip(MESSAGES, encoded(MESSAGES), strict=True):
            theirs = der_encoder.encode(envelope_of(envelope_content(message)))
            self.assertEqual(ours.hex(), theirs.hex())

    def test_we_read_what_it_writes_in_every_form(self):
        # Pieces larger than every text: pyasn1 cannot take a UTF8String apart.
        forms = [{}, {"defMode": False}, {"maxChunkSize": 1000}, {"defMode": False, "maxChunkSize": 1000}]
        for form in forms:
            stream = [ber_encoder.encode(envelope_of(envelope_content(message)), **form) for message in MESSAGES]
            answer = ask([{"decode": b"".join(stream).hex(), "as": BER}])[0]
            self.assertEqual(answer["errors"], 0, form)
            self.assertEqual(answer["messages"], MESSAGES, form)

    def test_we_drop_its_signed_messages(self):
        content = {"signedMsg": {"hashAlg": 0, "baseMsg": b"message", "sig": b"signature"}}
        for signer in ({}, {"sigId": "ann"}):
            signed = ber_encoder.encode(envelope_of({"signedMsg": {**signer, **content["signedMsg"]}}))
            heartbeat = encoded(MESSAGES[:1])[0]
            answer = ask([{"decode": (signed + heartbeat).hex(), "as": BER}])[0]
            self.assertEqual(answer, {"errors": 0, "messages": MESSAGES[:1]})

    def test_openssl_parses_what_we_write(self):
        for ours in encoded(MESSAGES):
            parsed = subprocess.run(["openssl", "asn1parse", "-inform", "DER"], input=ours, capture_output=True,
                                    timeout=30, check=True).stdout.decode()
            self.assertIn("d=0  hl=", parsed)
            self.assertRegex(parsed, r"d=1 .*prim: +cont \[ 0 \]")


if __name__ == "__main__":
    unittest.main()
