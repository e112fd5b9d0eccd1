#include "FeedServer.h"
#include "IcsEvents.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

// The real `pitchlark status` program, as a status bar or a script runs it, against a replay service
// on 127.0.0.1 and on a throw-away profile.
class StatusCommandTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void exitCodes_data();
    void exitCodes();
    void jsonRecords();
    void waybarLine();
    void teamCalendar();

private:
    struct Outcome {
        int exitCode;
        QByteArray output;
        QByteArray errors;
    };
    Outcome run(const QStringList &arguments, const QString &baseURL);

    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<FeedServer> m_feed;
    QString m_feedURL;
};

void StatusCommandTest::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    // The evening of 27 June: two matches live, a day of results and fixtures.
    const QDateTime at(QDate(2026, 6, 27), QTime(21, 40), QTimeZone::utc());
    m_feed = std::make_unique<FeedServer>(Tournament::bundled(), TournamentClock::frozen(at));
    m_feedURL = QStringLiteral("http://127.0.0.1:%1").arg(m_feed->listen());
}

StatusCommandTest::Outcome StatusCommandTest::run(const QStringList &arguments, const QString &baseURL)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_profile->filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), m_profile->filePath(QStringLiteral("cache")));
    environment.insert(QStringLiteral("WC_API_BASE_URL"), baseURL);
    environment.insert(QStringLiteral("TZ"), QStringLiteral("UTC"));
    program.setProcessEnvironment(environment);
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

void StatusCommandTest::jsonRecords()
{
    const Outcome outcome = run({QStringLiteral("--json")}, m_feedURL);
    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(outcome.output.count('\n'), 1);
    const QJsonObject report = QJsonDocument::fromJson(outcome.output).object();
    QCOMPARE(report.value(QStringLiteral("errorMessage")), QJsonValue(QJsonValue::Null));
    QVERIFY(report.value(QStringLiteral("lastUpdated")).toString().endsWith(u'Z'));
    QCOMPARE(report.value(QStringLiteral("allMatches")).toArray().size(), 104);
    QCOMPARE(report.value(QStringLiteral("standings")).toArray().size(), 12);
    QCOMPARE(
        report.value(QStringLiteral("settings")).toObject().value(QStringLiteral("refreshInterval")).toInt(),
        30);

    const QJsonArray live = report.value(QStringLiteral("liveMatches")).toArray();
    QCOMPARE(live.size(), 2);
    const QJsonObject first = live.first().toObject();
    QCOMPARE(first.keys().size(), 31);
    QCOMPARE(first.value(QStringLiteral("status")).toString(), QStringLiteral("in_play"));
    QCOMPARE(first.value(QStringLiteral("kickoffDate")).toString(), QStringLiteral("2026-06-27T21:00:00Z"));
    QVERIFY(first.value(QStringLiteral("homeScore")).isDouble());
    QCOMPARE(report.value(QStringLiteral("trayTitle")).toString(),
             first.value(QStringLiteral("homeFlagEmoji")).toString() + u' ' +
                 QString::number(first.value(QStringLiteral("homeScore")).toInt()) + u'–' +
                 QString::number(first.value(QStringLiteral("awayScore")).toInt()) + u' ' +
                 (first.value(QStringLiteral("awayFlagEmoji")).toString().isEmpty()
                      ? first.value(QStringLiteral("awayCode")).toString()
                      : first.value(QStringLiteral("awayFlagEmoji")).toString()));

    // A fixture still to come: absent values are null, not missing.
    const QJsonArray day = report.value(QStringLiteral("allMatches")).toArray();
    const auto scheduled = std::find_if(day.begin(), day.end(), [](const QJsonValue &match) {
        return match.toObject().value(QStringLiteral("status")).toString() == QLatin1StringView("scheduled");
    });
    QVERIFY(scheduled != day.end());
    QCOMPARE(scheduled->toObject().value(QStringLiteral("homeScore")), QJsonValue(QJsonValue::Null));
    QCOMPARE(scheduled->toObject().value(QStringLiteral("liveClock")), QJsonValue(QJsonValue::Null));
}

void StatusCommandTest::waybarLine()
{
    const Outcome outcome = run({QStringLiteral("--waybar")}, m_feedURL);
    QCOMPARE(outcome.exitCode, 0);
    const QJsonObject line = QJsonDocument::fromJson(outcome.output).object();
    QCOMPARE(line.keys(), QStringList({"class", "text", "tooltip"}));
    QCOMPARE(line.value(QStringLiteral("class")).toString(), QStringLiteral("live"));
    QVERIFY(line.value(QStringLiteral("text")).toString().contains(u'–'));
    QCOMPARE(line.value(QStringLiteral("tooltip")).toString().count(u'\n'), 1);
}

void StatusCommandTest::teamCalendar()
{
    const QString panama = QStringLiteral("48");
    const Outcome outcome = run({QStringLiteral("--ics"), QStringLiteral("--team"), panama}, m_feedURL);
    QCOMPARE(outcome.exitCode, 0);
    QSet<QString> expected;
    const QJsonArray all = QJsonDocument::fromJson(run({QStringLiteral("--json")}, m_feedURL).output)
                               .object()
                               .value(QStringLiteral("allMatches"))
                               .toArray();
    for (const QJsonValue &match : all) {
        const QJsonObject record = match.toObject();
        if (record.value(QStringLiteral("homeTeamID")).toString() == panama ||
            record.value(QStringLiteral("awayTeamID")).toString() == panama)
            expected << QStringLiteral("match-%1@pitchlark.com")
                            .arg(record.value(QStringLiteral("id")).toString());
    }
    QVERIFY(expected.size() >= 3);

    const QJsonArray events = parsedIcsEvents(outcome.output);
    QSet<QString> uids;
    for (const QJsonValue &event : events) {
        uids << event.toObject().value(QStringLiteral("uid")).toString();
        QVERIFY(
            event.toObject().value(QStringLiteral("summary")).toString().contains(QStringLiteral("Panama")));
    }
    QCOMPARE(uids, expected);
    QCOMPARE(events.size(), expected.size());
}

QTEST_GUILESS_MAIN(StatusCommandTest)
#include "StatusCommandTest.moc"
