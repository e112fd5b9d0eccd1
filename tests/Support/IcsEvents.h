#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

// An iCalendar file read back by a real parser (python3-icalendar, through ics_events.py): its events,
// or an empty array when the parser rejects the file.
inline QJsonArray parsedIcsEvents(const QByteArray &calendar)
{
    QProcess parser;
    // Debian's own interpreter, which python3-icalendar installs into, whatever else is on PATH.
    parser.start(QStringLiteral("/usr/bin/python3"),
                 {QStringLiteral(PITCHLARK_TEST_SUPPORT "/ics_events.py")});
    parser.write(calendar);
    parser.closeWriteChannel();
    if (!parser.waitForFinished(20'000) || parser.exitCode() != 0) {
        qWarning().noquote() << parser.readAllStandardError();
        return {};
    }
    return QJsonDocument::fromJson(parser.readAllStandardOutput()).array();
}
