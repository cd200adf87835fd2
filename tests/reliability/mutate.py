#!/usr/bin/env python3
"""Makes mutants of velmutil/, one small change each, and sees whether the tests notice.

Rests on what coverage.py left in the build: the snapshot of the sources, the copy of the programs, and which suites
reach which line. A mutant meets only the suites that reach its statement, until one of them fails. Such a failure
counts when it happens again with the mutant and not without. Mutants that do not compile, whose optimised code is
that of the original, or that equivalent.txt names, are drawn anew.
"""
import argparse
import collections
import concurrent.futures
import hashlib
import json
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys
import threading
import time

sys.dont_write_bytecode = True  # the source tree stays clean

import libraries
import mutants
import suites as suite_runs

HERE = pathlib.Path(__file__).resolve().parent
TREE = HERE.parents[1]
ROOM = 'velmutil'
COMPILE = ['-O0', '-w']
COMPARED = ['-O2', '-w', '-S']
LEAST_KILLED = 85.0
COUNTED = ('killed', 'survived')


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument('--build', type=pathlib.Path, default=TREE / 'build/mingw', help='folder of the build')
    parser.add_argument('--count', type=int, default=300, help='mutants')
    parser.add_argument('--seed', type=int, default=int(os.environ.get('VELM_SEED') or 1), help='where chance starts')
    parser.add_argument('--jobs', type=int, default=1, help='mutants at a time, each in a Wine prefix of its own')
    parser.add_argument('--resume', action='store_true', help='go on with a run that was ended')
    parser.add_argument('--again', action='store_true',
                        help='with --resume: let the survivors meet the present test programs again')
    parser.add_argument('--report', action='store_true', help='report on what was found, run nothing')
    parser.add_argument('--files', default='', help='only sources whose path matches this regular expression')
    return parser.parse_args()


class Reach:
    """Which suites reach what, as coverage.py measured it."""

    def __init__(self, work):
        self.seconds = {}
        self.by_line = collections.defaultdict(lambda: collections.defaultdict(set))
        self.functions = collections.defaultdict(dict)
        for path in sorted((work / 'suites').glob('*.json')):
            record = json.loads(path.read_text(encoding='utf-8'))
            suite = suite_runs.Suite(record['program'], record['suite'])
            if record['how'] != 'passed':
                continue
            self.seconds[suite] = record['seconds']
            for file, counts in record['counts'].items():
                self.functions[file].update(counts['functions'])
                lines = self.by_line[file]
                for line, count in counts['lines'].items():
                    lines[int(line)].update([suite] if count else [])

    def suites_for(self, site):
        """Those that reach the statement; where it makes no code of its own, the function, or the file."""
        lines = self.by_line[site.file]
        around = [range(site.lines[0], site.lines[1] + 1)]
        around += [range(first, last + 1) for first, last in self.functions[site.file].values()
                   if first <= site.line <= last]
        for extent in [range(site.line, site.line + 1), *around, lines]:
            known = [lines[line] for line in extent if line in lines]
            if known:
                return set().union(*known)
        return set()


class Compiler:
    """Makes mutated DLLs of the snapshot, each by compiling one source and linking."""

    def __init__(self, build, coverage, work):
        self.snapshot = coverage / 'snapshot'
        self.work = work
        self.library, self.program = libraries.read_library(build, TREE, self.snapshot, ROOM)
        self.original = {}  # source -> its assembler text
        self.objects = {source: work / 'objects' / libraries.object_name(source) for source in self.library.sources}
        self.prepared = []

    def prepare(self):
        """The original's objects, and its DLL."""
        (self.work / 'objects').mkdir(exist_ok=True)
        self.prepared = libraries.prepare_headers(self.program, self.library, self.snapshot, self.work / 'prepared.h',
                                                  COMPILE)
        for source, target in self.objects.items():
            if not target.exists():
                libraries.check(self._compile(source, self.snapshot / source, target))
        libraries.check(libraries.link(self.program, self.library, self.objects,
                                       self.work / libraries.LIBRARIES[ROOM]))

    def _compile(self, source, path, target):
        beside = str((self.snapshot / source).parent)
        return libraries.compile_source(
            self.program, [*self.library.sources[source], *COMPILE, *self.prepared, '-iquote', beside], path, target)

    def build(self, site, new, folder, dll):
        """Returns whether the mutant compiles and links."""
        folder.mkdir(parents=True, exist_ok=True)
        path = folder / pathlib.Path(site.file).name
        path.write_text(mutants.mutated((self.snapshot / site.file).read_text(encoding='utf-8'), site, new),
                        encoding='utf-8')
        target = folder / 'mutant.obj'
        if self._compile(site.file, path, target):
            return False
        return not libraries.link(self.program, self.library, dict(self.objects, **{site.file: target}), dll)

    def is_same_code(self, site, folder):
        """Whether the mutant that was built last in `folder` differs from the original once optimised."""
        if site.file not in self.original:
            self.original[site.file] = self._assembler(site.file, self.snapshot / site.file, folder)
        mutant = self._assembler(site.file, folder / pathlib.Path(site.file).name, folder)
        return mutant is not None and mutant == self.original[site.file]

    def _assembler(self, source, path, folder):
        done = subprocess.run([self.program, *self.library.sources[source], *COMPARED, '-iquote',
                               str((self.snapshot / source).parent), '-o', '-', str(path)], cwd=folder,
                              capture_output=True, text=True)
        return done.stdout if done.returncode == 0 else None


