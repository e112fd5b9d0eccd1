#include "DebugHooks.h"
#include "PanelController.h"

#include <QTest>

// Where the panel goes on a screen, and how the launch hooks read their environment.
class PanelTest : public QObject {
    Q_OBJECT

private slots:
    void placement_data();
    void placement();
    void routeText_data();
    void routeText();
    void presentationHooks_data();
    void presentationHooks();
};

void PanelTest::placement_data()
{
    QTest::addColumn<QRect>("available");
    QTest::addColumn<QRect>("panel");

    QTest::newRow("top panel of 25") << QRect(0, 25, 1440, 875) << QRect(1040, 37, 388, 851);
    QTest::newRow("second screen to the right") << QRect(1920, 0, 2560, 1400) << QRect(4080, 12, 388, 1376);
    QTest::newRow("bottom dock") << QRect(0, 0, 1280, 720) << QRect(880, 12, 388, 696);
}

void PanelTest::placement()
{
    QFETCH(QRect, available);
    QTEST(PanelController::panelGeometry(available), "panel");
}

void PanelTest::routeText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("kind"); // empty: nothing opens
    QTest::addColumn<QString>("id");

    // clang-format off
    QTest::newRow("match") << "match:73" << "match" << "73";
    QTest::newRow("team") << "team:12" << "team" << "12";
    QTest::newRow("stadium") << "stadium:4" << "stadium" << "4";
    QTest::newRow("empty pieces dropped") << "::team::12:" << "team" << "12";
    QTest::newRow("match without id") << "match" << "" << "";
    QTest::newRow("team with two ids") << "team:1:2" << "" << "";
    QTest::newRow("settings") << "settings" << "settings" << "";
    QTest::newRow("settings with extra") << "settings:x" << "settings" << "";
    QTest::newRow("unknown") << "group:A" << "" << "";
    QTest::newRow("case-sensitive") << "Team:1" << "" << "";
    QTest::newRow("empty") << "" << "" << "";
    // clang-format on
}

void PanelTest::routeText()
{
    QFETCH(QString, text);
    QFETCH(QString, kind);
    QFETCH(QString, id);
    const auto route = DebugHooks::routeFromText(text);
    QCOMPARE(route.has_value(), !kind.isEmpty());
    if (route) {
        QCOMPARE(route->kindName(), kind);
        QCOMPARE(route->id, id);
    }
}

void PanelTest::presentationHooks_data()
{
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<bool>("presents");

    QTest::newRow("none") << QStringList() << false;
    QTest::newRow("autoshow, even empty") << QStringList{"TIDEWELL_AUTOSHOW="} << true;
    QTest::newRow("section") << QStringList{"TIDEWELL_SECTION=teams"} << true;
    QTest::newRow("banner") << QStringList{"TIDEWELL_BANNER=0"} << true;
    QTest::newRow("pinned alone") << QStringList{"TIDEWELL_PINNED=1"} << false;
    QTest::newRow("floating alone") << QStringList{"TIDEWELL_FLOATING=1"} << false;
}

void PanelTest::presentationHooks()
{
    QFETCH(QStringList, variables);
    QProcessEnvironment environment;
    for (const QString &variable : variables)
        environment.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
    QTEST(DebugHooks::isPresentationRequested(environment), "presents");
    QVERIFY(DebugHooks::floatingFromText(QStringLiteral("1")));
    QVERIFY(!DebugHooks::floatingFromText(QStringLiteral("true")));
}

QTEST_GUILESS_MAIN(PanelTest)
#include "PanelTest.moc"
