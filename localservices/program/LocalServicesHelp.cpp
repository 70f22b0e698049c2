#include "ControlCommands.h"
#include "LocalServicesOptions.h"

namespace
{
char const* const text = R"(NAME
    ombravision-localservices - the services around Ombravision, on one machine

SYNOPSIS
    ombravision-localservices [--stream /NAME=FILE ...] [OPTION ...]

DESCRIPTION
    Serves ASF files as live broadcasts, by MMS over HTTP and by MMS over TCP. A broadcast never ends: its film is
    repeated for ever, with time stamps that go on growing, on one clock that all viewers share. Who comes late begins
    at a key frame shortly before now, with a few seconds of the past at once, so that the picture comes up quickly.
    Of several pictures of different bit rate in one file a viewer gets the one that fits.

    Serves Biscotti as well: clients subscribe to topics and post to them, and each post goes to all whom it concerns.
    It waits for clients where the player looks for it; "ombravision-biscotti --help" tells how to talk to it by hand.
    Posts go to who is there; nothing is kept for later.

    Serves a directory of channels and the accounts of viewers over HTTP and, with a certificate made at start,
    HTTPS: the channel document at /client/desktop/VERSION/channels.xml, logos, pages at /channels/, and SOAP at
    /client/api, which /client/api?wsdl describes. They are kept in a database. At first start it is filled; see
    SEEDS.

    Once the services are up, one line for each goes to standard output, "SERVICE ADDRESS PORT", where SERVICE is
    mms-http, mms-tcp, biscotti, web, web-tls or control; behind the port of control stands its token. What happens
    is logged on standard error. The program runs until it is ended by a signal: SIGINT or SIGTERM closes all
    connections first.

    The port of MMS over HTTP also has documents: /NAME.asx and /NAME.wvx, playlists in ASX; /NAME.ref, a reference
    playlist; and /, all addresses. The playlists begin with entries where nobody answers, as real ones do.

OPTIONS
    --stream /NAME=FILE      Broadcasts an ASF file under this name. Given again for a name, it adds a film to the
                             playlist of that stream; "playlist next" on the control port moves on.
    --listen ADDRESS         Where to listen: an address of this machine (127.0.0.1).
    --mms-http-port PORT     The port of MMS over HTTP; 0 for a free one (0), "none" for no such service.
    --mms-tcp-port PORT      The same for MMS over TCP.
    --control-port PORT      The same for the control port, which is always on 127.0.0.1.
    --biscotti-port PORT     The same for Biscotti (22473; if that is taken and was not asked for, a free one).
    --web-port PORT          The same for directory and accounts (22480; if that is taken and was not asked for, a free
                             one).
    --web-tls-port PORT      The same, encrypted (22443).
    --database FILE          Where accounts, channels and messages are kept, an SQLite file
                             (~/.Ombravision/LocalServices.sqlite); ":memory:" for nowhere.
    --certificate-file FILE  Writes the certificate of this start there (PEM), for clients that are to trust it.
    --max-age SECONDS        How long viewers' programs need not ask for documents again, 0 to 86400 (1200).
    --no-seeds               Fills nothing into the database.
    --hls /NAME=PLAYLIST     Broadcasts a film in segments by HTTP Live Streaming, as /hls/NAME/live.m3u8 on the web
                             port; PLAYLIST is a file such as "ffmpeg -f hls" writes, its segments (MPEG-TS) beside it.
    --rtsp HOST:PORT/PATH    A stream by RTSP of another program, for a channel of the directory.
    --biscotti WHAT          What is told to the messaging server to begin with, such as "refuse .admin"; see CONTROL.
                             Can be given several times.
    --ports-file FILE        Also writes the lines about the services to this file, at once and whole, readable for
                             its owner only.
    --burst SECONDS          How much of the past a viewer gets at once, 0 to 60 (5).
    --dead-entries COUNT     How many dead entries the playlists begin with, 0 to 1000 (1).
    --fault "STREAM WHAT"    Something goes wrong from the start on; see FAULTS. Can be given several times.
    --rate PERCENT           How fast the streams run, 1% to 1000% (100%).
    --silent                 The streams begin silent: they take viewers and send nothing after the header.
    --debug[=CLASS,...]      Logs more; with classes, only theirs.
    --version                Tells the version.
    --help                   This text.

BISCOTTI
    The server takes up to 10,000 clients. A client loses its connection, with a line in the log, if it does not greet
    within 10 s, sends what is no message, is silent for 120 s, or has 4 MiB waiting that it does not read. It is sent
    a heartbeat every 29 s. Messages are acknowledged with
        200   done; a post has been sent to all whom it concerns
        400   malformed: against the schema, without an id or without a topic
        403   refused: the topic (see "biscotti refuse"), or beyond what a client may have: 1,000 subscriptions, 100
              topics of a post, 32 levels or 1,024 characters of a topic, 1,024 characters of a sender
        404   the subscription to end is not there
        413   the body of a post is larger than 64 KiB
        500   internal error, only on command
        503   too many subscriptions of all clients together, or on command
        4011  the topic wants a signature (see "biscotti seal")
        4012  the message is signed, which cannot be verified yet
        4091  the subscription id is in use, or was used for another topic
        4092  the message has come before, perhaps on an earlier connection
    A client is recognised by what its message ids begin with, up to the last comma. When it connects anew, its old
    connection is sent a heartbeat, and is closed if its system does not take that within 2 s; otherwise the new one
    is. A message whose id begins otherwise than the connection's first is refused (403). A post with an audience goes
    to those of its recipients that have subscribed with a fact that the audience matches.

SEEDS
    As far as there are streams for them, the directory begins with: Ombra One and Ombra Twin, of the first and the
    first two streams with pictures; Ombra Radio, of the first one without; Ombra Relay, of --hls; Ombra Harbour, of
    --rtsp; Ombra Vault, of a stream /vault, which is secure from then on; Ombra Cinema, of a stream /cinema,
    pay-per-view; and Ombra Static, of a stream that is not there. There are the groups AllChannels and Viewers, the
    roles Chat Moderator and Viewer, and the accounts moderator@ombravision.invalid and guest@ombravision.invalid,
    which nobody can sign in to until "account password" has given them one. What is removed does not come back.

ACCOUNTS
    Passwords are kept as PBKDF2-SHA256 with a salt. What fails is answered after a second; after ten failures or
    sign-ups in a minute an address is turned away. Requests have up to 96 KiB and 10 s, 1,000 connections are
    taken.

FAULTS
    STREAM WHAT [on STEP] [times COUNT]

