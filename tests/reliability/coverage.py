#!/usr/bin/env python3
"""Measures which lines and branches of our two DLLs the test programs reach: line by line, suite by suite.

Builds instrumented DLLs from a snapshot of the sources, puts them into a copy of the build's programs, runs every
suite in a process of its own and reads what it counted. A line of brackets alone does not count: what there is of
code on it is mostly the way out of an exception. Neither do the branches that every call has for one. Every line
that no suite reached needs its reason in uncovered.txt. What the suites reached is kept, for this program (--resume) and for the one that makes mutants.
"""
import argparse
import concurrent.futures
import fnmatch
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

sys.dont_write_bytecode = True  # the source tree stays clean

import libraries
import suites as suite_runs

HERE = pathlib.Path(__file__).resolve().parent
TREE = HERE.parents[1]
COMPILE = ['-O0', '-g', '--coverage', '-w']
LEAST_LINES = 97.0
SECONDS_PER_SUITE = 600


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument('--build', type=pathlib.Path, default=TREE / 'build/mingw', help='folder of the build')
    parser.add_argument('--jobs', type=int, default=os.cpu_count(), help='compilations at a time')
    parser.add_argument('--resume', action='store_true',
                        help='keep the snapshot and the suites measured before; run the others')
    parser.add_argument('--programs', action='store_true',
                        help='with --resume: take the test programs anew, and the suites that are new in them')
    parser.add_argument('--again', default='', help='with --resume: measure suites of this name again (a pattern)')
    parser.add_argument('--report', action='store_true', help='report on what was measured, run nothing')
    parser.add_argument('--prefix', type=pathlib.Path, help='Wine prefix (default: build/wine/coverage)')
    return parser.parse_args()


def build_instrumented(build, work, jobs):
    """Builds both DLLs."""
    snapshot = work / 'snapshot'
    libraries.snapshot(TREE, build, snapshot)
    objects = work / 'objects'
    shutil.rmtree(objects, ignore_errors=True)
    objects.mkdir(parents=True)
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for name, dll in libraries.LIBRARIES.items():
            library, compiler = libraries.read_library(build, TREE, snapshot, name)
            paths = {source: objects / libraries.object_name(source) for source in library.sources}
            prepared = libraries.prepare_headers(compiler, library, snapshot, work / f'{name}-prepared.h', COMPILE)
            for said in pool.map(lambda item, c=compiler, p=paths, h=prepared: libraries.compile_source(
                    c, item[1] + COMPILE + h, snapshot / item[0], p[item[0]]), library.sources.items()):
                libraries.check(said)
            libraries.check(libraries.link(compiler, library, paths, work / dll, ['-O0', '--coverage']))
    (work / 'gcov').write_text(compiler.replace('g++', 'gcov'), encoding='utf-8')


def read_counts(work, folder):
    """What the suite that wrote its counters into `folder` reached: file -> lines, branches, functions."""
    counters = sorted(folder.glob('*.gcda'))
    if not counters:
        return {}
    for counter in counters:
        notes = counter.with_suffix('.gcno')
        if not notes.exists():
            notes.symlink_to(work / 'objects' / notes.name)
    tool = (work / 'gcov').read_text(encoding='utf-8')
    output = subprocess.run([tool, '--json-format', '--stdout', '--branch-probabilities', *map(str, counters)],
                            cwd=folder, check=True, capture_output=True, text=True).stdout
    counts = {}
    snapshot = work / 'snapshot'
    for document in output.splitlines():
        for file in json.loads(document)['files'] if document.startswith('{') else []:
            path = pathlib.Path(file['file'])
            name = path.relative_to(snapshot).as_posix() if path.is_relative_to(snapshot) else ''
            if name.split('/')[0] in libraries.LIBRARIES:
                add_file(counts.setdefault(name, {'lines': {}, 'branches': {}, 'functions': {}}), file)
    return counts


def add_file(counts, file):
    for function in file['functions']:
        counts['functions'][function['demangled_name']] = [function['start_line'], function['end_line']]
    for line in file['lines']:
        key = str(line['line_number'])
        counts['lines'][key] = counts['lines'].get(key, 0) + line['count']
        # Without the ways out by an exception, of which every call has one.
        ways = [branch['count'] for branch in line['branches'] if not branch['throw']]
        if ways:
            counts['branches'][key] = merged(counts['branches'].get(key, []), ways)


def merged(old, new):
    """Instances of one template count as one where they have the same ways."""
    if len(old) < len(new):
        old, new = new, old
    return [count + (new[i] if i < len(new) else 0) for i, count in enumerate(old)]


def add_counts(total, counts):
    for name, file in counts.items():
        sums = total.setdefault(name, {'lines': {}, 'branches': {}, 'functions': {}})
        sums['functions'].update(file['functions'])
        for line, count in file['lines'].items():
            sums['lines'][line] = sums['lines'].get(line, 0) + count
        for line, ways in file['branches'].items():
            sums['branches'][line] = merged(sums['branches'].get(line, []), ways)


