#pragma once

#include <QString>
#include <QTemporaryFile>

#include <optional>

// Puts a staged release in place of the AppImage at appImagePath in one atomic rename, with the old
// file's mode, so that a crash at any moment leaves either the old or the new program, never a mix.
// The staged file must be in the same directory. Returns why it failed; the old file is then untouched.
std::optional<QString> replaceAppImage(QTemporaryFile &staged, const QString &appImagePath);