class Trial:
    """Lets mutants meet the suites; one of these for each job."""

    def __init__(self, number, build, work, compiler, reach, scores):
        self.compiler, self.reach, self.scores = compiler, reach, scores
        self.folder = work / f'job{number}'
        self.programs = build / f'bin-mutants-{number}'
        self.control = build / 'bin-control'
        suite_runs.link_programs(self.control, self.programs)
        self.runner = suite_runs.Runner(TREE, TREE / f'build/wine/mutants-{number}', self.folder / 'scratch')

    def judge(self, site, new):
        """Returns verdict, the suite that noticed, the number of suites that ran."""
        dll = self.folder / 'mutant.dll'
        reaching = self.reach.suites_for(site)
        if not self.compiler.build(site, new, self.folder, dll):
            return 'does not compile', '', 0
        suite_runs.replace_library(self.programs, libraries.LIBRARIES[ROOM], dll)
        for count, suite in enumerate(sorted(reaching, key=lambda s: -self.worth(site, s)), 1):
            limit = 30 + 10 * self.reach.seconds[suite]
            outcome = self.runner.run_suite(self.programs, suite, limit)
            noticed = not outcome.passed and self.confirm(suite, outcome, limit)
            score = self.scores[f'{site.file} {suite}']
            score[0] += noticed
            score[1] += 1
            if noticed:
                tests = ' '.join(outcome.failed_tests()[:1])
                return 'killed', f'{suite.program} {tests or suite.name} ({outcome.how})', count
        if self.compiler.is_same_code(site, self.folder):
            return 'same code', '', len(reaching)
        return 'survived', '', len(reaching)

    def worth(self, site, suite):
        """How often it noticed a mutant of this file, against what it costs."""
        kills, runs = self.scores[f'{site.file} {suite}']
        return (kills + 1) / (runs + 2) / (self.reach.seconds[suite] + 0.3)

    def confirm(self, suite, outcome, limit):
        """A test that fails now and then has noticed nothing."""
        names = ':'.join(outcome.failed_tests()) or f'{suite.name}.*'
        again = [f'--gtest_filter={names}', '--gtest_fail_fast']
        if outcome.how == 'failed' and self.runner.run(self.programs / suite.program, again, limit).passed:
            again = [f'--gtest_filter={suite.name}.*', '--gtest_fail_fast']
            if self.runner.run(self.programs / suite.program, again, limit).passed:
                return False
        return self.runner.run(self.control / suite.program, again, limit).passed


def read_equivalents():
    """Four lines each: file, line as it is, line as it becomes, reason; blank lines between."""
    text = (HERE / 'equivalent.txt').read_text(encoding='utf-8')
    known = {}
    for block in re.split(r'\n\s*\n', re.sub('^#.*\n', '', text, flags=re.M).strip()):
        if block:
            file, before, after, reason = (line.strip() for line in block.splitlines())
            known[file, before, after] = reason
    return known


def draw(snapshot, files, seed):
    """All mutants in the order of chance, one of each place."""
    sites = []
    digest = hashlib.sha256()
    for path in sorted((snapshot / ROOM).rglob('*.cpp')):
        source = path.read_text(encoding='utf-8')
        digest.update(source.encode())
        name = path.relative_to(snapshot).as_posix()
        if re.search(files, name):
            sites += mutants.find_sites(name, source)
    chance = random.Random(seed)
    chance.shuffle(sites)
    return [(site, chance.choice(site.choices)) for site in sites], digest.hexdigest()


def before_and_after(snapshot, site, new):
    return mutants.before_and_after((snapshot / site.file).read_text(encoding='utf-8'), site, new)


