#pragma once

#include <QByteArray>
#include <QLocalSocket>
#include <QObject>
#include <QRect>

#include <functional>
#include <optional>

// sway floats a utility window and centres it on the output, whatever place the program asked for
// through XWayland, and XWayland's screen does not leave out the bars. So on sway the panel is placed
// through sway's own IPC: the focused workspace's area (which the bars are not part of) is asked for,
// and the window matching the program's pid and title is moved and sized into it.
class SwayPlacement : public QObject {
    Q_OBJECT

public:
    // geometryIn turns the usable area into the panel's place, as for any other screen.
    SwayPlacement(qint64 pid, QString title, std::function<QRect(const QRect &)> geometryIn,
                  QObject *parent = nullptr);

    // Whether the session is sway's, whose IPC socket is named in SWAYSOCK.
    static bool isRunning();
    // Asks sway to place the window; it may not know the window yet, so it asks again for a while.
    void place();

    // i3's IPC framing, which sway speaks: "i3-ipc", the payload's length and the message type.
    static QByteArray message(quint32 type, const QByteArray &payload);
    // The payload of the first whole message in buffer, removed from it; nothing if none is whole yet.
    static std::optional<QByteArray> takeReply(QByteArray &buffer);
    // The focused workspace's rect in a get_workspaces reply; an empty rect if there is none.
    static QRect focusedWorkspaceArea(const QByteArray &reply);
    // Whether a run_command reply says every command succeeded.
    static bool commandsSucceeded(const QByteArray &reply);

private:
    void send(quint32 type, const QByteArray &payload);
    void readReplies();

    qint64 m_pid;
    QString m_title;
    std::function<QRect(const QRect &)> m_geometryIn;
    QLocalSocket m_socket;
    QByteArray m_buffer;
    QList<quint32> m_pendingTypes;
    int m_attemptsLeft = 0;
};
