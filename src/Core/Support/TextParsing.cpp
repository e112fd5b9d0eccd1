#include "TextParsing.h"

#include <QTextBoundaryFinder>

#include <limits>

namespace TextParsing {

std::optional<qint64> parseInteger(QStringView text)
{
    if (text.isEmpty())
        return std::nullopt;
    const bool negative = text.front() == u'-';
    if (negative || text.front() == u'+')
        text = text.mid(1);
    if (text.isEmpty())
        return std::nullopt;
    // Accumulate towards the negative side, which holds one more value than the positive side.
    qint64 value = 0;
    constexpr qint64 lowest = std::numeric_limits<qint64>::min();
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (unit < u'0' || unit > u'9')
            return std::nullopt;
        const int digit = unit - u'0';
        if (value < (lowest + digit) / 10)
            return std::nullopt;
        value = value * 10 - digit;
    }
    if (!negative) {
        if (value == lowest)
            return std::nullopt;
        value = -value;
    }
    return value;
}

std::optional<int> parseInt(QStringView text)
{
    const auto value = parseInteger(text);
    if (!value || *value < std::numeric_limits<int>::min() || *value > std::numeric_limits<int>::max())
        return std::nullopt;
    return int(*value);
}

QString leadingCharacters(const QString &text, int count)
{
    QTextBoundaryFinder graphemes(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    for (int taken = 0; taken < count; ++taken) {
        const qsizetype next = graphemes.toNextBoundary();
        if (next == -1)
            break;
        end = next;
    }
    return text.first(end);
}

int characterCount(const QString &text)
{
    QTextBoundaryFinder graphemes(QTextBoundaryFinder::Grapheme, text);
    int count = 0;
    while (graphemes.toNextBoundary() != -1)
        ++count;
    return count;
}

} // namespace TextParsing
