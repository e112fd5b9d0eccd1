#include "MatchCalendar.h"

namespace {

// Lines are at most 75 octets long without the line break; longer ones go on in lines that begin
// with a space.
constexpr qsizetype maxLineOctets = 75;

QByteArray utcStamp(const QDateTime &instant)
{
    return instant.toUTC().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'")).toLatin1();
}

// TEXT values escape backslash, semicolon and comma, and write line breaks as \n.
QByteArray escapedText(const QString &text)
{
    QString escaped;
    escaped.reserve(text.size());
    for (const QChar character : text) {
        if (character == u'\\' || character == u';' || character == u',')
            escaped += u'\\';
        if (character == u'\n') {
            escaped += QStringLiteral("\\n");
            continue;
        }
        if (character != u'\r')
            escaped += character;
    }
    return escaped.toUtf8();
}

bool isUtf8Continuation(char octet)
{
    return (static_cast<unsigned char>(octet) & 0xC0) == 0x80;
}

// Folds one content line and ends it with CRLF, never splitting a UTF-8 character across lines.
void appendLine(QByteArray &out, const QByteArray &line)
{
    qsizetype start = 0;
    qsizetype room = maxLineOctets;
    while (line.size() - start > room) {
        qsizetype end = start + room;
        while (end > start && isUtf8Continuation(line.at(end)))
            --end;
        out += line.mid(start, end - start);
        out += "\r\n ";
        start = end;
        room = maxLineOctets - 1; // the leading space counts
    }
    out += line.mid(start);
    out += "\r\n";
}

QString eventTitle(const Match &match)
{
    return match.homeTeam + QStringLiteral(" v ") + match.awayTeam;
}

QString eventLocation(const Match &match)
{
    return match.city.isEmpty() ? match.stadium : match.stadium + QStringLiteral(", ") + match.city;
}

QString eventDescription(const Match &match)
{
    const QString round = match.roundLabel();
    const QString number = QStringLiteral("Match %1").arg(match.matchNumber);
    return round.isEmpty() ? number : round + QStringLiteral(" \u00b7 ") + number;
}

void appendEvent(QByteArray &out, const Match &match, const QByteArray &stamp)
{
    appendLine(out, "BEGIN:VEVENT");
    appendLine(out, "UID:match-" + escapedText(match.id) + "@pitchlark.com");
    appendLine(out, "DTSTAMP:" + stamp);
    appendLine(out, "DTSTART:" + utcStamp(match.kickoffDate));
    appendLine(out, "DTEND:" + utcStamp(match.kickoffDate.addSecs(MatchCalendar::eventMinutes * 60)));
    appendLine(out, "SUMMARY:" + escapedText(eventTitle(match)));
    appendLine(out, "LOCATION:" + escapedText(eventLocation(match)));
    appendLine(out, "DESCRIPTION:" + escapedText(eventDescription(match)));
    appendLine(out, "END:VEVENT");
}

} // namespace

QByteArray MatchCalendar::write(const QList<Match> &matches, const QDateTime &stamp)
{
    const QByteArray stampText = utcStamp(stamp);
    QByteArray out;
    appendLine(out, "BEGIN:VCALENDAR");
    appendLine(out, "VERSION:2.0");
    appendLine(out, "PRODID:-//Pitchlark//Pitchlark//EN");
    appendLine(out, "CALSCALE:GREGORIAN");
    appendLine(out, "METHOD:PUBLISH");
    for (const Match &match : matches) {
        if (match.kickoffDate.isValid())
            appendEvent(out, match, stampText);
    }
    appendLine(out, "END:VCALENDAR");
    return out;
}
