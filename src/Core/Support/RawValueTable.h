#pragma once

#include <QList>
#include <QString>

#include <array>
#include <optional>
#include <utility>

// Enumerations stored or shown as fixed texts keep one table of (case, text) pairs, in case order.
template<typename Enum, std::size_t Size>
using RawValueTable = std::array<std::pair<Enum, const char *>, Size>;

template<typename Enum, std::size_t Size>
std::optional<Enum> caseForText(const RawValueTable<Enum, Size> &table, const QString &text)
{
    for (const auto &[value, candidate] : table) {
        if (text == QLatin1StringView(candidate))
            return value;
    }
    return std::nullopt;
}

template<typename Enum, std::size_t Size>
QString textForCase(const RawValueTable<Enum, Size> &table, Enum value)
{
    for (const auto &[candidate, text] : table) {
        if (candidate == value)
            return QString::fromLatin1(text);
    }
    return {};
}

template<typename Enum, std::size_t Size>
QList<Enum> allCases(const RawValueTable<Enum, Size> &table)
{
    QList<Enum> values;
    for (const auto &entry : table)
        values.append(entry.first);
    return values;
}
