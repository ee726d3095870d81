#include "app/AppCoordinator.h"
#include "app/AppDelegate.h"
#include "app/Application.h"
#include "app/CommandLine.h"
#include "app/MenuBarItem.h"
#include "app/X11Desktop.h"
#include "core/AppConfig.h"
#include "core/Log.h"
#include "platform/desktop/DBusInstanceLink.h"
#include "platform/desktop/TerminationSignals.h"
#include "platform/x11/connection/X11Display.h"

#include <cstdio>
#include <cstdlib>

#include <malloc.h>

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

driftbox::CommandLine readCommandLine(int argc, char** argv)
{
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments << QString::fromLocal8Bit(argv[index]);
    return driftbox::CommandLine::parse(arguments, QDir::currentPath());
}

int answer(const driftbox::CommandLine& commandLine)
{
    std::fputs(qUtf8Printable(*commandLine.answer), commandLine.isUnderstood ? stdout : stderr);
    return commandLine.isUnderstood ? EXIT_SUCCESS : EXIT_FAILURE;
}

void describeApplication()
{
    QApplication::setApplicationName(u"Drift Box"_s); // shown by task bars and screen readers
    QApplication::setApplicationVersion(driftbox::AppConfig::version());
    QApplication::setDesktopFileName(u"app.driftbox"_s);
}

// Allocates large blocks separately, so that the memory of large copies is returned to the system
// when they are replaced, regardless of smaller allocations.
void allocateLargeBlocksSeparately()
{
    constexpr int largeBlock = 256 * 1024;
    mallopt(M_MMAP_THRESHOLD, largeBlock);
}

} // namespace

int main(int argc, char** argv)
{
    allocateLargeBlocksSeparately();
    const driftbox::CommandLine commandLine = readCommandLine(argc, argv);
    if (commandLine.answer)
        return answer(commandLine);

    driftbox::Log::install();
    if (!driftbox::X11Display::choose())
        return EXIT_FAILURE;
    describeApplication();
    const driftbox::Application application(argc, argv);

    driftbox::DBusInstanceLink link(
        QDBusConnection::sessionBus(),
        QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
    if (link.claim(commandLine.documents) == driftbox::InstanceLink::Claim::handedOver)
        return EXIT_SUCCESS;

    const auto desktop = driftbox::X11Desktop::open();
    if (!desktop)
        return EXIT_FAILURE;
    driftbox::AppCoordinator coordinator(desktop->services());
    driftbox::MenuBarItem menuBarItem(desktop->services(), coordinator.settings());
    menuBarItem.start();
    const driftbox::TerminationSignals terminations;
    QObject::connect(&terminations, &driftbox::TerminationSignals::received, &application,
                     &QApplication::quit);
    driftbox::AppDelegate delegate(coordinator, link);
    delegate.applicationDidFinishLaunching(commandLine.documents);
    return QApplication::exec();
}
