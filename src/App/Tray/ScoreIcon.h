#pragma once

#include <QImage>
#include <QString>

// The live score drawn as the tray icon itself, for trays that show no text beside an icon.

// The piece of a tray title a square can hold: the score ("2–1" out of "🇵🇦 2–1 ENG"), the clock when the
// score is hidden ("31'" out of "🇵🇦 v ENG · 31'", "45+" out of "… · 45'+1'"), or else the whole title.
QString scorePiece(const QString &title);
// The score of title, white on a dark green badge that fills a transparent size × size square, in
// QImage::Format_ARGB32: the badge keeps the digits legible on light and dark panels alike.
QImage renderScoreIcon(const QString &title, int size);
