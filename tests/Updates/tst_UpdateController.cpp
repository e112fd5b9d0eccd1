#include "ScriptedEngine.h"
#include "UpdateController.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <functional>

using namespace std::chrono_literals;

// Brings a fresh controller into some state through its driver callbacks.
using Script = std::function<void(UpdateController &)>;
Q_DECLARE_METATYPE(Script)

char *toString(const UpdatePhase &phase)
{
    QString text = QVariant::fromValue(phase.kind()).toString();
    if (phase.kind() == UpdatePhase::Kind::available)
        text += u' ' + phase.version();
    else if (phase.kind() == UpdatePhase::Kind::downloading)
        text += u' ' + QString::number(phase.progress());
    else if (phase.kind() == UpdatePhase::Kind::error)
        text += u' ' + phase.message();
    return QTest::toString(text);
}

namespace {

AppcastItem item(const QString &displayVersion)
{
    AppcastItem offered;
    offered.versionString = QStringLiteral("200");
    offered.displayVersionString = displayVersion;
    return offered;
}

void offer(
    UpdateController &controller, bool userInitiated, UpdateChoiceReply reply = [](UserUpdateChoice) {})
{
    controller.showUpdateFound(item(QStringLiteral("2.0")), UserUpdateState{userInitiated}, std::move(reply));
}

struct PhaseRow {
    const char *name;
    Script script;
    UpdatePhase phase;
    bool userInitiated;
};

// Every phase, reached through the callbacks that lead to it.
QList<PhaseRow> phaseRows()
{
    const auto noAck = [] {};
    return {
        {"idle", [](UpdateController &) {}, UpdatePhase::idle(), false},
        {"checking", [](UpdateController &c) { c.showUserInitiatedUpdateCheck({}); }, UpdatePhase::checking(),
         true},
        {"available from a background check", [](UpdateController &c) { offer(c, false); },
         UpdatePhase::available(QStringLiteral("2.0")), false},
        {"available from the user's check",
         [](UpdateController &c) {
             c.showUserInitiatedUpdateCheck({});
             offer(c, true);
         },
         UpdatePhase::available(QStringLiteral("2.0")), true},
        {"downloading", [](UpdateController &c) { c.showDownloadInitiated({}); },
         UpdatePhase::downloading(UpdatePhase::indeterminate), false},
        {"extracting",
         [](UpdateController &c) {
             c.showDownloadInitiated({});
             c.showDownloadDidReceiveExpectedContentLength(10);
             c.showDownloadDidReceiveDataOfLength(10);
             c.showDownloadDidStartExtractingUpdate();
         },
         UpdatePhase::downloading(UpdatePhase::indeterminate), false},
        {"extraction progress", [](UpdateController &c) { c.showExtractionReceivedProgress(0.4); },
         UpdatePhase::downloading(0.4), false},
        {"ready to relaunch",
         [](UpdateController &c) { c.showReadyToInstallAndRelaunch([](UserUpdateChoice) {}); },
         UpdatePhase::readyToRelaunch(), false},
        {"installing", [](UpdateController &c) { c.showInstallingUpdate(false, {}); },
         UpdatePhase::installing(), false},
        {"up to date",
         [noAck](UpdateController &c) {
             c.showUserInitiatedUpdateCheck({});
             c.showUpdateNotFound({}, noAck);
         },
         UpdatePhase::upToDate(), true},
        {"error", [noAck](UpdateController &c) { c.showUpdaterError(QStringLiteral("Disk full."), noAck); },
         UpdatePhase::error(QStringLiteral("Disk full.")), false},
        {"installation dismissed by the engine",
         [](UpdateController &c) {
             c.showUserInitiatedUpdateCheck({});
             offer(c, true);
             c.dismissUpdateInstallation();
         },
         UpdatePhase::idle(), false},
        {"callbacks that change nothing",
         [](UpdateController &c) {
             c.showUserInitiatedUpdateCheck({});
             c.showUpdateReleaseNotes("<p>notes</p>");
             c.showUpdateReleaseNotesFailedToDownload(QStringLiteral("offline"));
             c.showUpdateInFocus();
             c.showDownloadDidReceiveExpectedContentLength(100);
         },
         UpdatePhase::checking(), true},
    };
}

std::unique_ptr<UpdateController> makeController(ScriptedEngine **engine = nullptr,
                                                 UpdateDisplayTimes displayTimes = {})
{
    auto scripted = std::make_unique<ScriptedEngine>();
    if (engine)
        *engine = scripted.get();
    return std::make_unique<UpdateController>(std::move(scripted), displayTimes);
}

} // namespace

class UpdateControllerTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void callbacksSetPhaseAndTexts_data();
    void callbacksSetPhaseAndTexts();
    void dismissReturnsToIdleFromEveryPhase_data();
    void dismissReturnsToIdleFromEveryPhase();
    void downloadProgress_data();
    void downloadProgress();
    void repliesAreAnsweredOnce_data();
    void repliesAreAnsweredOnce();
    void timedReturnsToIdle_data();
    void timedReturnsToIdle();
    void permissionRequestTurnsAutomaticChecksOn();
    void installedAndRelaunchedIsAcknowledgedAtOnce();
    void checksFollowTheEngine();
    void failedStartDisablesChecks();
};

void UpdateControllerTest::callbacksSetPhaseAndTexts_data()
{
    QTest::addColumn<Script>("script");
    QTest::addColumn<UpdatePhase>("phase");
    QTest::addColumn<bool>("userInitiated");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("subtitle");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QString>("secondary");

    const QString sync = QStringLiteral("arrow.triangle.2.circlepath");
    const QString download = QStringLiteral("arrow.down.circle.fill");
    const QMap<UpdatePhase::Kind, QStringList> texts{
        {UpdatePhase::Kind::idle, {"", "", sync, ""}},
        {UpdatePhase::Kind::checking, {"Checking for updates…", "", sync, ""}},
        {UpdatePhase::Kind::available,
         {"Update available", "Pitchlark 2.0 is ready to install.", download, "Later"}},
        {UpdatePhase::Kind::downloading, {"Downloading update…", "", sync, ""}},
        {UpdatePhase::Kind::readyToRelaunch, {"Update ready", "Relaunch to finish updating.", download, ""}},
        {UpdatePhase::Kind::installing, {"Installing…", "", sync, ""}},
        {UpdatePhase::Kind::upToDate,
         {"You're up to date", "You have the latest version.", "checkmark.circle.fill", "Done"}},
        {UpdatePhase::Kind::error,
         {"Update failed", "Disk full.", "exclamationmark.triangle.fill", "Dismiss"}},
    };
    for (const PhaseRow &row : phaseRows()) {
        const QStringList &t = texts[row.phase.kind()];
        QTest::newRow(row.name) << row.script << row.phase << row.userInitiated << t[0] << t[1] << t[2]
                                << t[3];
    }
}

void UpdateControllerTest::callbacksSetPhaseAndTexts()
{
    QFETCH(Script, script);
    QFETCH(UpdatePhase, phase);
    QFETCH(bool, userInitiated);
    const auto controller = makeController();
    script(*controller);

    QCOMPARE(controller->phase(), phase);
    QCOMPARE(controller->isUserInitiated(), userInitiated);
    QTEST(controller->statusTitle(), "title");
    QTEST(controller->statusSubtitle(), "subtitle");
    QTEST(controller->iconName(), "icon");
    QTEST(controller->secondaryTitle(), "secondary");
}

void UpdateControllerTest::dismissReturnsToIdleFromEveryPhase_data()
{
    QTest::addColumn<Script>("script");
    QTest::addColumn<bool>("declinesOffer");
    for (const PhaseRow &row : phaseRows())
        QTest::newRow(row.name) << row.script << (row.phase.kind() == UpdatePhase::Kind::available);
}

void UpdateControllerTest::dismissReturnsToIdleFromEveryPhase()
{
    QFETCH(Script, script);
    QFETCH(bool, declinesOffer);
    QList<UserUpdateChoice> answers;
    const auto controller = makeController();
    script(*controller);
    // A reply stored now must be answered only when an update is offered.
    if (controller->phase().kind() == UpdatePhase::Kind::available)
        offer(*controller, controller->isUserInitiated(), [&](UserUpdateChoice c) { answers << c; });
    QSignalSpy phaseSpy(controller.get(), &UpdateController::phaseChanged);

    controller->dismiss();

    QCOMPARE(controller->phase(), UpdatePhase::idle());
    QCOMPARE(controller->isUserInitiated(), false);
    QCOMPARE(phaseSpy.count(), 1);
    QCOMPARE(answers, declinesOffer ? QList{UserUpdateChoice::dismiss} : QList<UserUpdateChoice>{});
}

void UpdateControllerTest::downloadProgress_data()
{
    QTest::addColumn<qint64>("expectedLength"); // negative: the length is never announced
    QTest::addColumn<QList<quint64>>("chunks");
    QTest::addColumn<QList<double>>("progress");

    QTest::newRow("announced") << qint64(200) << QList<quint64>{50, 50, 100} << QList<double>{0.25, 0.5, 1.0};
    QTest::newRow("never announced") << qint64(-1) << QList<quint64>{10, 20, 30}
                                     << QList<double>{-1.0, -1.0, -1.0};
    QTest::newRow("announced as zero") << qint64(0) << QList<quint64>{10} << QList<double>{-1.0};
    QTest::newRow("more than announced")
        << qint64(100) << QList<quint64>{80, 80, 80} << QList<double>{0.8, 1.0, 1.0};
    QTest::newRow("empty chunks") << qint64(100) << QList<quint64>{0, 100} << QList<double>{0.0, 1.0};
}

