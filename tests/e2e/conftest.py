"""Every test gets a desktop of its own; what it starts ends with it."""

import signal
import sys
from contextlib import ExitStack
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).parent))

from harness import pictures, screenshot  # noqa: E402
from harness.desktop import Desktop  # noqa: E402
from harness.program import PROGRAM, PROJECT, Program  # noqa: E402
from harness.reader import turn_screen_reader_on  # noqa: E402

FAILURES = PROJECT / "build/e2e-failures"


def pytest_configure(config):
    config.addinivalue_line(
        "markers", "desktop(**options): the desktop that the test runs on, as Desktop takes them")


def pytest_sessionstart():
    # A shell has what it runs in the background ignore this one, and the programs under test would.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    if not PROGRAM.exists():
        pytest.exit(f"{PROGRAM} is not built: ./dev build release", 2)


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item, call):
    outcome = yield
    setattr(item, f"report_{call.when}", outcome.get_result())


@pytest.fixture
def make_desktop(request):
    """Brings up desktops. When the test fails a picture and the logs of each are kept."""
    with ExitStack() as running:
        def make(**options):
            desktop = running.enter_context(Desktop(**options))
            running.callback(_keep_traces_of_failure, desktop, request.node)
            return desktop

        yield make


@pytest.fixture
def make_program(make_desktop):
    """Makes programs, not started yet.

    A complaint in a log that was not expected fails the test, and so does one that is missing. The
    desktops, which keep the logs, outlive this fixture.
    """
    programs = []

    def make(desktop):
        programs.append(Program(desktop))
        return programs[-1]

    yield make
    for program in programs:
        if program.is_running:
            program.stop()
    unexpected = [line for program in programs for line in program.unexpected_complaints()]
    assert not unexpected, "unexpected lines in the program's log: " + "; ".join(
        f"{line.level} {line.category}: {line.message}" for line in unexpected)
    missing = [pattern for program in programs for pattern in program.missing_complaints()]
    assert not missing, f"missing lines in the program's log: {missing}"


@pytest.fixture
def desktop(request, make_desktop):
    """A running desktop, as the marker of the test wants it."""
    marker = request.node.get_closest_marker("desktop")
    return make_desktop(**(marker.kwargs if marker else {}))


@pytest.fixture
def stopped_program(desktop, make_program):
    """The program, not started yet."""
    return make_program(desktop)


@pytest.fixture
def program(stopped_program):
    """The running program."""
    return stopped_program.start()


def _keep_traces_of_failure(desktop, test):
    report = getattr(test, "report_call", None)
    if report is None or not report.failed or desktop.display is None:
        return
    folder = FAILURES / test.name.replace("/", "_")
    folder.mkdir(parents=True, exist_ok=True)
    screenshot.take(desktop.display).save(folder / "screen.png")
    for log in (desktop.folder / "logs").iterdir():
        (folder / log.name).write_bytes(log.read_bytes())


@pytest.fixture
def picture():
    """The bytes of a PNG file."""
    return pictures.encoded(pictures.colorful(), "PNG")


@pytest.fixture
def screen_reader(desktop):
    """Has the engine describe its pages, which it does only for those who need it."""
    turn_screen_reader_on(desktop)
