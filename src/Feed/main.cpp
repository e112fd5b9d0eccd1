#include "FeedLogging.h"
#include "FeedOptions.h"
#include "FeedServer.h"
#include "Tournament.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <cstdio>

// pitchlark-feed: the replay data service as a program of its own. Exit codes: 0 after --help or
// --version, 1 when it cannot listen, 2 for options it cannot use.
int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("pitchlark-feed"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PITCHLARK_VERSION));

    const auto options = FeedOptions::parse(QCoreApplication::arguments());
    if (!options) {
        std::fprintf(stderr, "pitchlark-feed: %s\nTry 'pitchlark-feed --help'.\n",
                     qPrintable(options.error()));
        return 2;
    }
    if (options->helpRequested) {
        std::printf("%s", qPrintable(FeedOptions::helpText()));
        return 0;
    }
    if (options->versionRequested) {
        std::printf("pitchlark-feed %s\n", PITCHLARK_VERSION);
        return 0;
    }

    const Tournament &tournament = Tournament::bundled();
    FeedServer server(tournament, options->clock(TournamentReplay(tournament).end()), options->style);
    server.faults() = options->faults;
    const quint16 port = server.listen(options->address, options->port);
    if (port == 0) {
        std::fprintf(stderr, "pitchlark-feed: cannot listen on %s port %u\n",
                     qPrintable(options->address.toString()), unsigned(options->port));
        return 1;
    }
    if (!options->address.isLoopback())
        qCWarning(lcFeed) << "serving to other machines on" << options->address.toString();

    const QString host = options->address.protocol() == QAbstractSocket::IPv6Protocol
                             ? u'[' + options->address.toString() + u']'
                             : options->address.toString();
    std::printf("pitchlark-feed listening on http://%s:%u\n", qPrintable(host), unsigned(port));
    std::printf("tournament time %s\n",
                qPrintable(QString::fromUtf8(
                    QJsonDocument(server.clock().describe()).toJson(QJsonDocument::Compact))));
    std::fflush(stdout);
    return app.exec();
}
