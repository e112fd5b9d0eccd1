#include "ModelFixture.h"

#include <QElapsedTimer>
#include <QTest>

// The detail stack keeps a popped screen renderable for its slide-out, and a banner stays for its full
// time from its own arrival. Both run on real timers, so these tests wait for real.
class NavigationTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void backOnEmptyStackDoesNothing();
    void poppedRouteSlidesOutThenGoes();
    void secondBackTakesOverTheSlide();
    void openClearsTheSlide();
    void equalRouteStillStackedIsNotRenderedTwice();
    void newerBannerGetsItsOwnFullTime();

private:
    std::unique_ptr<ModelFixture> m_fixture;
    std::unique_ptr<AppModel> m_model;
};

namespace {
const PanelRoute teamA = PanelRoute::team(QStringLiteral("1"));
const PanelRoute matchB = PanelRoute::match(QStringLiteral("73"));
constexpr int slide = int(AppModel::poppingRouteLifetime.count());
} // namespace

void NavigationTest::init()
{
    m_fixture = std::make_unique<ModelFixture>();
    m_model = m_fixture->makeModel();
}

void NavigationTest::backOnEmptyStackDoesNothing()
{
    m_model->back();
    QVERIFY(m_model->detailStack().isEmpty());
    QVERIFY(!m_model->poppingRoute());
}

void NavigationTest::poppedRouteSlidesOutThenGoes()
{
    m_model->open(teamA);
    m_model->open(matchB);
    m_model->back();
    QCOMPARE(m_model->detailStack(), QList{teamA});
    QCOMPARE(m_model->poppingRoute(), std::optional(matchB));
    QCOMPARE(m_model->renderedRoutes(), (QList{teamA, matchB}));
    QTRY_VERIFY_WITH_TIMEOUT(!m_model->poppingRoute(), slide + 500);
    QCOMPARE(m_model->renderedRoutes(), QList{teamA});
}

void NavigationTest::secondBackTakesOverTheSlide()
{
    m_model->open(teamA);
    m_model->open(matchB);
    QElapsedTimer clock;
    clock.start();
    m_model->back();
    QTest::qWait(slide / 2);
    m_model->back();
    QCOMPARE(m_model->poppingRoute(), std::optional(teamA));
    // The first wait ends first; it finds another route sliding and leaves it alone.
    QTest::qWait(int(slide + slide / 4 - clock.elapsed()));
    QCOMPARE(m_model->poppingRoute(), std::optional(teamA));
    QTRY_VERIFY_WITH_TIMEOUT(!m_model->poppingRoute(), slide);
    QVERIFY(m_model->renderedRoutes().isEmpty());
}

void NavigationTest::openClearsTheSlide()
{
    m_model->open(teamA);
    m_model->back();
    m_model->open(matchB);
    QVERIFY(!m_model->poppingRoute());
    QCOMPARE(m_model->renderedRoutes(), QList{matchB});
}

void NavigationTest::equalRouteStillStackedIsNotRenderedTwice()
{
    m_model->open(teamA);
    m_model->open(PanelRoute::team(QStringLiteral("1")));
    m_model->back();
    QCOMPARE(m_model->poppingRoute(), std::optional(teamA));
    QCOMPARE(m_model->renderedRoutes(), QList{teamA});
    QVERIFY((PanelRoute::settings() == PanelRoute{PanelRoute::Kind::settings, QStringLiteral("ignored")}));
    QVERIFY(!(PanelRoute::team(QStringLiteral("1")) == PanelRoute::match(QStringLiteral("1"))));
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
