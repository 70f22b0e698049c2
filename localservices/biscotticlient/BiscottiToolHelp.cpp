#include "BiscottiToolOptions.h"

namespace
{
char const* const helpPage = R"(NAME
    ombravision-biscotti - talk to a Biscotti server from the command line

SYNOPSIS
    ombravision-biscotti [OPTION ...] sub TOPIC ...
    ombravision-biscotti [OPTION ...] post TOPIC [BODY]

DESCRIPTION
    Biscotti carries the live features of Ombravision: whoever subscribes to a topic gets the posts to it.

    sub    Subscribes to the topics and prints each post that arrives, until it is interrupted (Ctrl-C). If the
           connection is lost it is made anew, within half a minute, and the subscriptions with it.
    post   Sends one post and waits until the server has acknowledged it. Without a body the post is empty; the body
           "-" stands for what standard input holds. Bodies of several words have to be quoted.

TOPICS
    A topic is a path with dots, such as .chat.news. Capitals count as small letters; what is neither a letter from a to
    z, a digit, "-", "_" nor a dot is left out. Posts reach subscriptions to the same topic, to all above and to all
    below: who subscribes to .chat gets the posts to .chat.news, and the other way round. "." is above all.

OUTPUT
    One line for each post on standard output: the time, the topics, the sender if there is one, and the body.
        2026-11-21 16:02:34 .chat.news ann: Good evening
    The time is that of sending in local time, or that of arrival when the sender did not tell. Line ends and other
    control characters of a body are shown as \n, \x1b and so on. What happens to the connection goes to standard error.

OPTIONS
    --server HOST[:PORT]   Where the server is (127.0.0.1:22473). An address with colons is put into brackets.
    --sender NAME          Who the post is from; without it from nobody.
    --audience TOPIC       Only those of the recipients get the post who have declared a fact that this topic matches.
                           Servers see to that; "sub" itself shows no posts with an audience.
    --timeout SECONDS      How long a post may take, the connection included (10).
    --count COUNT          "sub" ends after so many posts.
    --bodies               Prints bodies alone, byte for byte, with a line end after each.
    --debug                Tells what is done, on standard error.
    --version              Tells the version.
    --help                 This text.
    --                     What follows is no option, though it may look like one.

EXIT STATUS
    0   the post was acknowledged; "sub" was interrupted, or has printed as many posts as it should
    1   the command line is wrong
    2   there was no connection, or no acknowledgement in time
    3   the server refused the post or a subscription; its code and text are printed

EXAMPLES
    Listen to all of a chat, and to the alerts:
        ombravision-biscotti sub .ombra.chat .ombra.alerts
    Say something in it:
        ombravision-biscotti --sender ann post .ombra.chat.news "Good evening"
    Send a document, from a file, to another server:
        ombravision-biscotti --server biscotti.example:22473 post .ombra.vote - < vote.xml
    Wait for the next post and keep its body:
        ombravision-biscotti --count 1 --bodies sub .ombra.alerts > alert.xml

SEE ALSO
    ombravision-localservices --help, for the server
)";
} // namespace

QString BiscottiToolOptions::helpText()
{
    return QString::fromUtf8(helpPage);
}
