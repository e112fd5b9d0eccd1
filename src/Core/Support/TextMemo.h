#pragma once

#include <QHash>
#include <QMutex>
#include <QString>

// Remembers what a costly function of a short text gave. Normalisation asks the same few dozen texts
// (flag addresses, country codes) twice for every game; the memo forgets all once it holds `capacity`.
template<typename Value, int capacity = 256>
class TextMemo {
public:
    template<typename Compute>
    Value get(const QString &text, Compute compute)
    {
        const QMutexLocker locker(&m_mutex);
        if (const auto known = m_values.constFind(text); known != m_values.constEnd())
            return *known;
        if (m_values.size() >= capacity)
            m_values.clear();
        return *m_values.insert(text, compute(text));
    }

private:
    QMutex m_mutex;
    QHash<QString, Value> m_values;
};
