#include "ScorerText.h"

#include <QStringList>

namespace ScorerText {

QString shortName(const QString &fullName)
{
    const qsizetype space = fullName.indexOf(u' ');
    if (space <= 0)
        return fullName;
    return fullName.left(1) + QStringLiteral(". ") + fullName.sliced(space + 1);
}

QString entry(const GoalFact &goal)
{
    QString text = shortName(goal.scorer) + u' ' + QString::number(goal.minute) + u'\'';
    if (goal.added > 0)
        text += QStringLiteral("+%1'").arg(goal.added);
    if (goal.penalty)
        text += QStringLiteral("(p)");
    if (goal.ownGoal)
        text += QStringLiteral("(OG)");
    return text;
}

QString list(const QList<const GoalFact *> &goals)
{
    if (goals.isEmpty())
        return QStringLiteral("null");
    QStringList entries;
    entries.reserve(goals.size());
    for (const GoalFact *goal : goals)
        entries.append(u'"' + entry(*goal) + u'"');
    return u'{' + entries.join(u',') + u'}';
}

} // namespace ScorerText
