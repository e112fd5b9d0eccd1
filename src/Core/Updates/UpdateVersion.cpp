#include "UpdateVersion.h"

#include <algorithm>

std::optional<UpdateVersion> UpdateVersion::parse(QStringView text)
{
    UpdateVersion version;
    for (QStringView component : text.split(u'.')) {
        const bool digitsOnly =
            !component.isEmpty() &&
            std::all_of(component.begin(), component.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
        bool fits = false;
        const quint64 number = digitsOnly ? component.toULongLong(&fits) : 0;
        if (!fits)
            return std::nullopt;
        version.m_components.append(number);
    }
    while (!version.m_components.isEmpty() && version.m_components.last() == 0)
        version.m_components.removeLast();
    return version;
}
