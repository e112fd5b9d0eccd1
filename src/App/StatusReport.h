#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

class AppModel;

// What `pitchlark status` prints about the model: a readable summary, one JSON object, or one line
// in the format of waybar's custom modules.
namespace StatusReport {

QString text(const AppModel &model);
QJsonObject json(const AppModel &model);
QByteArray waybar(const AppModel &model);

} // namespace StatusReport
