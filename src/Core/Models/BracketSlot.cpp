#include "BracketSlot.h"

#include <QRegularExpression>

namespace BracketSlot {

std::optional<int> linkedMatchNumber(const QString &slotLabel, Link link)
{
    static const QRegularExpression pattern(QStringLiteral(R"(^\s*(winner|loser)\s+match\s+(\d+)\s*$)"),
                                            QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch found = pattern.match(slotLabel);
    if (!found.hasMatch())
        return std::nullopt;
    const bool isWinner = found.captured(1).compare(QLatin1StringView("winner"), Qt::CaseInsensitive) == 0;
    if (isWinner != (link == Link::winner))
        return std::nullopt;
    bool ok = false;
    const int number = found.captured(2).toInt(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

bool isDecidedSide(const QString &teamID)
{
    return !teamID.isEmpty() && teamID != QLatin1StringView("0");
}

} // namespace BracketSlot
