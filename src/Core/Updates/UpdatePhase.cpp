#include "UpdatePhase.h"

#include <QMetaEnum>

UpdatePhase UpdatePhase::available(const QString &version)
{
    return UpdatePhase(Kind::available, version);
}

UpdatePhase UpdatePhase::downloading(double progress)
{
    return UpdatePhase(Kind::downloading, {}, progress);
}

UpdatePhase UpdatePhase::error(const QString &message)
{
    return UpdatePhase(Kind::error, message);
}

QString UpdatePhase::kindName() const
{
    return QString::fromLatin1(QMetaEnum::fromType<Kind>().valueToKey(int(m_kind)));
}
