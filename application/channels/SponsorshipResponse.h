#pragma once

#include <QMetaType>
#include <QString>

/// The pre-roll that the service has chosen, as a copyable value.
struct SponsorshipResponse {
    enum Type { VastDocument = 0, DirectMedia = 1, StaticImage = 2 };

    int id = 0;
    int type = DirectMedia; ///< A Type; what is none of them is direct media.
    int duration = 0;       ///< Seconds.
    QString url;
    QString logoUrl;
    QString websiteUrl;
    QString title;
    QString description;
};

Q_DECLARE_METATYPE(SponsorshipResponse)
