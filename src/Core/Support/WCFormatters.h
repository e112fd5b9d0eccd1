#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringView>
#include <QTimeZone>

#include <optional>

// The program's date formats: English day and month names whatever the user's locale, in one time
// zone fixed when the formatters are made (the user's zone for the shared set; TZ is honoured).
class WCFormatters {
public:
    explicit WCFormatters(QTimeZone zone);

    // Made on first use in the user's current time zone, then kept for the run.
    static const WCFormatters &shared();

    const QTimeZone &timeZone() const { return m_zone; }

    QString dateKey(const QDateTime &instant) const;      // 2026-06-11
    QString friendlyDate(const QDateTime &instant) const; // Thu, Jun 11
    QString weekdayShort(const QDateTime &instant) const; // Thu
    QString dayNumber(const QDateTime &instant) const;    // 11
    QString kickoffTime(const QDateTime &instant) const;  // 19:00
    QString kickoffFull(const QDateTime &instant) const;  // Thu, Jun 11 · 19:00
    QString kickoffDated(const QDateTime &instant) const; // Thu 11 Jun · 19:00, on cards outside their day

private:
    QString format(const QDateTime &instant, QStringView pattern) const;

    QTimeZone m_zone;
};

// The instant that venue-local text "MM/dd/yyyy HH:mm" denotes in the given zone; invalid when the
// text does not have that form.
QDateTime parseMatchDate(QStringView text, const QTimeZone &zone);

// Looks a zone identifier up once and keeps it: building a QTimeZone reads the zone database.
std::optional<QTimeZone> cachedTimeZone(const QByteArray &ianaID);

// The regional-indicator flag for a two-letter country code, or empty text.
QString flagEmoji(const QString &countryCode);
