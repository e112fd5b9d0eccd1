#include "StatusCommand.h"

#include "Calendar/MatchCalendar.h"
#include "DemoProfile.h"
#include "Notifications/FreedesktopNotificationSender.h"
#include "State/AppModel.h"
#include "StatusReport.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QJsonDocument>
#include <QTextStream>

#include <cstdio>

namespace {

void writeLine(const QByteArray &line)
{
    std::fwrite(line.constData(), 1, size_t(line.size()), stdout);
    std::fputc('\n', stdout);
    // A status bar reads the stream line by line, so nothing may wait in a buffer.
    std::fflush(stdout);
}

// The model's time of day in the user's zone: the replay's time in the demo.
QString timeOfDay(const AppModel &model)
{
    return model.now().toTimeZone(WCFormatters::shared().timeZone()).toString(QStringLiteral("HH:mm"));
}

} // namespace

std::optional<StatusCommand> StatusCommand::fromArguments(const QStringList &arguments, QTextStream &errors)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Print the live score, today's fixtures and the tables."));
    const QCommandLineOption json(QStringLiteral("json"), QStringLiteral("Print one JSON object."));
    const QCommandLineOption waybar(QStringLiteral("waybar"), QStringLiteral("Print one line for waybar."));
    const QCommandLineOption watch(QStringLiteral("watch"),
                                   QStringLiteral("Keep polling; print each new title and each alert."));
    const QCommandLineOption demo(QStringLiteral("demo"),
                                  QStringLiteral("Replay the tournament inside this process, on a temporary "
                                                 "profile."));
    const QCommandLineOption ics(QStringLiteral("ics"),
                                 QStringLiteral("Print the matches as an iCalendar file."));
    const QCommandLineOption team(QStringLiteral("team"),
                                  QStringLiteral("With --ics, only the matches of the team with this id."),
                                  QStringLiteral("id"));
    parser.addOptions({json, waybar, watch, demo, ics, team});
    parser.addHelpOption();
    if (!parser.parse(QStringList{QStringLiteral("pitchlark status")} + arguments)) {
        errors << parser.errorText() << "\n" << parser.helpText();
        return std::nullopt;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        errors << parser.helpText();
        return std::nullopt;
    }
    if (!parser.positionalArguments().isEmpty()) {
        errors << "Unexpected argument: " << parser.positionalArguments().constFirst() << "\n";
        return std::nullopt;
    }
    if (int(parser.isSet(json)) + int(parser.isSet(waybar)) + int(parser.isSet(ics)) > 1) {
        errors << "Choose one of --json, --waybar and --ics.\n";
        return std::nullopt;
    }
    if (parser.isSet(ics) && parser.isSet(watch)) {
        errors << "--ics prints once; it cannot --watch.\n";
        return std::nullopt;
    }
    if (parser.isSet(team) && !parser.isSet(ics)) {
        errors << "--team goes with --ics.\n";
        return std::nullopt;
    }
    const Format format = parser.isSet(json)     ? Format::json
                          : parser.isSet(waybar) ? Format::waybar
                          : parser.isSet(ics)    ? Format::ics
                                                 : Format::text;
    return StatusCommand(format, parser.isSet(watch), parser.isSet(demo), parser.value(team));
}

StatusCommand::StatusCommand(Format format, bool watch, bool demo, const QString &teamID)
    : m_format(format), m_watch(watch), m_demo(demo), m_teamID(teamID)
{}
StatusCommand::StatusCommand(StatusCommand &&) noexcept = default;
StatusCommand::~StatusCommand() = default;

QCoro::Task<> StatusCommand::start()
{
    if (m_demo) {
        m_demoProfile = std::make_unique<DemoProfile>();
        if (!m_demoProfile->activate()) {
            std::fputs("The demo could not start its replay service.\n", stderr);
            QCoreApplication::exit(unreachable);
            co_return;
        }
    }
    AppModel::Services services;
    services.notifications = std::make_unique<FreedesktopNotificationSender>();
    if (m_demoProfile)
        services.now = [profile = m_demoProfile.get()] { return profile->now(); };
    m_model = std::make_unique<AppModel>(std::move(services));
    co_await m_model->fetchAll();

    const bool nothingToShow = m_model->errorMessage() && m_model->allMatches().isEmpty();
    if (nothingToShow && !m_watch) {
        std::fprintf(stderr, "%s\n", qPrintable(*m_model->errorMessage()));
        QCoreApplication::exit(unreachable);
        co_return;
    }
    if (!print()) {
        QCoreApplication::exit(badOptions);
        co_return;
    }
    if (!m_watch) {
        QCoreApplication::exit(shown);
        co_return;
    }
    watchForChanges();
    m_model->startPolling();
}

bool StatusCommand::print() const
{
    switch (m_format) {
    case Format::text:
        writeLine(StatusReport::text(*m_model).toUtf8());
        break;
    case Format::json:
        writeLine(QJsonDocument(StatusReport::json(*m_model)).toJson(QJsonDocument::Compact));
        break;
    case Format::waybar:
        writeLine(StatusReport::waybar(*m_model));
        break;
    case Format::ics: {
        if (!m_teamID.isEmpty() && !m_model->teamsByID().contains(m_teamID)) {
            std::fprintf(stderr, "No team has the id %s.\n", qPrintable(m_teamID));
            return false;
        }
        const QByteArray calendar = MatchCalendar::write(
            m_teamID.isEmpty() ? m_model->allMatches() : m_model->matchesOfTeam(m_teamID), m_model->now());
        std::fwrite(calendar.constData(), 1, size_t(calendar.size()), stdout);
        std::fflush(stdout);
        break;
    }
    }
    return true;
}

void StatusCommand::watchForChanges()
{
    AppModel *model = m_model.get();
    auto lastTitle = std::make_shared<std::optional<QString>>(model->trayTitle());
    QObject::connect(model, &AppModel::trayTitleChanged, model, [this, model, lastTitle] {
        // The title is rewritten after every fetch; only a different text is news.
        if (model->trayTitle() == *lastTitle)
            return;
        *lastTitle = model->trayTitle();
        if (m_format == Format::text)
            writeLine(
                (timeOfDay(*model) + QStringLiteral("  ") + model->trayTitle().value_or(QStringLiteral("—")))
                    .toUtf8());
        else
            print();
    });
    if (m_format != Format::text)
        return;
    QObject::connect(model, &AppModel::alertRaised, model,
                     [model](BannerState::Kind, const QString &title, const QString &body) {
                         writeLine((timeOfDay(*model) + QStringLiteral("  ") + title + u' ' + body).toUtf8());
                     });
}
