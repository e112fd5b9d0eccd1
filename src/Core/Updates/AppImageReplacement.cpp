#include "AppImageReplacement.h"

#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace {

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

// Makes the rename itself survive a power cut.
void syncDirectory(const QString &directory)
{
    const int descriptor = ::open(QFile::encodeName(directory).constData(), O_RDONLY | O_DIRECTORY);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

} // namespace

std::optional<QString> replaceAppImage(QTemporaryFile &staged, const QString &appImagePath)
{
    if (!staged.flush())
        return staged.errorString();
    if (::fsync(staged.handle()) != 0)
        return systemError();
    const QFileInfo target(appImagePath);
    const QFile::Permissions mode = target.exists() ? target.permissions()
                                                    : QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                                          QFile::ReadGroup | QFile::ExeGroup |
                                                          QFile::ReadOther | QFile::ExeOther;
    if (!staged.setPermissions(mode))
        return staged.errorString();
    if (std::rename(QFile::encodeName(staged.fileName()).constData(),
                    QFile::encodeName(appImagePath).constData()) != 0)
        return systemError();
    staged.setAutoRemove(false);
    syncDirectory(target.absolutePath());
    return std::nullopt;
}
