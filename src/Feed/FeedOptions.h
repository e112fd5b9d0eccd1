#pragma once

#include "FeedFaults.h"
#include "TournamentClock.h"
#include "TournamentReplay.h"

#include "Support/Result.h"

#include <QDateTime>
#include <QHostAddress>
#include <QString>
#include <QStringList>

#include <optional>

// The command line of pitchlark-feed. Anything it cannot use is refused with a message saying why.
struct FeedOptions {
    static constexpr quint16 defaultPort = 8026;

    QHostAddress address = QHostAddress::LocalHost;
    quint16 port = defaultPort;
    std::optional<QDateTime> at;
    std::optional<QDateTime> from;
    double speed = 1;
    ElapsedStyle style = ElapsedStyle::Minute;
    FeedFaults faults;
    bool helpRequested = false;
    bool versionRequested = false;

    // arguments[0] is the program name, as in QCoreApplication::arguments().
    static Result<FeedOptions, QString> parse(const QStringList &arguments);
    static QString helpText();

    // Frozen at --at, running from --from at --speed, else frozen at the end of the tournament.
    TournamentClock clock(Instant tournamentEnd) const;
};
