"""Builds our DLLs once more from a snapshot of their sources, with other options than the build's own."""
import dataclasses
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

# Our DLLs by the name of their target.
LIBRARIES = {'velmutil': 'VelmUtil22.dll', 'corvanutil': 'CorvanUtil22.dll'}
# The folders of sources that they are made of.
ROOMS = ('velmutil', 'corvanutil', 'afx')

@dataclasses.dataclass
class Library:
    name: str       # of the target
    sources: dict   # source, relative to the tree -> options of its compiler call
    objects: dict   # source -> object of the build, in the order of linking; resources stand for themselves
    linked: list    # what is linked besides: options, import libraries


def snapshot(tree, build, folder):
    """Copies sources, import libraries and resource objects, so that others may go on working on theirs."""
    shutil.rmtree(folder, ignore_errors=True)
    for room in ROOMS:
        shutil.copytree(tree / room, folder / room)
    shutil.copytree(build / 'lib', folder / 'lib', ignore=lambda _, names: [n for n in names if 'recording' in n])
    for resource in build.glob('*util/**/*.res'):
        target = folder / 'res' / resource.relative_to(build)
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(resource, target)


def read_library(build, tree, folder, name):
    """What the build's own commands say about one of our DLLs, with the paths of the snapshot in `folder`."""
    output = subprocess.run(['ninja', '-C', str(build), '-t', 'commands', f'bin/{LIBRARIES[name]}'],
                            check=True, capture_output=True, text=True).stdout
    library = Library(name, {}, {}, [])
    by_object = {}
    for line in output.splitlines():
        words = [word for word in shlex.split(line) if word not in (':', '&&')]
        if '-c' in words and f'{name}.dir' in line and words[-1].endswith('.cpp'):
            source = str(pathlib.Path(words[-1]).relative_to(tree))
            by_object[words[words.index('-o') + 1]] = source
            library.sources[source] = compiler_options(words, tree, folder)
        elif '-shared' in words and f'bin/{LIBRARIES[name]}' in words:
            link = words
    compiler = next(word for word in link if 'g++' in word)
    words = iter(link[link.index(compiler) + 1:])
    for word in words:
        if word == '-o':
            next(words)
        elif word in by_object:
            library.objects[by_object[word]] = word
        elif word.endswith('.res'):
            library.objects[word] = str(folder / 'res' / word)
        elif word.startswith('lib/'):
            library.linked.append(str(folder / word))
        elif not word.startswith(('-Wl,--out-implib', '-O')):
            library.linked.append(word)
    return library, compiler


def compiler_options(words, tree, folder):
    """Definitions, folders and dialect of a compile command; warnings and optimisation are the caller's."""
    options = []
    for word in words:
        if word.startswith('-I'):
            path = pathlib.Path(word[2:])
            inside = path.is_relative_to(tree) and path.relative_to(tree).parts[:1]
            if inside and inside[0] in ROOMS:
                path = folder / path.relative_to(tree)
            options.append(f'-I{path}')
        elif word.startswith(('-D', '-std', '-f')):
            options.append(word)
    return options


def prepare_headers(compiler, library, snapshot, header, options):
    """Most of the time of compiling goes into the platform's headers: this compiles them once. Returns what is
    to be added to the options of each source, or ends the program.
    """
    names = []
    for path in sorted((snapshot / library.name).rglob('*.[ch]*')):
        if path.suffix in ('.cpp', '.h'):
            names += re.findall(r'^#include <(.+?)>', path.read_text(encoding='utf-8'), re.M)
    # The first makes a module an extension library and belongs into one source; the other is another toolchain's.
    names = [name for name in dict.fromkeys(names) if name not in ('afxdllx.h', 'msxml6.h')]
    names.sort(key=lambda name: (not name.startswith('afx'), name != 'afxwin.h'))
    header.write_text(''.join(f'#include <{name}>\n' for name in names), encoding='utf-8')
    shared = next(iter(library.sources.values()))
    check(compile_source(compiler, [*shared, *options, '-x', 'c++-header'], header,
                         header.with_name(header.name + '.gch')))
    return ['-include', str(header)]


def check(said):
    """Ends the program with what a tool said, if it did."""
    if said:
        sys.exit(said)


def object_name(source):
    """All objects lie in one folder."""
    return source.replace('/', '__') + '.obj'


def compile_source(compiler, options, source, target):
    """Returns what the compiler says, nothing if all went well."""
    done = subprocess.run([compiler, *options, '-o', str(target), '-c', str(source)], cwd=target.parent,
                          capture_output=True, text=True)
    return '' if done.returncode == 0 else done.stderr or f'the compiler ended with {done.returncode}'


def link(compiler, library, objects, target, options=()):
    """Links a DLL; `objects` gives the object of each source."""
    inputs = [str(objects[key]) if key in library.sources else path for key, path in library.objects.items()]
    target.unlink(missing_ok=True)
    done = subprocess.run([compiler, *options, '-o', str(target), *inputs, *library.linked],
                          capture_output=True, text=True)
    return '' if done.returncode == 0 else done.stderr or f'the linker ended with {done.returncode}'
