"""Clips that are made on first use, in a directory that the tests share."""

import os
import pathlib
import subprocess
import tempfile

from .picture import number_filter

PAUSE = 0.4  # Seconds of silence: a film that begins again rests longer.
RATE = 25
H264 = ["-c:v", "libx264", "-preset", "veryfast", "-crf", "16", "-pix_fmt", "yuv420p", "-g", "50", "-threads", "2"]

_directory = os.environ.get("OMBRAVISION_TEST_CLIPS") or os.path.join(tempfile.gettempdir(), "ombravision-test-clips")


def make(name, *arguments):
    """The clip of that name, made by ffmpeg with these arguments when it is not there yet."""
    path = pathlib.Path(_directory) / name
    if not path.exists():
        path.parent.mkdir(parents=True, exist_ok=True)
        unfinished = path.with_name(f"unfinished-{os.getpid()}-{name}")
        subprocess.run(["ffmpeg", "-nostdin", "-loglevel", "error", "-y", *arguments, unfinished],
                       stdin=subprocess.DEVNULL, check=True)
        unfinished.rename(path)
    return path


def _picture(width, height, seconds):
    return ["-f", "lavfi", "-i",
            f"testsrc2=size={width}x{height}:rate={RATE}:duration={seconds},gblur=sigma=1.5,"
            + number_filter(width, height)]


def _tone(frequency, seconds):
    source = f"sine=frequency={frequency}:sample_rate=44100:duration={seconds},volume=8dB,aformat=channel_layouts=stereo"
    return ["-f", "lavfi", "-i", source]


def mp4(seconds=8, width=640, height=360, frequency=440):
    """Numbered frames and a tone, H.264 and AAC."""
    return make(f"numbers-{width}x{height}-{seconds}s-{frequency}.mp4",
                *_picture(width, height, seconds), *_tone(frequency, seconds), *H264, "-c:a", "aac")


def asf(seconds=8, frequency=660, rate="6M"):
    """Numbered frames and a tone, WMV and WMA."""
    return make(f"numbers-{seconds}s-{frequency}-{rate}.asf", *_picture(640, 360, seconds), *_tone(frequency, seconds),
                "-c:v", "wmv2", "-b:v", rate, "-g", "50", "-c:a", "wmav2", "-b:a", "128k")


def coloured(colour, width, height, codec, rate, seconds=20):
    """Numbered frames with a patch of that colour (RRGGBB) in the lower half, and a tone; a key frame at each second."""
    container, sound = ("asf", "wmav2") if "wm" in codec or "msmpeg4" in codec else ("mkv", "aac")
    picture = _picture(width, height, seconds)
    picture[-1] += f",drawbox=x=iw/4:y=ih/2:w=iw/2:h=ih/2:color=0x{colour}:t=fill"
    speed = ["-preset", "ultrafast"] if codec.startswith("lib") else []
    return make(f"colour-{colour}-{width}x{height}-{codec}-{rate}.{container}", *picture, *_tone(440, seconds), "-c:v", codec, *speed,
                "-b:v", rate, "-maxrate", rate, "-bufsize", rate, "-pix_fmt", "yuv420p", "-g", "25", "-c:a", sound)


def picture_only(seconds=8):
    return make(f"picture-only-{seconds}s.mp4", *_picture(640, 360, seconds), *H264)


def sound_only(seconds=5, frequency=880):
    return make(f"sound-only-{seconds}s-{frequency}.m4a", *_tone(frequency, seconds), "-c:a", "aac")


CHANGES = ((440, 2, 44100), (550, 1, 44100), (660, 6, 44100), (770, 2, 48000))  # Hertz, channels, rate; two seconds each.


def changing_sound(container="aac"):
    """Sound whose channels and rate change in mid-stream, as they do where one programme ends and the next begins."""
    parts = [make(f"part-{frequency}.{container}", "-f", "lavfi", "-i", f"sine=frequency={frequency}:sample_rate={rate}:duration=2,"
                  f"volume=8dB,pan={channels}c|" + "|".join(f"c{i}=c0" for i in range(channels)), "-ac", str(channels), "-c:a", "aac")
             for frequency, channels, rate in CHANGES]
    path = pathlib.Path(_directory) / f"changing.{container}"
    path.write_bytes(b"".join(part.read_bytes() for part in parts))
    return path


def far_key_frames(seconds=40):
    """Numbered frames and a tone, with a key frame at each half minute."""
    return make(f"far-key-frames-{seconds}s.mp4", *_picture(640, 360, seconds), *_tone(440, seconds), *H264[:-4], "-g", "750",
                "-sc_threshold", "0", "-c:a", "aac")


def flash_and_beep(seconds=10):
    """Black and silent, but for the first fifth of each second from the second one on: white, with a beep."""
    on = "gte(t\\,1)*lt(mod(t\\,1)\\,0.2)"
    return make(f"flash-and-beep-{seconds}s.mp4",
                "-f", "lavfi", "-i", f"color=black:size=640x360:rate={RATE}:duration={seconds},"
                                     f"drawbox=color=white:t=fill:enable='{on}'",
                "-f", "lavfi", "-i", f"aevalsrc=0.8*sin(2*PI*1000*t)*{on}:sample_rate=44100:duration={seconds}",
                *H264, "-c:a", "aac")


def _changed(name, source, change):
    """A copy of a clip whose bytes have been changed."""
    path = pathlib.Path(_directory) / name
    path.write_bytes(change(source.read_bytes()))
    return path


def truncated():
    """A film whose index comes first and whose end is missing."""
    whole = make("index-first.mp4", *_picture(640, 360, 8), *_tone(440, 8), *H264, "-c:a", "aac", "-movflags", "+faststart")
    return _changed("truncated.mp4", whole, lambda data: data[:len(data) // 3])


def unknown_codecs():
    """A film in which nothing can be decoded."""
    return _changed("unknown-codecs.mp4", mp4(), lambda data: data.replace(b"avc1", b"zzz1").replace(b"mp4a", b"zzz2"))


def unknown_video():
    """A film of which only the sound can be decoded."""
    return _changed("unknown-video.mp4", mp4(), lambda data: data.replace(b"avc1", b"zzz1"))
