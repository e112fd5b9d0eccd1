#pragma once

#include <QUrl>

// Whether updates may be fetched from url: HTTPS, or plain HTTP to this machine for local testing.
bool isSecureUpdateURL(const QUrl &url);
