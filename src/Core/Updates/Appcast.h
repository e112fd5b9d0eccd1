#pragma once

#include "AppcastItem.h"
#include "Support/Result.h"
#include "UpdateVersion.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

// A Sparkle-format appcast: an RSS 2.0 channel whose items carry their release in an enclosure with
// attributes in the sparkle namespace.
struct Appcast {
    static inline const QString sparkleNamespace =
        QStringLiteral("http://www.andymatuschak.org/xml-namespaces/sparkle");

    // The items that name a Linux release with a version, an address and a size; others are left out.
    QList<AppcastItem> items;

    // Fails with a description for text that is not an RSS document.
    static Result<Appcast, QString> parse(const QByteArray &xml);

    // The item with the greatest version above current, if any.
    std::optional<AppcastItem> newestUpdate(const UpdateVersion &current) const;
};
