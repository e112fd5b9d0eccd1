#pragma once

#include "FeedEndpoint.h"
#include "FeedFaults.h"
#include "TournamentClock.h"
#include "TournamentReplay.h"

#include <QByteArray>
#include <QHostAddress>
#include <QHttpServer>
#include <QObject>

#include <array>
#include <optional>

class QHttpServerRequest;
class QHttpServerResponder;

// The replay data service over HTTP: GET /get/games, /get/teams, /get/stadiums and /get/groups as the
// real service answers them at tournament time T, GET /_clock reporting T, and /_control for faults.
// Runs on the thread that owns it; the app's demo mode can run one in-process.
class FeedServer : public QObject {
    Q_OBJECT

public:
    FeedServer(const Tournament &tournament, TournamentClock clock, ElapsedStyle style = ElapsedStyle::Minute,
               QObject *parent = nullptr);

    // Starts listening; port 0 picks a free port. Gives the port, or 0 when the address cannot be used.
    quint16 listen(const QHostAddress &address = QHostAddress::LocalHost, quint16 port = 0);

    FeedFaults &faults() { return m_faults; }
    const TournamentClock &clock() const { return m_clock; }
    void setClock(TournamentClock clock) { m_clock = std::move(clock); }
    const TournamentReplay &replay() const { return m_replay; }

    // An endpoint's normal body at an instant, {"games": [...]} and the like.
    QByteArray body(FeedEndpoint endpoint, Instant instant);

private:
    struct CachedBody {
        Instant instant;
        QByteArray body;
    };

    void serve(FeedEndpoint endpoint, QHttpServerResponder &&responder);
    void answer(FeedEndpoint endpoint, const EndpointFault &fault, QHttpServerResponder &responder);
    void drip(const QByteArray &body, QHttpServerResponder &responder);
    QJsonArray list(FeedEndpoint endpoint, Instant instant) const;
    QByteArray control(const QHttpServerRequest &request, bool *ok);

    TournamentReplay m_replay;
    TournamentClock m_clock;
    ElapsedStyle m_style;
    FeedFaults m_faults;
    std::array<std::optional<CachedBody>, allFeedEndpoints.size()> m_cache;
    QHttpServer m_http;
};
