#pragma once

#include "ModelLookup.h"

// One venue and the matches played there, for its page.
class StadiumLookup : public ModelLookup {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(APIStadium stadium READ stadium NOTIFY recordChanged)
    Q_PROPERTY(QList<Match> matches READ matches NOTIFY recordChanged)

public:
    using ModelLookup::ModelLookup;

    APIStadium stadium() const { return m_stadium.value_or(APIStadium()); }
    QList<Match> matches() const { return m_matches; }
    bool found() const override { return m_stadium.has_value(); }

protected:
    void watch(AppModel &model) override
    {
        connect(&model, &AppModel::stadiumsByIDChanged, this, &StadiumLookup::rereadNow);
        connect(&model, &AppModel::allMatchesChanged, this, &StadiumLookup::rereadNow);
    }
    bool reread(const AppModel &model, const QString &key) override
    {
        std::optional<APIStadium> stadium;
        for (const APIStadium &candidate : model.allStadiumsSorted()) {
            if (candidate.id == key)
                stadium = candidate;
        }
        const QList<Match> matches = model.matchesForStadiumID(key);
        const bool changed = stadium != m_stadium || matches != m_matches;
        m_stadium = stadium;
        m_matches = matches;
        return changed;
    }

private:
    std::optional<APIStadium> m_stadium;
    QList<Match> m_matches;
};
