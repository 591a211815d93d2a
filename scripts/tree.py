"""The tree as the checks see it: which files there are, what they include, how they are compiled.

Used by the scripts beside it. Python 3 and its standard library only.
"""

import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / os.environ.get("FOLIANT_BUILD", "build/native")
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


@functools.cache
def files(*endings):
    """The files under version control with one of these endings (all without one), as paths from the root."""
    # A checkout that belongs to another user, as in many containers, is still this one.
    listing = subprocess.run(["git", "-c", f"safe.directory={ROOT}", "ls-files", "-z"], cwd=ROOT,
                             capture_output=True, check=True, text=True).stdout
    paths = [pathlib.PurePosixPath(name) for name in listing.split("\0") if name]
    return [path for path in paths
            if (not endings or path.suffix in endings) and (ROOT / path).is_file()]


@functools.cache
def text(path):
    return (ROOT / path).read_text(encoding="utf-8")


@functools.cache
def includes(path):
    """The project's own files that a file includes, as paths from the root."""
    found = (quoted for quoted, _ in INCLUDE.findall(text(path)) if quoted)
    candidates = (pathlib.PurePosixPath(top) / name for name in found for top in ("src", "tests", path.parent))
    return sorted({candidate for candidate in candidates if (ROOT / candidate).is_file()})


def everything_included(path):
    """The file and all of the project's files that come with it, sorted."""
    seen, waiting = set(), [path]
    while waiting:
        current = waiting.pop()
        if current not in seen:
            seen.add(current)
            waiting.extend(includes(current))
    return sorted(seen)


@functools.cache
def compile_commands():
    """How each source is compiled in the native flavour: path from the root to (folder, arguments)."""
    database = BUILD / "compile_commands.json"
    if not database.is_file():
        sys.exit(f"{database} is not there. Run: cmake --preset native && cmake --build --preset native")
    commands = {}
    for entry in json.loads(database.read_text()):
        source = pathlib.Path(entry["directory"], entry["file"]).resolve()
        if source.is_relative_to(ROOT):
            commands[pathlib.PurePosixPath(source.relative_to(ROOT))] = shlex.split(entry["command"])
    return commands


def language_arguments(path):
    """Include folders, definitions and standard for a file: its own, or those of its nearest neighbour."""
    commands = compile_commands()
    if path not in commands:
        def distance(other):
            shared = len(os.path.commonprefix([path.parent.parts, other.parent.parts]))
            return (-shared, len(other.parts), other.stem != path.stem, other)
        path = min(commands, key=distance)
    arguments, wanted, taking_next = [], ("-I", "-D", "-std=", "-pthread"), False
    for argument in commands[path]:
        if taking_next or argument.startswith(wanted):
            arguments.append(argument)
            taking_next = False
        elif argument == "-isystem":
            arguments.append(argument)
            taking_next = True
    return arguments


def remembered(kind, inputs):
    """Where it is remembered that a check of these inputs (files and texts) went well."""
    digest = hashlib.sha256()
    for item in inputs:
        digest.update(str(item).encode() + b"\0")
        if isinstance(item, pathlib.PurePath):
            digest.update((ROOT / item).read_bytes() + b"\0")
    return ROOT / "build" / "checked" / kind / digest.hexdigest()


def in_parallel(function, items):
    """What the function returns for each item, in order; as many at a time as there are processors."""
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return list(pool.map(function, items))


def remember(kind, inputs):
    """Remembers that a check of these inputs went well."""
    memory = remembered(kind, inputs)
    memory.parent.mkdir(parents=True, exist_ok=True)
    memory.touch()


def run_all(kind, jobs):
    """Runs commands, several at a time, and prints what the failing ones say. `jobs` holds, for each file, the
    command and what its outcome depends on; one that went well is not run again before any of that changes.
    Returns the files that failed."""
    def run(job):
        path, command, inputs = job
        if remembered(kind, inputs).exists():
            return None
        result = subprocess.run(command, cwd=ROOT, capture_output=True, text=True)
        if result.returncode == 0:
            remember(kind, inputs)
            return None
        said = result.stdout + result.stderr
        if result.returncode < 0:
            said += f"{path}: {command[0]} was ended by signal {-result.returncode}\n"
        print(said, end="", flush=True)
        return path

    return [path for path in in_parallel(run, jobs) if path]
