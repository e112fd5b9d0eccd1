#pragma once

#include "AppEnums.h"
#include "Navigation/PanelRoute.h"

#include <QList>
#include <QObject>
#include <QVariant>

#include <chrono>
#include <optional>

// Where the user is in the panel: the section on show and each section's own choices (the day, the
// group, the knockout view, the team search, the fixtures' team filter), and the stack of detail
// screens over them with the one sliding out.
class PanelNavigation : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString section READ sectionName WRITE setSectionName NOTIFY sectionChanged)
    Q_PROPERTY(QString selectedDate READ selectedDate WRITE setSelectedDate NOTIFY selectedDateChanged)
    Q_PROPERTY(QString selectedGroup READ selectedGroup WRITE setSelectedGroup NOTIFY selectedGroupChanged)
    // The standings section shows the knockout tree instead of the group tables.
    Q_PROPERTY(bool showsBracket READ showsBracket WRITE setShowsBracket NOTIFY showsBracketChanged)
    Q_PROPERTY(
        QString teamSearchText READ teamSearchText WRITE setTeamSearchText NOTIFY teamSearchTextChanged)
    Q_PROPERTY(QString selectedTeamFilterID READ selectedTeamFilterIDText WRITE setSelectedTeamFilterIDText
                   NOTIFY selectedTeamFilterIDChanged)
    Q_PROPERTY(QList<PanelRoute> detailStack READ detailStack NOTIFY detailStackChanged)
    Q_PROPERTY(QVariant poppingRoute READ poppingRouteValue NOTIFY poppingRouteChanged)
    Q_PROPERTY(QList<PanelRoute> renderedRoutes READ renderedRoutes NOTIFY renderedRoutesChanged)

public:
    // How long a popped screen stays renderable for its slide-out.
    static constexpr std::chrono::milliseconds poppingRouteLifetime{550};

    // Opens on the fixtures of the day whose key is given.
    explicit PanelNavigation(const QString &selectedDate, QObject *parent = nullptr);

    Section section() const { return m_section; }
    const QString &selectedDate() const { return m_selectedDate; }
    const QString &selectedGroup() const { return m_selectedGroup; }
    bool showsBracket() const { return m_showsBracket; }
    const QString &teamSearchText() const { return m_teamSearchText; }
    const std::optional<QString> &selectedTeamFilterID() const { return m_selectedTeamFilterID; }
    const QList<PanelRoute> &detailStack() const { return m_detailStack; }
    const std::optional<PanelRoute> &poppingRoute() const { return m_poppingRoute; }
    // The stack, with the screen sliding out on top while it is not also still stacked.
    QList<PanelRoute> renderedRoutes() const;

    void setSection(Section section);
    void setSelectedDate(const QString &dateKey);
    void setSelectedGroup(const QString &group);
    void setShowsBracket(bool shows);
    void setTeamSearchText(const QString &text);
    void setSelectedTeamFilterID(const std::optional<QString> &teamID);

    void open(const PanelRoute &route);
    Q_INVOKABLE void openMatch(const QString &matchID) { open(PanelRoute::match(matchID)); }
    Q_INVOKABLE void openTeam(const QString &teamID) { open(PanelRoute::team(teamID)); }
    Q_INVOKABLE void openStadium(const QString &stadiumID) { open(PanelRoute::stadium(stadiumID)); }
    Q_INVOKABLE void openSettings() { open(PanelRoute::settings()); }
    Q_INVOKABLE void back();

signals:
    void sectionChanged();
    void selectedDateChanged();
    void selectedGroupChanged();
    void showsBracketChanged();
    void teamSearchTextChanged();
    void selectedTeamFilterIDChanged();
    void detailStackChanged();
    void poppingRouteChanged();
    void renderedRoutesChanged();

private:
    // QML-facing forms of the enumerated and optional members.
    QString sectionName() const { return rawValue(m_section); }
    void setSectionName(const QString &name);
    QString selectedTeamFilterIDText() const { return m_selectedTeamFilterID.value_or(QString()); }
    void setSelectedTeamFilterIDText(const QString &teamID);
    QVariant poppingRouteValue() const;
    void setDetailStack(const QList<PanelRoute> &stack);
    void setPoppingRoute(const std::optional<PanelRoute> &route);

    Section m_section = Section::fixtures;
    QString m_selectedDate;
    QString m_selectedGroup = QStringLiteral("A");
    bool m_showsBracket = false;
    QString m_teamSearchText;
    std::optional<QString> m_selectedTeamFilterID;
    QList<PanelRoute> m_detailStack;
    std::optional<PanelRoute> m_poppingRoute;
};
