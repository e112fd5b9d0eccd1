#include "AppDelegate.h"
#include "PanelHarness.h"
#include "ScriptedEngine.h"
#include "TrayItem.h"
#include "UpdateController.h"
#include "UpdateScript.h"
#include "UpdateToastWindowController.h"

#include <QDir>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>

namespace {

// The steps of one flow; "found" becomes the offer the flow's kind of check receives, and a flow the
// user started begins with the check itself.
QStringList flow(QStringList steps, bool userInitiated)
{
    for (QString &step : steps) {
        if (step.startsWith(u"found"))
            step.replace(0, 5, userInitiated ? QStringLiteral("offer") : QStringLiteral("background-offer"));
    }
    if (userInitiated)
        steps.prepend(QStringLiteral("check"));
    return steps;
}

QString textOf(QQuickItem *item)
{
    return item ? item->property("text").toString() : QString();
}

} // namespace

// The update toast and the update dialog in every phase, in the program as it starts: the delegate
// with its panel and toast over the replayed tournament. The update engine is a scripted one standing
// in for the release server, because the real flow needs a signed AppImage; the test makes the
// engine's callbacks itself.
class UpdateViewsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void phases_data();
    void phases();
    void buttonsAnswer_data();
    void buttonsAnswer();
    void toastSitsInTheCornerAndFadesOnlyOnce();

private:
    // The toast's window when a flow shows it, else the panel's.
    QQuickWindow *surface(bool userInitiated) const;
    QQuickItem *item(bool userInitiated, const QString &name) const;
    bool toastShown() const;
    bool dialogShown() const;

    std::unique_ptr<FeedServer> m_feed;
    std::unique_ptr<ModelFixture> m_fixture;
    std::unique_ptr<AppDelegate> m_delegate;
    std::unique_ptr<UpdateScript> m_script;
};

void UpdateViewsTest::init()
{
    m_feed = std::make_unique<FeedServer>(Tournament::bundled(), TournamentClock::frozen(frozenAt));
    m_fixture = std::make_unique<ModelFixture>(QStringLiteral("http://127.0.0.1:%1").arg(m_feed->listen()));
    m_delegate = std::make_unique<AppDelegate>(m_fixture->services([] { return frozenAt; }),
                                               std::make_unique<ScriptedEngine>());
    m_delegate->launch(nullptr);
    m_delegate->panel()->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_delegate->panel()->window()));
    m_script = std::make_unique<UpdateScript>(UpdateScript{m_delegate->updates(), {}});
}

void UpdateViewsTest::cleanup()
{
    m_script.reset();
    m_delegate.reset();
    m_fixture.reset();
    m_feed.reset();
}

QQuickWindow *UpdateViewsTest::surface(bool userInitiated) const
{
    return userInitiated ? m_delegate->panel()->window() : m_delegate->updateToast().window();
}

QQuickItem *UpdateViewsTest::item(bool userInitiated, const QString &name) const
{
    QQuickWindow *window = surface(userInitiated);
    return window ? findVisibleItem(window->contentItem(), name) : nullptr;
}

bool UpdateViewsTest::toastShown() const
{
    const QQuickWindow *window = m_delegate->updateToast().window();
    return window && window->isVisible();
}

bool UpdateViewsTest::dialogShown() const
{
    return findVisibleItem(m_delegate->panel()->window()->contentItem(), QStringLiteral("updateModal"));
}

