"""Runs ./demo, ./check and ./bench in a copy of their own, among programs of the test's own that say they are
apt-get, cmake and so on, and holds what they tell against what a newcomer should read.

Usage: scripts_test.py SOURCE_TREE
"""
import os
import pathlib
import pty
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1)).resolve()

# What the scripts call of the system itself.
SYSTEM = 'bash env realpath dirname basename mkdir head tail tee grep df du tr id cat cp mv rm sed touch'.split()

MISSING = 'ninja-build wine64'
UNREACHABLE = "Temporary failure resolving 'mirror.example'"


class Scripts(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix='velm-scripts-'))
        self.addCleanup(shutil.rmtree, self.folder)
        self.tree = self.folder / 'tree'
        self.programs = self.folder / 'programs'
        self.programs.mkdir()
        (self.folder / 'tmp').mkdir()
        self.environment = {'PATH': str(self.programs), 'HOME': str(self.folder), 'LC_ALL': 'C.UTF-8',
                            'TMPDIR': str(self.folder / 'tmp'), 'REAL_DF': shutil.which('df')}
        for name in SYSTEM:
            (self.programs / name).symlink_to(shutil.which(name))
        (self.tree / 'tools').mkdir(parents=True)
        for name in ('demo', 'check', 'bench', 'tools/common.sh'):
            shutil.copy(SOURCE / name, self.tree / name)
        self.write(self.tree / 'tools/wine-prefix', 'exit 0')
        self.write(self.tree / 'tools/wine-run', 'echo "row of a benchmark"')
        # A machine on which all is well.
        self.program('dpkg-query', "printf 'install ok installed'")
        self.program('apt-get', 'echo "apt-get was called"; exit 1')
        self.program('id', 'echo 0')
        self.program('df', 'echo Avail Mounted; echo 50000 /')
        self.program('cmake', 'exit 0')
        self.program('ctest', 'echo "100% tests passed, 0 tests failed out of 2"')

    def write(self, path, body):
        if path.is_symlink():
            path.unlink()
        path.write_text('#!/usr/bin/env bash\n' + body + '\n', encoding='utf-8')
        path.chmod(0o755)

    def program(self, name, body):
        self.write(self.programs / name, body)

    def without(self, *names):
        for name in names:
            (self.programs / name).unlink()

    def packages_missing(self):
        self.program('dpkg-query', f'for name; do :; done\n'
                     f'case " {MISSING} " in *" $name "*) exit 1 ;; esac\n'
                     f'printf "install ok installed"')

    def run_script(self, *command, tree=None, prefix=()):
        return subprocess.run([*prefix, './' + command[0], *command[1:]], cwd=tree or self.tree, text=True,
                              env=self.environment, stdin=subprocess.DEVNULL, capture_output=True, check=False)

    def run_on_terminal(self, *command):
        """The status, and all that a terminal gets."""
        ours, theirs = pty.openpty()
        with subprocess.Popen(['./' + command[0], *command[1:]], cwd=self.tree, env=self.environment,
                              stdin=subprocess.DEVNULL, stdout=theirs, stderr=theirs) as process:
            os.close(theirs)
            told = b''
            while True:
                try:
                    piece = os.read(ours, 4096)
                except OSError:  # all have closed their end
                    break
                if not piece:
                    break
                told += piece
        os.close(ours)
        return process.returncode, told.decode()

    def expect_line(self, result, line):
        """One line on standard error, and status 1."""
        self.assertEqual(result.stderr, line + '\n', result.stdout)
        self.assertEqual(result.returncode, 1)


