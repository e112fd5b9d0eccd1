#pragma once

#include <QString>

// Delivers one desktop notification now. Failures are the sender's to swallow: alerts are best effort.
class NotificationSender {
public:
    virtual ~NotificationSender() = default;
    // identifier is unique per event, so that no notification replaces another.
    virtual void send(const QString &identifier, const QString &title, const QString &body) = 0;
};
