#pragma once

#include "fakes/FakeScreens.h"
#include "platform/desktop/ThreadPoolTaskRunner.h"
#include "platform/desktop/caret/AtSpiCaretLookup.h"
#include "platform/desktop/caret/ToolkitAccessibility.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/windows/X11ActiveWindow.h"

#include <memory>
#include <optional>

#include <QtCore/QEventLoop>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusInterface>
#include <QtDBus/QDBusReply>

namespace driftbox {

/// The caret lookup with its real dependencies.
class CaretSession
{
public:
    explicit CaretSession(const QString& busAddress)
        : m_x11(X11Connection::open())
        , m_activeWindow(*m_x11)
        , m_session(QDBusConnection::connectToBus(busAddress, QStringLiteral("test session")))
        , m_accessibility(m_session)
        , m_lookup(m_session, m_tasks, m_activeWindow, screens)
    {
    }
    ~CaretSession() { QDBusConnection::disconnectFromBus(m_session.name()); }
    CaretSession(const CaretSession&) = delete;
    CaretSession& operator=(const CaretSession&) = delete;

    void ask(QObject* owner, const CaretLookup::Answer& answer)
    {
        m_lookup.caretRectangle(owner, answer);
    }

    /// Asks and waits for the answer.
    [[nodiscard]] std::optional<QRectF> caret()
    {
        QObject owner;
        QEventLoop loop;
        std::optional<QRectF> rectangle;
        bool answered = false;
        ask(&owner, [&](const std::optional<QRectF>& answer) {
            rectangle = answer;
            answered = true;
            loop.quit();
        });
        if (!answered)
            loop.exec();
        return rectangle;
    }

    /// What toolkits read when they start.
    [[nodiscard]] bool isAccessibilityOn() const
    {
        const QDBusInterface bus(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                                 QStringLiteral("org.a11y.Status"), m_session);
        return bus.property("IsEnabled").toBool();
    }

    /// The registry of applications and assistive technology.
    [[nodiscard]] QString accessibilityAddress() const
    {
        QDBusInterface bus(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                           QStringLiteral("org.a11y.Bus"), m_session);
        return QDBusReply<QString>(bus.call(QStringLiteral("GetAddress"))).value();
    }

    /// The process that offers the accessibility bus.
    [[nodiscard]] pid_t launcher() const
    {
        const QDBusReply<uint> process =
            m_session.interface()->servicePid(QStringLiteral("org.a11y.Bus"));
        return static_cast<pid_t>(process.value());
    }

    FakeScreens screens;

private:
    ThreadPoolTaskRunner m_tasks;
    std::unique_ptr<X11Connection> m_x11;
    X11ActiveWindow m_activeWindow;
    QDBusConnection m_session;
    ToolkitAccessibility m_accessibility;
    AtSpiCaretLookup m_lookup;
};

} // namespace driftbox
