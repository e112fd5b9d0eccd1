#include "FeedLogging.h"

Q_LOGGING_CATEGORY(lcFeed, "pitchlark.feed", QtInfoMsg)