class Options(Scripts):
    def test_help_names_every_option_and_starts_nothing(self):
        self.program('cmake', 'echo started >&2')
        for script in ('demo', 'check', 'bench'):
            result = self.run_script(script, '--help')
            self.assertEqual((result.returncode, result.stderr), (0, ''))
            self.assertTrue(result.stdout.startswith(f'Usage: ./{script} '), result.stdout)
            text = (SOURCE / script).read_text(encoding='utf-8')
            cases = text[text.index('case $1 in'):text.index('esac')]
            for option in (word for line in cases.splitlines() for word in line.split(')')[0].strip().split('|')
                           if ')' in line and word.startswith('-') and word != '-h'):
                self.assertIn(option, result.stdout.replace('[', ' ').replace(']', ' ').split(), script)

    def test_an_unknown_option_gets_a_line(self):
        for script in ('demo', 'check', 'bench'):
            self.expect_line(self.run_script(script, '--fast'),
                             f"{script}: unknown option '--fast'; see ./{script} --help")

    def test_an_option_without_its_value_gets_a_line(self):
        self.expect_line(self.run_script('check', '-L'), 'check: -L takes a value; see ./check --help')
        self.expect_line(self.run_script('bench', '--filter'), 'bench: --filter takes a value; see ./bench --help')
        self.expect_line(self.run_script('demo', '--description'),
                         'demo: --description takes a file; see ./demo --help')

    def test_options_that_do_not_go_together_get_a_line(self):
        (self.tree / 'my.xml').touch()
        for other in ('--gallery', '--for-docs'):
            self.expect_line(self.run_script('demo', '--description', 'my.xml', other), 'demo: --description goes '
                             'neither with --gallery nor with --for-docs; see ./demo --help')

    def test_a_description_that_is_not_there_gets_a_line(self):
        self.expect_line(self.run_script('demo', '--description', 'no.xml'), "demo: cannot read 'no.xml'")


class Packages(Scripts):
    def test_nothing_is_installed_where_nothing_is_missing(self):
        result = self.run_script('check')
        self.assertEqual((result.returncode, result.stderr), (0, ''))
        self.assertNotIn('Installing', result.stdout)

    def test_without_a_package_manager_a_line_names_what_is_missing(self):
        self.packages_missing()
        self.without('apt-get')
        self.expect_line(self.run_script('check'), 'check: there is no apt-get; install what holds these Debian '
                         f'packages by other means: {MISSING}')

    def test_without_debian_the_programs_are_looked_for(self):
        self.without('apt-get', 'dpkg-query', 'cmake')
        for name in ('ninja', 'x86_64-w64-mingw32-g++-posix', 'python3'):
            self.program(name, '')
        text = (self.tree / 'tools/common.sh').read_text(encoding='utf-8')
        (self.tree / 'tools/common.sh').write_text(text.replace('/usr/lib/wine/wine64', 'wine64'), encoding='utf-8')
        self.program('wine64', '')
        self.expect_line(self.run_script('bench'), 'bench: there is no apt-get; install what holds these Debian '
                         'packages by other means: cmake')
        self.program('cmake', 'exit 0')
        result = self.run_script('bench')
        self.assertEqual((result.returncode, result.stderr), (0, ''))

    def test_without_root_and_sudo_a_line_tells_what_to_do(self):
        self.packages_missing()
        self.program('id', 'echo 1000')
        self.expect_line(self.run_script('demo'),
                         f'demo: neither root nor sudo; run as root: apt-get install {MISSING}')

    def test_without_a_right_to_sudo_a_line_tells_what_to_do(self):
        self.packages_missing()
        self.program('id', 'echo 1000')
        self.program('sudo', 'echo "sudo: a password is required" >&2; exit 1')
        self.expect_line(self.run_script('check'),
                         f'check: no right to use sudo; run as root: apt-get install {MISSING}')

    def test_with_sudo_the_missing_packages_are_installed(self):
        self.packages_missing()
        self.program('id', 'echo 1000')
        self.program('sudo', '[ "$1" != -n ] || exit 0\necho "$*" >>"$HOME/sudo"\n"$@"')
        self.program('apt-get', 'exit 0')
        result = self.run_script('bench')
        self.assertEqual((result.returncode, result.stderr), (0, ''))
        called = (self.folder / 'sudo').read_text(encoding='utf-8').splitlines()
        self.assertEqual(len(called), 2, called)
        self.assertTrue(called[1].endswith(MISSING), called)

    def expect_no_network(self):
        self.expect_line(self.run_script('check'), f'check: no network: apt-get reaches no server ({UNREACHABLE}); '
                         f'these packages are missing: {MISSING}')

    def test_no_network_while_packages_are_fetched(self):
        self.packages_missing()
        self.program('apt-get', f'[ "$1" = update ] || {{ echo "E: Failed to fetch http://mirror.example/pool  '
                     f'{UNREACHABLE}"; exit 100; }}')
        self.expect_no_network()

    def test_no_network_and_no_lists_of_an_earlier_time(self):
        # apt-get calls this a success, and does not know the packages afterwards.
        self.packages_missing()
        self.program('apt-get', f'[ "$1" = update ] || {{ echo "E: Unable to locate package wine64"; exit 100; }}\n'
                     f'echo "W: Failed to fetch http://mirror.example/lists  {UNREACHABLE}"')
        self.expect_no_network()

    def test_no_network_while_the_lists_are_fetched(self):
        self.packages_missing()
        self.program('apt-get', f'echo "E: {UNREACHABLE}"; exit 100')
        self.expect_no_network()

    def test_any_other_failure_shows_what_apt_get_told(self):
        self.packages_missing()
        self.program('apt-get', '[ "$1" = update ] || { echo "pmstatus:wine64:10.0:x"; '
                     'echo "E: Unable to locate package wine64"; exit 100; }')
        result = self.run_script('check')
        self.assertEqual(result.stderr.splitlines(),
                         ['E: Unable to locate package wine64', "check: 'Installing packages' failed; "
                          'the whole output is in build/log/installing-packages.log'])
        self.assertEqual(result.returncode, 1)

    def test_a_full_disk_while_packages_are_fetched(self):
        self.packages_missing()
        told = "E: You don't have enough free space in /var/cache/apt/archives/."
        self.program('apt-get', f'[ "$1" = update ] || {{ echo "{told}"; exit 100; }}')
        self.expect_line(self.run_script('check'), f'check: a disk is or was full: {told}; '
                         f'now 50000 MB are free in {self.tree} (file system /)')