def run(options, build, coverage, work, picks, results, save):
    compiler = Compiler(build, coverage, work)
    compiler.prepare()
    suite_runs.link_programs(build / 'bin-coverage', build / 'bin-control')
    for name, path in {libraries.LIBRARIES[ROOM]: work / libraries.LIBRARIES[ROOM],
                       libraries.LIBRARIES['corvanutil']: coverage / 'plain' / libraries.LIBRARIES['corvanutil']}.items():
        suite_runs.replace_library(build / 'bin-control', name, path)
    reach, scores = Reach(coverage), collections.defaultdict(lambda: [0, 0])
    lock, waiting = threading.Lock(), iter(range(len(picks)))
    known = read_equivalents()
    running = set()
    ending = threading.Event()

    def is_listed(result):
        return result['verdict'] == 'survived' and (result['file'], result['before'], result['after']) in known

    def next_pick():
        with lock:
            for index in waiting:
                site, new = picks[index]
                if index in results or (site.file, *before_and_after(coverage / 'snapshot', site, new)) in known:
                    continue
                counted = sum(r['verdict'] in COUNTED and not is_listed(r) for r in results.values())
                if counted + len(running) >= options.count:
                    return None
                running.add(index)
                return index
        return None

    def work_on(number):
        trial = Trial(number, build, work, compiler, reach, scores)
        try:
            while not ending.is_set() and (index := next_pick()) is not None:
                site, new = picks[index]
                start = time.monotonic()
                verdict, by, count = trial.judge(site, new)
                with lock:
                    running.discard(index)
                    before, after = before_and_after(coverage / 'snapshot', site, new)
                    results[index] = {'index': index, 'file': site.file, 'line': site.line, 'before': before,
                                      'after': after, 'change': site.change(new), 'verdict': verdict, 'by': by,
                                      'suites': count, 'seconds': round(time.monotonic() - start, 1)}
                    save(results[index])
        finally:
            trial.runner.stop()

    # Ended from outside, each job finishes its mutant, and what was found is kept.
    signal.signal(signal.SIGTERM, lambda *_: ending.set())
    signal.signal(signal.SIGINT, lambda *_: ending.set())
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for job in [pool.submit(work_on, number) for number in range(1, options.jobs + 1)]:
            job.result()


def report(options, results):
    """Prints figures and survivors; returns whether enough mutants were killed."""
    known = read_equivalents()
    for result in results.values():
        result['listed'] = (result['file'], result['before'], result['after']) in known
    counted = [r for r in results.values() if r['verdict'] in COUNTED and not (r['verdict'] == 'survived' and r['listed'])]
    killed = [r for r in counted if r['verdict'] == 'killed']
    survivors = sorted((r for r in counted if r['verdict'] == 'survived'), key=lambda r: (r['file'], r['line']))
    print(f'FIGURE mutants, seed: {options.seed}')
    by_file = collections.Counter(r['file'] for r in counted)
    for file, count in sorted(by_file.items()):
        print(f'FIGURE mutants of {file} killed: {sum(r["file"] == file for r in killed)} of {count}')
    part = 100 * len(killed) / len(counted) if counted else 0
    print(f'FIGURE mutants killed: {len(killed)} of {len(counted)} ({part:.1f} %)')
    for verdict in ('does not compile', 'same code'):
        print(f'FIGURE mutants drawn anew, {verdict}: {sum(r["verdict"] == verdict for r in results.values())}')
    print(f'FIGURE mutants drawn anew, listed as equivalent: '
          f'{sum(r["verdict"] == "survived" and r["listed"] for r in results.values())}')
    if counted:
        print(f'FIGURE mutants, seconds each: {sum(r["seconds"] for r in counted) / len(counted):.1f}')
    for r in survivors:
        print(f'survivor {r["file"]}:{r["line"]}{"" if r["suites"] else ", which no suite reaches"}\n'
              f'    {r["before"]}\n    {r["after"]}')
    return len(counted) >= options.count and part >= LEAST_KILLED


def main():
    options = arguments()
    build = options.build.resolve()
    coverage, work = build / 'coverage', build / 'mutation'
    if not (coverage / 'suites').is_dir():
        sys.exit('Run coverage.py first: it tells which suites reach which line.')
    picks, digest = draw(coverage / 'snapshot', options.files, options.seed)
    state = work / 'state.jsonl'
    head = {'seed': options.seed, 'files': options.files, 'sources': digest}
    results = {}
    if options.resume or options.report:
        lines = [json.loads(line) for line in state.read_text(encoding='utf-8').splitlines()]
        if lines[0] != head:
            sys.exit(f'{state} is of another run: {lines[0]}')
        results = {line['index']: line for line in lines[1:]}
    else:
        shutil.rmtree(work, ignore_errors=True)
        work.mkdir(parents=True)
        state.write_text(json.dumps(head) + '\n', encoding='utf-8')
    print(f'seed {options.seed}, {len(picks)} places for mutants', flush=True)

    def save(result):
        with open(state, 'a', encoding='utf-8') as file:
            file.write(json.dumps(result) + '\n')
        print('{verdict} {file}:{line}: {change} [{seconds} s, {suites} suites] {by}'.format(**result), flush=True)

    if not options.report:
        if options.again:
            results = {index: r for index, r in results.items() if r['verdict'] != 'survived'}
        run(options, build, coverage, work, picks, results, save)
    sys.exit(0 if report(options, results) else 1)


if __name__ == '__main__':
    main()
