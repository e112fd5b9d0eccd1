#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace TextParsing {

// A base-10 integer: an optional "+" or "-" and ASCII digits only, nothing around them, within range.
std::optional<qint64> parseInteger(QStringView text);
std::optional<int> parseInt(QStringView text);

// The first count user-perceived characters (grapheme clusters) of the text.
QString leadingCharacters(const QString &text, int count);

// How many user-perceived characters (grapheme clusters) the text has.
int characterCount(const QString &text);

} // namespace TextParsing
