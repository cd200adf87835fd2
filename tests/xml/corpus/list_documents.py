#!/usr/bin/env python3
"""Lists XML documents of other makers that the system has, with what an independent parser reads in them.

Usage: list_documents.py LIST [FOLDER...]     FOLDER: where to look; by default /usr/share and /etc

The list is UTF-8 text, one line per fact, fields separated by tabs. In a field, a backslash, a tab, a
line feed and a carriage return stand as \\\\, \\t, \\n and \\r.

  document  PATH  KIND  ENCODING   begins a document; kind: its root element's name without prefix;
                                   encoding: as declared, in lower case, "utf-8" without a declaration
  element  DEPTH  NAME  NAMESPACE  in document order, the root with depth 0; names as written, with prefix
  namespace  NAME  VALUE           a declaration at the last element; name: "xmlns" or "xmlns:PREFIX"
  attribute  NAME  VALUE           of the last element, in the order of the document
  default  NAME  VALUE             an attribute that is not written, but has a default value in the
                                   document's own DTD; "xmlns" also if it is written
  text  DEPTH  VALUE               a run of text or one CDATA section, with the depth of its element; runs
  cdata  DEPTH  VALUE              of white space only are left out unless xml:space says "preserve"
  reference  DEPTH  NAME           among the text, to an entity of an external DTD

Values are normalised as XML says. Nothing outside the document is read, no external DTD either. The
standard output tells what was listed and, by reason, what was not.
"""

import collections
import hashlib
import os
import re
import sys
import xml.parsers.expat

EXTENSIONS = (".xml", ".svg", ".xsl", ".xslt", ".conf", ".rng", ".xsd", ".lang", ".its", ".policy", ".ui")
MOST_DOCUMENTS = 200
MOST_BYTES = 20_000_000
# What the platform's parser reads.
MOST_DEPTH = 256
MOST_VALUE_BYTES = 10_000_000
ENCODINGS = {"utf-8", "utf-16", "us-ascii", "ascii", "iso-8859-1", "windows-1252"}
SEPARATOR = "\n"  # in the names that the parser reports: NAMESPACE local-name prefix
WHITE_SPACE = " \t\r\n"


class Refused(Exception):
    """The document is not listed; the message is the reason."""


class RootReached(Exception):
    pass


def escaped(text):
    for character, written in (("\\", "\\\\"), ("\t", "\\t"), ("\n", "\\n"), ("\r", "\\r")):
        text = text.replace(character, written)
    return text


def local_name(name):
    return name.rpartition(":")[2]


def name_and_namespace(reported):
    """The name as written, and its namespace."""
    parts = reported.split(SEPARATOR)
    if len(parts) == 1:
        return reported, ""
    return ":".join(parts[2:] + parts[1:2]), parts[0]


class Reader:
    """Reads one document into lines of the list."""

    def __init__(self):
        self.lines = []
        self.encoding = "utf-8"
        self.kind = None
        self.elements = 0
        self.attributes = 0
        self.namespaces = 0
        self._defaults = collections.defaultdict(dict)
        self._preserves = []  # one for each open element
        self._declared = []  # namespaces of the next element
        self._run = []
        self._in_cdata = False
        parser = xml.parsers.expat.ParserCreate(namespace_separator=SEPARATOR)
        parser.namespace_prefixes = True
        parser.ordered_attributes = True
        parser.specified_attributes = True
        parser.XmlDeclHandler = self._declaration
        parser.AttlistDeclHandler = self._attribute_declaration
        parser.EntityDeclHandler = self._entity_declaration
        parser.SkippedEntityHandler = self._skipped_entity
        parser.StartNamespaceDeclHandler = self._start_namespace
        parser.StartElementHandler = self._start
        parser.EndElementHandler = self._end
        parser.CharacterDataHandler = self._run.append
        parser.StartCdataSectionHandler = self._start_cdata
        parser.EndCdataSectionHandler = self._end_cdata
        parser.CommentHandler = lambda data: self._flush()
        parser.ProcessingInstructionHandler = lambda target, data: self._flush()
        self._parser = parser

    def read(self, data):
        try:
            self._parser.Parse(data, True)
        except xml.parsers.expat.ExpatError as error:
            raise Refused("not well-formed: " + xml.parsers.expat.ErrorString(error.code)) from error
        except (LookupError, ValueError) as error:
            raise Refused("encoding not known to the independent parser") from error

    def _declaration(self, version, encoding, standalone):
        if version != "1.0":
            raise Refused("XML version " + version)
        self.encoding = (encoding or "utf-8").lower()
        if self.encoding not in ENCODINGS:
            raise Refused("encoding " + self.encoding)

    def _attribute_declaration(self, element, attribute, kind, default, required):
        if default is not None:
            self._defaults[element].setdefault(attribute, default)

    def _entity_declaration(self, name, is_parameter, value, base, system, public, notation):
        raise Refused("entities of its own")  # the class under test refuses them

    def _skipped_entity(self, name, is_parameter):
        if not is_parameter:
            self._flush()
            self.lines.append(f"reference\t{len(self._preserves) - 1}\t{name}")

    def _start_namespace(self, prefix, uri):
        self._declared.append(("xmlns:" + prefix if prefix else "xmlns", uri or ""))

    def _start(self, reported, pairs):
        self._flush()
        name, namespace = name_and_namespace(reported)
        depth = len(self._preserves)
        if depth > MOST_DEPTH:
            raise Refused(f"nesting over {MOST_DEPTH} levels")
        if depth == 0:
            self.kind = local_name(name)
        written = {name_and_namespace(key)[0]: value for key, value in zip(pairs[::2], pairs[1::2])}
        if any(len(value.encode()) > MOST_VALUE_BYTES for value in written.values()):
            raise Refused("an attribute value over 10 MB")
        self.lines.append(f"element\t{depth}\t{name}\t{escaped(namespace)}")
        self.lines += [f"namespace\t{key}\t{escaped(value)}" for key, value in self._declared]
        self.lines += [f"attribute\t{key}\t{escaped(value)}" for key, value in written.items()]
        missing = {key: value for key, value in self._defaults[name].items()
                   if key not in written and not key.startswith("xmlns:")}
        self.lines += [f"default\t{key}\t{escaped(value)}" for key, value in missing.items()]
        self.elements += 1
        self.attributes += len(written)
        self.namespaces += len(self._declared)
        self._declared.clear()
        outer = self._preserves[-1] if self._preserves else False
        space = written.get("xml:space", missing.get("xml:space"))
        self._preserves.append(outer if space is None else space == "preserve")

    def _end(self, name):
        self._flush()
        self._preserves.pop()

    def _start_cdata(self):
        self._flush()
        self._in_cdata = True

    def _end_cdata(self):
        self._flush()
        self._in_cdata = False

    def _flush(self):
        text = "".join(self._run)
        self._run.clear()
        if self._in_cdata:
            self.lines.append(f"cdata\t{len(self._preserves) - 1}\t{escaped(text)}")
        elif text.strip(WHITE_SPACE) or (text and self._preserves[-1]):
            self.lines.append(f"text\t{len(self._preserves) - 1}\t{escaped(text)}")


