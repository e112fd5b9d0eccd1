#include "EndpointFault.h"

#include <array>
#include <utility>

namespace {

using Kind = EndpointFault::Kind;

constexpr std::array<std::pair<Kind, const char *>, 7> kindNames{{{Kind::None, "none"},
                                                                  {Kind::Malformed, "malformed"},
                                                                  {Kind::Truncated, "truncated"},
                                                                  {Kind::BareArray, "bare"},
                                                                  {Kind::EmptyList, "empty"},
                                                                  {Kind::Close, "close"},
                                                                  {Kind::Drip, "drip"}}};

} // namespace

std::optional<EndpointFault> EndpointFault::fromName(QStringView name, QString *error)
{
    for (const auto &[kind, kindName] : kindNames) {
        if (name == QLatin1StringView(kindName)) {
            EndpointFault fault;
            fault.kind = kind;
            return fault;
        }
    }
    bool isNumber = false;
    const int status = name.toInt(&isNumber);
    if (isNumber && status >= 400 && status <= 599) {
        EndpointFault fault;
        fault.kind = Kind::Status;
        fault.status = status;
        return fault;
    }
    if (error) {
        *error = QStringLiteral("unknown fault \"%1\": use none, malformed, truncated, bare, empty, close, "
                                "drip or an HTTP status from 400 to 599")
                     .arg(name);
    }
    return std::nullopt;
}

std::optional<std::chrono::milliseconds> EndpointFault::delayFromText(QStringView text, QString *error)
{
    bool isNumber = false;
    const qlonglong milliseconds = text.toLongLong(&isNumber);
    if (isNumber && milliseconds >= 0 && milliseconds <= maximumDelay.count())
        return std::chrono::milliseconds(milliseconds);
    if (error) {
        *error = QStringLiteral("bad delay \"%1\": give whole milliseconds from 0 to %2")
                     .arg(text)
                     .arg(maximumDelay.count());
    }
    return std::nullopt;
}

QString EndpointFault::name() const
{
    if (kind == Kind::Status)
        return QString::number(status);
    for (const auto &[candidate, kindName] : kindNames) {
        if (candidate == kind)
            return QLatin1StringView(kindName);
    }
    return {};
}

QJsonObject EndpointFault::toJson() const
{
    QJsonObject object{{QStringLiteral("fault"), name()},
                       {QStringLiteral("delay_ms"), qint64(delay.count())}};
    if (remaining)
        object.insert(QStringLiteral("count"), *remaining);
    return object;
}
