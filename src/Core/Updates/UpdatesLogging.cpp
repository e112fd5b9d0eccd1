#include "UpdatesLogging.h"

Q_LOGGING_CATEGORY(lcUpdates, "pitchlark.updates", QtInfoMsg)
