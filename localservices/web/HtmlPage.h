#pragma once

#include "WebRequest.h"

#include <QString>

/// Pages for people. What comes from anywhere else has to be escaped by who puts it in.
namespace HtmlPage
{

/// A page with this title, which is escaped here, and this body. It can load nothing but images of this service, runs
/// no scripts, and posts to this service only.
WebAnswer make(QString const& title, QString const& body, int status = 200);

} // namespace HtmlPage
