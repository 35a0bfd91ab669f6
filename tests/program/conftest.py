"""Fixtures of the program tests, what a failure leaves behind, and the count at the end."""
import contextlib
import json
import pathlib
import re
import shutil

import pytest

from harness import medium, paths
from harness.desktop import Desktop
from harness.program import Program
from harness.smalldisk import NoSmallDisk, SmallDisk


@pytest.fixture(scope="module")
def album_folder(tmp_path_factory):
    return medium.write(tmp_path_factory.mktemp("album"), medium.album())


@pytest.fixture(scope="module")
def desktop(album_folder):
    """A screen whose drive E: is a CD-ROM drive that holds the small album."""
    with Desktop(medium=album_folder) as made:
        yield made


@pytest.fixture
def program(desktop):
    """The program, not started, in a folder of its own with the files as shipped."""
    with Program(desktop) as made:
        yield made
    desktop.tidy()


@pytest.fixture
def small_disk():
    try:
        disk = SmallDisk()
    except NoSmallDisk:
        pytest.skip("this machine lets nobody mount a small disk")
    yield disk
    disk.close()


def keep_what_failed(node, program):
    folder = paths.ARTIFACTS / re.sub(r"[^\w.-]+", "_", node.nodeid)
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    program.desktop.screenshot(folder / "screen.png")
    shutil.copytree(program.folder, folder / "program", dirs_exist_ok=True)
    try:
        trees = [program.desktop.probe.ask("tree", window["handle"])
                 for window in program.windows()]
        (folder / "windows.json").write_text(json.dumps(trees, indent=1, ensure_ascii=False))
    except Exception as error:  # the failure itself is what the reader wants to see
        (folder / "windows.json").write_text(repr(error))


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item, call):
    outcome = yield
    if call.when != "call" or not outcome.get_result().failed:
        return
    programs = {value if isinstance(value, Program) else getattr(value, "program", None)
                for value in item.funcargs.values()}
    for program in programs - {None}:
        with contextlib.suppress(Exception):  # the failure itself is what the reader wants to see
            keep_what_failed(item, program)


def pytest_sessionstart(session):
    pathlib.Path(paths.ARTIFACTS).mkdir(parents=True, exist_ok=True)


@pytest.hookimpl(trylast=True)
def pytest_unconfigure(config):
    """The plain count, as the last line, for the script that adds the suites up."""
    reporter = config.pluginmanager.get_plugin("terminalreporter")
    if reporter is None or hasattr(config, "workerinput"):
        return
    count = {kind: len(reporter.stats.get(kind, [])) for kind in
             ("passed", "failed", "error", "skipped")}
    failed = count["failed"] + count["error"]
    if not any(count.values()):
        failed = 1
    print(f"{count['passed']} passed, {failed} failed, {count['skipped']} skipped")
