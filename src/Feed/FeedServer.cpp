#include "FeedServer.h"

#include "FeedLogging.h"
#include "LowDelayTcpServer.h"

#include <QHttpServerRequest>
#include <QHttpServerResponder>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QTcpSocket>
#include <QTimer>

#include <memory>

namespace {

using Status = QHttpServerResponder::StatusCode;

const QByteArray jsonType = QByteArrayLiteral("application/json; charset=utf-8");

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray compact(const QJsonArray &array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

// What a proxy in front of the service sends when the service behind it is down.
const QByteArray gatewayPage = QByteArrayLiteral(
    "<!DOCTYPE html>\n<html><head><title>502 Bad Gateway</title></head>\n"
    "<body><center><h1>502 Bad Gateway</h1></center><hr><center>nginx</center></body></html>\n");

} // namespace

FeedServer::FeedServer(const Tournament &tournament, TournamentClock clock, ElapsedStyle style,
                       QObject *parent)
    : QObject(parent), m_replay(tournament), m_clock(std::move(clock)), m_style(style)
{
    for (const FeedEndpoint endpoint : allFeedEndpoints) {
        m_http.route(endpointPath(endpoint), QHttpServerRequest::Method::Get,
                     [this, endpoint](const QHttpServerRequest &, QHttpServerResponder &&responder) {
                         serve(endpoint, std::move(responder));
                     });
    }
    m_http.route(QStringLiteral("/_clock"), QHttpServerRequest::Method::Get,
                 [this](const QHttpServerRequest &, QHttpServerResponder &&responder) {
                     responder.write(compact(m_clock.describe()), jsonType);
                 });
    m_http.route(QStringLiteral("/_control"),
                 QHttpServerRequest::Method::Get | QHttpServerRequest::Method::Post,
                 [this](const QHttpServerRequest &request, QHttpServerResponder &&responder) {
                     bool ok = true;
                     const QByteArray answer = control(request, &ok);
                     responder.write(answer, jsonType, ok ? Status::Ok : Status::BadRequest);
                 });
}

quint16 FeedServer::listen(const QHostAddress &address, quint16 port)
{
    auto tcpServer = std::make_unique<LowDelayTcpServer>();
    if (!tcpServer->listen(address, port)) {
        qCWarning(lcFeed) << "cannot listen on" << address.toString() << port << ":"
                          << tcpServer->errorString();
        return 0;
    }
    const quint16 listening = tcpServer->serverPort();
    m_http.bind(tcpServer.release());
    return listening;
}

QJsonArray FeedServer::list(FeedEndpoint endpoint, Instant instant) const
{
    switch (endpoint) {
    case FeedEndpoint::Games:
        return m_replay.games(instant, m_style);
    case FeedEndpoint::Teams:
        return m_replay.tournament().teams;
    case FeedEndpoint::Stadiums:
        return m_replay.tournament().stadiums;
    case FeedEndpoint::Groups:
        return m_replay.groups(instant);
    }
    return {};
}

QByteArray FeedServer::body(FeedEndpoint endpoint, Instant instant)
{
    std::optional<CachedBody> &cached = m_cache[std::size_t(endpoint)];
    const bool timeless = endpoint == FeedEndpoint::Teams || endpoint == FeedEndpoint::Stadiums;
    if (!cached || (!timeless && cached->instant != instant))
        cached = CachedBody{instant, compact(QJsonObject{{endpointName(endpoint), list(endpoint, instant)}})};
    return cached->body;
}

void FeedServer::serve(FeedEndpoint endpoint, QHttpServerResponder &&responder)
{
    const EndpointFault fault = m_faults.take(endpoint);
    qCDebug(lcFeed) << "GET" << endpointPath(endpoint) << "fault" << fault.name() << "delay"
                    << fault.delay.count() << "ms";
    if (fault.delay.count() == 0) {
        answer(endpoint, fault, responder);
        return;
    }
    // The answer is computed when it is sent, so a delayed answer shows the tournament at that moment.
    QPointer<QTcpSocket> socket = responder.socket();
    auto pending = std::make_shared<QHttpServerResponder>(std::move(responder));
    QTimer::singleShot(fault.delay, this, [this, endpoint, fault, socket, pending] {
        if (!socket || socket->state() != QAbstractSocket::ConnectedState) {
            qCDebug(lcFeed) << "client of" << endpointPath(endpoint) << "left before the delayed answer";
            return;
        }
        answer(endpoint, fault, *pending);
    });
}

void FeedServer::answer(FeedEndpoint endpoint, const EndpointFault &fault, QHttpServerResponder &responder)
{
    const Instant now = m_clock.nowInstant();
    switch (fault.kind) {
    case EndpointFault::Kind::None:
        responder.write(body(endpoint, now), jsonType);
        return;
    case EndpointFault::Kind::Status: {
        const auto status = Status(fault.status);
        const QByteArray message =
            compact(QJsonObject{{QStringLiteral("message"),
                                 QStringLiteral("HTTP %1, a pitchlark-feed fault").arg(fault.status)}});
        if (status == Status::TooManyRequests)
            responder.write(message, {{"Content-Type", jsonType}, {"Retry-After", "30"}}, status);
        else
            responder.write(message, jsonType, status);
        return;
    }
    case EndpointFault::Kind::Malformed:
        responder.write(gatewayPage, QByteArrayLiteral("text/html"));
        return;
    case EndpointFault::Kind::Truncated: {
        const QByteArray whole = body(endpoint, now);
        responder.write(whole.first(whole.size() / 2), jsonType);
        return;
    }
    case EndpointFault::Kind::BareArray:
        responder.write(compact(list(endpoint, now)), jsonType);
        return;
    case EndpointFault::Kind::EmptyList:
        responder.write(compact(QJsonObject{{endpointName(endpoint), QJsonArray()}}), jsonType);
        return;
    case EndpointFault::Kind::Close:
        responder.socket()->disconnectFromHost();
        return;
    case EndpointFault::Kind::Drip:
        drip(body(endpoint, now), responder);
        return;
    }
}

void FeedServer::drip(const QByteArray &body, QHttpServerResponder &responder)
{
    responder.writeStatusLine();
    responder.writeHeader("Content-Type", jsonType);
    responder.writeHeader("Content-Length", QByteArray::number(body.size()));
    QTcpSocket *socket = responder.socket();
    auto pending = std::make_shared<QHttpServerResponder>(std::move(responder));
    // Owned by the socket, so the trickle ends when the client goes away.
    auto *timer = new QTimer(socket);
    QObject::connect(timer, &QTimer::timeout, timer,
                     [timer, socket, pending, body, sent = qsizetype(0)]() mutable {
                         if (socket->state() != QAbstractSocket::ConnectedState || sent == body.size()) {
                             timer->deleteLater();
                             return;
                         }
                         pending->writeBody(body.constData() + sent, 1);
                         ++sent;
                     });
    timer->start(EndpointFault::dripInterval);
}

QByteArray FeedServer::control(const QHttpServerRequest &request, bool *ok)
{
    if (request.method() == QHttpServerRequest::Method::Post) {
        QJsonParseError parseError;
        const QJsonDocument command = QJsonDocument::fromJson(request.body(), &parseError);
        std::optional<QString> error;
        if (!command.isObject())
            error = QStringLiteral("the body must be a JSON object");
        else
            error = m_faults.apply(command.object());
        if (error) {
            *ok = false;
            qCDebug(lcFeed) << "control command refused:" << *error;
            return compact(QJsonObject{{QStringLiteral("error"), *error}});
        }
        qCInfo(lcFeed).noquote() << "faults now" << compact(m_faults.describe());
    }
    return compact(QJsonObject{{QStringLiteral("faults"), m_faults.describe()}});
}
