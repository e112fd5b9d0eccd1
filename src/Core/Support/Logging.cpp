#include "Logging.h"

Q_LOGGING_CATEGORY(lcNetwork, "pitchlark.network", QtInfoMsg)
Q_LOGGING_CATEGORY(lcCache, "pitchlark.cache", QtInfoMsg)
Q_LOGGING_CATEGORY(lcSettings, "pitchlark.settings", QtInfoMsg)
Q_LOGGING_CATEGORY(lcModel, "pitchlark.model", QtInfoMsg)
