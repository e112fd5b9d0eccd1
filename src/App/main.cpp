#include "PitchlarkVersion.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("pitchlark"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PITCHLARK_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Your World Cup 2026 companion."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(app);

    std::printf("Pitchlark %s\n", PITCHLARK_VERSION);
    return 0;
}
