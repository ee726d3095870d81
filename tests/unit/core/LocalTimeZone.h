#pragma once

#include <ctime>

#include <QtCore/QByteArray>

namespace driftbox {

/// Sets the time zone of the user's clock, in the notation of POSIX, as long as it lives.
class LocalTimeZone
{
public:
    explicit LocalTimeZone(const QByteArray& zone)
        : m_before(qgetenv(variable))
    {
        set(zone);
    }
    ~LocalTimeZone() { set(m_before); }
    Q_DISABLE_COPY_MOVE(LocalTimeZone)

private:
    static constexpr auto variable = "TZ";

    static void set(const QByteArray& zone)
    {
        if (zone.isNull())
            qunsetenv(variable);
        else
            qputenv(variable, zone);
        tzset();
    }

    QByteArray m_before;
};

} // namespace driftbox
