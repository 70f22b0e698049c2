#!/usr/bin/python3
"""How many chat lines a second pyasn1 writes and reads: the peer of BiscottiCodecBenchmark's Write/Der and Read/Ber."""

import pathlib
import sys
import time

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "tests/messaging/peer"))

from pyasn1.codec.ber import decoder  # noqa: E402
from pyasn1.codec.der import encoder  # noqa: E402

from message_schema import Envelope, content_of, envelope_of  # noqa: E402

COUNT = 300
CHAT_LINE = {"unsignedMsg": {
    "msgId": "XUFAKrxLKna5cZ2REBfFkg==,42", "senderId": "ann", "senderName": "Ann",
    "sendUtc": {"year": 2010, "month": 5, "day": 1, "hour": 12, "minute": 30, "second": 0, "millisecond": 0},
    "msg": {"post": {"postId": "XUFAKrxLKna5cZ2REBfFkg==,41", "postTopics": [".chat.room.news"],
                     "postBody": b"x" * 80}}}}


def rate(work):
    start = time.process_time()
    for _ in range(COUNT):
        work()
    return COUNT / (time.process_time() - start)


encoded = encoder.encode(envelope_of(CHAT_LINE))
assert content_of(decoder.decode(encoded, asn1Spec=Envelope())[0]) == CHAT_LINE
print(f"{len(encoded)} bytes a message")
print(f"write: {rate(lambda: encoder.encode(envelope_of(CHAT_LINE))):.0f} messages/s")
print(f"read:  {rate(lambda: content_of(decoder.decode(encoded, asn1Spec=Envelope())[0])):.0f} messages/s")
