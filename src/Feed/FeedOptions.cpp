#include "FeedOptions.h"

#include <QCommandLineParser>

namespace {

using Failure = Result<FeedOptions, QString>;

struct Parser {
    QCommandLineParser parser;
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")};
    QCommandLineOption version{QStringLiteral("version"), QStringLiteral("Show the version.")};
    QCommandLineOption address{
        QStringLiteral("address"),
        QStringLiteral("Listen on this address (default 127.0.0.1, this machine only)."),
        QStringLiteral("ip")};
    QCommandLineOption port{QStringLiteral("port"),
                            QStringLiteral("Listen on this port (default 8026); 0 picks a free one."),
                            QStringLiteral("number")};
    QCommandLineOption at{QStringLiteral("at"), QStringLiteral("Freeze tournament time at this instant."),
                          QStringLiteral("instant")};
    QCommandLineOption from{QStringLiteral("from"), QStringLiteral("Run tournament time from this instant."),
                            QStringLiteral("instant")};
    QCommandLineOption speed{
        QStringLiteral("speed"),
        QStringLiteral("With --from: tournament seconds per wall-clock second (default 1)."),
        QStringLiteral("factor")};
    QCommandLineOption style{
        QStringLiteral("elapsed-style"),
        QStringLiteral("How games in play report time: minute (\"67\", \"45+2\", \"HT\"; "
                       "the default) or live (the word \"live\")."),
        QStringLiteral("style")};
    QCommandLineOption fault{
        QStringLiteral("fault"),
        QStringLiteral("Spoil an endpoint (games, teams, stadiums, groups or all): a status "
                       "from 400 to 599, malformed, truncated, bare, empty, close or drip. "
                       "Repeatable."),
        QStringLiteral("endpoint=fault")};
    QCommandLineOption delay{
        QStringLiteral("delay"),
        QStringLiteral("Delay an endpoint's answers by this many milliseconds. Repeatable."),
        QStringLiteral("endpoint=ms")};

    Parser()
    {
        parser.setApplicationDescription(
            QStringLiteral("The 2026 World Cup data service, replayed from the real tournament at any moment "
                           "and any speed.\nInstants are ISO 8601 with a zone: 2026-06-27T20:50:00Z."));
        parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
        parser.addOptions({help, version, address, port, at, from, speed, style, fault, delay});
    }
};

std::optional<QDateTime> instantOption(const QString &text, const QString &option, QString *error)
{
    const std::optional<QDateTime> instant = TournamentClock::parseInstant(text);
    if (!instant) {
        *error = QStringLiteral("--%1 needs an ISO 8601 instant with a zone, such as 2026-06-27T20:50:00Z; "
                                "got \"%2\"")
                     .arg(option, text);
    }
    return instant;
}

// Reads "games=503" and the like into the endpoints it names and the text after "=".
std::optional<std::pair<QList<FeedEndpoint>, QString>> endpointSetting(const QString &text, QString *error)
{
    const qsizetype equals = text.indexOf(u'=');
    const QString name = text.left(equals);
    QList<FeedEndpoint> endpoints;
    if (name == u"all")
        endpoints = QList<FeedEndpoint>(allFeedEndpoints.begin(), allFeedEndpoints.end());
    else if (const auto endpoint = endpointFromName(name))
        endpoints = {*endpoint};
    if (equals < 0 || endpoints.isEmpty()) {
        *error =
            QStringLiteral("expected endpoint=value, the endpoint being games, teams, stadiums, groups or "
                           "all; got \"%1\"")
                .arg(text);
        return std::nullopt;
    }
    return std::make_pair(endpoints, text.sliced(equals + 1));
}

} // namespace

QString FeedOptions::helpText()
{
    return Parser().parser.helpText();
}