void UpdateViewsTest::phases_data()
{
    QTest::addColumn<bool>("userInitiated");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("texts");   // title, subtitle
    QTest::addColumn<QStringList>("buttons"); // secondary, primary; empty when absent
    QTest::addColumn<bool>("spinner");
    QTest::addColumn<double>("progress"); // the bar's filled fraction; absent bar: NaN

    const double noBar = qQNaN();
    const QStringList downloading{"Downloading update…", ""};
    for (const bool user : {false, true}) {
        const auto row = [user](const char *name, const QStringList &steps, const QStringList &texts,
                                const QStringList &buttons, bool spinner, double progress) {
            QTest::addRow("%s %s", user ? "dialog" : "toast", name)
                << user << flow(steps, user) << texts << buttons << spinner << progress;
        };
        row("available", {"found r"}, {"Update available", "Pitchlark 2.0 is ready to install."},
            {"Later", "Update"}, false, noBar);
        row("downloading, size unknown", {"found r", "primary", "download"}, downloading, {"", ""}, true, -1);
        row("downloading, 40%", {"found r", "primary", "download", "length 200", "data 80"}, downloading,
            {"", ""}, true, 0.4);
        row("ready", {"found r", "primary", "download", "ready i"},
            {"Update ready", "Relaunch to finish updating."}, {"", "Relaunch"}, false, noBar);
        row("installing", {"found r", "primary", "ready i", "primary", "installing"}, {"Installing…", ""},
            {"", ""}, true, noBar);
        row("up to date", {"not-found a"}, {"You're up to date", "You have the latest version."},
            {"Done", ""}, false, noBar);
        row("error", {"error a The feed could not be read."},
            {"Update failed", "The feed could not be read."}, {"Dismiss", ""}, false, noBar);
    }
    QTest::newRow("dialog checking") << true << QStringList{"check"}
                                     << QStringList{"Checking for updates…", ""} << QStringList{"", ""}
                                     << true << noBar;
}

void UpdateViewsTest::phases()
{
    QFETCH(bool, userInitiated);
    QFETCH(QStringList, steps);
    QFETCH(QStringList, texts);
    QFETCH(QStringList, buttons);
    QFETCH(bool, spinner);
    QFETCH(double, progress);

    m_script->run(steps);
    // A flow the user started shows only the dialog; one that runs in the background only the toast.
    QTRY_COMPARE(toastShown(), !userInitiated);
    QTRY_COMPARE(dialogShown(), userInitiated);
    QCOMPARE(textOf(item(userInitiated, QStringLiteral("updateTitle"))), texts[0]);
    QCOMPARE(textOf(item(userInitiated, QStringLiteral("updateSubtitle"))), texts[1]);
    QCOMPARE(textOf(item(userInitiated, QStringLiteral("updateSecondary"))), buttons[0]);
    QCOMPARE(textOf(item(userInitiated, QStringLiteral("updatePrimary"))), buttons[1]);
    QCOMPARE(item(userInitiated, QStringLiteral("updateSpinner")) != nullptr, spinner);
    QCOMPARE(item(userInitiated, QStringLiteral("updateIcon")) != nullptr, !spinner);
    QQuickItem *bar = item(userInitiated, QStringLiteral("updateProgress"));
    QCOMPARE(bar != nullptr, !qIsNaN(progress));
    if (bar) {
        QCOMPARE(bar->property("indeterminate").toBool(), progress < 0);
        if (progress >= 0) {
            QQuickItem *fill = findVisibleItem(bar, QStringLiteral("progressFill"));
            QTRY_COMPARE(fill->width(), bar->width() * progress);
        }
    }
}

void UpdateViewsTest::buttonsAnswer_data()
{
    QTest::addColumn<bool>("userInitiated");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<bool>("closes");

    for (const bool user : {false, true}) {
        const auto row = [user](const char *name, const QStringList &steps, const char *button,
                                const QStringList &answers, bool closes) {
            QTest::addRow("%s %s", user ? "dialog" : "toast", name)
                << user << flow(steps, user) << QString::fromLatin1(button) << answers << closes;
        };
        // The phase after "Update" and "Relaunch" is the engine's to set.
        row("update", {"found r"}, "updatePrimary", {"r:install"}, false);
        row("later", {"found r"}, "updateSecondary", {"r:dismiss"}, true);
        row("relaunch", {"found r", "primary", "download", "ready i"}, "updatePrimary", {"i:install"}, false);
        row("done", {"not-found a"}, "updateSecondary", {}, true);
        row("dismiss", {"error a Offline"}, "updateSecondary", {}, true);
    }
    // A click on the dialog's backdrop: an offered or downloaded update must be answered with a button.
    const auto backdrop = [](const char *name, const QStringList &steps, bool closes) {
        QTest::addRow("dialog backdrop, %s", name)
            << true << flow(steps, true) << QStringLiteral("backdrop") << QStringList() << closes;
    };
    backdrop("available", {"found r"}, false);
    backdrop("ready", {"found r", "primary", "download", "ready i"}, false);
    backdrop("checking", {}, true);
    backdrop("up to date", {"not-found a"}, true);
    backdrop("error", {"error a Offline"}, true);
}

