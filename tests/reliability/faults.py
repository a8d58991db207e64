#!/usr/bin/env python3
"""Attacks the files of a practice while the module works on them. Usage: faults.py [--short] PROGRAMS LIBRARY [SAVE... | backup]

Each file of saves/ is a way to change the data: who is handed over ("#! handover CODE ..."), and commands of
pgbp-drive, behind "#! save" those that write; $samples is the folder of the sample trial balances. A message on the way
there makes the person leave, as one behind it does. The practice is what it was before them (old) or what it is after
them (new). Whatever happens on the way, its rows must be those of the one or the other, the head of income must be the
old one or agree with the rows, and the next start must work and end in old or new to the last row.

A backup is attacked in the same ways, and made while a writer saves: the one that stood before still counts and gives
its rows, and whatever counts besides gives, restored, the old rows or the new ones.

Tried: each call that changes a file fails in turn, for a while or for good, or is the last one of the process; the
process is killed at random moments; several processes write at once; bytes of a file are changed. The figures are
printed; any loss fails, and leaves the practice in which it was seen."""

import collections
import concurrent.futures
import os
import pathlib
import random
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time

HERE = pathlib.Path(__file__).resolve().parent
SAMPLES = HERE.parent / "trial_balance" / "samples"
# how a call fails, with the calls that it is tried on: a full disk at each call, the others by turns
KINDS = (("enospc", 1, 0), ("kill", 4, 0), ("eio", 4, 1), ("full", 4, 2), ("short", 4, 3), ("torn", 4, 2))
PATIENCE = 120  # seconds until a process counts as hanging
WORD = "said and done"
KEPT_FILES = ("company", "balance")
BY_PRODUCTS = {"client/pgbp-errors.log", "client/checked.ini", "server/pgbp.lock"}
BACKUPS = "backups"  # folder in the practice
MADE_UP = re.compile(r"(?<=-mj)[0-9A-F]+|(?<=\.)[0-9a-z]{16}(?=\.new)")  # in the names of passing files


class Loss(Exception):
    pass


class Save:
    def __init__(self, path):
        self.name = path.stem
        self.opening, self.saving = [], []
        into = self.opening
        for line in path.read_text().splitlines():
            if line.startswith("#! handover "):
                self.hand_over = line.split()[2:]
            elif line.startswith("#! save"):
                into = self.saving
            elif line.strip() and not line.startswith("#"):
                into.append(line.replace("$samples", str(SAMPLES)) + "\n")


class Session:
    """A run of the module, one command at a time. What hangs is killed."""

    def __init__(self, practice, programs, environment):
        self.process = subprocess.Popen([programs / "pgbp-drive", "--program-folder", practice.folder, "--go-on"],
                                        text=True, errors="replace", stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.STDOUT, env=environment)
        self.said = ""
        self.hangs = False
        self.watch = threading.Timer(PATIENCE, self.give_up)
        self.watch.start()

    def give_up(self):
        self.hangs = True
        self.process.kill()

    def send(self, commands):
        try:
            self.process.stdin.write("".join(commands))
            self.process.stdin.flush()
        except BrokenPipeError:
            pass

    def do(self, command):
        """What was said to it; all of it when the process is gone."""
        self.send([command, f"say {WORD}\n"])
        answer = ""
        for line in self.process.stdout:
            if line == WORD + "\n":
                break
            answer += line
        self.said += answer
        return answer

    def do_all(self, commands):
        """Up to the first that brings a message; whether none did."""
        return not any("message |" in said or "error |" in said for said in map(self.do, commands))

    def leave(self):
        """As a person who is told that it did not work: once more, and what was typed may go."""
        for _ in range(3):
            said = self.do("cross\n")
            if "discard changes" in said:
                self.do("answer Yes\n")
            elif "message |" not in said:
                break

    def end(self):
        """The exit status and all that was said."""
        rest, _ = self.process.communicate()
        self.watch.cancel()
        if self.hangs:
            raise Loss("the module hangs: " + self.said)
        return self.process.returncode, self.said + rest


