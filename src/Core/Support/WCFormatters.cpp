#include "WCFormatters.h"

#include "TextParsing.h"

#include <QHash>
#include <QLocale>
#include <QMutex>

WCFormatters::WCFormatters(QTimeZone zone) : m_zone(std::move(zone)) {}

const WCFormatters &WCFormatters::shared()
{
    static const WCFormatters formatters(QTimeZone::systemTimeZone());
    return formatters;
}

QString WCFormatters::format(const QDateTime &instant, QStringView pattern) const
{
    // QLocale::c() keeps day and month names in English for every user.
    return QLocale::c().toString(instant.toTimeZone(m_zone), pattern);
}

QString WCFormatters::dateKey(const QDateTime &instant) const
{
    return format(instant, u"yyyy-MM-dd");
}
QString WCFormatters::friendlyDate(const QDateTime &instant) const
{
    return format(instant, u"ddd, MMM d");
}
QString WCFormatters::weekdayShort(const QDateTime &instant) const
{
    return format(instant, u"ddd");
}
QString WCFormatters::dayNumber(const QDateTime &instant) const
{
    return format(instant, u"d");
}
QString WCFormatters::kickoffTime(const QDateTime &instant) const
{
    // Every match card shows one, so it skips the general formatter and the zone conversion's copy.
    const qint64 local = instant.toSecsSinceEpoch() + m_zone.offsetFromUtc(instant);
    const qint64 secondOfDay = ((local % 86400) + 86400) % 86400;
    const auto digit = [](qint64 value) { return QChar(u'0' + int(value)); };
    const qint64 hour = secondOfDay / 3600;
    const qint64 minute = secondOfDay % 3600 / 60;
    const QChar text[] = {digit(hour / 10), digit(hour % 10), u':', digit(minute / 10), digit(minute % 10)};
    return QString(text, std::size(text));
}
QString WCFormatters::kickoffFull(const QDateTime &instant) const
{
    return format(instant, u"ddd, MMM d \u00b7 HH:mm");
}
QString WCFormatters::kickoffDated(const QDateTime &instant) const
{
    return format(instant, u"ddd d MMM \u00b7 HH:mm");
}

namespace {

// Reads one to maxDigits ASCII digits at position; advances it past them.
std::optional<int> readNumber(QStringView text, qsizetype &position, int maxDigits)
{
    int value = 0;
    int digits = 0;
    while (position < text.size() && digits < maxDigits && text[position] >= u'0' && text[position] <= u'9') {
        value = value * 10 + (text[position].unicode() - u'0');
        ++position;
        ++digits;
    }
    return digits > 0 ? std::optional<int>(value) : std::nullopt;
}

bool readSeparator(QStringView text, qsizetype &position, char16_t separator)
{
    if (position >= text.size() || text[position] != separator)
        return false;
    ++position;
    return true;
}

} // namespace

QDateTime parseMatchDate(QStringView text, const QTimeZone &zone)
{
    qsizetype position = 0;
    const auto month = readNumber(text, position, 2);
    if (!month || !readSeparator(text, position, u'/'))
        return {};
    const auto day = readNumber(text, position, 2);
    if (!day || !readSeparator(text, position, u'/'))
        return {};
    const qsizetype yearStart = position;
    const auto year = readNumber(text, position, 4);
    if (!year || position - yearStart != 4 || !readSeparator(text, position, u' '))
        return {};
    const auto hour = readNumber(text, position, 2);
    if (!hour || !readSeparator(text, position, u':'))
        return {};
    const auto minute = readNumber(text, position, 2);
    if (!minute || position != text.size())
        return {};

    const QDate date(*year, *month, *day);
    const QTime time(*hour, *minute);
    if (!date.isValid() || !time.isValid())
        return {};
    return QDateTime(date, time, zone);
}

std::optional<QTimeZone> cachedTimeZone(const QByteArray &ianaID)
{
    static QMutex mutex;
    static QHash<QByteArray, QTimeZone> zones;
    const QMutexLocker locker(&mutex);
    auto found = zones.constFind(ianaID);
    if (found == zones.constEnd())
        found = zones.insert(ianaID, QTimeZone(ianaID));
    if (!found->isValid())
        return std::nullopt;
    return *found;
}

QString flagEmoji(const QString &countryCode)
{
    const QString code = countryCode.trimmed().toUpper();
    if (TextParsing::characterCount(code) != 2)
        return {};

    QString flag;
    int indicators = 0;
    for (const char32_t scalar : code.toUcs4()) {
        if (scalar < U'A' || scalar > U'Z')
            continue;
        const char32_t indicator = scalar + 127397;
        flag.append(QStringView(QChar::fromUcs4(indicator)));
        ++indicators;
    }
    return indicators == 2 ? flag : QString();
}
