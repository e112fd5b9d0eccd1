#include "ModelLookup.h"

void ModelLookup::setModel(AppModel *model)
{
    if (m_model == model)
        return;
    if (m_model)
        disconnect(m_model, nullptr, this, nullptr);
    m_model = model;
    if (m_model)
        watch(*m_model);
    emit modelChanged();
    rereadNow();
}

void ModelLookup::setKey(const QString &key)
{
    if (m_key == key)
        return;
    m_key = key;
    emit keyChanged();
    rereadNow();
}

void ModelLookup::rereadNow()
{
    if (m_model && reread(*m_model, m_key))
        emit recordChanged();
}
