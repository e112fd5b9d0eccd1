#include "SwayPlacement.h"
#include "PanelController.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

// The panel's placement on sway against a stand-in for sway's IPC socket, which answers as sway 1.7
// does: sway itself, with XWayland, is not among the test machine's packages.
class SwayPlacementTest : public QObject {
    Q_OBJECT

private slots:
    void placesThePanelInTheFocusedWorkspace_data();
    void placesThePanelInTheFocusedWorkspace();
};

namespace {

// Two outputs, the second focused, with a 30 px bar at its top.
const QByteArray workspaces = R"([
    {"num": 1, "focused": false, "rect": {"x": 0, "y": 30, "width": 1920, "height": 1050}},
    {"num": 2, "focused": true, "rect": {"x": 1920, "y": 30, "width": 1280, "height": 770}}])";
const QByteArray unknownWindow =
    R"([{"success": false, "parse_error": false, "error": "No matching node."}])";
const QByteArray done = R"([{"success": true}, {"success": true}, {"success": true}])";

} // namespace

void SwayPlacementTest::placesThePanelInTheFocusedWorkspace_data()
{
    QTest::addColumn<QByteArray>("workspacesReply");
    QTest::addColumn<int>("unknownFor"); // how many commands sway answers before it knows the window
    QTest::addColumn<int>("commands");

    QTest::newRow("window known at once") << workspaces << 0 << 1;
    QTest::newRow("window mapped late") << workspaces << 2 << 3;
    QTest::newRow("never known: gives up") << workspaces << 1000 << 20;
    QTest::newRow("no focused workspace") << QByteArray("[]") << 0 << 0;
}

void SwayPlacementTest::placesThePanelInTheFocusedWorkspace()
{
    QFETCH(QByteArray, workspacesReply);
    QFETCH(int, unknownFor);
    QTemporaryDir folder;
    QLocalServer sway;
    QVERIFY(sway.listen(folder.filePath(QStringLiteral("sway-ipc.sock"))));
    qputenv("SWAYSOCK", sway.fullServerName().toUtf8());
    QVERIFY(SwayPlacement::isRunning());

    QStringList sent;
    QByteArray buffer;
    connect(&sway, &QLocalServer::newConnection, this, [&] {
        QLocalSocket *client = sway.nextPendingConnection();
        connect(client, &QLocalSocket::readyRead, client, [&, client] {
            buffer += client->readAll();
            // Requests and replies share their framing; the type sits after the length.
            while (buffer.size() >= 14) {
                const auto type = qFromUnaligned<quint32>(buffer.constData() + 10);
                const std::optional<QByteArray> payload = SwayPlacement::takeReply(buffer);
                if (!payload)
                    return;
                if (type == 1) {
                    client->write(SwayPlacement::message(1, workspacesReply));
                } else {
                    sent.append(QString::fromUtf8(*payload));
                    client->write(SwayPlacement::message(0, sent.size() > unknownFor ? done : unknownWindow));
                }
            }
        });
    });

    SwayPlacement placement(4242, QStringLiteral("Pitchlark"), &PanelController::panelGeometry);
    placement.place();
    QFETCH(int, commands);
    QTRY_COMPARE_WITH_TIMEOUT(int(sent.size()), commands, 10000);
    QTest::qWait(200);
    QCOMPARE(int(sent.size()), commands); // and no more
    if (!sent.isEmpty()) {
        // At the right edge of the focused output, below its bar, with the panel's margins.
        QCOMPARE(
            sent.constLast(),
            QStringLiteral("[pid=4242 title=\"^Pitchlark$\"] floating enable, resize set width 388 px height "
                           "746 px, move absolute position 2800 42"));
    }
}

QTEST_GUILESS_MAIN(SwayPlacementTest)
#include "SwayPlacementTest.moc"