def candidates(folders):
    """The files that may be XML by their name and beginning, each once, in a stable order."""
    seen = set()
    for folder in folders:
        for place, folders_below, names in os.walk(folder):
            folders_below.sort()
            for name in sorted(names):
                if not name.endswith(EXTENSIONS):
                    continue
                path = os.path.realpath(os.path.join(place, name))
                if path not in seen and os.path.isfile(path) and os.access(path, os.R_OK):
                    seen.add(path)
                    yield path


def looks_like_xml(beginning):
    for mark in (b"\xef\xbb\xbf", b"\xff\xfe", b"\xfe\xff"):
        beginning = beginning.removeprefix(mark)
    beginning = beginning.replace(b"\0", b"").lstrip()
    return beginning.startswith((b"<?xml", b"<!DOCTYPE", b"<!--")) or (
        beginning[:1] == b"<" and beginning[1:2].isalpha())


def kind_of(path):
    """The name of the root element; None for what is not XML or has none near its beginning."""
    root = []

    def start(name, attributes):
        root.append(local_name(name))
        raise RootReached

    with open(path, "rb") as file:
        beginning = file.read(65536)
    if not looks_like_xml(beginning):
        return None
    parser = xml.parsers.expat.ParserCreate()
    parser.StartElementHandler = start
    try:
        parser.Parse(beginning, False)
    except RootReached:
        return root[0]
    except (xml.parsers.expat.ExpatError, LookupError, ValueError):
        pass
    return "(none)"


def in_turns(kinds):
    """One document of each kind after the other, until all are used up; mixed within a kind, so that a
    few stand for all, and always in the same way."""
    queues = [sorted(paths, key=lambda path: hashlib.sha1(os.fsencode(path)).digest())
              for _, paths in sorted(kinds.items())]
    while queues:
        for queue in queues:
            yield queue.pop(0)
        queues = [queue for queue in queues if queue]


def read_document(path):
    try:
        path.encode("utf-8")
    except UnicodeError as error:
        raise Refused("path that is not UTF-8") from error
    # The platform's parser takes a path for an address and decodes it; its file names end with neither a
    # full stop nor a blank.
    if re.search(r'[%\t\n\r\\:*?"<>|]|[. ](/|$)', path):
        raise Refused("path that means something else to the platform")
    with open(path, "rb") as file:
        data = file.read()
    reader = Reader()
    reader.read(data)
    return reader, len(data)


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    target, folders = sys.argv[1], sys.argv[2:] or ["/usr/share", "/etc"]
    kinds = collections.defaultdict(list)
    for path in candidates(folders):
        kind = kind_of(path)
        if kind is not None:
            kinds[kind].append(path)

    listed = collections.Counter()
    refused = collections.Counter()
    total = collections.Counter()
    lines = []
    for path in in_turns(kinds):
        if sum(listed.values()) == MOST_DOCUMENTS:
            break
        if total["bytes"] + os.path.getsize(path) > MOST_BYTES:
            refused["too long for what is left of the whole"] += 1
            continue
        try:
            reader, size = read_document(path)
        except Refused as reason:
            refused[str(reason)] += 1
            continue
        lines.append(f"document\t{path}\t{reader.kind}\t{reader.encoding}")
        lines += reader.lines
        listed[reader.kind] += 1
        total.update(bytes=size, elements=reader.elements, attributes=reader.attributes,
                     namespaces=reader.namespaces)

    temporary = target + ".new"
    with open(temporary, "w", encoding="utf-8", newline="\n") as file:
        file.write("\n".join(lines) + "\n")
    os.replace(temporary, target)

    found = sum(len(paths) for paths in kinds.values())
    print(f"{sum(listed.values())} documents of {len(listed)} kinds listed, of {found} found: "
          f"{total['bytes']} bytes, {total['elements']} elements, {total['attributes']} attributes, "
          f"{total['namespaces']} declarations of namespaces")
    for kind, count in listed.most_common():
        print(f"  {count:4} {kind}")
    for reason, count in refused.most_common():
        print(f"not listed: {count:4} {reason}")


if __name__ == "__main__":
    main()