Result<FeedOptions, QString> FeedOptions::parse(const QStringList &arguments)
{
    Parser p;
    if (!p.parser.parse(arguments))
        return Failure::failure(p.parser.errorText());
    if (!p.parser.positionalArguments().isEmpty())
        return Failure::failure(
            QStringLiteral("unexpected argument \"%1\"").arg(p.parser.positionalArguments().first()));

    FeedOptions options;
    options.helpRequested = p.parser.isSet(p.help);
    options.versionRequested = p.parser.isSet(p.version);
    QString error;

    if (p.parser.isSet(p.address)) {
        options.address = QHostAddress(p.parser.value(p.address));
        if (options.address.isNull())
            return Failure::failure(
                QStringLiteral("--address needs an IP address; got \"%1\"").arg(p.parser.value(p.address)));
    }
    if (p.parser.isSet(p.port)) {
        bool isNumber = false;
        const uint port = p.parser.value(p.port).toUInt(&isNumber);
        if (!isNumber || port > 65535)
            return Failure::failure(QStringLiteral("--port needs a number from 0 to 65535; got \"%1\"")
                                        .arg(p.parser.value(p.port)));
        options.port = quint16(port);
    }

    if (p.parser.isSet(p.at) && (p.parser.isSet(p.from) || p.parser.isSet(p.speed)))
        return Failure::failure(
            QStringLiteral("--at freezes time; it cannot be used with --from or --speed"));
    if (p.parser.isSet(p.speed) && !p.parser.isSet(p.from))
        return Failure::failure(QStringLiteral("--speed needs --from, the instant to run from"));
    if (p.parser.isSet(p.at) &&
        !(options.at = instantOption(p.parser.value(p.at), QStringLiteral("at"), &error)))
        return Failure::failure(error);
    if (p.parser.isSet(p.from) &&
        !(options.from = instantOption(p.parser.value(p.from), QStringLiteral("from"), &error)))
        return Failure::failure(error);
    if (p.parser.isSet(p.speed)) {
        bool isNumber = false;
        options.speed = p.parser.value(p.speed).toDouble(&isNumber);
        if (!isNumber || !(options.speed > 0) || options.speed > TournamentClock::maximumSpeed)
            return Failure::failure(
                QStringLiteral("--speed needs a number above 0 and up to 1000000; got \"%1\"")
                    .arg(p.parser.value(p.speed)));
    }

    if (p.parser.isSet(p.style)) {
        const QString style = p.parser.value(p.style);
        if (style == u"live")
            options.style = ElapsedStyle::Live;
        else if (style != u"minute")
            return Failure::failure(
                QStringLiteral("--elapsed-style is minute or live; got \"%1\"").arg(style));
    }

    for (const QString &setting : p.parser.values(p.fault)) {
        const auto parsed = endpointSetting(setting, &error);
        const auto fault = parsed ? EndpointFault::fromName(parsed->second, &error) : std::nullopt;
        if (!fault)
            return Failure::failure(QStringLiteral("--fault: ") + error);
        for (const FeedEndpoint endpoint : parsed->first) {
            EndpointFault merged = *fault;
            merged.delay = options.faults.peek(endpoint).delay;
            options.faults.set(endpoint, merged);
        }
    }
    for (const QString &setting : p.parser.values(p.delay)) {
        const auto parsed = endpointSetting(setting, &error);
        const auto delay = parsed ? EndpointFault::delayFromText(parsed->second, &error) : std::nullopt;
        if (!delay)
            return Failure::failure(QStringLiteral("--delay: ") + error);
        for (const FeedEndpoint endpoint : parsed->first) {
            EndpointFault merged = options.faults.peek(endpoint);
            merged.delay = *delay;
            options.faults.set(endpoint, merged);
        }
    }
    return options;
}

TournamentClock FeedOptions::clock(Instant tournamentEnd) const
{
    if (at)
        return TournamentClock::frozen(*at);
    if (from)
        return TournamentClock::running(*from, speed);
    return TournamentClock::frozen(dateTimeFromInstant(tournamentEnd));
}