void UpdateControllerTest::downloadProgress()
{
    QFETCH(qint64, expectedLength);
    QFETCH(QList<quint64>, chunks);
    QFETCH(QList<double>, progress);
    const auto controller = makeController();
    // An earlier download leaves counts behind; a new one must start from zero.
    controller->showDownloadInitiated({});
    controller->showDownloadDidReceiveExpectedContentLength(10);
    controller->showDownloadDidReceiveDataOfLength(7);

    controller->showDownloadInitiated({});
    QCOMPARE(controller->phase(), UpdatePhase::downloading(UpdatePhase::indeterminate));
    if (expectedLength >= 0)
        controller->showDownloadDidReceiveExpectedContentLength(quint64(expectedLength));
    QCOMPARE(controller->phase(), UpdatePhase::downloading(UpdatePhase::indeterminate));
    QList<double> seen;
    for (quint64 chunk : chunks) {
        controller->showDownloadDidReceiveDataOfLength(chunk);
        QCOMPARE(controller->phase().kind(), UpdatePhase::Kind::downloading);
        seen << controller->phase().progress();
    }
    QCOMPARE(seen, progress);
}

void UpdateControllerTest::repliesAreAnsweredOnce_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("answers");

    // offer N stores reply N; answers are written as "N:choice".
    QTest::newRow("update twice") << QStringList{"offer 1", "primary", "primary"} << QStringList{"1:install"};
    QTest::newRow("later, then update")
        << QStringList{"offer 1", "dismiss", "primary"} << QStringList{"1:dismiss"};
    QTest::newRow("a new offer replaces the stored reply")
        << QStringList{"offer 1", "offer 2", "primary", "dismiss"} << QStringList{"2:install"};
    QTest::newRow("update, then later while downloading")
        << QStringList{"offer 1", "primary", "download", "primary", "dismiss"} << QStringList{"1:install"};
    QTest::newRow("relaunch twice") << QStringList{"ready 1", "primary", "primary"}
                                    << QStringList{"1:install"};
    QTest::newRow("ready replaces the stored install reply")
        << QStringList{"ready 1", "ready 2", "primary"} << QStringList{"2:install"};
    QTest::newRow("dismissing a ready update does not answer it")
        << QStringList{"ready 1", "dismiss", "primary"} << QStringList{};
    QTest::newRow("relaunch after an offer was declined")
        << QStringList{"offer 1", "dismiss", "ready 2", "primary"} << QStringList{"1:dismiss", "2:install"};
    QTest::newRow("nothing to answer while checking")
        << QStringList{"check", "primary", "dismiss"} << QStringList{};
}

void UpdateControllerTest::repliesAreAnsweredOnce()
{
    QFETCH(QStringList, steps);
    QStringList answers;
    const auto controller = makeController();
    const auto reply = [&answers](QString name) {
        return [&answers, name](UserUpdateChoice choice) {
            answers << name + (choice == UserUpdateChoice::install ? ":install" : ":dismiss");
        };
    };
    for (const QString &step : steps) {
        const QString argument = step.section(u' ', 1);
        if (step.startsWith(u"offer"))
            controller->showUpdateFound(item(argument), UserUpdateState{true}, reply(argument));
        else if (step.startsWith(u"ready"))
            controller->showReadyToInstallAndRelaunch(reply(argument));
        else if (step == u"download")
            controller->showDownloadInitiated({});
        else if (step == u"check")
            controller->showUserInitiatedUpdateCheck({});
        else if (step == u"primary")
            controller->primaryAction();
        else if (step == u"dismiss")
            controller->dismiss();
    }
    QTEST(answers, "answers");
}

