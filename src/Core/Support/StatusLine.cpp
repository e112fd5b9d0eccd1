#include "StatusLine.h"

#include <QRegularExpression>

namespace {

// The locale's short time format without its seconds: the C locale's is "HH:mm:ss".
QString hoursAndMinutes(const QLocale &locale)
{
    static const QRegularExpression seconds(QStringLiteral("[:.]?s+"));
    return locale.timeFormat(QLocale::ShortFormat).remove(seconds).trimmed();
}

} // namespace

QString panelStatusLine(bool isLoading, const QDateTime &lastUpdated, const QLocale &locale,
                        const QTimeZone &zone)
{
    if (lastUpdated.isValid())
        return QStringLiteral("Updated ") +
               locale.toString(lastUpdated.toTimeZone(zone).time(), hoursAndMinutes(locale));
    return isLoading ? QStringLiteral("Loading\u2026") : QStringLiteral("World Cup 2026");
}
