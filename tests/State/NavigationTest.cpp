#include "ModelFixture.h"

#include <QElapsedTimer>
#include <QTest>

// The detail stack keeps a popped screen renderable for its slide-out, and a banner stays for its full
// time from its own arrival. Both run on real timers, so these tests wait for real.
class NavigationTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void routes_data();
    void routes();
    void secondBackTakesOverTheSlide();
    void newerBannerGetsItsOwnFullTime();

private:
    std::unique_ptr<ModelFixture> m_fixture;
    std::unique_ptr<AppModel> m_model;
};

namespace {
const PanelRoute teamA = PanelRoute::team(QStringLiteral("1"));
const PanelRoute matchB = PanelRoute::match(QStringLiteral("73"));
constexpr int slide = int(PanelNavigation::poppingRouteLifetime.count());
} // namespace

void NavigationTest::init()
{
    m_fixture = std::make_unique<ModelFixture>();
    m_model = m_fixture->makeModel();
}

void NavigationTest::routes_data()
{
    // Each step opens its route, or goes back for none.
    QTest::addColumn<QList<std::optional<PanelRoute>>>("steps");
    QTest::addColumn<QList<PanelRoute>>("stack");
    QTest::addColumn<std::optional<PanelRoute>>("popping");
    QTest::addColumn<QList<PanelRoute>>("rendered");

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
    PanelNavigation &navigation = m_model->navigation();
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
    QTRY_VERIFY_WITH_TIMEOUT(!navigation.poppingRoute(), slide + 500);
    QTEST(navigation.renderedRoutes(), "stack");
}

void NavigationTest::secondBackTakesOverTheSlide()
{
    PanelNavigation &navigation = m_model->navigation();
    navigation.open(teamA);
    navigation.open(matchB);
    QElapsedTimer clock;
    clock.start();
    navigation.back();
    QTest::qWait(slide / 2);
    navigation.back();
    QCOMPARE(navigation.poppingRoute(), std::optional(teamA));
    // The first wait ends first; it finds another route sliding and leaves it alone.
    QTest::qWait(int(slide + slide / 4 - clock.elapsed()));
    QCOMPARE(navigation.poppingRoute(), std::optional(teamA));
    QTRY_VERIFY_WITH_TIMEOUT(!navigation.poppingRoute(), slide);
    QVERIFY(navigation.renderedRoutes().isEmpty());
}

void NavigationTest::newerBannerGetsItsOwnFullTime()
{
    constexpr int lifetime = int(AppModel::bannerLifetime.count());
    const BannerState first{QStringLiteral("a"), QStringLiteral("Goal!"), QStringLiteral("1"),
                            BannerState::Kind::goal};
    const BannerState second{QStringLiteral("b"), QStringLiteral("Full-time"), QStringLiteral("2"),
                             BannerState::Kind::fullTime};
    QElapsedTimer clock;
    clock.start();
    m_model->presentBanner(first);
    QTest::qWait(1000);
    m_model->presentBanner(second);
    QCOMPARE(m_model->activeBanner(), std::optional(second));
    // Past the first banner's time the second is still up...
    QTest::qWait(int(lifetime + 300 - clock.elapsed()));
    QCOMPARE(m_model->activeBanner(), std::optional(second));
    // ...and goes at its own time.
    QTRY_VERIFY_WITH_TIMEOUT(!m_model->activeBanner(), 1500);
    QVERIFY(clock.elapsed() >= 1000 + lifetime);
}

QTEST_GUILESS_MAIN(NavigationTest)
#include "NavigationTest.moc"
