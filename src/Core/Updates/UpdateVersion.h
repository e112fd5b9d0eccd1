#pragma once

#include <QList>
#include <QStringView>

#include <compare>
#include <optional>

// A machine version such as "1.4.10": dot-separated whole numbers, compared one component at a time as
// numbers, so 1.10 is newer than 1.9 and 1.2 equals 1.2.0.
class UpdateVersion {
public:
    // Nothing for text that is not such a version ("", "1..2", "1.2-beta").
    static std::optional<UpdateVersion> parse(QStringView text);

    friend std::strong_ordering operator<=>(const UpdateVersion &, const UpdateVersion &) = default;
    friend bool operator==(const UpdateVersion &, const UpdateVersion &) = default;

private:
    // Without trailing zeros, so that equal versions compare equal component by component.
    QList<quint64> m_components;
};