def run_suites(work, programs, runner, again):
    """Runs the suites that have no counts yet; returns those that failed."""
    kept = work / 'suites'
    kept.mkdir(exist_ok=True)
    objects = work / 'objects'
    found = runner.suites_of(programs)
    (work / 'suites.txt').write_text(''.join(f'{s.program} {s.name}\n' for s in found), encoding='utf-8')
    for number, suite in enumerate(found, 1):
        target = kept / (str(suite).replace('/', '+') + '.json')
        if target.exists() and not (again and fnmatch.fnmatch(str(suite), again)):
            continue
        counters = work / 'counters'
        shutil.rmtree(counters, ignore_errors=True)
        counters.mkdir()
        outcome = runner.run_suite(programs, suite, SECONDS_PER_SUITE, {
            'GCOV_PREFIX': f'Z:{counters}', 'GCOV_PREFIX_STRIP': str(len(objects.parts) - 1)})
        record = {'program': suite.program, 'suite': suite.name, 'seconds': round(outcome.seconds, 2),
                  'how': outcome.how, 'failed': outcome.failed_tests() if not outcome.passed else [],
                  'counts': read_counts(work, counters)}
        target.write_text(json.dumps(record), encoding='utf-8')
        print(f'{number}/{len(found)} {suite}: {outcome.how}, {outcome.seconds:.1f} s', flush=True)
        if not outcome.passed:
            target.with_suffix('.txt').write_text(outcome.output, encoding='utf-8')


def read_reasons():
    """Lines "file | what | reason"; `what` is a text in the line, or "in " and a text in its function's name."""
    reasons = []
    for line in (HERE / 'uncovered.txt').read_text(encoding='utf-8').splitlines():
        if line.strip() and not line.startswith('#'):
            file, what, reason = (part.strip() for part in line.split(' | ', 2))
            reasons.append((file, what, reason))
    return reasons


def reason_for(reasons, file, text, function):
    for entry in reasons:
        name, what, _ = entry
        place = function if what.startswith('in ') else text
        if name == file and what.removeprefix('in ') in place:
            return entry
    return None


def share(part, whole):
    return f'{part:,} of {whole:,} ({100 * part / whole:.1f} %)' if whole else 'none'


def report(work, records):
    """Prints figures and uncovered lines; returns whether the demands are met."""
    total = {}
    for record in records:
        add_counts(total, record['counts'])
    reasons, used, bare = read_reasons(), set(), 0
    sums = {room: [0, 0, 0, 0] for room in (*libraries.LIBRARIES, 'both')}
    texts = []
    for name, file in sorted(total.items()):
        source = (work / 'snapshot' / name).read_text(encoding='utf-8').splitlines()
        lines = {int(line): count for line, count in file['lines'].items()
                 if re.search(r'[^\s{}();,]', source[int(line) - 1])}
        if not lines:
            continue
        ways = [count for line, counts in file['branches'].items() if int(line) in lines for count in counts]
        figures = [sum(map(bool, lines.values())), len(lines), sum(map(bool, ways)), len(ways)]
        for room in (name.split('/')[0], 'both'):
            sums[room] = [a + b for a, b in zip(sums[room], figures)]
        print(f'FIGURE coverage of {name}: {share(*figures[:2])} of the lines, {share(*figures[2:])} of the branches')
        for number in sorted(line for line, count in lines.items() if not count):
            around = [f for f, (first, last) in file['functions'].items() if first <= number <= last]
            entry = reason_for(reasons, name, source[number - 1], ' '.join(around))
            used.add(entry)
            bare += entry is None
            texts.append(f'{name}:{number}: {source[number - 1].strip()}\n'
                         f'    {"reason: " + entry[2] if entry else "NO REASON"}')
    for room, figures in sums.items():
        print(f'FIGURE coverage of {room}, lines: {share(*figures[:2])}')
        print(f'FIGURE coverage of {room}, branches: {share(*figures[2:])}')
    print(f'Uncovered lines: {len(texts)}, without a reason: {bare}', *texts, sep='\n')
    for entry in reasons:
        if entry not in used:
            print(f'reason without an uncovered line: {entry[0]} | {entry[1]}')
    covered, lines = sums['both'][:2]
    return lines > 0 and 100 * covered / lines >= LEAST_LINES and bare == 0


def main():
    options = arguments()
    build = options.build.resolve()
    work, programs = build / 'coverage', build / 'bin-coverage'
    if not options.report:
        if not options.resume:
            shutil.rmtree(work, ignore_errors=True)
            work.mkdir(parents=True)
            build_instrumented(build, work, options.jobs)
        if not options.resume or options.programs:
            suite_runs.copy_programs(build / 'bin', programs)
            for dll in libraries.LIBRARIES.values():
                (work / 'plain').mkdir(exist_ok=True)
                shutil.copy2(programs / dll, work / 'plain')
                suite_runs.replace_library(programs, dll, work / dll)
        runner = suite_runs.Runner(TREE, options.prefix or TREE / 'build/wine/coverage', work / 'scratch')
        try:
            run_suites(work, programs, runner, options.again)
        finally:
            runner.stop()
    records = [json.loads(path.read_text(encoding='utf-8')) for path in sorted((work / 'suites').glob('*.json'))]
    good = report(work, records)
    failed = [record for record in records if record['how'] != 'passed']
    print(f'FIGURE coverage, suites: {len(records)}, of which failed {len(failed)}')
    for record in failed:
        print(f'{record["program"]} {record["suite"]}: {record["how"]} {" ".join(record["failed"])}')
    sys.exit(0 if good and not failed else 1)


if __name__ == '__main__':
    main()
