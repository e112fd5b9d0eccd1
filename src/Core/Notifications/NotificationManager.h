#pragma once

#include "NotificationSender.h"

#include <memory>

// Posts the model's alerts through the desktop's notification service, when there is one.
class NotificationManager {
public:
    explicit NotificationManager(std::unique_ptr<NotificationSender> center = {})
        : m_center(std::move(center))
    {}

    void add(const QString &identifier, const QString &title, const QString &body)
    {
        if (m_center)
            m_center->send(identifier, title, body);
    }

private:
    std::unique_ptr<NotificationSender> m_center;
};
