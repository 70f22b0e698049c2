#pragma once

#include <QString>
#include <QStringList>

class Accounts;
class Database;
class Directory;

/// What the services begin with, so that there is something to watch: a channel of each kind, as far as there are
/// streams for it; groups, roles, a moderator and a guest, who have no passwords until they are given some. Each is
/// planted once: what an operator removes does not come back.
namespace Seeds
{

static constexpr char const* guest = "guest@ombravision.invalid";
static constexpr char const* moderator = "moderator@ombravision.invalid";

/// The streams that there are, by name.
struct Streams {
    QStringList television;
    QStringList radio;
    QStringList hls;
    QString rtsp; ///< The path; empty when there is none.
};

void plant(Database& database, Accounts& accounts, Directory& directory, Streams const& streams);

} // namespace Seeds
