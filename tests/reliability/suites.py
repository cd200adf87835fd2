"""Runs the suites of the test programs in a copy of the build's folder of programs, beside it and as deep: so
they find the source tree, and each other, as the originals do.
"""
import dataclasses
import os
import pathlib
import re
import shutil
import signal
import subprocess
import time

# No program of ours needs a tenth of it; one that has lost its way is ended before it troubles the machine.
MEMORY_LIMIT = 3 << 30
# They test neither of our DLLs, or need another user than this one.
OTHER_PROGRAMS = {'kit_tests', 'kit_input_tests', 'afx_core_tests', 'afx_win_tests', 'afx_extension_tests',
                  'denied_tests'}


@dataclasses.dataclass(frozen=True)
class Suite:
    program: str  # relative to the folder of programs
    name: str

    def __str__(self):
        return f'{pathlib.PurePosixPath(self.program).stem}.{self.name}'


@dataclasses.dataclass
class Outcome:
    passed: bool
    seconds: float
    how: str  # 'passed', 'failed', 'timed out', 'out of memory'
    output: str = ''

    def failed_tests(self):
        names = re.findall(r'^\[  FAILED  \] ([\w./]+?)(?:,.*| \(.*)?$', self.output, re.M)
        return list(dict.fromkeys(names)) or re.findall(r'^\[ RUN      \] (\S+)', self.output, re.M)[-1:]


def copy_programs(origin, target):
    shutil.rmtree(target, ignore_errors=True)
    shutil.copytree(origin, target, ignore=shutil.ignore_patterns('bench', '*.gcda'))


def link_programs(origin, target):
    """Like a copy, but without another file on the disk: only what is replaced is."""
    shutil.rmtree(target, ignore_errors=True)
    shutil.copytree(origin, target, copy_function=os.link)


def replace_library(folder, dll, other):
    """Puts `other` in the place of each copy of a DLL; but one that merely bears its name, a stand-in for tests,
    stays where it lies.
    """
    original = folder / dll
    content = original.read_bytes()
    copies = [path for path in folder.rglob(dll)
              if path == original or dll == 'VelmUtil22.dll' or path.read_bytes() == content]
    for path in copies:
        path.unlink()
        shutil.copy2(other, path)
    return len(copies)


class Runner:
    """Runs programs, one after the other, in a Wine prefix of its own."""

    def __init__(self, tree, prefix, scratch):
        self.tree = tree
        self.scratch = pathlib.Path(scratch)
        shutil.rmtree(self.scratch, ignore_errors=True)
        self.scratch.mkdir(parents=True)
        self.environment = dict(os.environ, VELM_PREFIX=str(prefix), VELM_STREAM='1')
        self.environment.pop('VELM_DEEP', None)
        self._prefix_tool()

    def _prefix_tool(self, *arguments):
        subprocess.run([self.tree / 'tools/wine-prefix', *arguments], env=self.environment, check=False,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def stop(self):
        self._prefix_tool('--stop')

    def run(self, program, arguments, limit, variables=None):
        """Runs one program; what still runs of it at the end of the time is ended with its prefix."""
        start = time.monotonic()
        path = self.scratch / 'output.txt'
        how = ''
        with open(path, 'wb') as output:
            process = subprocess.Popen([self.tree / 'tools/wine-run', program, *arguments],
                                       env=dict(self.environment, **(variables or {})), cwd=self.scratch,
                                       stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT,
                                       start_new_session=True)
            while not how:
                try:
                    status = process.wait(timeout=0.25)
                    how = 'passed' if status == 0 else 'failed'
                except subprocess.TimeoutExpired:
                    if time.monotonic() - start > limit:
                        how = 'timed out'
                    elif resident_bytes(process.pid) > MEMORY_LIMIT or os.path.getsize(path) > MEMORY_LIMIT >> 4:
                        how = 'out of memory'
        if process.returncode is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
            self.stop()
            self._prefix_tool()
        text = path.read_text(encoding='utf-8', errors='replace')[-200_000:]
        return Outcome(how == 'passed', time.monotonic() - start, how, text)

    def run_suite(self, folder, suite, limit, variables=None):
        """Passes only if at least one test ran."""
        outcome = self.run(folder / suite.program, [f'--gtest_filter={suite.name}.*', '--gtest_fail_fast',
                                                    '--gtest_color=no'], limit, variables)
        if outcome.passed and not re.search(r'^\[  (PASSED|SKIPPED) ', outcome.output, re.M):
            outcome.passed, outcome.how = False, 'failed'
        return outcome

    def suites_of(self, folder):
        """All suites of all test programs that may use our DLLs."""
        found = []
        for path in sorted(folder.rglob('*_tests.exe')):
            if path.stem in OTHER_PROGRAMS:
                continue
            listed = self.run(path, ['--gtest_list_tests'], 120)
            if not listed.passed:
                raise RuntimeError(f'{path.name} does not list its tests ({listed.how}):\n{listed.output}')
            program = str(path.relative_to(folder))
            found += [Suite(program, name) for name in re.findall(r'^([\w/]+)\.(?:\r?$| +#)', listed.output, re.M)]
        return found


def resident_bytes(pid):
    try:
        with open(f'/proc/{pid}/statm', encoding='ascii') as file:
            return int(file.read().split()[1]) * os.sysconf('SC_PAGE_SIZE')
    except (OSError, IndexError):
        return 0
