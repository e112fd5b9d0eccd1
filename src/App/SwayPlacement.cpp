#include "SwayPlacement.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QTimer>

#include <algorithm>
#include <cstring>

Q_LOGGING_CATEGORY(lcSway, "pitchlark.sway")

namespace {

constexpr quint32 runCommand = 0;
constexpr quint32 getWorkspaces = 1;
constexpr char magic[] = "i3-ipc";
constexpr qsizetype magicSize = sizeof(magic) - 1;
constexpr qsizetype headerSize = magicSize + 2 * sizeof(quint32);
// Replies are a few kilobytes; anything far larger is not sway talking.
constexpr quint32 largestReply = 1 << 20;
// sway learns of the window a moment after it is mapped: about a second of asking again.
constexpr int attempts = 20;
constexpr int retryInterval = 50;

} // namespace

SwayPlacement::SwayPlacement(qint64 pid, QString title, std::function<QRect(const QRect &)> geometryIn,
                             QObject *parent)
    : QObject(parent), m_pid(pid), m_title(std::move(title)), m_geometryIn(std::move(geometryIn))
{
    connect(&m_socket, &QLocalSocket::readyRead, this, &SwayPlacement::readReplies);
}

bool SwayPlacement::isRunning()
{
    return !qEnvironmentVariableIsEmpty("SWAYSOCK");
}

void SwayPlacement::place()
{
    if (m_attemptsLeft == 0)
        m_attemptsLeft = attempts;
    if (m_socket.state() != QLocalSocket::ConnectedState) {
        m_buffer.clear();
        m_pendingTypes.clear();
        m_socket.connectToServer(qEnvironmentVariable("SWAYSOCK"));
        if (!m_socket.waitForConnected(200)) {
            qCWarning(lcSway) << "cannot reach sway:" << m_socket.errorString();
            m_attemptsLeft = 0;
            return;
        }
    }
    send(getWorkspaces, {});
}

QByteArray SwayPlacement::message(quint32 type, const QByteArray &payload)
{
    QByteArray bytes(magic, magicSize);
    const quint32 length = quint32(payload.size());
    bytes.append(reinterpret_cast<const char *>(&length), sizeof length);
    bytes.append(reinterpret_cast<const char *>(&type), sizeof type);
    return bytes + payload;
}

std::optional<QByteArray> SwayPlacement::takeReply(QByteArray &buffer)
{
    if (buffer.size() < headerSize)
        return std::nullopt;
    if (!buffer.startsWith(magic)) {
        buffer.clear();
        return std::nullopt;
    }
    quint32 length = 0;
    std::memcpy(&length, buffer.constData() + magicSize, sizeof length);
    if (length > largestReply) {
        buffer.clear();
        return std::nullopt;
    }
    if (buffer.size() < headerSize + qsizetype(length))
        return std::nullopt;
    QByteArray payload = buffer.mid(headerSize, length);
    buffer.remove(0, headerSize + length);
    return payload;
}

QRect SwayPlacement::focusedWorkspaceArea(const QByteArray &reply)
{
    const QJsonArray workspaces = QJsonDocument::fromJson(reply).array();
    for (const QJsonValue &workspace : workspaces) {
        if (!workspace[QLatin1StringView("focused")].toBool())
            continue;
        const QJsonValue rect = workspace[QLatin1StringView("rect")];
        return QRect(rect[QLatin1StringView("x")].toInt(), rect[QLatin1StringView("y")].toInt(),
                     rect[QLatin1StringView("width")].toInt(), rect[QLatin1StringView("height")].toInt());
    }
    return {};
}

bool SwayPlacement::commandsSucceeded(const QByteArray &reply)
{
    const QJsonArray results = QJsonDocument::fromJson(reply).array();
    return !results.isEmpty() && std::all_of(results.begin(), results.end(), [](const QJsonValue &result) {
        return result[QLatin1StringView("success")].toBool();
    });
}

void SwayPlacement::send(quint32 type, const QByteArray &payload)
{
    m_pendingTypes.append(type);
    m_socket.write(message(type, payload));
}

void SwayPlacement::readReplies()
{
    m_buffer += m_socket.readAll();
    while (const std::optional<QByteArray> reply = takeReply(m_buffer)) {
        if (m_pendingTypes.isEmpty())
            return;
        const quint32 type = m_pendingTypes.takeFirst();
        if (type == getWorkspaces) {
            const QRect area = focusedWorkspaceArea(*reply);
            if (area.isEmpty())
                return;
            const QRect place = m_geometryIn(area);
            // The title is the program's own and holds no quote; the pid keeps other programs' windows out.
            const QString command =
                QStringLiteral("[pid=%1 title=\"^%2$\"] floating enable, "
                               "resize set width %3 px height %4 px, move absolute position %5 %6")
                    .arg(m_pid)
                    .arg(QRegularExpression::escape(m_title))
                    .arg(place.width())
                    .arg(place.height())
                    .arg(place.x())
                    .arg(place.y());
            send(runCommand, command.toUtf8());
        } else if (!commandsSucceeded(*reply) && --m_attemptsLeft > 0) {
            QTimer::singleShot(retryInterval, this, &SwayPlacement::place);
        } else {
            m_attemptsLeft = 0;
        }
    }
}
