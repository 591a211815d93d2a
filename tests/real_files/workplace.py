"""What the rows of the table are made with: a private place for a call of foliant, and what the tools say."""

import collections
import hashlib
import itertools
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import time

from PIL import Image, ImageChops, ImageFilter

SMALL = 1_000_000  # bytes; a file below it may take HANG seconds
HANG = 10
LONGEST = 120
DIFFERENT = 64  # of 255 levels of grey


class Outcome(Exception):
    """How a member came out on a file: one of the words of the table, and what there is to say."""

    def __init__(self, word, detail=""):
        super().__init__(word, detail)
        self.word, self.detail = word, detail


class Workplace:
    """A private folder, and what is run in it."""

    def __init__(self, foliant, source, patience=1, jobs=None):
        self.foliant, self.source, self.jobs, self.patience = foliant, source, jobs, patience
        self.limit = (HANG if source.stat().st_size < SMALL else LONGEST) * patience

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="real-file-"))
        self.environment = {**os.environ, "XDG_CONFIG_HOME": str(self.folder / "config"), "LC_ALL": "C.UTF-8"}
        self.environment.pop("DISPLAY", None)
        self.environment.pop("WAYLAND_DISPLAY", None)
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.folder, ignore_errors=True)

    def path(self, name):
        return self.folder / name

    def put_viewer(self):
        """A viewer, for a machine that has none; without a screen it is named and not started."""
        self.path("bin").mkdir()
        self.path("bin/okular").write_text("#!/bin/sh\n")
        self.path("bin/okular").chmod(0o755)
        self.environment["PATH"] = f"{self.path('bin')}:{self.environment['PATH']}"

    def copy(self, name):
        self.path(name).parent.mkdir(exist_ok=True)
        shutil.copyfile(self.source, self.path(name))
        return self.path(name)

    def printed(self, name):
        """What the printer got under that name, which no other file has."""
        for _ in range(100 * self.patience):
            found = list(self.jobs.glob(f"*-{name.replace('.', '_')}.pdf"))
            if found and found[0].read_bytes()[-32:].rstrip().endswith(b"%%EOF"):
                return found[0]
            time.sleep(0.1)
        raise Outcome("silent", "success, and nothing was printed")

    def run(self, *words, limit=None):
        return subprocess.run([str(word) for word in words], capture_output=True, cwd=self.folder,
                              env=self.environment, timeout=limit)

    def call(self, member, *words, may_end_with=()):
        """Makes a call, and returns what it printed. Raises how it ended, when that was not with success."""
        begin = time.monotonic()
        try:
            done = self.run(self.foliant, member, *words, "--quiet", "--timeout", str(self.limit),
                            limit=self.limit + 30)
        except subprocess.TimeoutExpired:
            raise Outcome("hung", f"does not heed --timeout {self.limit}") from None
        said = done.stderr.decode("utf-8", "replace").strip().replace(str(self.source), self.source.suffix)
        if done.returncode == 124 or time.monotonic() - begin > self.limit:
            raise Outcome("hung", f"{self.limit} s")
        if done.returncode < 0 or done.returncode in (134, 139) or " crashed" in said or "ended by signal" in said:
            raise Outcome("crashed", said)
        if done.returncode == 125:
            raise Outcome("memory", said)
        if done.returncode != 0 and "only with the owner's password" in said:
            raise Outcome("forbidden", said)
        if done.returncode != 0 and done.returncode not in may_end_with:
            if not said:
                raise Outcome("failed without a word", str(done.returncode))
            raise Outcome("failed", f"{done.returncode}: {said}")
        return done.stdout.decode("utf-8", "replace")


# What the tools say.

def page_count(place, file, *options):
    done = place.run("pdfinfo", *options, file, limit=60)
    found = re.search(rb"^Pages: +(\d+)", done.stdout, re.MULTILINE)
    return int(found[1]) if found else None


def text_of_pages(place, file):
    done = place.run("pdftotext", "-enc", "UTF-8", file, "-", limit=120)
    return done.stdout.decode("utf-8", "replace").split("\f")[:-1]


def grade(place, file, *options):
    """0 is a sound PDF, 3 one with warnings, 2 one with errors."""
    return {0: 0, 3: 1}.get(place.run("qpdf", "--check", *options, file, limit=120).returncode, 2)


def drawn(place, file, first, last):
    """What the pages look like, small and grey."""
    done = place.run("pdftoppm", "-r", "24", "-gray", "-f", str(first), "-l", str(last), file, "page", limit=120)
    pages = []
    for page in sorted(place.folder.glob("page*.pgm")):
        pages.append(hashlib.sha256(page.read_bytes()).hexdigest())
        page.unlink()
    return pages if done.returncode == 0 else []


def require_sound(place, file, before, *options):
    if not file.exists() or file.stat().st_size == 0:
        raise Outcome("silent", "success, and no output")
    after = grade(place, file, *options)
    if after > before:
        raise Outcome("unsound", f"qpdf --check: {before} before, {after} after")


def expect(word, condition, detail):
    if not condition:
        raise Outcome(word, detail)


def words_of(text):
    """How often each word is there. The marks by which pdftotext shows a change of direction are no text."""
    return collections.Counter(re.sub("[\u202a-\u202e]", "", text).split())


def pictures(place, file, last):
    """The first pages, small and grey."""
    place.run("pdftoppm", "-r", "24", "-gray", "-l", str(last), file, "seen", limit=120)
    pages = []
    for page in sorted(place.folder.glob("seen*.pgm")):
        with Image.open(page) as image:
            pages.append(image.copy())
        page.unlink()
    return pages


def unlike(one, other):
    """How much of a page looks different, from 0 to 1. What lies a pixel, three points, further on is no difference."""
    if max(abs(one.width - other.width), abs(one.height - other.height)) > 1:
        return 1
    size = (min(one.width, other.width), min(one.height, other.height))
    one, other = (image.crop((0, 0, *size)) for image in (one, other))
    lost = sum(sum(ImageChops.subtract(there.filter(ImageFilter.MinFilter(3)), here).histogram()[DIFFERENT:])
               for here, there in itertools.permutations((one, other)))
    return lost / (size[0] * size[1])
