#pragma once

#include "Tournament.h"

#include <QList>
#include <QString>

// The data service's scorer text: "null" when nobody has scored, else a brace-wrapped list of
// double-quoted entries such as {"J. Quiñones 9'","F. Balogun 45'+5'","D. Bobadilla 7'(OG)"}.
namespace ScorerText {

// "Julián Quiñones" is written "J. Quiñones"; a one-word name stays as it is.
QString shortName(const QString &fullName);
QString entry(const GoalFact &goal);
QString list(const QList<const GoalFact *> &goals);

} // namespace ScorerText
