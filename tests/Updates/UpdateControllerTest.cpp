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
    void answers_data();
    void answers();
};

// What the controller hands back to the engine: each offer is answered at most once, and an up-to-date
// or error notice is acknowledged when its display time is over, without hiding a newer phase.
void UpdateControllerTest::answers_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("atOnce"); // the log right after the steps
    QTest::addColumn<QStringList>("log");    // once every display time is over
    QTest::addColumn<UpdatePhase>("finalPhase");

    const auto answered = [](const char *name, QStringList steps, QStringList log, UpdatePhase phase) {
        QTest::newRow(name) << steps << log << log << phase;
    };
    const auto acknowledged = [](const char *name, QStringList steps, QStringList log, UpdatePhase phase) {
        QTest::newRow(name) << steps << QStringList{} << log << phase;
    };
    const UpdatePhase available = UpdatePhase::available("2.0");
    // clang-format off
    answered("update twice", {"background-offer 1", "primary", "primary"}, {"1:install"}, available);
    answered("later, then update", {"background-offer 1", "dismiss", "primary"}, {"1:dismiss"}, UpdatePhase::idle());
    answered("a new offer drops the old reply unanswered", {"background-offer 1", "background-offer 2", "primary"}, {"2:install"}, available);
    answered("relaunch twice", {"ready 1", "primary", "primary"}, {"1:install"}, UpdatePhase::readyToRelaunch());
    answered("closing a ready update leaves it unanswered", {"ready 1", "dismiss", "primary"}, {}, UpdatePhase::idle());
    answered("nothing to answer while downloading", {"background-offer 1", "primary", "download", "primary", "dismiss"}, {"1:install"}, UpdatePhase::idle());
    acknowledged("up to date", {"check", "not-found A"}, {"A:ack in idle"}, UpdatePhase::idle());
    acknowledged("a second error during the wait", {"error A first", "error B second"}, {"A:ack in error", "B:ack in idle"}, UpdatePhase::idle());
    acknowledged("dismissed, then checking again", {"check", "not-found A", "dismiss", "check"}, {"A:ack in checking"}, UpdatePhase::checking());
    acknowledged("an update found during the wait", {"error A first", "background-offer 1"}, {"A:ack in available"}, available);
    // clang-format on
}

void UpdateControllerTest::answers()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, log);
    const auto controller = makeController();
    UpdateScript script{*controller, {}};
    script.run(steps);
    QTEST(script.log, "atOnce");

    QTRY_COMPARE(script.log, log);
    QTEST(controller->phase(), "finalPhase");
    QCOMPARE(controller->isUserInitiated(), controller->phase() == UpdatePhase::checking());
}

QTEST_GUILESS_MAIN(UpdateControllerTest)
#include "UpdateControllerTest.moc"
