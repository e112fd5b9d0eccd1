#pragma once

#include <QMetaType>
#include <QString>

// The in-panel banner shown for an alert while the panel is open.
struct BannerState {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString message MEMBER message)
    Q_PROPERTY(Kind kind MEMBER kind)

public:
    enum class Kind { kickoff, goal, fullTime };
    Q_ENUM(Kind)

    QString id;
    QString title;
    QString message;
    Kind kind = Kind::kickoff;

    friend bool operator==(const BannerState &, const BannerState &) = default;
};
Q_DECLARE_METATYPE(BannerState)
