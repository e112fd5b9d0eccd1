#pragma once

#include "Lists/RecordListModel.h"
#include "Models/Match.h"

#include <QtQml/qqmlregistration.h>

// A page's own list of matches (a team's, a venue's): each new answer of the page's query updates the
// rows in place, so the page keeps its cards.
class MatchListModel : public RecordListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<Match> matches READ matches WRITE setMatches NOTIFY rowsChanged)

public:
    explicit MatchListModel(QObject *parent = nullptr)
        : RecordListModel(Match::staticMetaObject, "match", "id", parent)
    {}

    QList<Match> matches() const { return recordsOf<Match>(rows()); }
    void setMatches(const QList<Match> &matches) { updateRows(recordVariants(matches)); }
};
