#pragma once

#include "State/AppModel.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

// One record of the model followed by its id, for a page about it: read again whenever the model's
// data behind it changes, and announced only when it really did, so a poll that leaves it alone
// redraws nothing.
class ModelLookup : public QObject {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(AppModel *model READ model WRITE setModel NOTIFY modelChanged REQUIRED)
    Q_PROPERTY(QString key READ key WRITE setKey NOTIFY keyChanged REQUIRED)
    Q_PROPERTY(bool found READ found NOTIFY recordChanged)

public:
    using QObject::QObject;

    AppModel *model() const { return m_model; }
    void setModel(AppModel *model);
    QString key() const { return m_key; }
    void setKey(const QString &key);
    virtual bool found() const = 0;

signals:
    void modelChanged();
    void keyChanged();
    void recordChanged();

protected:
    // Connects the model's signals after which the record may differ.
    virtual void watch(AppModel &model) = 0;
    // Reads the record again; true when it differs from before.
    virtual bool reread(const AppModel &model, const QString &key) = 0;
    void rereadNow();

private:
    QPointer<AppModel> m_model;
    QString m_key;
};
