#pragma once

#include "ModelLookup.h"

// One team's page: its detail, and whether the tournament knows it at all.
class TeamLookup : public ModelLookup {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(TeamDetailState team READ team NOTIFY recordChanged)

public:
    using ModelLookup::ModelLookup;

    TeamDetailState team() const { return m_team; }
    bool found() const override { return m_found; }

protected:
    void watch(AppModel &model) override
    {
        connect(&model, &AppModel::allMatchesChanged, this, &TeamLookup::rereadNow);
        connect(&model, &AppModel::standingsChanged, this, &TeamLookup::rereadNow);
        connect(&model, &AppModel::teamsByIDChanged, this, &TeamLookup::rereadNow);
    }
    bool reread(const AppModel &model, const QString &key) override
    {
        const TeamDetailState team = model.teamDetailState(key);
        const QList<APITeam> teams = model.allTeamsSorted();
        const bool found =
            !team.matches.isEmpty() ||
            std::any_of(teams.cbegin(), teams.cend(), [&](const APITeam &known) { return known.id == key; });
        const bool changed = team != m_team || found != m_found;
        m_team = team;
        m_found = found;
        return changed;
    }

private:
    TeamDetailState m_team;
    bool m_found = false;
};
