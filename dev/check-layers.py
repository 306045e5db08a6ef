#!/usr/bin/env python3
"""Checks who includes whom below src/: check-layers.py [ROOT]

Breaches: a quoted include that is no file below src/; a core file that includes the widget half; Qt's headers
outside platform/backend/qt; a header that includes past its folder's row of the table below; a foreign header
outside its back end; a system `#if` outside platform/; a Qt name in a public header; an object with a constructor
at namespace scope (checked on what the compiler emitted, where a build is there); a cycle among headers. Prints
each and exits with 1.
"""
import pathlib
import re
import sys

WIDGET_HALF = ("platform/ui/", "platform/backend/qt/", "grids/", "dialogs/", "comms/browser/")

# What a folder's headers may include, first fitting row wins; sources include what they like within their half.
HEADERS_MAY = [
    ("platform/base/", ["platform/base/"]),
    ("platform/system/window/", ["platform/base/", "platform/system/window/", "platform/system/process/"]),
    ("platform/system/", ["platform/base/", "platform/system/"]),
    ("platform/db/", ["platform/base/", "platform/db/"]),
    ("platform/storage/", ["platform/base/", "platform/system/", "platform/storage/"]),
    ("platform/ui/", ["platform/base/", "platform/system/", "platform/ui/", "platform/db/"]),
    ("platform/backend/", ["platform/", "resources/"]),
    ("resources/", ["platform/base/", "resources/"]),
    ("text/", ["platform/base/", "text/"]),
    ("frame/", ["platform/base/", "platform/system/", "resources/", "frame/"]),
    ("settings/form/", ["platform/base/", "files/encoded/", "settings/form/"]),
    ("settings/", ["platform/base/", "platform/system/file/", "platform/system/RegistryHive.h",
                   "platform/system/ProfileFile.h", "text/TypedItemPtrList.h", "settings/"]),
    ("files/encoded/", ["platform/base/", "platform/system/file/", "files/encoded/"]),
    ("files/", ["platform/base/", "platform/system/file/", "text/SortedList.h", "settings/AppRegistry.h", "files/"]),
    ("database/", ["platform/base/", "platform/db/", "frame/IdleHandler.h", "database/"]),
    ("documents/", ["platform/base/", "platform/system/", "platform/storage/", "documents/"]),
    ("comms/browser/", ["platform/", "dialogs/", "comms/"]),
    ("comms/", ["platform/base/", "platform/system/", "comms/"]),
    ("reports/", ["platform/base/", "platform/system/file/", "files/FilePath.h", "reports/"]),
    ("dialogs/", ["platform/", "text/", "dialogs/"]),
    ("grids/", ["platform/", "dialogs/", "frame/IdleHandler.h", "database/", "grids/"]),
]

# Standard headers that name the operating system or a foreign library, and where they may stand.
STANDARD = set("""algorithm array atomic bit cassert cerrno cfenv cfloat charconv chrono cinttypes climits clocale cmath
codecvt compare complex concepts condition_variable csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cwchar
deque exception filesystem forward_list fstream functional initializer_list iomanip ios iosfwd iostream istream iterator
limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random ratio regex
semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf string string_view
system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector
version""".split())
FOREIGN_MAY = {"files/zip/": {"zlib.h"}}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
SYSTEM_IF = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*\b(?:__linux__|_WIN32|_WIN64|__APPLE__|__unix__|_MSC_VER)\b")
QT_HEADER = re.compile(r"(?:Qt[A-Z]\w*/)?(?:Q[A-Z]\w*|qpa/\w+\.h)$")
QT_NAME = re.compile(r"\b(?:Q[A-Z][A-Za-z]+|Qt::|QT_[A-Z]+)\b")


def read(path):
    return path.read_text(encoding="utf-8").splitlines()


def includes(lines):
    for number, line in enumerate(lines, 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1) == '"', match.group(2)


def may_include(name, target):
    for folder, allowed in HEADERS_MAY:
        if name.startswith(folder):
            return any(target.startswith(prefix) for prefix in allowed)
    return False


def foreign_allowed(name, header):
    if header in STANDARD:
        return True
    if QT_HEADER.match(header):
        return name.startswith("platform/backend/qt/")
    if name.startswith("platform/backend/"):
        return True
    return any(name.startswith(folder) and header in headers for folder, headers in FOREIGN_MAY.items())


def check_file(source, name, lines):
    core = not name.startswith(WIDGET_HALF)
    public = name.endswith(".h") and not name.startswith("platform/backend/")
    for number, quoted, target in includes(lines):
        place = f"src/{name}:{number}"
        if not quoted:
            if not foreign_allowed(name, target):
                yield f"{place}: <{target}> may stand in its back end only"
        elif not (source / target).is_file():
            yield f'{place}: "{target}" is no file below src/'
        elif core and target.startswith(WIDGET_HALF):
            yield f"{place}: the core includes the widget half ({target})"
        elif target.startswith("platform/backend/qt/") and not name.startswith("platform/backend/qt/"):
            yield f"{place}: the windows' back end is included by itself alone ({target})"
        elif target.startswith("platform/backend/") and not name.startswith("platform/backend/"):
            yield f"{place}: a back end is included by nobody ({target})"
        elif name.endswith(".h") and not may_include(name, target):
            yield f"{place}: headers of this folder do not include {target}"
    for number, line in enumerate(lines, 1):
        if SYSTEM_IF.match(line) and not name.startswith("platform/"):
            yield f"src/{name}:{number}: a condition on the system stands in platform/ only"
        if public and QT_NAME.search(line.split("//")[0]):
            yield f"src/{name}:{number}: a public header names Qt"


def cycles(graph):
    """Each cycle of the header graph once, found by a walk with its own stack."""
    state, found = {}, []
    for start in sorted(graph):
        if start in state:
            continue
        path, stack = [start], [iter(graph[start])]
        state[start] = "open"
        while stack:
            target = next(stack[-1], None)
            if target is None:
                state[path.pop()] = "done"
                stack.pop()
            elif state.get(target) == "open":
                found.append(path[path.index(target):] + [target])
            elif target in graph and target not in state:
                state[target] = "open"
                path.append(target)
                stack.append(iter(graph[target]))
    return found


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent.parent)
    source = root / "src"
    breaches, graph = [], {}
    for path in sorted(source.rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        name, lines = path.relative_to(source).as_posix(), read(path)
        breaches += check_file(source, name, lines)
        if name.endswith(".h"):
            graph[name] = [target for _, quoted, target in includes(lines) if quoted]
    breaches += ["cycle among headers: " + " -> ".join(cycle) for cycle in cycles(graph)]
    print("\n".join(breaches), end="\n" if breaches else "")
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