void UpdateControllerTest::timedReturnsToIdle_data()
{
    QTest::addColumn<QStringList>("steps");
    // For each acknowledgement in the order it came: its name and the phase at that moment.
    QTest::addColumn<QStringList>("acknowledged");
    QTest::addColumn<UpdatePhase>("finalPhase");

    QTest::newRow("up to date") << QStringList{"check", "not found A"} << QStringList{"A idle"}
                                << UpdatePhase::idle();
    QTest::newRow("error") << QStringList{"check", "error A first"} << QStringList{"A idle"}
                           << UpdatePhase::idle();
    QTest::newRow("a second error during the wait")
        << QStringList{"error A first", "error B second"} << QStringList{"A error", "B idle"}
        << UpdatePhase::idle();
    QTest::newRow("dismissed, then checking again") << QStringList{"check", "not found A", "dismiss", "check"}
                                                    << QStringList{"A checking"} << UpdatePhase::checking();
    QTest::newRow("an update found during the wait")
        << QStringList{"error A first", "offer"} << QStringList{"A available"}
        << UpdatePhase::available(QStringLiteral("2.0"));
    QTest::newRow("up to date, then an error") << QStringList{"not found A", "error B first"}
                                               << QStringList{"A error", "B idle"} << UpdatePhase::idle();
}

void UpdateControllerTest::timedReturnsToIdle()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, acknowledged);
    const UpdateDisplayTimes times{.upToDate = 30ms, .error = 60ms};
    const auto controller = makeController(nullptr, times);
    QStringList seen;
    QElapsedTimer clock;
    clock.start();
    const auto acknowledgement = [&](const QString &name, std::chrono::milliseconds wait) {
        const qint64 posted = clock.elapsed();
        return [&, name, posted, wait] {
            seen << name + u' ' + QVariant::fromValue(controller->phase().kind()).toString();
            QVERIFY2(clock.elapsed() - posted >= wait.count() - 1, "acknowledged before its display time");
        };
    };
    for (const QString &step : steps) {
        const QStringList words = step.split(u' ');
        if (step == u"check")
            controller->showUserInitiatedUpdateCheck({});
        else if (step == u"offer")
            offer(*controller, false);
        else if (step == u"dismiss")
            controller->dismiss();
        else if (step.startsWith(u"not found"))
            controller->showUpdateNotFound({}, acknowledgement(words[2], times.upToDate));
        else if (step.startsWith(u"error"))
            controller->showUpdaterError(words[2], acknowledgement(words[1], times.error));
    }
    QVERIFY(seen.isEmpty());

    QTRY_COMPARE(seen, acknowledged);
    QTEST(controller->phase(), "finalPhase");
    if (controller->phase() == UpdatePhase::idle())
        QCOMPARE(controller->isUserInitiated(), false);
}

void UpdateControllerTest::permissionRequestTurnsAutomaticChecksOn()
{
    const auto controller = makeController();
    std::optional<UpdatePermissionResponse> response;
    controller->showUpdatePermissionRequest([&](UpdatePermissionResponse r) { response = r; });
    QVERIFY(response);
    QCOMPARE(response->automaticUpdateChecks, true);
    QCOMPARE(response->sendSystemProfile, false);
    QCOMPARE(controller->phase(), UpdatePhase::idle());
}

void UpdateControllerTest::installedAndRelaunchedIsAcknowledgedAtOnce()
{
    const auto controller = makeController();
    controller->showInstallingUpdate(true, {});
    int acknowledgements = 0;
    controller->showUpdateInstalledAndRelaunched(true, [&] { ++acknowledgements; });
    QCOMPARE(acknowledgements, 1);
    QCOMPARE(controller->phase(), UpdatePhase::installing());
}

void UpdateControllerTest::checksFollowTheEngine()
{
    ScriptedEngine *engine = nullptr;
    const auto controller = makeController(&engine);
    QSignalSpy spy(controller.get(), &UpdateController::canCheckForUpdatesChanged);

    QVERIFY(controller->canCheckForUpdates());
    QCOMPARE(controller->unavailableReason(), QString());
    controller->checkForUpdates();
    QCOMPARE(engine->checks(), 1);

    engine->setCanCheck(false);
    QCOMPARE(spy.count(), 1);
    QVERIFY(!controller->canCheckForUpdates());
    controller->checkForUpdates();
    QCOMPARE(engine->checks(), 1);
}

void UpdateControllerTest::failedStartDisablesChecks()
{
    auto engine =
        std::make_unique<ScriptedEngine>(QStringLiteral("Updates are managed by your package manager."));
    const QPointer<ScriptedEngine> watched = engine.get();
    QTest::ignoreMessage(QtWarningMsg,
                         "Sparkle failed to start: Updates are managed by your package manager.");

    UpdateController controller(std::move(engine));

    QVERIFY2(!watched, "an engine that failed to start is not kept");
    QVERIFY(!controller.canCheckForUpdates());
    QCOMPARE(controller.unavailableReason(), "Updates are managed by your package manager.");
    controller.checkForUpdates();
    QCOMPARE(controller.phase(), UpdatePhase::idle());
}

QTEST_GUILESS_MAIN(UpdateControllerTest)
#include "tst_UpdateController.moc"
