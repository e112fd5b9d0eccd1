#include "FetchError.h"

QString FetchError::description() const
{
    if (const auto *error = appError())
        return error->description();
    if (const auto *error = transportError())
        return error->message;
    return decodeError()->message;
}
