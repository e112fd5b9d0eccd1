#include "PitchlarkVersion.h"
#include "StatusCommand.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>
#include <QTimer>

#include <cstdio>

namespace {

int runStatus(QCoreApplication &app, const QStringList &arguments)
{
    QTextStream errors(stderr);
    auto command = StatusCommand::fromArguments(arguments, errors);
    if (!command)
        return StatusCommand::badOptions;
    QTimer::singleShot(0, &app, [&command] { command->start(); });
    return app.exec();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("pitchlark"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PITCHLARK_VERSION));

    const QStringList arguments = app.arguments().mid(1);
    if (!arguments.isEmpty() && arguments.constFirst() == QLatin1StringView("status"))
        return runStatus(app, arguments.mid(1));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Your World Cup 2026 companion.\n\n"
                       "Commands:\n"
                       "  status   Print the live score, today's fixtures and the "
                       "tables (see pitchlark status --help)."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(app);
    std::printf("Pitchlark %s\n", PITCHLARK_VERSION);
    return 0;
}
