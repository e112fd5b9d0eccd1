#pragma once

#include "FeedServer.h"
#include "GlassImages.h"
#include "ModelFixture.h"
#include "PanelController.h"
#include "ThemeSingleton.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>

#include <QCoro/QCoroTask>

#include <algorithm>
#include <memory>

// The panel tests' harness: the real panel over a real model fed by an in-process replay. Include it
// in one source file per test program, since it imports the QML plugins.
Q_IMPORT_QML_PLUGIN(Pitchlark_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_FeaturesPlugin)
Q_IMPORT_QML_PLUGIN(Pitchlark_AppPlugin)

// The visible item of that name under item, searched through the drawn tree (Loaders and Repeaters
// included).
inline QQuickItem *findVisibleItem(QQuickItem *item, const QString &name)
{
    if (!item->isVisible())
        return nullptr;
    if (item->objectName() == name)
        return item;
    for (QQuickItem *child : item->childItems()) {
        if (QQuickItem *found = findVisibleItem(child, name))
            return found;
    }
    return nullptr;
}

inline const QDateTime frozenAt{QDate(2026, 6, 27), QTime(21, 30), QTimeZone::utc()};

// The real panel over a real model fed by an in-process replay frozen at one instant.
class Panel {
public:
    // updates is the update controller handed to the panel, or none.
    Panel(const Tournament &tournament, QQmlEngine &engine, QObject *updates = nullptr,
          const QDateTime &at = frozenAt)
        : m_now(at), m_feed(tournament, TournamentClock::frozen(at)),
          m_fixture(QStringLiteral("http://127.0.0.1:%1").arg(m_feed.listen()))
    {
        AppModel::Services services = m_fixture.services([this] { return m_now; });
        // The glass tint recolours the screens' inks, as in the program.
        services.applyTint = [](double hue, double strength) {
            ThemeSingleton::instance()->apply(hue, strength);
        };
        model = std::make_unique<AppModel>(std::move(services));
        QCoro::waitFor(model->fetchAll());
        m_controller = std::make_unique<PanelController>(*model, engine, updates);
        m_controller->show();
        window = m_controller->window();
    }

    // What the program does to its engine before the first panel.
    static void prepareEngine(QQmlEngine &engine)
    {
        engine.addImportPath(QStringLiteral("qrc:/"));
        engine.addImageProvider(QStringLiteral("glass"), new GlassImageProvider);
    }

    QString settingsPath() const { return m_fixture.settingsPath(); }

    // Moves the replay and the model's clock to at, then polls as the program's timer would, again if a
    // request timed out on a loaded machine: a poll that lands sets the last update to its instant.
    void pollAt(const QDateTime &at)
    {
        m_now = at;
        m_feed.setClock(TournamentClock::frozen(at));
        for (int attempt = 0; attempt < 3 && model->lastUpdated() != at; ++attempt)
            QCoro::waitFor(model->fetchAll());
        QCOMPARE(model->lastUpdated(), at);
    }

    QQuickItem *item(const QString &name) const { return findVisibleItem(window->contentItem(), name); }

    void click(const QString &name) const
    {
        QQuickItem *target = item(name);
        QVERIFY2(target, qPrintable(name));
        const QPointF centre = target->mapToScene(QPointF(target->width() / 2, target->height() / 2));
        QTest::mouseClick(window, Qt::LeftButton, {}, centre.toPoint());
    }

    // Clicks name once it has stopped moving (a page slides in, a row is laid out again): a user aims at
    // where a control rests. Each round asks for a frame, which lays out whatever changed.
    void clickWhenSettled(const QString &name) const
    {
        QTRY_VERIFY2(item(name), qPrintable(name));
        QSignalSpy frames(window, &QQuickWindow::frameSwapped);
        QPointF last(-1, -1);
        for (int round = 0; round < 100; ++round) {
            QQuickItem *target = item(name);
            QVERIFY2(target, qPrintable(name));
            const QPointF now = target->mapToScene({});
            if (now == last)
                break;
            last = now;
            window->update();
            frames.wait(500);
        }
        click(name);
    }

    std::unique_ptr<AppModel> model;
    QQuickWindow *window = nullptr;

private:
    QDateTime m_now;
    FeedServer m_feed;
    ModelFixture m_fixture;
    std::unique_ptr<PanelController> m_controller;
};

// Every Text item under the panel, for checks that sweep the whole tree.
inline void collectTexts(QQuickItem *item, QList<QQuickItem *> &texts)
{
    if (item->inherits("QQuickText"))
        texts.append(item);
    for (QQuickItem *child : item->childItems())
        collectTexts(child, texts);
}

inline QStringList matchIDs(const QList<Match> &matches)
{
    QStringList ids;
    for (const Match &match : matches)
        ids.append(match.id);
    return ids;
}

// The ids among candidates whose item (prefix + id) is shown under root, top to bottom.
inline QStringList shownInOrder(QQuickItem *root, const QString &prefix, const QStringList &candidates)
{
    QList<std::pair<qreal, QString>> shown;
    for (const QString &id : candidates) {
        if (QQuickItem *item = findVisibleItem(root, prefix + id))
            shown.append({item->mapToScene({}).y(), id});
    }
    std::sort(shown.begin(), shown.end());
    QStringList ids;
    for (const auto &entry : shown)
        ids.append(entry.second);
    return ids;
}
