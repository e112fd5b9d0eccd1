#include "Logging.h"

Q_LOGGING_CATEGORY(lcNetwork, "pitchlark.network", QtInfoMsg)
Q_LOGGING_CATEGORY(lcCache, "pitchlark.cache", QtInfoMsg)
