#include "FeedFaults.h"

#include <QJsonValue>
#include <QStringList>

#include <cmath>

namespace {

std::size_t slot(FeedEndpoint endpoint)
{
    return std::size_t(endpoint);
}

// A JSON number that is a whole number, or text holding one.
std::optional<QString> wholeNumberText(const QJsonValue &value)
{
    if (value.isString())
        return value.toString();
    if (value.isDouble() && std::trunc(value.toDouble()) == value.toDouble() &&
        std::abs(value.toDouble()) < 1e12)
        return QString::number(qint64(value.toDouble()));
    return std::nullopt;
}

} // namespace

void FeedFaults::set(FeedEndpoint endpoint, const EndpointFault &fault)
{
    m_faults[slot(endpoint)] = fault;
}

void FeedFaults::reset()
{
    m_faults.fill(EndpointFault{});
}

EndpointFault FeedFaults::take(FeedEndpoint endpoint)
{
    EndpointFault &fault = m_faults[slot(endpoint)];
    const EndpointFault now = fault;
    if (fault.remaining && --*fault.remaining <= 0)
        fault = EndpointFault{};
    return now;
}

const EndpointFault &FeedFaults::peek(FeedEndpoint endpoint) const
{
    return m_faults[slot(endpoint)];
}

QJsonObject FeedFaults::describe() const
{
    QJsonObject description;
    for (const FeedEndpoint endpoint : allFeedEndpoints) {
        if (peek(endpoint).isActive())
            description.insert(endpointName(endpoint), peek(endpoint).toJson());
    }
    return description;
}

std::optional<QString> FeedFaults::apply(const QJsonObject &command)
{
    static const QStringList knownKeys = {QStringLiteral("reset"), QStringLiteral("endpoint"),
                                          QStringLiteral("fault"), QStringLiteral("delay_ms"),
                                          QStringLiteral("count")};
    for (auto it = command.begin(); it != command.end(); ++it) {
        if (!knownKeys.contains(it.key()))
            return QStringLiteral("unknown key \"%1\"").arg(it.key());
    }
    if (command.contains(u"reset")) {
        if (command.size() != 1 || command.value(u"reset") != QJsonValue(true))
            return QStringLiteral("a reset is {\"reset\": true} and nothing else");
        reset();
        return std::nullopt;
    }

    const QString target = command.value(u"endpoint").toString();
    const std::optional<FeedEndpoint> endpoint = endpointFromName(target);
    if (!endpoint && target != u"all")
        return QStringLiteral("\"endpoint\" must be games, teams, stadiums, groups or all");

    QString error;
    EndpointFault fault;
    if (command.contains(u"fault")) {
        const std::optional<QString> name = wholeNumberText(command.value(u"fault"));
        const std::optional<EndpointFault> named =
            name ? EndpointFault::fromName(*name, &error) : std::nullopt;
        if (!named)
            return name ? error : QStringLiteral("\"fault\" must be text or a status code");
        fault = *named;
    }
    if (command.contains(u"delay_ms")) {
        const std::optional<QString> text = wholeNumberText(command.value(u"delay_ms"));
        const auto delay = text ? EndpointFault::delayFromText(*text, &error) : std::nullopt;
        if (!delay)
            return text ? error : QStringLiteral("\"delay_ms\" must be a whole number");
        fault.delay = *delay;
    }
    if (command.contains(u"count")) {
        const std::optional<QString> text = wholeNumberText(command.value(u"count"));
        bool isNumber = false;
        const int count = text ? text->toInt(&isNumber) : 0;
        if (!isNumber || count < 1)
            return QStringLiteral("\"count\" must be a whole number from 1");
        fault.remaining = count;
    }

    if (endpoint) {
        set(*endpoint, fault);
    } else {
        for (const FeedEndpoint each : allFeedEndpoints)
            set(each, fault);
    }
    return std::nullopt;
}
