#include "SecureUpdateURL.h"

#include <QHostAddress>

bool isSecureUpdateURL(const QUrl &url)
{
    if (!url.isValid() || url.host().isEmpty())
        return false;
    if (url.scheme() == u"https")
        return true;
    return url.scheme() == u"http" && (url.host() == u"localhost" || QHostAddress(url.host()).isLoopback());
}