void UpdateViewsTest::buttonsAnswer()
{
    QFETCH(bool, userInitiated);
    QFETCH(QStringList, steps);
    QFETCH(QString, button);
    QFETCH(QStringList, answers);
    QFETCH(bool, closes);

    m_script->run(steps);
    const bool backdrop = button == u"backdrop";
    const QString name = backdrop ? QStringLiteral("updateModal") : button;
    QTRY_VERIFY(item(userInitiated, name));
    QQuickWindow *window = surface(userInitiated);
    // The toast is up to date once its fade-in has begun; clicks count from then on.
    QTRY_VERIFY(window->isExposed());
    QQuickItem *target = item(userInitiated, name);
    // The backdrop is clicked above the card, on the dimmed panel.
    const QPointF point = backdrop ? QPointF(window->width() / 2, target->mapToScene({}).y() / 2)
                                   : target->mapToScene(QPointF(target->width() / 2, target->height() / 2));
    m_script->log.clear(); // only what the click answers
    QTest::mouseClick(window, Qt::LeftButton, {}, point.toPoint());
    QCOMPARE(m_script->log.filter(QRegularExpression(QStringLiteral(":(install|dismiss)$"))), answers);
    QCOMPARE(m_delegate->updates().phase().kind() == UpdatePhase::Kind::idle, closes);
    if (closes)
        QTRY_VERIFY(userInitiated ? !dialogShown() : !toastShown());
    else
        QVERIFY(userInitiated ? dialogShown() : toastShown());
}

void UpdateViewsTest::toastSitsInTheCornerAndFadesOnlyOnce()
{
    m_script->run({QStringLiteral("background-offer r")});
    QTRY_VERIFY(toastShown());
    QQuickWindow *toast = m_delegate->updateToast().window();
    QVERIFY(toast->flags().testFlags(Qt::FramelessWindowHint | Qt::Tool | Qt::WindowStaysOnTopHint |
                                     Qt::WindowDoesNotAcceptFocus));
    QTRY_COMPARE(toast->opacity(), 1.0);
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    const auto placedInTheCorner = [&] {
        return toast->x() + toast->width() == available.right() + 1 - 8 && toast->y() == available.top() + 8;
    };
    QTRY_VERIFY(placedInTheCorner());
    const QQuickItem *card = findVisibleItem(toast->contentItem(), QStringLiteral("updateToast"));
    QCOMPARE(card->width(), 330.0);

    const QString snapshots = QStringLiteral(PITCHLARK_SNAPSHOTS);
    QDir().mkpath(snapshots);
    QVERIFY(toast->grabWindow().save(snapshots + QStringLiteral("/update-toast.png")));

    // The download has no buttons and a bar: a new size, in the same corner, with no second fade-in.
    const int offeredHeight = toast->height();
    m_script->run({QStringLiteral("primary"), QStringLiteral("download")});
    QTRY_VERIFY(toast->height() != offeredHeight);
    QVERIFY(placedInTheCorner());
    QCOMPARE(toast->opacity(), 1.0);

    m_script->run({QStringLiteral("dismiss")});
    QTRY_VERIFY(!toast->isVisible());
    QCOMPARE(toast->opacity(), 0.0);
}

QTEST_MAIN(UpdateViewsTest)
#include "UpdateViewsTest.moc"
