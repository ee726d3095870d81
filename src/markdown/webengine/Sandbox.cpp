#include "markdown/webengine/Sandbox.h"

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace driftbox::Sandbox {

namespace {

// Tried in a child process, since a process cannot leave a namespace.
bool canMakeNamespaces()
{
    const pid_t child = fork();
    if (child == 0)
        _exit(unshare(CLONE_NEWUSER | CLONE_NEWPID | CLONE_NEWNET) == 0 ? 0 : 1);
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

} // namespace

bool isPossible()
{
    // The engine refuses to run sandboxed as root.
    return geteuid() != 0 && canMakeNamespaces();
}

} // namespace driftbox::Sandbox
