#include "ModelFixture.h"

#include <QTest>

// The detail stack keeps a popped screen renderable for its slide-out. The slide runs on a real timer,
// so this test waits for real.
class NavigationTest : public QObject {
    Q_OBJECT

private slots:
    void routes_data();
    void routes();
};

void NavigationTest::routes_data()
{
    // Each step opens its route, or goes back for none.
    QTest::addColumn<QList<std::optional<PanelRoute>>>("steps");
    QTest::addColumn<QList<PanelRoute>>("stack");
    QTest::addColumn<std::optional<PanelRoute>>("popping");
    QTest::addColumn<QList<PanelRoute>>("rendered");

    const PanelRoute teamA = PanelRoute::team(QStringLiteral("1"));
    const PanelRoute matchB = PanelRoute::match(QStringLiteral("73"));
    const std::optional<PanelRoute> back;
    const std::optional<PanelRoute> none;
    const PanelRoute matchOne = PanelRoute::match(QStringLiteral("1"));
    using Steps = QList<std::optional<PanelRoute>>;
    using Routes = QList<PanelRoute>;
    // clang-format off
    QTest::newRow("back on an empty stack") << Steps{back} << Routes{} << none << Routes{};
    QTest::newRow("popped route slides out") << Steps{teamA, matchB, back} << Routes{teamA} << std::optional(matchB)
                                             << Routes{teamA, matchB};
    QTest::newRow("open clears the slide") << Steps{teamA, back, matchB} << Routes{matchB} << none << Routes{matchB};
    QTest::newRow("route still stacked is drawn once") << Steps{teamA, teamA, back} << Routes{teamA}
                                                       << std::optional(teamA) << Routes{teamA};
    QTest::newRow("same id, other kind, is drawn too") << Steps{teamA, matchOne, back} << Routes{teamA}
                                                       << std::optional(matchOne) << Routes{teamA, matchOne};
    // clang-format on
}

void NavigationTest::routes()
{
    QFETCH(QList<std::optional<PanelRoute>>, steps);
    QFETCH(std::optional<PanelRoute>, popping);
    ModelFixture fixture;
    const auto model = fixture.makeModel();
    PanelNavigation &navigation = model->navigation();
    for (const std::optional<PanelRoute> &step : steps) {
        if (step)
            navigation.open(*step);
        else
            navigation.back();
    }
    QTEST(navigation.detailStack(), "stack");
    QCOMPARE(navigation.poppingRoute(), popping);
    QTEST(navigation.renderedRoutes(), "rendered");
    // The slide ends on its own, and leaves the stack as it was.
    QTRY_VERIFY_WITH_TIMEOUT(!navigation.poppingRoute(),
                             int(PanelNavigation::poppingRouteLifetime.count()) + 500);
    QTEST(navigation.renderedRoutes(), "stack");
}

QTEST_GUILESS_MAIN(NavigationTest)
#include "NavigationTest.moc"
