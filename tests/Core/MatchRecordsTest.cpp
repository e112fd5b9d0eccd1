#include "Models/Match.h"
#include "Support/WCFormatters.h"

#include <QTest>

// The texts every screen and the tray label show, and the date helpers behind them.
class MatchRecordsTest : public QObject {
    Q_OBJECT

private slots:
    void statusTexts_data();
    void statusTexts();
    void scoreTexts_data();
    void scoreTexts();
    void parseMatchDate_data();
    void parseMatchDate();
    void formattersUseTheirZoneInEnglish_data();
    void formattersUseTheirZoneInEnglish();
    void sharedFormattersFollowTZ();
};

namespace {

Match matchWith(MatchStatus status, std::optional<int> home = {}, std::optional<int> away = {})
{
    Match match;
    match.status = status;
    match.homeScore = home;
    match.awayScore = away;
    match.kickoffLabel = QStringLiteral("19:00");
    match.homeCode = QStringLiteral("MEX");
    match.awayCode = QStringLiteral("RSA");
    return match;
}

} // namespace

void MatchRecordsTest::statusTexts_data()
{
    QTest::addColumn<Match>("match");
    QTest::addColumn<QString>("compact");
    QTest::addColumn<QString>("detail");

    Match clock = matchWith(MatchStatus::inPlay, 1, 0);
    clock.liveClock = QStringLiteral("45'+2'");
    clock.minute = 452;
    Match minuteOnly = matchWith(MatchStatus::inPlay, 1, 0);
    minuteOnly.minute = 45;
    Match extraTime = matchWith(MatchStatus::finished, 1, 2);
    extraTime.wentToExtraTime = true;
    Match shootOut = matchWith(MatchStatus::finished, 1, 1);
    shootOut.wentToExtraTime = shootOut.decidedOnPenalties = true;
    shootOut.homeTeamID = QStringLiteral("9");
    shootOut.awayTeamID = QStringLiteral("12");
    shootOut.awayTeam = QStringLiteral("Paraguay");
    shootOut.winnerTeamID = QStringLiteral("12");

    // clang-format off
    QTest::newRow("scheduled") << matchWith(MatchStatus::scheduled) << "19:00" << "Kickoff 19:00";
    QTest::newRow("clock wins over minute") << clock << "45'+2'" << "45'+2' elapsed";
    QTest::newRow("minute only") << minuteOnly << "45'" << "45' elapsed";
    QTest::newRow("live with nothing") << matchWith(MatchStatus::inPlay) << "LIVE" << "Live now";
    QTest::newRow("after extra time") << extraTime << "AET" << "After extra time";
    QTest::newRow("shoot-out won") << shootOut << "Pens" << "Paraguay win on penalties";
    // clang-format on
}

void MatchRecordsTest::statusTexts()
{
    QFETCH(Match, match);
    QTEST(match.compactStatusLabel(), "compact");
    QTEST(match.kickoffDetailLabel(), "detail");
}

void MatchRecordsTest::scoreTexts_data()
{
    QTest::addColumn<Match>("match");
    QTest::addColumn<QString>("scoreline");
    QTest::addColumn<QString>("home");
    QTest::addColumn<QString>("away");
    QTest::addColumn<QString>("tray");

    Match flags = matchWith(MatchStatus::inPlay, 2, 0);
    flags.homeFlagEmoji = QStringLiteral("🇲🇽");
    Match oneFlag = matchWith(MatchStatus::finished, 1, {});
    oneFlag.awayFlagEmoji = QStringLiteral("🇿🇦");

    // clang-format off
    QTest::newRow("no scores") << matchWith(MatchStatus::scheduled) << "– – –" << "–" << "–" << "MEX -–- RSA";
    QTest::newRow("scheduled hides scores") << matchWith(MatchStatus::scheduled, 2, 1) << "2 – 1" << "–" << "–"
                                            << "MEX 2–1 RSA";
    QTest::newRow("live with a flag") << flags << "2 – 0" << "2" << "0" << "🇲🇽 2–0 RSA";
    QTest::newRow("one score missing") << oneFlag << "1 – –" << "1" << "–" << "MEX 1–- 🇿🇦";
    // clang-format on
}

