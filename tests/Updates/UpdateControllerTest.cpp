#include "UpdateController.h"
#include "ScriptedEngine.h"
#include "UpdateScript.h"

#include <QRegularExpression>
#include <QTest>

using namespace std::chrono_literals;

char *toString(const UpdatePhase &phase)
{
    return QTest::toString(QVariant::fromValue(phase.kind()).toString() + u' ' + phase.version() + u' ' +
                           QString::number(phase.progress()) + u' ' + phase.message());
}

namespace {

std::unique_ptr<UpdateController> makeController()
{
    return std::make_unique<UpdateController>(std::make_unique<ScriptedEngine>(),
                                              UpdateDisplayTimes{30ms, 60ms});
}

} // namespace

class UpdateControllerTest : public QObject {
    Q_OBJECT

private slots:
    // The controller logs nothing in these flows.
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void repliesAreAnsweredOnce_data();
    void repliesAreAnsweredOnce();
    void timedReturnsToIdle_data();
    void timedReturnsToIdle();
};

void UpdateControllerTest::repliesAreAnsweredOnce_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("log");
    // clang-format off
    QTest::newRow("update twice") << QStringList{"offer 1", "primary", "primary"} << QStringList{"1:install"};
    QTest::newRow("later, then update") << QStringList{"offer 1", "dismiss", "primary"} << QStringList{"1:dismiss"};
    QTest::newRow("a new offer drops the old reply unanswered") << QStringList{"offer 1", "offer 2", "primary"} << QStringList{"2:install"};
    QTest::newRow("relaunch twice") << QStringList{"ready 1", "primary", "primary"} << QStringList{"1:install"};
    QTest::newRow("closing a ready update leaves it unanswered") << QStringList{"ready 1", "dismiss", "primary"} << QStringList{};
    QTest::newRow("nothing to answer while downloading") << QStringList{"offer 1", "primary", "download", "primary", "dismiss"} << QStringList{"1:install"};
    // clang-format on
}

void UpdateControllerTest::repliesAreAnsweredOnce()
{
    QFETCH(QStringList, steps);
    const auto controller = makeController();
    UpdateScript script{*controller, {}};
    script.run(steps);
    QTEST(script.log, "log");
}

void UpdateControllerTest::timedReturnsToIdle_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<UpdatePhase>("finalPhase");
    // clang-format off
    QTest::newRow("up to date") << QStringList{"check", "not-found A"} << QStringList{"A:ack in idle"} << UpdatePhase::idle();
    QTest::newRow("a second error during the wait") << QStringList{"error A first", "error B second"} << QStringList{"A:ack in error", "B:ack in idle"} << UpdatePhase::idle();
    QTest::newRow("dismissed, then checking again") << QStringList{"check", "not-found A", "dismiss", "check"} << QStringList{"A:ack in checking"} << UpdatePhase::checking();
    QTest::newRow("an update found during the wait") << QStringList{"error A first", "background-offer 1"} << QStringList{"A:ack in available"} << UpdatePhase::available("2.0");
    // clang-format on
}

void UpdateControllerTest::timedReturnsToIdle()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, log);
    const auto controller = makeController();
    UpdateScript script{*controller, {}};
    script.run(steps);
    QVERIFY2(script.log.isEmpty(), "nothing returns to idle at once");

    QTRY_COMPARE(script.log, log);
    QTEST(controller->phase(), "finalPhase");
    QCOMPARE(controller->isUserInitiated(), controller->phase() == UpdatePhase::checking());
}

QTEST_GUILESS_MAIN(UpdateControllerTest)
#include "UpdateControllerTest.moc"
