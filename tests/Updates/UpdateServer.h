#pragma once

#include <QHttpServer>
#include <QHttpServerResponse>
#include <QUrl>

// The update server of these tests: a real HTTP server on 127.0.0.1 serving one appcast and one
// release file, both replaceable between requests.
class UpdateServer {
public:
    UpdateServer()
    {
        m_server.route("/appcast.xml", [this] {
            ++m_appcastRequests;
            return QHttpServerResponse("application/rss+xml", m_appcast, m_appcastStatus);
        });
        m_server.route("/Pitchlark.AppImage", [this] {
            ++m_releaseRequests;
            return QHttpServerResponse("application/octet-stream", m_release, m_releaseStatus);
        });
        m_port = m_server.listen(QHostAddress::LocalHost, 0);
    }

    bool isListening() const { return m_port != 0; }
    QUrl appcastURL() const { return url(QStringLiteral("/appcast.xml")); }
    QUrl releaseURL() const { return url(QStringLiteral("/Pitchlark.AppImage")); }

    void setAppcast(const QByteArray &body,
                    QHttpServerResponse::StatusCode status = QHttpServerResponse::StatusCode::Ok)
    {
        m_appcast = body;
        m_appcastStatus = status;
    }
    void setRelease(const QByteArray &body,
                    QHttpServerResponse::StatusCode status = QHttpServerResponse::StatusCode::Ok)
    {
        m_release = body;
        m_releaseStatus = status;
    }
    int appcastRequests() const { return m_appcastRequests; }
    int releaseRequests() const { return m_releaseRequests; }

private:
    QUrl url(const QString &path) const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(m_port).arg(path));
    }

    QHttpServer m_server;
    quint16 m_port = 0;
    QByteArray m_appcast;
    QByteArray m_release;
    QHttpServerResponse::StatusCode m_appcastStatus = QHttpServerResponse::StatusCode::Ok;
    QHttpServerResponse::StatusCode m_releaseStatus = QHttpServerResponse::StatusCode::Ok;
    int m_appcastRequests = 0;
    int m_releaseRequests = 0;
};
