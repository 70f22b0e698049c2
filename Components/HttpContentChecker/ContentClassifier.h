#pragma once

#include "HttpContentChecker.h"

/// Tells what an answer is by its header and, where that leaves it open, its body.
class ContentClassifier
{
public:
    /// The type by the header of a successful response alone, or Unknown.
    static HttpContentChecker::ContentType typeOf(HttpResponseHeader const& header);

    /// Whether such a response may be a playlist, which its body must show.
    static bool needsBody(HttpResponseHeader const& header);

    /// PlaylistDocument when the body has the words of one; PlainFile when it begins as an ASF file; else Unknown.
    static HttpContentChecker::ContentType typeOf(QByteArray const& body);

    /// Whether no playlist begins like this.
    static bool isAsfFile(QByteArray const& body);
};
