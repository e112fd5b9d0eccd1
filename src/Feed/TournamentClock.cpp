#include "TournamentClock.h"

#include <QRegularExpression>

#include <cmath>

TournamentClock::TournamentClock(const QDateTime &origin, double speed)
    : m_origin(origin.toUTC()), m_speed(speed)
{
    m_wall.start();
}

TournamentClock TournamentClock::frozen(const QDateTime &at)
{
    return TournamentClock(at, 0);
}

TournamentClock TournamentClock::running(const QDateTime &from, double speed)
{
    return TournamentClock(from, speed);
}

std::optional<QDateTime> TournamentClock::parseInstant(const QString &text)
{
    static const QRegularExpression withZone(
        QStringLiteral(R"(^\d{4}-\d{2}-\d{2}T\d{2}:\d{2}(:\d{2}(\.\d{1,3})?)?(Z|[+-]\d{2}:\d{2})$)"));
    if (!withZone.match(text).hasMatch())
        return std::nullopt;
    const QDateTime instant = QDateTime::fromString(text, Qt::ISODateWithMs);
    if (!instant.isValid())
        return std::nullopt;
    return instant.toUTC();
}

QDateTime TournamentClock::now() const
{
    if (m_speed <= 0)
        return m_origin;
    const double tournamentMilliseconds = std::floor(double(m_wall.elapsed()) * m_speed);
    return m_origin.addMSecs(qint64(tournamentMilliseconds));
}

QJsonObject TournamentClock::describe() const
{
    QJsonObject description{
        {QStringLiteral("now"), now().toString(Qt::ISODate)},
        {QStringLiteral("mode"), isRunning() ? QStringLiteral("running") : QStringLiteral("frozen")}};
    if (isRunning()) {
        description.insert(QStringLiteral("from"), m_origin.toString(Qt::ISODate));
        description.insert(QStringLiteral("speed"), m_speed);
    }
    return description;
}
