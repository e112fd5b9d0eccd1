#pragma once

#include <QCoro/QCoroTask>
#include <QStringList>

#include <memory>
#include <optional>

class AppModel;
class DemoProfile;
class QTextStream;

// `pitchlark status`: the whole model without a screen. Loads the settings and the cache, fetches
// once, prints, and exits; with --watch it keeps polling and prints each change of the tray title and
// each alert, for status bars that read a stream; with --ics it prints the matches as a calendar.
class StatusCommand {
public:
    enum class Format { text, json, waybar, ics };
    enum ExitCode { shown = 0, unreachable = 1, badOptions = 2 };

    // Parses the arguments after "status"; gives badOptions with a message on stderr when they are wrong.
    static std::optional<StatusCommand> fromArguments(const QStringList &arguments, QTextStream &errors);

    StatusCommand(StatusCommand &&) noexcept;
    ~StatusCommand();

    // Runs in the application's event loop and ends it with the exit code when done; a watch goes on
    // until the process is stopped.
    QCoro::Task<> start();

private:
    StatusCommand(Format format, bool watch, bool demo, const QString &teamID);
    // False, with a message on stderr, when the report cannot be made from the data.
    bool print() const;
    void watchForChanges();

    Format m_format;
    bool m_watch;
    bool m_demo;
    QString m_teamID; // --team: the calendar of this team only
    std::unique_ptr<DemoProfile> m_demoProfile;
    std::unique_ptr<AppModel> m_model;
};
