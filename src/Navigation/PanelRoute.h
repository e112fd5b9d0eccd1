#pragma once

#include <QMetaType>
#include <QString>

// A detail screen pushed over the panel's sections. Routes compare by kind and, except for settings, id.
struct PanelRoute {
    Q_GADGET
    Q_PROPERTY(Kind kind MEMBER kind)
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString kindName READ kindName)

public:
    enum class Kind { match, team, stadium, settings };
    Q_ENUM(Kind)

    Kind kind = Kind::settings;
    QString id;

    static PanelRoute match(const QString &matchID) { return {Kind::match, matchID}; }
    static PanelRoute team(const QString &teamID) { return {Kind::team, teamID}; }
    static PanelRoute stadium(const QString &stadiumID) { return {Kind::stadium, stadiumID}; }
    static PanelRoute settings() { return {Kind::settings, {}}; }

    // "match", "team", "stadium" or "settings", as route texts and QML spell them.
    QString kindName() const
    {
        switch (kind) {
        case Kind::match:
            return QStringLiteral("match");
        case Kind::team:
            return QStringLiteral("team");
        case Kind::stadium:
            return QStringLiteral("stadium");
        case Kind::settings:
            break;
        }
        return QStringLiteral("settings");
    }

    friend bool operator==(const PanelRoute &a, const PanelRoute &b)
    {
        return a.kind == b.kind && (a.kind == Kind::settings || a.id == b.id);
    }
};
Q_DECLARE_METATYPE(PanelRoute)
