#pragma once

#include <QDateTime>
#include <QTemporaryDir>
#include <QTimeZone>

#include <memory>

class FeedServer;

// `--demo`: the replay service inside this process, at a lively moment of the tournament, and a
// throw-away profile so that the user's own settings and cache are never touched.
class DemoProfile {
public:
    // Ten minutes before Panama–England and Croatia–Ghana kick off together, at 60× speed.
    static inline const QDateTime start{QDate(2026, 6, 27), QTime(20, 50), QTimeZone::utc()};
    static constexpr double speed = 60;

    DemoProfile();
    ~DemoProfile();

    // Points the environment at the profile and the service; false when the service cannot listen.
    bool activate();
    // The replay's own time, so that "today" and "updated" follow the tournament, not the calendar.
    QDateTime now() const;

private:
    QTemporaryDir m_profile;
    std::unique_ptr<FeedServer> m_feed;
};
