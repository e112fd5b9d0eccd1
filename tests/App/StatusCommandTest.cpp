#include "FeedServer.h"
#include "IcsEvents.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

#include <csignal>

// The real `pitchlark status` program, as a status bar or a script runs it, against a replay service
// on 127.0.0.1 and on a throw-away profile.
class StatusCommandTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void exitCodes_data();
    void exitCodes();
    void recordsKeepHostileNamesPlainAndBounded();
    void demoLeavesNoProfile_data();
    void demoLeavesNoProfile();
    void teamCalendar();

private:
    struct Outcome {
        int exitCode;
        QByteArray output;
        QByteArray errors;
    };
    Outcome run(const QStringList &arguments, const QString &baseURL);
    QProcessEnvironment environment(const QString &baseURL) const;

    std::unique_ptr<QTemporaryDir> m_profile;
    Tournament m_tournament = Tournament::bundled();
    std::unique_ptr<FeedServer> m_feed;
    QString m_feedURL;
};

void StatusCommandTest::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    QDir(m_profile->path()).mkdir(QStringLiteral("tmp"));
    m_tournament = Tournament::bundled();
    // The evening of 27 June: two matches live, a day of results and fixtures.
    const QDateTime at(QDate(2026, 6, 27), QTime(21, 40), QTimeZone::utc());
    m_feed = std::make_unique<FeedServer>(m_tournament, TournamentClock::frozen(at));
    m_feedURL = QStringLiteral("http://127.0.0.1:%1").arg(m_feed->listen());
}

QProcessEnvironment StatusCommandTest::environment(const QString &baseURL) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_profile->filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), m_profile->filePath(QStringLiteral("cache")));
    environment.insert(QStringLiteral("TMPDIR"), m_profile->filePath(QStringLiteral("tmp")));
    environment.insert(QStringLiteral("WC_API_BASE_URL"), baseURL);
    environment.insert(QStringLiteral("TZ"), QStringLiteral("UTC"));
    return environment;
}

StatusCommandTest::Outcome StatusCommandTest::run(const QStringList &arguments, const QString &baseURL)
{
    QProcess program;
    program.setProcessEnvironment(environment(baseURL));
    program.start(QStringLiteral(PITCHLARK_BINARY), QStringList{QStringLiteral("status")} + arguments);
    // The replay service answers from this process's event loop while the program waits for it.
    if (!QTest::qWaitFor([&program] { return program.state() == QProcess::NotRunning; }, 20'000))
        program.kill();
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

void StatusCommandTest::exitCodes_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("serviceUp");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("message"); // on stderr

    // clang-format off
    QTest::newRow("shown") << QStringList() << true << 0 << "";
    QTest::newRow("unreachable, nothing cached") << QStringList() << false << 1
                                                 << "Couldn't reach the World Cup service.";
    QTest::newRow("unknown option") << QStringList{"--nope"} << true << 2 << "Unknown option 'nope'.";
    QTest::newRow("two formats") << QStringList{"--json", "--waybar"} << true << 2 << "Choose one of";
    QTest::newRow("team without --ics") << QStringList{"--team", "48"} << true << 2 << "--team goes with --ics";
    QTest::newRow("unknown team") << QStringList{"--ics", "--team", "x"} << true << 2 << "No team has the id x.";
    QTest::newRow("stray argument") << QStringList{"now"} << true << 2 << "Unexpected argument: now";
    // clang-format on
}

void StatusCommandTest::exitCodes()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, serviceUp);
    QFETCH(QString, message);

    const Outcome outcome = run(arguments, serviceUp ? m_feedURL : QStringLiteral("http://127.0.0.1:9"));
    QTEST(outcome.exitCode, "exitCode");
    QVERIFY2(QString::fromUtf8(outcome.errors).contains(message), outcome.errors.constData());
}

