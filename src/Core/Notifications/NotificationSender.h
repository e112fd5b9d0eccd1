#pragma once

#include "Models/BannerState.h"

#include <QObject>
#include <QString>

// One desktop notification about a match. A newer one about the same match takes the older one's
// place, so a match leaves one notification however many goals it has.
struct MatchNotification {
    QString matchID;
    BannerState::Kind kind = BannerState::Kind::kickoff;
    QString title;
    QString body;
};

// Delivers desktop notifications now and reports clicks on them. Failures are the sender's to swallow:
// alerts are best effort.
class NotificationSender : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    virtual void send(const MatchNotification &notification) = 0;

signals:
    // The user clicked the notification about this match.
    void activated(const QString &matchID);
};
