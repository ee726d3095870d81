"""Every test gets a desktop of its own; what it starts ends with it."""

import sys
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).parent))

from harness import screenshot  # noqa: E402
from harness.desktop import Desktop  # noqa: E402
from harness.program import PROGRAM, PROJECT, Program  # noqa: E402

FAILURES = PROJECT / "build/e2e-failures"


def pytest_configure(config):
    config.addinivalue_line(
        "markers", "desktop(**options): the desktop that the test runs on, as Desktop takes them")


def pytest_sessionstart():
    if not PROGRAM.exists():
        pytest.exit(f"{PROGRAM} is not built: ./dev build release", 2)


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item, call):
    outcome = yield
    setattr(item, f"report_{call.when}", outcome.get_result())


@pytest.fixture
def desktop(request):
    """A running desktop. When the test fails a picture of it and its logs are kept."""
    marker = request.node.get_closest_marker("desktop")
    with Desktop(**(marker.kwargs if marker else {})) as running:
        yield running
        report = getattr(request.node, "report_call", None)
        if report is not None and report.failed:
            _keep_traces(running, request.node.name)


@pytest.fixture
def stopped_program(desktop):
    """The program, not started yet. A complaint in its log that the test did not expect fails it."""
    program = Program(desktop)
    yield program
    complaints = program.unexpected_complaints()
    if program.process is not None and program.is_running:
        program.stop()
    assert not complaints, "unexpected lines in the program's log: " + "; ".join(
        f"{line.level} {line.category}: {line.message}" for line in complaints)


@pytest.fixture
def program(stopped_program):
    """The running program."""
    return stopped_program.start()


def _keep_traces(desktop, name):
    folder = FAILURES / name.replace("/", "_")
    folder.mkdir(parents=True, exist_ok=True)
    screenshot.take(desktop.display).save(folder / "screen.png")
    for log in (desktop.folder / "logs").iterdir():
        (folder / log.name).write_bytes(log.read_bytes())
