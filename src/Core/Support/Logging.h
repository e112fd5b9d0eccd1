#pragma once

#include <QLoggingCategory>

// Debug output is off unless enabled with QT_LOGGING_RULES="pitchlark.*.debug=true".
Q_DECLARE_LOGGING_CATEGORY(lcNetwork)
Q_DECLARE_LOGGING_CATEGORY(lcCache)
Q_DECLARE_LOGGING_CATEGORY(lcSettings)
Q_DECLARE_LOGGING_CATEGORY(lcModel)