class Practice:
    """A folder with its programs' data; a copy costs a few milliseconds."""

    def __init__(self, folder, suite):
        self.folder, self.suite = folder, suite

    def hand_over(self, save):
        subprocess.run([self.suite, "--program-folder", self.folder, "handover", *save.hand_over], check=True)

    def copy(self, folder, save=None):
        """The hand-over tells where the data is: a copy needs its own."""
        shutil.copytree(self.folder, folder)
        (folder / "Drive.txt").write_text(f"{folder / 'handover'}\n")
        copy = Practice(folder, self.suite)
        if save:
            copy.hand_over(save)
        return copy

    def rows(self, file):
        """Every row of a file, with its table, and how often it is there."""
        data = sqlite3.connect(self.folder / "server" / f"{file}.mdb", timeout=20)
        try:
            fault = data.execute("pragma integrity_check").fetchone()[0]
            if fault != "ok":
                raise Loss(f"{file} is damaged: {fault}")
            found = collections.Counter()
            for (table,) in data.execute("select name from sqlite_master where type = 'table'").fetchall():
                if table == "qelgeneral":  # the suite notes in name7 of a head which run it came from
                    data.execute("update qelgeneral set name7 = null where type = 'BUSI'")
                found.update((table, *row) for row in data.execute(f"select * from [{table}]"))
            data.rollback()
            return found
        finally:
            data.close()

    def state(self):
        return State({file: self.rows(file) for file in KEPT_FILES})

    def run_suite(self, *words, environment=None):
        """The exit status and what was said."""
        try:
            ended = subprocess.run([self.suite, "--program-folder", self.folder, *words], text=True, timeout=PATIENCE,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=environment)
        except subprocess.TimeoutExpired:
            raise Loss("pgbp-suite hangs: " + " ".join(map(str, words)))
        return ended.returncode, ended.stdout

    def backups(self):
        """Names of those that count."""
        status, said = self.run_suite("backups")
        if status != 0:
            raise Loss(f"the backups can not be listed: {said}")
        return {pathlib.Path(line.split()[0]).name for line in said.splitlines() if "   made " in line}

    def restored(self, backup, folder):
        status, said = self.run_suite("restore", backup, folder)
        if status != 0:
            raise Loss(f"{backup} counts and can not be restored: {said}")
        state = Practice(folder, self.suite).state()
        shutil.rmtree(folder)
        return state

    def files(self):
        return {str(path.relative_to(self.folder)) for path in self.folder.rglob("*") if path.is_file()}


def is_head(row):
    return row[0] == "qelgeneral" and "BUSI" in row


def is_deduction(row):
    """Written by the summary when it shows what was saved; the mark that there is any business too."""
    return (row[0] == "business1" and ("LESSREMU" in row or "LESSINTT" in row)
            or row[0] == "misc_items" and "Fast2018" in row)


def is_working_copy(row):
    """Of the annexure, while its line is open; emptied at the next opening."""
    return row[0] == "fassets" and 90000 in row


class State:
    """The rows of a practice: the head of income, the partners' deductions that go with it, and all others."""

    def __init__(self, files):
        self.head, self.deductions, self.others = collections.Counter(), collections.Counter(), collections.Counter()
        for file, rows in files.items():
            for row, count in rows.items():
                if is_working_copy(row):
                    continue
                part = self.head if is_head(row) else self.deductions if is_deduction(row) else self.others
                part[(file, *row)] += count

    def whole(self):
        return self.head + self.deductions + self.others

    def difference(self, other):
        mine, its = self.whole(), other.whole()
        return [f"- {row}" for row in its - mine][:5] + [f"+ {row}" for row in mine - its][:5]


def hold_against(state, old, new):
    """Which of the two the rows are; a head is the old one or agrees with the rows."""
    if state.others == old.others:
        if state.head != old.head or state.deductions != old.deductions:
            raise Loss("a head of income or a deduction that the rows do not have: " + "\n".join(state.difference(old)))
        return "old"
    if state.others == new.others:
        if state.head not in (old.head, new.head) or state.deductions not in (old.deductions, new.deductions):
            raise Loss("neither the old head of income nor the new one: " + "\n".join(state.difference(new)))
        if state.head == new.head and state.deductions != new.deductions:
            raise Loss("the new head of income with the old deductions: " + "\n".join(state.difference(new)))
        return "new"
    raise Loss("neither the old rows nor the new ones: against old\n" + "\n".join(state.difference(old)) +
               "\nagainst new\n" + "\n".join(state.difference(new)))