void MatchRecordsTest::scoreTexts()
{
    QFETCH(Match, match);
    QTEST(match.scorelineDisplay(), "scoreline");
    QTEST(match.displayHomeScore(), "home");
    QTEST(match.displayAwayScore(), "away");
    QTEST(match.trayMenuBarTitle(), "tray");
}

void MatchRecordsTest::parseMatchDate_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QDateTime>("expected"); // invalid: no date

    const auto utc = [](int month, int day, int hour, int minute) {
        return QDateTime(QDate(2026, month, day), QTime(hour, minute), QTimeZone::utc());
    };
    // clang-format off
    QTest::newRow("Pacific across midnight") << "06/12/2026 18:00" << QByteArray("America/Los_Angeles")
                                             << utc(6, 13, 1, 0);
    QTest::newRow("day first") << "13/06/2026 13:00" << QByteArray("UTC") << QDateTime();
    QTest::newRow("trailing text") << "06/11/2026 13:00Z" << QByteArray("UTC") << QDateTime();
    // clang-format on
}

void MatchRecordsTest::parseMatchDate()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, zone);
    QFETCH(QDateTime, expected);
    const QDateTime parsed = ::parseMatchDate(text, QTimeZone(zone));
    QCOMPARE(parsed.isValid(), expected.isValid());
    if (expected.isValid())
        QCOMPARE(parsed.toUTC(), expected);
}

void MatchRecordsTest::formattersUseTheirZoneInEnglish_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("dateKey");
    QTest::addColumn<QString>("full");
    QTest::addColumn<QString>("dated");

    // clang-format off
    QTest::newRow("Tokyo, next day") << QByteArray("Asia/Tokyo") << "2026-06-12" << "Fri, Jun 12 · 04:00" << "Fri 12 Jun · 04:00";
    // clang-format on
}

void MatchRecordsTest::formattersUseTheirZoneInEnglish()
{
    QFETCH(QByteArray, zone);
    // A French user still sees English names: the formats are the program's, not the locale's.
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    const WCFormatters formatters{QTimeZone(zone)};
    const QDateTime kickoff(QDate(2026, 6, 11), QTime(19, 0), QTimeZone::utc());
    QTEST(formatters.dateKey(kickoff), "dateKey");
    QTEST(formatters.kickoffFull(kickoff), "full");
    Match match;
    match.kickoffDate = kickoff;
    QTEST(match.kickoffDatedLabel(formatters), "dated");
    QCOMPARE(formatters.friendlyDate(kickoff) + u' ' + formatters.kickoffTime(kickoff),
             formatters.kickoffFull(kickoff).replace(QStringLiteral(" · "), QStringLiteral(" ")));
    QCOMPARE(formatters.weekdayShort(kickoff), formatters.friendlyDate(kickoff).first(3));
    QCOMPARE(formatters.dayNumber(kickoff), formatters.dateKey(kickoff).right(2));
    QLocale::setDefault(QLocale::c());
}

void MatchRecordsTest::sharedFormattersFollowTZ()
{
    // CTest starts this test with TZ=Asia/Kolkata, a zone without daylight saving and a half-hour offset.
    QCOMPARE(WCFormatters::shared().timeZone().id(), QByteArray("Asia/Kolkata"));
    Match match;
    match.kickoffDate = QDateTime(QDate(2026, 6, 11), QTime(19, 0), QTimeZone::utc());
    QCOMPARE(match.kickoffFullLabel(), QStringLiteral("Fri, Jun 12 · 00:30"));
    match.kickoffDate = {};
    match.kickoffLabel = QStringLiteral("06/11/2026 13:00");
    QCOMPARE(match.kickoffFullLabel(), match.kickoffLabel);
}

QTEST_GUILESS_MAIN(MatchRecordsTest)
#include "MatchRecordsTest.moc"