class Room(Scripts):
    def test_too_little_room_is_told_before_anything_is_done(self):
        self.program('df', 'echo Avail Mounted; echo 412 /home')
        for script, needed in (('demo', 1500), ('check', 5000), ('bench', 1500)):
            self.expect_line(self.run_script(script), f'{script}: not enough room: 412 MB are free in {self.tree} '
                             f'(file system /home), {needed} MB are needed')
        self.assertFalse((self.tree / 'build').exists())

    def test_a_tree_that_is_built_needs_less(self):
        (self.tree / 'build/mingw').mkdir(parents=True)
        self.program('du', 'echo "4700 total"')
        self.program('df', 'echo Avail Mounted; echo 412 /home')
        self.assertEqual(self.run_script('check').returncode, 0)
        self.program('df', 'echo Avail Mounted; echo 299 /home')
        self.expect_line(self.run_script('check'), f'check: not enough room: 299 MB are free in {self.tree} '
                         '(file system /home), 300 MB are needed')
        self.program('du', 'echo "4900 total"')
        self.program('df', 'echo Avail Mounted; echo 199 /home')
        self.expect_line(self.run_script('check'), f'check: not enough room: 199 MB are free in {self.tree} '
                         '(file system /home), 200 MB are needed')

    def test_a_build_that_fills_the_disk_gets_a_line_that_names_the_fullest(self):
        self.program('df', 'for folder; do :; done\necho Avail Mounted\n'
                     '[ "$folder" != "$TMPDIR" ] && echo 50000 / || echo 7 /scratch')
        self.program('cmake', '[ "$1" != --build ] || { echo "fatal error: No space left on device"; exit 1; }')
        self.expect_line(self.run_script('check'), 'check: a disk is or was full: fatal error: No space left on '
                         f"device; now 7 MB are free in {self.folder / 'tmp'} (file system /scratch)")

    def test_a_failure_on_a_full_disk_gets_a_line_whatever_the_program_told(self):
        self.program('cmake', '[ "$1" != --build ] || { touch "$HOME/full"; echo "collect2: error"; exit 1; }')
        self.program('df', 'echo Avail Mounted; [ ! -e "$HOME/full" ] && echo 50000 / || echo 3 /')
        self.expect_line(self.run_script('check'),
                         f'check: the disk is full: 3 MB are free in {self.tree} (file system /)')

    def test_tests_that_fail_on_a_full_disk_get_a_line(self):
        self.program('ctest', 'touch "$HOME/full"; echo "1/1 Test #1: a ...***Failed 0.1 sec"; exit 8')
        self.program('df', 'echo Avail Mounted; [ ! -e "$HOME/full" ] && echo 50000 / || echo 0 /')
        self.expect_line(self.run_script('check'),
                         f'check: the disk is full: 0 MB are free in {self.tree} (file system /)')

    def run_on_small_disk(self, fill):
        """Runs ./check in a file system of one megabyte, which goes with the process that sees it."""
        small = self.folder / 'small'
        small.mkdir()
        mount = ['unshare', '-m', 'bash', '-c',
                 'mount -t tmpfs -o size=1m small "$1" && cp -a "$2" "$1/tree" && cd "$1/tree" || exit 77\n' + fill +
                 '\nexport PATH=$3; exec ./check', 'bash', str(small), str(self.tree), str(self.programs)]
        result = subprocess.run(mount, text=True, capture_output=True, check=False,
                                env={**self.environment, 'PATH': os.environ['PATH']}, stdin=subprocess.DEVNULL)
        if result.returncode != 1 or 'unshare' in result.stderr:
            self.skipTest('no right to mount a small file system: ' + result.stderr.strip())
        return small, result

    def test_a_disk_that_is_really_full(self):
        self.program('df', 'exec "$REAL_DF" "$@"')
        small, result = self.run_on_small_disk('cat /dev/zero >fill 2>/dev/null')
        self.expect_line(result, f'check: not enough room: 0 MB are free in {small}/tree (file system {small}), '
                         '5000 MB are needed')

    def test_a_disk_that_is_really_filled_by_the_build(self):
        self.program('df', '[ -e "$HOME/building" ] && exec "$REAL_DF" "$@"\necho Avail Mounted; echo 50000 /')
        self.program('cmake', '[ "$1" = --build ] || exit 0\ntouch "$HOME/building"\ncat /dev/zero >object')
        small, result = self.run_on_small_disk('')
        self.expect_line(result, f'check: the disk is full: 0 MB are free in {small}/tree (file system {small})')