void StatusCommandTest::recordsKeepHostileNamesPlainAndBounded()
{
    // Panama, live at this moment, and every scorer carry markup, a NUL, a line break, a right-to-left
    // override and ten thousand more characters.
    const QString hostile =
        QStringLiteral("<b>Pan&ama</b>") + QChar(0) + u'\n' + QChar(0x202e) + QString(10'000, u'x');
    for (TeamNames &names : m_tournament.teamNames) {
        if (names.english == u"Panama")
            names.english = hostile;
    }
    for (GameFact &game : m_tournament.games) {
        for (GoalFact &goal : game.goals)
            goal.scorer = hostile;
    }
    const QString plain = QStringLiteral("<b>Pan&ama</b> ") + QString(184, u'x') + u'…';

    const Outcome outcome = run({QStringLiteral("--json")}, m_feedURL);
    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(outcome.output.count('\n'), 1);
    const QJsonObject report = QJsonDocument::fromJson(outcome.output).object();
    QCOMPARE(report.value(u"errorMessage"), QJsonValue(QJsonValue::Null));
    QVERIFY(report.value(u"lastUpdated").toString().endsWith(u'Z'));
    QCOMPARE(report.value(u"allMatches").toArray().size(), 104);
    QCOMPARE(report.value(u"standings").toArray().size(), 12);
    QCOMPARE(report.value(u"settings").toObject().value(u"refreshInterval").toInt(), 30);

    const QJsonArray live = report.value(u"liveMatches").toArray();
    QCOMPARE(live.size(), 2);
    const QJsonObject panama = live.first().toObject();
    QCOMPARE(panama.value(u"status").toString(), QStringLiteral("in_play"));
    QCOMPARE(panama.value(u"kickoffDate").toString(), QStringLiteral("2026-06-27T21:00:00Z"));
    QVERIFY(panama.value(u"homeScore").isDouble());
    QCOMPARE(report.value(u"trayTitle").toString(), QStringLiteral("🇵🇦 0–0 ENG"));
    QCOMPARE(panama.value(u"homeTeam").toString(), plain);
    for (const QJsonValue &scorer : panama.value(u"awayScorers").toArray()) {
        QCOMPARE(scorer.toString().size(), 200);
        QVERIFY(!scorer.toString().contains(u'\n'));
    }

    // A fixture still to come: absent values are null, not missing.
    const QJsonArray day = report.value(u"allMatches").toArray();
    const auto scheduled = std::find_if(day.begin(), day.end(), [](const QJsonValue &match) {
        return match.toObject().value(u"status").toString() == QLatin1StringView("scheduled");
    });
    QVERIFY(scheduled != day.end());
    QCOMPARE(scheduled->toObject().value(u"homeScore"), QJsonValue(QJsonValue::Null));
    QCOMPARE(scheduled->toObject().value(u"liveClock"), QJsonValue(QJsonValue::Null));

    // Waybar's line keeps its shape around the hostile names.
    const Outcome waybar = run({QStringLiteral("--waybar")}, m_feedURL);
    QCOMPARE(waybar.exitCode, 0);
    const QJsonObject line = QJsonDocument::fromJson(waybar.output).object();
    QCOMPARE(line.keys(), QStringList({"class", "text", "tooltip"}));
    QCOMPARE(line.value(u"class").toString(), QStringLiteral("live"));
    QVERIFY(line.value(u"text").toString().contains(u'–'));
    const QString tooltip = line.value(u"tooltip").toString();
    QVERIFY2(tooltip.contains(QStringLiteral("&lt;b&gt;Pan&amp;ama&lt;/b&gt; xxx")), qPrintable(tooltip));
    QVERIFY(!tooltip.contains(u'<') && !tooltip.contains(QChar(0)) && !tooltip.contains(QChar(0x202e)));
    QCOMPARE(tooltip.count(u'\n'), 1); // still one line per live match
    QVERIFY(tooltip.size() < 600);
}

void StatusCommandTest::demoLeavesNoProfile_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("profileLeft"); // until the next demo start

    QTest::newRow("Ctrl-C") << SIGINT << false;
    QTest::newRow("kill -9") << SIGKILL << true;
}

void StatusCommandTest::demoLeavesNoProfile()
{
    QFETCH(int, signal);
    QFETCH(bool, profileLeft);
    const QDir temporary(m_profile->filePath(QStringLiteral("tmp")));
    const auto profiles = [&temporary] {
        return temporary.entryList({QStringLiteral("pitchlark-demo-*")}, QDir::Dirs | QDir::NoDotAndDotDot);
    };

    QProcess watching;
    watching.setProcessEnvironment(environment(QString()));
    watching.start(QStringLiteral(PITCHLARK_BINARY), {"status", "--demo", "--watch"});
    QVERIFY(watching.waitForReadyRead(20'000));
    QCOMPARE(profiles().size(), 1);
    ::kill(pid_t(watching.processId()), signal);
    QVERIFY(watching.waitForFinished());
    QCOMPARE(profiles().size(), profileLeft ? 1 : 0);

    // The next demo removes what a killed one left, and its own profile when it ends.
    const Outcome next = run({QStringLiteral("--demo")}, QString());
    QCOMPARE(next.exitCode, 0);
    QCOMPARE(profiles(), QStringList());
}

void StatusCommandTest::teamCalendar()
{
    // Which matches a team's calendar holds is ModelQueriesTest's to check; here, that --team picks it.
    const Outcome outcome =
        run({QStringLiteral("--ics"), QStringLiteral("--team"), QStringLiteral("48")}, m_feedURL);
    QCOMPARE(outcome.exitCode, 0);
    const QJsonArray events = parsedIcsEvents(outcome.output);
    QVERIFY(events.size() >= 3);
    for (const QJsonValue &event : events)
        QVERIFY(event.toObject().value(u"summary").toString().contains(u"Panama"));
}

QTEST_GUILESS_MAIN(StatusCommandTest)
#include "StatusCommandTest.moc"
