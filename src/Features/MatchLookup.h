#pragma once

#include "ModelLookup.h"

// One match, for its page.
class MatchLookup : public ModelLookup {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Match match READ match NOTIFY recordChanged)

public:
    using ModelLookup::ModelLookup;

    Match match() const { return m_match.value_or(Match()); }
    bool found() const override { return m_match.has_value(); }

protected:
    void watch(AppModel &model) override
    {
        connect(&model, &AppModel::allMatchesChanged, this, &MatchLookup::rereadNow);
    }
    bool reread(const AppModel &model, const QString &key) override
    {
        std::optional<Match> match;
        for (const Match &candidate : model.allMatches()) {
            if (candidate.id == key)
                match = candidate;
        }
        return std::exchange(m_match, match) != match;
    }

private:
    std::optional<Match> m_match;
};
