#pragma once

#include "EndpointFault.h"
#include "FeedEndpoint.h"

#include <QJsonObject>
#include <QString>

#include <array>
#include <optional>

// The faults in force, one per endpoint, as set by options at start and by POST /_control.
class FeedFaults {
public:
    void set(FeedEndpoint endpoint, const EndpointFault &fault);
    void reset();

    // The fault to show this request; a counted fault is used up by one.
    EndpointFault take(FeedEndpoint endpoint);
    const EndpointFault &peek(FeedEndpoint endpoint) const;

    // {"games": {"fault": "503", "delay_ms": 0}, ...}, listing the endpoints with a fault only.
    QJsonObject describe() const;

    // Applies one control command:
    //   {"reset": true}
    //   {"endpoint": "games" | "teams" | "stadiums" | "groups" | "all",
    //    "fault": "503" | 503 | "malformed" | "truncated" | "bare" | "empty" | "close" | "drip" | "none",
    //    "delay_ms": 1500, "count": 2}
    // "fault", "delay_ms" and "count" are optional; the endpoint's previous fault is replaced. A bad
    // command changes nothing and gives the reason.
    std::optional<QString> apply(const QJsonObject &command);

private:
    std::array<EndpointFault, 4> m_faults;
};
