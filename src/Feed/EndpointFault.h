#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringView>

#include <chrono>
#include <optional>

// A fault one endpoint shows on purpose, for tests and drills: an HTTP error status, a broken body, a
// connection closed without an answer or an answer that trickles in, each optionally after a delay,
// for every request or only for the next few.
struct EndpointFault {
    enum class Kind {
        None,      // the normal answer (possibly delayed)
        Status,    // an error status such as 401, 403, 429, 500 or 503, with a short JSON body
        Malformed, // 200 with a body that is not JSON (a proxy's HTML error page)
        Truncated, // 200 with the first half of the real body, its length declared as sent
        BareArray, // 200 with the list alone, without its envelope object
        EmptyList, // 200 with the envelope holding an empty list
        Close,     // the connection is closed without an answer
        Drip,      // 200 with the real body's length declared, then one byte of it every dripInterval
    };

    // Never long enough for a client's stall time-out, so only an overall deadline ends the transfer.
    static constexpr std::chrono::milliseconds dripInterval{1000};

    static constexpr std::chrono::milliseconds maximumDelay{300'000};

    Kind kind = Kind::None;
    int status = 0;
    std::chrono::milliseconds delay{0};
    std::optional<int> remaining; // requests left to spoil; absent means until reset

    // "none", "malformed", "truncated", "bare", "empty", "close", "drip", or a status from 400 to 599.
    static std::optional<EndpointFault> fromName(QStringView name, QString *error);
    // A delay in whole milliseconds, from 0 to maximumDelay.
    static std::optional<std::chrono::milliseconds> delayFromText(QStringView text, QString *error);

    bool isActive() const { return kind != Kind::None || delay.count() > 0; }
    QString name() const;
    QJsonObject toJson() const;
};
