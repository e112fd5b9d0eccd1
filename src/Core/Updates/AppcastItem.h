#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

// One release offered by the appcast: its enclosure and the versions that name it.
struct AppcastItem {
    // sparkle:version, the machine-compared version.
    QString versionString;
    // sparkle:shortVersionString, shown to people; the machine version when the feed gives none.
    QString displayVersionString;
    QUrl url;
    // The announced size of the enclosure in bytes.
    qint64 length = 0;
    // sparkle:edSignature as written in the feed: base64 of an Ed25519 signature. Empty when absent.
    QByteArray edSignature;

    friend bool operator==(const AppcastItem &, const AppcastItem &) = default;
};