    STREAM is a name or "*" for any. WHAT is one of
        STATUS [LOCATION]    an answer of HTTP with this status, 204 or 300 to 599, such as 453; a redirection, such
                             as 302, needs the location
        0xRESULT             this result in a report of MMS over TCP, such as 0xC00D0030
        silent               the request is taken and never answered
        reset                the answer to a stream selection tells the player to begin anew
        cut BYTES            the connection ends after so many more bytes
        cut header           ... in the middle of the stream's header
        cut packet           ... in the middle of the tenth data packet
    STEP is what the player does: describe, play, select, log or stop over HTTP; connect, measure, funnel, open, read,
    switch or start over TCP; any, when it is left out. Over TCP the stream is known from "open" on; before, only
    faults of "*" happen. With a COUNT it happens so often, otherwise for ever.

CONTROL
    The control port takes commands, one a line, by "nc 127.0.0.1 PORT" for example. The first line has to be
    "token" and the token. The answer to a command ends with a line "OK" or "ERROR" and a text; "quit" ends the
    connection, and so does what is no command.

)";

char const* const end = R"(
    STREAM is a name; without one it is about all streams. "drop" without one closes all connections of every
    service but the web's, which has "web drop". Channels, streams, accounts and messages that change are told to
    the programs that have signed in, by Biscotti: a post on .ombra.mychannels.trigger.refresh.user.ID, ID the
    account's number.

    A wrong certificate, a slow directory and the like are asked for by "web"; its fault "xml" answers with XML that
    is cut in the middle, "length" announces more than it sends, "fault" answers as SOAP tells faults.

EXIT STATUS
    0 when it was ended by SIGINT or SIGTERM, 1 for wrong options, 2 when a file cannot be broadcast, or a port
    cannot be had.

EXAMPLES
    ombravision-localservices --stream /live=film.asf --mms-http-port 8080 --mms-tcp-port 1755
    ombravision-localservices --stream /live=a.asf --stream /live=b.asf --fault "/live 453 on describe times 1"
    printf 'token %s\n%s\n' TOKEN "channel add news TV mms://host/news Late News" | nc 127.0.0.1 PORT
)";
} // namespace

QString LocalServicesOptions::helpText()
{
    QString help = QString::fromUtf8(text);
    for (QString const& line : ControlCommands::help())
        help += "        " + line + '\n';
    return help + QString::fromUtf8(end);
}
