#include "UpdateController.h"
#include "ScriptedEngine.h"
#include "UpdateScript.h"

#include <QPointer>
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

std::unique_ptr<UpdateController> makeController(ScriptedEngine **engine = nullptr)
{
    auto scripted = std::make_unique<ScriptedEngine>();
    if (engine)
        *engine = scripted.get();
    return std::make_unique<UpdateController>(std::move(scripted), UpdateDisplayTimes{30ms, 60ms});
}

const QString syncIcon = QStringLiteral("arrow.triangle.2.circlepath");
const QString arrowIcon = QStringLiteral("arrow.down.circle.fill");

} // namespace

class UpdateControllerTest : public QObject {
    Q_OBJECT

private slots:
    // Nothing but the failed-start line is ever logged.
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void phases_data();
    void phases();
    void dismissFromEveryPhase_data() { phases_data(); }
    void dismissFromEveryPhase();
    void repliesAreAnsweredOnce_data();
    void repliesAreAnsweredOnce();
    void timedReturnsToIdle_data();
    void timedReturnsToIdle();
    void checksFollowTheEngine();
    void failedStartDisablesChecks();
};

void UpdateControllerTest::phases_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<UpdatePhase>("phase");
    QTest::addColumn<bool>("userInitiated");
    QTest::addColumn<QStringList>("texts"); // title, subtitle, icon, secondary title

    const QStringList downloading{"Downloading update…", "", syncIcon, ""};
    const auto row = [](const char *name, QStringList steps, UpdatePhase phase, bool user,
                        QStringList texts) { QTest::newRow(name) << steps << phase << user << texts; };
    row("idle", {}, UpdatePhase::idle(), false, {"", "", syncIcon, ""});
    row("checking", {"check"}, UpdatePhase::checking(), true, {"Checking for updates…", "", syncIcon, ""});
    const QStringList available{"Update available", "Pitchlark 2.0 is ready to install.", arrowIcon, "Later"};
    row("found by the user's check", {"check", "offer 1"}, UpdatePhase::available("2.0"), true, available);
    row("found in the background", {"background-offer 1"}, UpdatePhase::available("2.0"), false, available);
    row("download started", {"check", "offer 1", "primary", "download"}, UpdatePhase::downloading(-1), true,
        downloading);
    row("announced length", {"download", "length 200", "data 50"}, UpdatePhase::downloading(0.25), false,
        downloading);
    row("no length announced", {"download", "data 50", "data 50"}, UpdatePhase::downloading(-1), false,
        downloading);
    row("more than announced", {"download", "length 100", "data 80", "data 80"}, UpdatePhase::downloading(1),
        false, downloading);
    row("a new download counts from zero",
        {"download", "length 10", "data 9", "download", "length 100", "data 50"},
        UpdatePhase::downloading(0.5), false, downloading);
    row("extracting", {"download", "length 10", "data 10", "extract"}, UpdatePhase::downloading(-1), false,
        downloading);
    row("extraction progress", {"extract", "extracted 0.4"}, UpdatePhase::downloading(0.4), false,
        downloading);
    row("ready to relaunch", {"ready 1"}, UpdatePhase::readyToRelaunch(), false,
        {"Update ready", "Relaunch to finish updating.", arrowIcon, ""});
    row("installing", {"ready 1", "primary", "installing"}, UpdatePhase::installing(), false,
        {"Installing…", "", syncIcon, ""});
    row("up to date", {"check", "not-found A"}, UpdatePhase::upToDate(), true,
        {"You're up to date", "You have the latest version.", "checkmark.circle.fill", "Done"});
    row("error", {"error A Disk full."}, UpdatePhase::error("Disk full."), false,
        {"Update failed", "Disk full.", "exclamationmark.triangle.fill", "Dismiss"});
    row("dismissed by the engine", {"check", "offer 1", "engine-dismisses"}, UpdatePhase::idle(), false,
        {"", "", syncIcon, ""});
}

void UpdateControllerTest::phases()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, texts);
    const auto controller = makeController();
    UpdateScript{*controller, {}}.run(steps);

    QTEST(controller->phase(), "phase");
    QTEST(controller->isUserInitiated(), "userInitiated");
    QCOMPARE((QStringList{controller->statusTitle(), controller->statusSubtitle(), controller->iconName(),
                          controller->secondaryTitle()}),
             texts);
}

void UpdateControllerTest::dismissFromEveryPhase()
{
    QFETCH(QStringList, steps);
    QFETCH(UpdatePhase, phase);
    const auto controller = makeController();
    UpdateScript script{*controller, {}};
    script.run(steps);
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

void UpdateControllerTest::checksFollowTheEngine()
{
    ScriptedEngine *engine = nullptr;
    const auto controller = makeController(&engine);
    QSignalSpy spy(controller.get(), &UpdateController::canCheckForUpdatesChanged);
    controller->checkForUpdates();
    engine->setCanCheck(false);
    controller->checkForUpdates();

    QCOMPARE(engine->checks(), 1);
    QCOMPARE(spy.count(), 1);
    QVERIFY(!controller->canCheckForUpdates());
    QCOMPARE(controller->unavailableReason(), QString());
}

void UpdateControllerTest::failedStartDisablesChecks()
{
    auto engine =
        std::make_unique<ScriptedEngine>(QStringLiteral("This build has no key to check updates with."));
    const QPointer<ScriptedEngine> watched = engine.get();
    QTest::ignoreMessage(QtWarningMsg,
                         "Sparkle failed to start: This build has no key to check updates with.");

    UpdateController controller(std::move(engine));
    controller.checkForUpdates();

    QVERIFY2(!watched, "an engine that failed to start is not kept");
    QVERIFY(!controller.canCheckForUpdates());
    QCOMPARE(controller.unavailableReason(), "This build has no key to check updates with.");
    QCOMPARE(controller.phase(), UpdatePhase::idle());
}

QTEST_GUILESS_MAIN(UpdateControllerTest)
#include "UpdateControllerTest.moc"
