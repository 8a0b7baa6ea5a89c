#!/usr/bin/env python3
"""Checks the rules of the source tree: house.py rooms|sizes|words ROOT.

rooms: a file includes only what its room may. sizes: no file is too long (functions are measured by
the style gate). words: nothing is tied to one machine or package mirror, and nothing is left
unfinished. Prints one line per finding; the exit status is 1 when there is any.
"""

import os
import re
import sys

CORE = ["model", "text", "port", "calc", "draw", "edit", "files", "exchange", "project"]

# What each room under src/ may include beside its own files and the standard library.
MAY_INCLUDE = {
    "model": [],
    "text": [],
    "port": [],
    "calc": ["model", "text"],
    "draw": ["model", "text", "calc"],
    "edit": ["model", "text", "port", "calc"],
    "files": ["model", "text", "port", "calc", "edit"],
    "exchange": ["model", "text", "port", "calc", "edit", "files"],
    "project": ["model", "text", "port", "calc", "edit", "files"],
    "ui": [room for room in CORE if room != "exchange"],
    "cli": CORE,
}

# Headers from outside the tree and the standard library, by the rooms that may know them.
LIBRARIES = {
    "ui": r"Q[A-Za-z]+|Qt[A-Za-z]+/\w+|q\w+\.h",
    "cli": r"CLI/.*|nlohmann/.*",
    "files": r"acl/libacl\.h|attr/(error_context|libattr)\.h",
    "project": r"SimpleIni\.h",
}
SYSTEM = r"[a-z_]+|(?:sys/)?[a-z]+\.h"

MAX_LINES = 600

FORBIDDEN_WORDS = [
    (r"(?<![\w.])/(?:home/\w+/\w+/|root/|work/|Users/)", "a path of one machine"),
    (r"\b[A-Za-z]:\\Users\\", "a path of one machine"),
    (r"\b[\w.-]+\.(?:debian|ubuntu)\.(?:org|com)\b", "a package mirror"),
    (r"\b(?:pypi|pythonhosted|npmjs|crates|golang)\.(?:org|com|io)\b", "a package registry"),
    (r"\b(?:TO[D]O|FIX[M]E|X[X]X)\b", "unfinished work"),
    (r"^(?:<<<<<<<|>>>>>>>) ", "an unresolved merge"),
]

NOT_OURS = {".git", ".cache", "build", "__pycache__"}


def files_under(root):
    """Relative paths of all files that belong to the tree, sorted."""
    for folder, subfolders, names in os.walk(root):
        subfolders[:] = sorted(name for name in subfolders if name not in NOT_OURS)
        for name in sorted(names):
            yield os.path.relpath(os.path.join(folder, name), root).replace(os.sep, "/")


def text_lines(root, path):
    """The lines of a text file; none of a binary one."""
    with open(os.path.join(root, path), "rb") as file:
        content = file.read()
    return [] if b"\0" in content else content.decode("latin-1").splitlines()


def is_source(path):
    return path.endswith((".cpp", ".h"))


def include_fault(room, include):
    """Why a file of the room may not have this include line; empty when it may."""
    name = include[1:-1]
    if include[0] == '"':
        target = name.split("/")[0]
        if name.endswith((".moc", ".ui")) or target == room or target in MAY_INCLUDE[room]:
            return ""
        if target in MAY_INCLUDE or target in LIBRARIES:
            return f"room {room} may not include room {target}"
        return "includes of the tree's own files are written from src/"
    if re.fullmatch(LIBRARIES.get(room, r"(?!)"), name):
        return ""
    if re.fullmatch(LIBRARIES["ui"], name):
        return "only room ui knows Qt"
    if re.fullmatch(SYSTEM, name):
        return ""
    return f"room {room} may not know this library"


def check_rooms(root):
    seen = set()
    for path in files_under(os.path.join(root, "src")):
        if not is_source(path):
            continue
        room = path.split("/")[0]
        if room not in MAY_INCLUDE:
            yield f"src/{path}: not in one of the rooms"
            continue
        seen.add(room)
        for number, line in enumerate(text_lines(root, "src/" + path), 1):
            match = re.match(r'\s*#\s*include\s*("[^"]*"|<[^>]*>)', line)
            fault = match and include_fault(room, match[1])
            if fault:
                yield f"src/{path}:{number}: {match[1]}: {fault}"
    for room in MAY_INCLUDE:
        if room not in seen:
            yield f"src/{room}: the room is missing"


def check_sizes(root):
    folders = ("src/", "tests/", "benchmarks/", "fuzz/", "tools/")
    for path in files_under(root):
        if not path.startswith(folders) or "/golden/" in path or "/corpus/" in path:
            continue
        lines = len(text_lines(root, path))
        if lines > MAX_LINES:
            yield f"{path}: {lines} lines, more than {MAX_LINES}"


def check_words(root):
    for path in files_under(root):
        for number, line in enumerate(text_lines(root, path), 1):
            for pattern, meaning in FORBIDDEN_WORDS:
                match = re.search(pattern, line)
                if match:
                    yield f"{path}:{number}: {meaning}: {match[0]}"


RULES = {"rooms": check_rooms, "sizes": check_sizes, "words": check_words}


def main():
    if len(sys.argv) != 3 or sys.argv[1] not in RULES:
        sys.exit("usage: house.py rooms|sizes|words ROOT")
    findings = list(RULES[sys.argv[1]](sys.argv[2]))
    print("\n".join(findings) if findings else "no findings")
    sys.exit(1 if findings else 0)


if __name__ == "__main__":
    main()
