#pragma once

#include "FeedServer.h"
#include "Tournament.h"

#include <QByteArray>
#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>

#include <memory>

// What one HTTP exchange with the replay service gave.
struct HttpAnswer {
    int status = 0; // 0 when no HTTP answer came
    QByteArray body;
};

// One request over real HTTP, waited for in a local event loop, never longer than the time-out.
inline HttpAnswer httpExchange(const QUrl &url, const QByteArray &method = "GET", const QByteArray &body = {},
                               int timeoutMs = 5000)
{
    QNetworkAccessManager network;
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/json"));
    request.setTransferTimeout(timeoutMs);
    std::unique_ptr<QNetworkReply> reply(network.sendCustomRequest(request, method, body));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(timeoutMs + 1000, &loop, &QEventLoop::quit);
    loop.exec();
    HttpAnswer answer;
    answer.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    answer.body = reply->readAll();
    return answer;
}

// A replay service on a free port of 127.0.0.1, frozen at one instant.
class FrozenFeed {
public:
    explicit FrozenFeed(const char *instant)
        : m_server(Tournament::bundled(),
                   TournamentClock::frozen(QDateTime::fromString(QString::fromLatin1(instant), Qt::ISODate)))
    {
        m_port = m_server.listen();
    }

    bool isListening() const { return m_port != 0; }
    QUrl url(const QString &path) const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(m_port).arg(path));
    }
    QString baseURL() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_port); }
    HttpAnswer get(const QString &path) const { return httpExchange(url(path)); }
    HttpAnswer control(const QByteArray &command) const
    {
        return httpExchange(url(QStringLiteral("/_control")), "POST", command);
    }

private:
    FeedServer m_server;
    quint16 m_port = 0;
};
