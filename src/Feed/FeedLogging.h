#pragma once

#include <QLoggingCategory>

// The replay service's one category: QT_LOGGING_RULES="pitchlark.feed.debug=true" shows every request.
Q_DECLARE_LOGGING_CATEGORY(lcFeed)
