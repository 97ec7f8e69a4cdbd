"""What the checks of docs/host-contract.md and docs/module-interface.md share: names of symbols, and
the names that a document lists."""
import re
import subprocess


def simple_name(name):
    """Constructors count as their class."""
    parts = name.split('::')
    if len(parts) > 1 and parts[-1] == parts[-2]:
        parts.pop()
    return '::'.join(parts)


def without_arguments(symbol):
    """The name alone: no return type, template arguments or parameters."""
    while re.search(r'<[^<>]*>', symbol):
        symbol = re.sub(r'<[^<>]*>', '', symbol)
    return symbol.split('(')[0].split(' ')[-1]


def symbols(module, which):
    """Kind, name, and parameters of each dynamic symbol; kinds 'typeinfo' and 'vtable' name a class.

    which is --undefined-only or --defined-only.
    """
    output = subprocess.run(['nm', '-DC', which, module], check=True, capture_output=True,
                            text=True).stdout
    for line in output.splitlines():
        kind, symbol = line[17], line[19:].replace('[abi:cxx11]', '')
        runtime = re.match(r'(typeinfo|vtable|VTT)(?: name)? for (.*)', symbol)
        if runtime:
            kind, symbol = runtime[1], runtime[2]
        yield kind, without_arguments(symbol.split('thunk to ')[-1]), symbol.partition('(')[2]


def listed_names(document, heading=''):
    """Line and possible meanings of each name in the first columns of the document's tables, or of
    those of the chapters whose headings match.

    A name without its scope belongs to the first of its row, or to what that one belongs to.
    """
    chapter = ''
    for number, line in enumerate(document.read_text().splitlines(), 1):
        chapter = line if line.startswith('## ') else chapter
        if not line.startswith('| `') or not re.search(heading, chapter):
            continue
        first = None
        for name in re.findall(r'`([^`]+)`', line.split(' | ')[0]):
            scopes = [first, first.rpartition('::')[0]] if first else []
            yield number, [name] + [f'{scope}::{name}' for scope in scopes if scope]
            first = first or name


def compare(document, listed, present):
    """Complaints about rows that name nothing present, and the names that the rows mean."""
    complaints, found = [], set()
    for number, meanings in listed:
        meant = [name for name in meanings if name in present]
        found |= set(meant[:1])
        if not meant:
            complaints.append(f'{document.name}:{number}: there is no {meanings[0]}')
    return complaints, found
