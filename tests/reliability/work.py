"""Where the tries are made: a work folder that goes with its run, however that ends, and workers with a place each."""

import concurrent.futures
import ctypes
import fcntl
import multiprocessing
import os
import pathlib
import random
import re
import shutil
import signal
import sqlite3
import sys
import tempfile

from practice import Loss, digest

PREFIX = "pgbp-faults-"
LOCK = "lock"
ROOM = 1 << 30  # bytes; a run takes a tenth of them
KEPT_LOSSES = 5
ERROR_LOG = "client/pgbp-errors.log"  # tells the time
MADE_UP = re.compile(r"(?<=-mj)[0-9A-F]+|(?<=\.)[0-9a-z]{16}(?=\.new)")  # in the names of passing files
DIED_WITH = 1  # the option of prctl for the signal at the parent's death


def without_made_up(names):
    return MADE_UP.sub("*", names)


def has_room(folder):
    return os.access(folder, os.W_OK) and shutil.disk_usage(folder).free > ROOM


def remove_dead(place):
    """What earlier runs left there: nobody holds the lock of a run that has ended."""
    for folder in place.glob(PREFIX + "*"):
        try:
            with open(folder / LOCK) as lock:
                fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
                shutil.rmtree(folder)
        except OSError:  # somebody else's, or in use
            continue


class WorkFolder:
    """Gone behind its run, but for the practices in which losses were seen: those stay until the next run."""

    def __init__(self):
        memory = pathlib.Path("/dev/shm")  # where a flush costs nothing
        places = [place for place in (memory, pathlib.Path(tempfile.gettempdir())) if place.is_dir()]
        for place in places:
            remove_dead(place)
        chosen = next(filter(has_room, places), None)
        if not chosen:
            sys.exit(f"faults: {' and '.join(map(str, places))} have less than {ROOM >> 20} MB free")
        self.path = pathlib.Path(tempfile.mkdtemp(prefix=PREFIX, dir=chosen))
        self.lock = open(self.path / "lock.new", "w")  # never there without being held
        fcntl.flock(self.lock, fcntl.LOCK_EX)
        os.rename(self.lock.name, self.path / LOCK)
        self.losses = self.path / "losses"

    def __enter__(self):
        for each in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            signal.signal(each, lambda number, _: sys.exit(128 + number))
        return self

    def __exit__(self, *_):
        for each in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            signal.signal(each, signal.SIG_IGN)
        for worker in multiprocessing.active_children():
            end_group(worker)
        for path in self.path.iterdir():
            if path == self.losses or (path.name == LOCK and self.losses.exists()):
                continue
            shutil.rmtree(path) if path.is_dir() else path.unlink()
        if not self.losses.exists():
            self.path.rmdir()


def end_group(worker):
    """With the programs that it runs."""
    for end in (os.killpg, os.kill):
        try:
            end(worker.pid, signal.SIGKILL)
        except ProcessLookupError:  # it has ended, or leads no group yet
            continue
    worker.join()


def contents(folder):
    """Of its files, by their names in it."""
    return {str(path.relative_to(folder)): path.read_bytes()
            for path in folder.rglob("*") if path.is_file() and not path.is_symlink()}


class Slot:
    """A worker's place: a practice that is put back before each try by writing again what the last one changed."""

    def __init__(self, folder, prototype, make_ready):
        self.folder = folder
        self.practice = prototype.copy(folder / "practice")
        make_ready(self.practice)
        self.kept = contents(self.practice.folder)
        self.times = {name: (self.path(name).stat().st_atime_ns, self.path(name).stat().st_mtime_ns)
                      for name in self.kept}
        self.struck = folder / "struck"
        self.folders = [path for path in self.practice.folder.rglob("*") if path.is_dir()]
        self.judged = {}  # what became of a folder, by how it was judged and by its bytes

    def path(self, name):
        return self.practice.folder / name

    def reset(self):
        for path in self.folder.iterdir():
            if path != self.practice.folder:
                shutil.rmtree(path) if path.is_dir() else path.unlink()
        for path in sorted(self.practice.folder.rglob("*"), reverse=True):
            if path.is_symlink():
                continue
            if path.is_dir():
                if path not in self.folders:
                    path.rmdir()
            elif str(path.relative_to(self.practice.folder)) not in self.kept:
                path.unlink()
        for path in self.folders:
            path.mkdir(exist_ok=True)
        for name, content in self.kept.items():
            path = self.path(name)
            if not path.exists() or path.read_bytes() != content:
                path.write_bytes(content)
            os.utime(path, ns=self.times[name])

    def changed(self):
        """What is not as it was, but for names that are made up and the times in records of backups."""
        now = contents(self.practice.folder)
        found = {name for name in self.kept if name not in now}
        for name, content in now.items():
            if content != self.kept.get(name):
                plain = b"" if name == ERROR_LOG else content
                if pathlib.Path(name).name.startswith("backup.txt"):
                    plain = re.sub(rb"\d", b"0", content)
                found.add((without_made_up(name), digest(plain)))
        return frozenset(found)

    def beside(self):
        """What lies beside the practice."""
        others = [path for path in self.folder.iterdir() if path not in (self.practice.folder, self.struck)]
        return frozenset((without_made_up(str(path.relative_to(self.folder))),
                          digest(path.read_bytes()) if path.is_file() and not path.is_symlink() else None)
                         for other in others for path in (other, *other.rglob("*")))

    def new_names(self, but):
        new = contents(self.practice.folder).keys() - self.kept.keys() - but
        return sorted({without_made_up(name) for name in new})

    def judge(self, way, judge):
        """A folder that was judged is not judged again: what reads it starts anew and sees only its bytes."""
        key = (way, self.changed(), self.beside())
        if key not in self.judged:
            self.judged[key] = judge()
        return self.judged[key]


class Workers:
    """One for each processor. They know the rounds from the process that they were split from."""

    at_work = None  # in a worker: itself

    def __init__(self, work, prototype, make_ready, rounds):
        self.work, self.prototype, self.make_ready, self.rounds = work, prototype, make_ready, rounds
        self.slot = None

    def outcomes(self):
        """Of each round its kind, what became of it, and the words of a loss."""
        pool = concurrent.futures.ProcessPoolExecutor(len(os.sched_getaffinity(0)),
                                                      multiprocessing.get_context("fork"), self.set_up)
        try:
            yield from pool.map(try_one, range(len(self.rounds)))
        finally:  # also at a signal, when nobody waits for the rest
            pool.shutdown(wait=False, cancel_futures=True)
        for worker in multiprocessing.active_children():
            worker.join()
        for folder in self.work.path.glob("worker-*"):
            shutil.rmtree(folder)

    def set_up(self):
        os.setpgid(0, 0)
        ctypes.CDLL(None).prctl(DIED_WITH, signal.SIGKILL)
        for each in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            signal.signal(each, signal.SIG_DFL)
        Workers.at_work = self

    def try_one(self, number):
        if not self.slot:
            self.slot = Slot(self.work.path / f"worker-{os.getpid()}", self.prototype, self.make_ready)
        random.seed(number)
        kind, attempt = self.rounds[number]
        try:
            self.slot.reset()
            return kind, attempt(self.slot), None
        except (Loss, sqlite3.Error, OSError) as loss:
            aside = self.work.losses / f"{kind}-{os.getpid()}-{number}".replace(" ", "-")
            if not self.work.losses.exists() or len(list(self.work.losses.iterdir())) < KEPT_LOSSES:
                shutil.copytree(self.slot.folder, aside, symlinks=True)
            return kind, "LOST", f"{aside}: {loss}"


def try_one(number):
    return Workers.at_work.try_one(number)