class Attack:
    def __init__(self, programs, failing_calls, work, is_short):
        self.programs, self.failing_calls = programs, failing_calls
        self.work, self.is_short = work, is_short
        self.random = random.Random(7)
        self.lock = threading.Lock()
        self.number = 0
        self.losses = []
        self.environment = {**os.environ, "ASAN_OPTIONS": "verify_asan_link_order=0:detect_leaks=0"}
        self.fresh = Practice(work / "fresh", programs / "pgbp-suite")
        subprocess.run([self.fresh.suite, "new", self.fresh.folder], check=True, stdout=subprocess.DEVNULL)

    # runs of the module

    def folder(self):
        with self.lock:
            self.number += 1
            return self.work / str(self.number)

    def start(self, practice, more=None):
        return Session(practice, self.programs, {**self.environment, **(more or {})})

    def work_through(self, practice, save, more=None):
        session = self.start(practice, more)
        if session.do_all(save.opening):
            session.do_all(save.saving)
        session.leave()
        return session.end()

    def work_undisturbed(self, practice, leaves=True):
        session = self.start(practice)
        if leaves:
            session.leave()
        status, said = session.end()
        if status != 0 or said:
            raise Loss(f"a run that nothing disturbs ended with {status}: {said}")

    # one save

    def prepare(self, save):
        """The practice before it, settled by a run that changes nothing, and the states before and after it."""
        before = self.fresh.copy(self.folder(), save)
        for _ in range(2):
            self.work_undisturbed(before)
        after = before.copy(self.folder(), save)
        status, said = self.work_through(after, save)
        old, new = before.state(), after.state()
        if old.others == new.others:  # the head may stay: a return has more than its head of income
            raise Loss(f"{save.name} changes nothing: {said} {status}")
        return before, old, new

    def judge(self, practice, old, new, files):
        """What became of the practice, with the files left over; whether the next start lives with them."""
        if self.random.random() < 0.5:  # by the module itself, else by the next reader of the files
            self.work_undisturbed(practice, leaves=False)
        state = practice.state()
        found = hold_against(state, old, new)
        self.work_undisturbed(practice)
        wanted = old if found == "old" else new
        settled = practice.state()
        if settled.whole() != wanted.whole():
            raise Loss("the next run does not put the rest right: " + "\n".join(settled.difference(wanted)))
        left = sorted({MADE_UP.sub("*", name) for name in practice.files() - files - BY_PRODUCTS})
        return " ".join([found, *left])

    def attempt(self, save, before, old, new, disturb):
        """One round on a copy; what became of it."""
        practice = before.copy(self.folder(), save)
        try:
            if disturb(practice):
                outcome = self.judge(practice, old, new, before.files())
            else:
                outcome = None
        except (Loss, sqlite3.Error) as loss:
            self.losses.append(f"{practice.folder}: {loss}")
            return "LOST"
        shutil.rmtree(practice.folder)
        return outcome

    def fail_call(self, save, kind, at):
        def disturb(practice):
            struck = practice.folder.with_suffix(".struck")
            status, said = self.work_through(practice, save, {
                "LD_PRELOAD": str(self.failing_calls), "FAULT_FOLDER": str(practice.folder), "FAULT_AT": str(at),
                "FAULT_KIND": kind, "FAULT_STRUCK": str(struck)})
            if status not in (0, 1, -9):
                raise Loss(f"the module crashed with {status}: {said}")
            if status == -9 and kind not in ("kill", "torn"):
                raise Loss("the module was killed")
            if not struck.exists():
                return False
            struck.unlink()
            return True

        return disturb

    def kill(self, save, longest):
        delay = self.random.random() ** 2 * longest  # most of the work is done in the first part of it

        def disturb(practice):
            session = self.start(practice)
            session.do_all(save.opening)
            session.send([*save.saving, "cross\n"])
            time.sleep(delay)
            session.process.kill()
            session.end()
            return True

        return disturb

    def calls_of(self, save, before):
        """How many calls there are to fail: the first that is not reached ends the search."""
        low, high = 1, 2
        reached = lambda at: self.fail_call(save, "enospc", at)(before.copy(self.folder(), save))
        while reached(high):
            low, high = high, 2 * high
        while high - low > 1:
            middle = (low + high) // 2
            low, high = (middle, high) if reached(middle) else (low, middle)
        return low

    def duration(self, save, before):
        """Of what is under fire."""
        session = self.start(before.copy(self.folder(), save))
        session.do_all(save.opening)
        began = time.monotonic()
        session.send([*save.saving, "cross\n"])
        session.end()
        return time.monotonic() - began

    def attack(self, save, pool):
        before, old, new = self.prepare(save)
        calls = self.calls_of(save, before)
        places = range(1, calls + 1)
        if self.is_short:
            places = sorted(self.random.sample(places, min(3, calls)))
        kills = 25 if self.is_short else 200
        longest = 1.2 * self.duration(save, before)
        rounds = [(kind, self.fail_call(save, kind, at)) for kind, every, first in KINDS
                  for at in (places if self.is_short else places[first::every])]
        rounds += [("killed at random", self.kill(save, longest)) for _ in range(kills)]
        outcomes = pool.map(lambda each: (each[0], self.attempt(save, before, old, new, each[1])), rounds)
        table = collections.defaultdict(collections.Counter)
        for kind, outcome in outcomes:
            table[kind][outcome or "not reached"] += 1
        print(f"{save.name}: {calls} calls that change a file")
        for kind, found in table.items():
            print(f"  {kind:<18}" + "   ".join(f"{count} {outcome}" for outcome, count in sorted(found.items())))

    # a backup

    def judge_backups(self, practice, first, states, status, said):
        """What became of the backup that was made behind the first one; whether the next one lives with what is left."""
        counting = practice.backups()
        if first not in counting:
            raise Loss(f"the earlier backup is gone: {said}")
        made = counting - {first}
        if status == 0 and not made:
            raise Loss(f"it was told that one was made, and none counts: {said}")
        for backup in sorted(counting):
            whole = practice.restored(backup, practice.folder.with_suffix(".restored")).whole()
            if not any(whole == state.whole() for state in (states if backup in made else states[:1])):
                raise Loss(f"{backup} has other rows: " + str(whole - states[0].whole()) + str(states[0].whole() - whole))
        status, said = practice.run_suite("backup")
        if status != 0:
            raise Loss(f"the next backup fails: {said}")
        left = [path.name for path in (practice.folder / BACKUPS).iterdir() if path.name.endswith(".new")]
        if left or len(practice.backups()) != len(counting) + 1:
            raise Loss(f"the next backup left {left} and {practice.backups()}")
        return "made" if made else "none"

    def attack_backup(self, save, pool):
        """Faults of its own calls, kills, and a writer that saves meanwhile."""
        before, old, new = self.prepare(save)
        before.run_suite("backup")
        (first,) = before.backups()
        began = time.monotonic()
        before.copy(self.folder()).run_suite("backup")
        longest = 1.2 * (time.monotonic() - began)

        def on_copy(disturb):
            practice = before.copy(self.folder(), save)
            shutil.rmtree(practice.folder / BACKUPS)  # those of another practice do not count
            practice.run_suite("backup")
            try:
                outcome = disturb(practice)
            except (Loss, sqlite3.Error) as loss:
                self.losses.append(f"{practice.folder}: {loss}")
                return "LOST"
            shutil.rmtree(practice.folder)
            return outcome

        def fail(kind, at):
            def disturb(practice):
                struck = practice.folder.with_suffix(".struck")
                status, said = practice.run_suite("backup", environment={
                    **self.environment, "LD_PRELOAD": str(self.failing_calls), "FAULT_FOLDER": str(practice.folder),
                    "FAULT_AT": str(at), "FAULT_KIND": kind, "FAULT_STRUCK": str(struck)})
                if status not in (0, 1, -9):
                    raise Loss(f"the backup crashed with {status}: {said}")
                if status == 1 and not said.startswith("pgbp-suite: "):
                    raise Loss(f"a backup fails without a word: {said}")
                if status == 1 and kind in ("enospc", "full") and "does not know" in said:
                    raise Loss(f"the message for a full disk does not name the disk: {said}")
                if not struck.exists():
                    return "not reached"
                struck.unlink()
                return self.judge_backups(practice, first, [old], status, said)

            return disturb

        def kill(delay):
            def disturb(practice):
                process = subprocess.Popen([practice.suite, "--program-folder", practice.folder, "backup"],
                                           stdout=subprocess.DEVNULL)
                time.sleep(delay)
                process.kill()
                return self.judge_backups(practice, first, [old], process.wait(), "")

            return disturb

        def write_meanwhile(practice):
            session = self.start(practice)
            session.do_all(save.opening)
            backup = subprocess.Popen([practice.suite, "--program-folder", practice.folder, "backup"], text=True,
                                      stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            time.sleep(self.random.random() * longest)
            session.send([*save.saving, "cross\n"])
            said, _ = backup.communicate()
            status = backup.returncode
            session.end()
            if status != 0:
                raise Loss(f"a backup fails beside a writer: {said}")
            outcome = "old"
            for backup in practice.backups() - {first}:
                outcome = hold_against(practice.restored(backup, practice.folder.with_suffix(".restored")), old, new)
            hold_against(practice.state(), new, new)
            return outcome

        calls = 1
        while on_copy(fail("enospc", calls)) not in ("not reached", "LOST"):
            calls += 8
        places = range(1, calls)
        if self.is_short:
            places = sorted(self.random.sample(places, 6))
        # the calls of a copy are much alike, page by page
        rounds = [(kind, fail(kind, at)) for kind, every, from_ in KINDS
                  for at in (places if self.is_short else places[from_::8 * every])]
        rounds += [("killed at random", kill(self.random.random() * longest)) for _ in range(15 if self.is_short else 200)]
        rounds += [("while one saves", write_meanwhile) for _ in range(5 if self.is_short else 50)]
        table = collections.defaultdict(collections.Counter)
        for kind, outcome in pool.map(lambda each: (each[0], on_copy(each[1])), rounds):
            table[kind][outcome] += 1
        print(f"a backup: about {calls} calls that change a file")
        for kind, found in table.items():
            print(f"  {kind:<18}" + "   ".join(f"{count} {outcome}" for outcome, count in sorted(found.items())))

    # several at once

    def write_at_once(self, saves, count):
        """Each writer has a client of its own; all of them must end with their new rows, as if they had been alone."""
        practice = self.fresh.copy(self.folder())
        alone = self.fresh.copy(self.folder())
        saves = saves[:count]
        for save in saves:
            for each in (practice, alone):
                each.hand_over(save)
                self.work_undisturbed(each)
        for save in saves:
            alone.hand_over(save)
            self.work_through(alone, save)
        sessions = []
        for save in saves:
            practice.hand_over(save)
            sessions.append(self.start(practice))
            sessions[-1].do_all(save.opening)
        for save, session in zip(saves, sessions):
            session.send([*save.saving, "cross\n"])
        said = [session.end()[1] for session in sessions]
        if practice.state().whole() != alone.state().whole():
            self.losses.append(f"{practice.folder}: {count} writers: " +
                               "\n".join(practice.state().difference(alone.state()) + said))
            return "LOST"
        return "all there"

    # damage

    def damage(self, save, before):
        practice = before.copy(self.folder(), save)
        names = sorted(practice.files())
        path = practice.folder / self.random.choice(names)
        content = bytearray(path.read_bytes())
        way = self.random.choice(("bytes", "cut", "zeros"))
        if way == "cut":
            del content[self.random.randrange(len(content) + 1):]
        elif content:
            at = self.random.randrange(len(content))
            length = self.random.choice((1, 16, 512)) if way == "bytes" else 4096
            end = min(len(content), at + length)
            content[at:end] = bytes(end - at) if way == "zeros" else self.random.randbytes(end - at)
        path.write_bytes(content)
        try:
            status, said = self.work_through(practice, save)
        except Loss as hangs:
            status, said = -1, str(hangs)
        if status not in (0, 1):
            self.losses.append(f"{practice.folder}: {path.name} damaged ({way}): {status} {said}")
            return "LOST"
        shutil.rmtree(practice.folder)
        return "told" if status or "| OK |" in said else "worked"


def main(words):
    is_short = "--short" in words
    programs, library, *names = (word for word in words if word != "--short")
    saves = [Save(path) for path in sorted((HERE / "saves").glob("*.txt")) if not names or path.stem in names]
    memory = pathlib.Path("/dev/shm")  # where a flush costs nothing
    work = pathlib.Path(tempfile.mkdtemp(prefix="faults-", dir=memory if os.access(memory, os.W_OK) else None))
    attack = Attack(pathlib.Path(programs).resolve(), pathlib.Path(library).resolve(), work, is_short)
    began = time.monotonic()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for save in saves:
            attack.attack(save, pool)
        saves = saves or [Save(HERE / "saves" / "new-line.txt")]
        if not names or "backup" in names:
            attack.attack_backup(saves[0], pool)
        for count in (2, 4):
            if count <= len(saves):
                found = collections.Counter(attack.write_at_once(saves, count) for _ in range(1 if is_short else 20))
                print(f"{count} writers at once: " + "   ".join(f"{n} {outcome}" for outcome, n in found.items()))
        before, _, _ = attack.prepare(saves[0])
        found = collections.Counter(pool.map(lambda _: attack.damage(saves[0], before), range(8 if is_short else 1000)))
        print("damaged files: " + "   ".join(f"{n} {outcome}" for outcome, n in sorted(found.items())))
    print(f"{time.monotonic() - began:.0f} s")
    if attack.losses:
        print(f"{len(attack.losses)} LOSSES, the first of them:\n" + "\n".join(attack.losses[:5]))
        return 1
    shutil.rmtree(work)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
