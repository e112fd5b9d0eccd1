#include "UpdateController.h"
#include "ScriptedEngine.h"
#include "UpdateScript.h"

#include <QRegularExpression>
#include <QSignalSpy>
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
    void phases_data();
    void phases();
    void repliesAreAnsweredOnce_data();
    void repliesAreAnsweredOnce();
    void timedReturnsToIdle_data();
    void timedReturnsToIdle();
};

// The phases UpdateViewsTest::phases does not reach, and a dismissal from each: only an offer is answered.
void UpdateControllerTest::phases_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<UpdatePhase>("phase");
    QTest::addColumn<bool>("userInitiated");

    const auto row = [](const char *name, QStringList steps, UpdatePhase phase, bool user) {
        QTest::newRow(name) << steps << phase << user;
    };
    row("found in the background", {"background-offer 1"}, UpdatePhase::available("2.0"), false);
    row("no length announced", {"download", "data 50", "data 50"}, UpdatePhase::downloading(-1), false);
    row("more than announced", {"download", "length 100", "data 80", "data 80"}, UpdatePhase::downloading(1),
        false);
    row("a new download counts from zero",
        {"download", "length 10", "data 9", "download", "length 100", "data 50"},
        UpdatePhase::downloading(0.5), false);
    row("extraction progress", {"extract", "extracted 0.4"}, UpdatePhase::downloading(0.4), false);
    row("ready to relaunch", {"check", "offer 1", "ready 1"}, UpdatePhase::readyToRelaunch(), true);
    row("dismissed by the engine", {"check", "offer 1", "engine-dismisses"}, UpdatePhase::idle(), false);
}

void UpdateControllerTest::phases()
{
    QFETCH(QStringList, steps);
    QFETCH(UpdatePhase, phase);
    const auto controller = makeController();
    UpdateScript script{*controller, {}};
    script.run(steps);

    QCOMPARE(controller->phase(), phase);
    QTEST(controller->isUserInitiated(), "userInitiated");
    QSignalSpy phaseSpy(controller.get(), &UpdateController::phaseChanged);
    script.run({"dismiss"});
    QCOMPARE(controller->phase(), UpdatePhase::idle());
    QVERIFY(!controller->isUserInitiated());
    QCOMPARE(phaseSpy.count(), 1);
    const bool offered = phase.kind() == UpdatePhase::Kind::available;
    QCOMPARE(script.log.filter(u":dismiss"), offered ? QStringList{"1:dismiss"} : QStringList{});
}

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
