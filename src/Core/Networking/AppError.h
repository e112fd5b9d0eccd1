#pragma once

#include <QString>

// The data layer's own failures, each with a fixed description.
class AppError {
public:
    enum class Kind { serverError, invalidURL, unauthorized, rateLimited };

    static AppError serverError(int statusCode) { return AppError(Kind::serverError, statusCode); }
    static AppError invalidURL() { return AppError(Kind::invalidURL); }
    static AppError unauthorized() { return AppError(Kind::unauthorized); }
    static AppError rateLimited() { return AppError(Kind::rateLimited); }

    // The answer to an HTTP status outside 200-299.
    static AppError fromHttpStatus(int statusCode);

    Kind kind() const { return m_kind; }
    int statusCode() const { return m_statusCode; }
    QString description() const;

    friend bool operator==(const AppError &, const AppError &) = default;

private:
    explicit AppError(Kind kind, int statusCode = 0) : m_kind(kind), m_statusCode(statusCode) {}

    Kind m_kind;
    int m_statusCode;
};
