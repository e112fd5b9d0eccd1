#include "Support/StatusLine.h"

#include <QTest>

// The panel header's status line in its three states, and the time of day in several conventions.
class StatusLineTest : public QObject {
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
};

void StatusLineTest::texts_data()
{
    QTest::addColumn<bool>("isLoading");
    QTest::addColumn<QDateTime>("lastUpdated");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("line");

    const QDateTime updated(QDate(2026, 6, 27), QTime(19, 32, 15), QTimeZone::utc());
    // clang-format off
    QTest::newRow("first load") << true << QDateTime() << "C" << "Loading…";
    QTest::newRow("first load failed") << false << QDateTime() << "C" << "World Cup 2026";
    QTest::newRow("refreshing keeps the time") << true << updated << "C" << "Updated 21:32";
    QTest::newRow("C locale, no seconds") << false << updated << "C" << "Updated 21:32";
    QTest::newRow("12-hour clock") << false << updated << "en_US" << "Updated 9:32 PM";
    QTest::newRow("dotted clock") << false << updated << "fi_FI" << "Updated 21.32";
    // clang-format on
}

void StatusLineTest::texts()
{
    QFETCH(bool, isLoading);
    QFETCH(QDateTime, lastUpdated);
    QFETCH(QString, locale);
    const QTimeZone berlin("Europe/Berlin");
    QTEST(panelStatusLine(isLoading, lastUpdated, QLocale(locale), berlin), "line");
}

QTEST_GUILESS_MAIN(StatusLineTest)
#include "StatusLineTest.moc"