class Stages(Scripts):
    BUILD = '[ "$1" != --build ] || printf "%s\\n" "[0/2] Re-checking" "[1/3] Building a" "[2/3] Building b" ' \
            '"[3/3] Linking"'
    TESTS = 'printf "%s\\n" "Test project x" "    Start 1: a" "1/2 Test #1: a ...   Passed    0.10 sec" ' \
            '"2/2 Test #2: b ...***Failed    0.10 sec" "what b told" ' \
            '"50% tests passed, 1 tests failed out of 2"; exit 8'

    def test_each_stage_is_told_with_its_time(self):
        result = self.run_script('check')
        self.assertEqual(result.returncode, 0)
        lines = result.stdout.splitlines()
        self.assertEqual([line[:34].rstrip() for line in lines[:4]],
                         ['Configuring', 'Building', 'Preparing Wine', 'Testing'])
        for line in lines[:4]:
            self.assertRegex(line[34:], r'^ *\d+ s$')
        self.assertEqual(lines[4:], ['100% tests passed, 0 tests failed out of 2'])

    def test_bench_tells_the_time_of_its_rows(self):
        result = self.run_script('bench')
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stdout, r'row of a benchmark\nMeasuring +\d+ s\n$')

    def test_without_a_terminal_a_short_stage_is_one_line(self):
        self.program('cmake', self.BUILD)
        result = self.run_script('bench')
        self.assertEqual(len(result.stdout.splitlines()), 5, result.stdout)
        self.assertNotIn('\r', result.stdout)

    def test_without_a_terminal_a_long_stage_counts_in_lines(self):
        self.environment['VELM_PROGRESS'] = '0'
        self.program('cmake', self.BUILD)
        result = self.run_script('bench')
        lines = [line.rstrip() for line in result.stdout.splitlines()]
        self.assertEqual([line.split(' after')[0] for line in lines[1:6]],
                         ['Building', '  0 of 2', '  1 of 3', '  2 of 3', '  3 of 3'])
        self.assertRegex(lines[6], r'^Building +\d+ s$')

    def test_on_a_terminal_the_count_is_rewritten_in_place(self):
        self.program('cmake', self.BUILD)
        status, told = self.run_on_terminal('bench')
        self.assertEqual(status, 0)
        building = next(line for line in told.split('\n') if line.startswith('Building'))
        pieces = [piece.rstrip() for piece in building.split('\r')]
        self.assertEqual([piece.split(' s, ')[1] for piece in pieces if ' s, ' in piece],
                         ['0 of 2', '1 of 3', '2 of 3', '3 of 3'])
        self.assertRegex(building.rstrip('\r'), r'\rBuilding +\d+ s$')

    def test_tests_are_counted_with_those_that_failed(self):
        self.program('ctest', self.TESTS)
        status, told = self.run_on_terminal('check')
        self.assertEqual(status, 1)
        self.assertIn(' s, 1 of 2 ', told)
        self.assertIn(' s, 2 of 2, 1 failed', told)

    def test_of_the_tests_only_failures_and_the_sum_are_shown(self):
        self.program('ctest', self.TESTS)
        result = self.run_script('check')
        self.assertEqual(result.stdout.splitlines()[4:], ['2/2 Test #2: b ...***Failed    0.10 sec', 'what b told',
                                                          '50% tests passed, 1 tests failed out of 2'])
        self.expect_line(result, 'check: a test failed; its output stands above')

    FAILS_ONCE = 'last=build/mingw/Testing/Temporary/LastTestsFailed.log\n' \
                 'case " $* " in *" --rerun-failed "*) echo "$*" >"$HOME/again"; AGAIN ;; esac\n' \
                 'mkdir -p "${last%/*}"; printf "7:b\\n9:c\\n" >"$last"; echo "what b told"; exit 8'

    def test_a_failed_test_that_passes_alone_is_told_of(self):
        self.program('ctest', self.FAILS_ONCE.replace('AGAIN', 'exit 0'))
        result = self.run_script('check')
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertEqual((self.folder / 'again').read_text(encoding='utf-8'), '--preset mingw --rerun-failed -j 1\n')
        self.assertIn('what b told\n', result.stdout)
        self.assertEqual(result.stdout.splitlines()[-1].rstrip(), 'check: passed only when run again: b c')

    def test_a_test_that_fails_alone_too_fails_the_run(self):
        self.program('ctest', self.FAILS_ONCE.replace('AGAIN', 'echo "b again"; exit 8'))
        result = self.run_script('check')
        self.assertIn('b again', result.stdout)
        self.assertNotIn('passed only', result.stdout)
        self.expect_line(result, 'check: a test failed; its output stands above')

    def test_the_long_run_goes_with_no_other_option(self):
        for other in (['--debug'], ['-L', 'kit'], ['-R', 'x']):
            self.expect_line(self.run_script('check', '--deep', *other),
                             'check: --deep goes with no other option; see ./check --help')

    def test_the_long_run_collects_the_figures(self):
        self.write(self.tree / 'tools/wine-run', 'echo "FIGURE $VELM_DEEP ${1##*/}: 5"')
        self.program('cmake', '[ "$5" != coverage ] || echo "FIGURE lines: 97.5 %"')
        result = self.run_script('check', '--deep')
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        told = result.stdout[result.stdout.index('Figures'):].splitlines()[1:]
        self.assertEqual(told, ['  1 random_tests.exe: 5', '  1 failing_tests.exe: 5', '  1 lifecycle_tests.exe: 5',
                                '  1 hostile_tests.exe: 5', '  lines: 97.5 %'])

    def test_the_long_run_goes_on_after_a_failure(self):
        self.write(self.tree / 'tools/wine-run', 'echo "told by ${1##*/}"; [ "${1##*/}" != random_tests.exe ]')
        result = self.run_script('check', '--deep')
        self.assertIn('told by random_tests.exe', result.stdout)
        self.assertIn('Mutants', result.stdout)
        self.expect_line(result, 'check: a test failed; its output stands above')

    def test_packages_are_counted_in_percent(self):
        self.environment['VELM_PROGRESS'] = '0'
        self.packages_missing()
        self.program('apt-get', 'printf "%s\\n" "dlstatus:1:37.5:Retrieving" "pmstatus:wine64:80.0:Unpacking"')
        result = self.run_script('bench')
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stdout, r'Installing packages +\n  37 % fetched after \d+ s\n'
                                        r'  80 % installed after \d+ s\nInstalling packages +\d+ s\n')

    def test_a_stage_that_fails_shows_the_end_of_its_output(self):
        self.program('cmake', 'for line in {1..99}; do echo "line $line"; done; exit 1')
        result = self.run_script('demo')
        lines = result.stderr.splitlines()
        self.assertEqual(lines[:-1], [f'line {number}' for number in range(40, 100)])
        self.assertEqual(lines[-1], "demo: 'Configuring' failed; the whole output is in build/log/configuring.log")
        self.assertRegex(result.stdout, r'^Configuring +failed after \d+ s\n$')
        self.assertEqual(result.returncode, 1)

    def test_a_stage_that_fails_without_a_word_is_named(self):
        self.program('cmake', 'exit 1')
        self.expect_line(self.run_script('demo'),
                         "demo: 'Configuring' failed; the whole output is in build/log/configuring.log")


if __name__ == '__main__':
    unittest.main(verbosity=2)
