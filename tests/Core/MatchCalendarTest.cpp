#include "Calendar/MatchCalendar.h"
#include "IcsEvents.h"

#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>
#include <QTimeZone>

// Calendar files as a calendar program imports them: read back by a real iCalendar parser, and held to
// the rules of RFC 5545 that importers are strict about.
class MatchCalendarTest : public QObject {
    Q_OBJECT

private slots:
    void parserReadsEveryEventBack_data();
    void parserReadsEveryEventBack();
};

namespace {

Match matchAt(const QString &id, const QDateTime &kickoff, const QString &home, const QString &away,
              const QString &stadium, const QString &city)
{
    Match match;
    match.id = id;
    match.matchNumber = id.toInt();
    match.round = QStringLiteral("GROUP");
    match.groupName = QStringLiteral("L");
    match.homeTeam = home;
    match.awayTeam = away;
    match.stadium = stadium;
    match.city = city;
    match.kickoffDate = kickoff;
    return match;
}

const QDateTime stamp(QDate(2026, 6, 1), QTime(8, 0), QTimeZone::utc());

QByteArray unfolded(QByteArray calendar)
{
    return calendar.replace("\r\n ", "");
}

} // namespace

void MatchCalendarTest::parserReadsEveryEventBack_data()
{
    QTest::addColumn<Match>("match");
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("start");

    const QTimeZone toronto("America/Toronto");
    // clang-format off
    // A venue-local kick-off is written in UTC.
    QTest::newRow("local kick-off") << matchAt("7", QDateTime(QDate(2026, 6, 12), QTime(15, 0), toronto),
                                               "Canada", "Bosnia and Herzegovina", "BMO Field", "Toronto")
                                    << "BMO Field, Toronto" << "2026-06-12T19:00:00+00:00";
    QTest::newRow("long, not ASCII, separators and a backslash")
        << matchAt("88", QDateTime(QDate(2026, 7, 4), QTime(17, 0), QTimeZone::utc()),
                   "Demokratische Volksrepublik 🇰🇵 Überlänge", "République démocratique du Congo",
                   "Estadio BBVA; Guadalupe, Nuevo León \\ north", "Monterrey")
        << "Estadio BBVA; Guadalupe, Nuevo León \\ north, Monterrey" << "2026-07-04T17:00:00+00:00";
    // clang-format on
}

void MatchCalendarTest::parserReadsEveryEventBack()
{
    QFETCH(Match, match);
    Match undated = match;
    undated.id = QStringLiteral("999");
    undated.kickoffDate = QDateTime();

    const QByteArray calendar = MatchCalendar::write({match, undated}, stamp);
    const QJsonArray events = parsedIcsEvents(calendar);
    // A match without a kick-off cannot be placed in a calendar.
    QCOMPARE(events.size(), 1);
    const QJsonObject event = events.first().toObject();
    QCOMPARE(event.value(QStringLiteral("uid")).toString(),
             QStringLiteral("match-%1@pitchlark.com").arg(match.id));
    QCOMPARE(event.value(QStringLiteral("summary")).toString(),
             match.homeTeam + QStringLiteral(" v ") + match.awayTeam);
    QTEST(event.value(QStringLiteral("location")).toString(), "location");
    QTEST(event.value(QStringLiteral("start")).toString(), "start");
    QCOMPARE(QDateTime::fromString(event.value(QStringLiteral("end")).toString(), Qt::ISODate),
             match.kickoffDate.addSecs(MatchCalendar::eventMinutes * 60));
    QCOMPARE(event.value(QStringLiteral("description")).toString(),
             QStringLiteral("Group L · Match %1").arg(match.matchNumber));

    // Importers stricter than the parser want CRLF, lines of at most 75 octets folded between whole
    // characters, and no bare separator in a text value.
    QVERIFY(calendar.endsWith("END:VCALENDAR\r\n"));
    QCOMPARE(calendar.count('\n'), calendar.count("\r\n"));
    for (const QByteArray &line : calendar.chopped(2).split('\n')) {
        const QByteArray content = line.chopped(1);
        QVERIFY2(content.size() <= 75, content.constData());
        QVERIFY2(QString::fromUtf8(content).toUtf8() == content, content.constData());
    }
    static const QRegularExpression bareSeparator(QStringLiteral(R"(^LOCATION:(.*[^\\])?[;,])"),
                                                  QRegularExpression::MultilineOption);
    QVERIFY(!bareSeparator.match(QString::fromUtf8(unfolded(calendar))).hasMatch());

    // Written a day later, the file differs only in when it was made, so importing it again updates
    // the same events.
    QList<QByteArray> later = MatchCalendar::write({match, undated}, stamp.addDays(1)).split('\n');
    QList<QByteArray> first = calendar.split('\n');
    for (QList<QByteArray> *written : {&first, &later})
        written->removeIf([](const QByteArray &line) { return line.startsWith("DTSTAMP:"); });
    QCOMPARE(later, first);
}

QTEST_GUILESS_MAIN(MatchCalendarTest)
#include "MatchCalendarTest.moc"
