#pragma once

#include "NotificationSender.h"

#include <memory>

// Posts the model's alerts through the desktop's notification service, when there is one.
class NotificationManager {
public:
    explicit NotificationManager(std::unique_ptr<NotificationSender> center = {})
        : m_center(std::move(center))
    {}

    void add(const MatchNotification &notification)
    {
        if (m_center)
            m_center->send(notification);
    }

    // The sender, for listening to clicks; none when there is no notification service.
    NotificationSender *center() const { return m_center.get(); }

private:
    std::unique_ptr<NotificationSender> m_center;
};
