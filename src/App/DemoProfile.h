#pragma once

#include <QDateTime>
#include <QTemporaryDir>
#include <QTimeZone>

#include <memory>

class FeedServer;
class QuitOnTermination;

// `--demo`: the replay service inside this process, at a lively moment of the tournament, and a
// throw-away profile so that the user's own settings and cache are never touched. The profile is
// removed when the run ends, also when it ends by a signal; one left by a run that was killed outright
// is removed by the next demo.
class DemoProfile {
public:
    // Ten minutes before Panama–England and Croatia–Ghana kick off together, at 60× speed.
    static inline const QDateTime start{QDate(2026, 6, 27), QTime(20, 50), QTimeZone::utc()};
    static constexpr double speed = 60;

    DemoProfile();
    ~DemoProfile();

    // Points the environment at a new profile and the service; false when either cannot be made.
    bool activate();
    // The replay's own time, so that "today" and "updated" follow the tournament, not the calendar.
    QDateTime now() const;

private:
    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<FeedServer> m_feed;
    std::unique_ptr<QuitOnTermination> m_quitOnTermination;
};
