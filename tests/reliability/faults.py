#!/usr/bin/env python3
"""Attacks the files of a practice while the programs work on them.
Usage: faults.py [--short] PROGRAMS LIBRARY [SAVE... | backup | restore | writers | damage]

Each file of saves/ is a way to change the data: who is handed over ("#! handover CODE ..."), and commands of
pgbp-drive, behind "#! save" those that write; $samples is the folder of the sample trial balances. A message on the way
there makes the person leave, as one behind it does. The practice is what it was before them (old) or what it is after
them (new). Whatever happens on the way, its rows must be those of the one or the other, the head of income must be the
old one or agree with the rows, and the next start must work and end in old or new to the last row.

A backup is attacked in the same ways, and made while a writer saves: the one that stood before still counts and gives
its rows, and whatever counts besides gives, restored, the old rows or the new ones. A restore is attacked too: the new
folder is there with all its files and rows, or it is not there and the next restore makes it.

Tried: each call that changes a file fails in turn, for a while or for good, or is the last one of the process; the
process is killed at random moments; several processes write at once; bytes of a file are changed. The figures are
printed; any loss fails, and leaves the practice in which it was seen until the next run.

A disk that is full for one call is tried at each call. The other ways to fail take turns, each at every fourth call,
since two calls in a row mostly differ in the page that they write; but each way is tried at the first and at the last
call of each name on each file, so that no kind of call is left out of any way. A backup and a restore write file after
file, page after page, to where nobody looks before the last step: of calls that are alike in a row, the first, the
last and every sixteenth between them stand for all. A folder that looks to the byte like one that was judged is not
judged again. The short form draws some of all these and leaves nothing else out."""

import collections
import os
import pathlib
import random
import shutil
import subprocess
import sys
import time

from practice import Loss, Practice, Save, Session, hold_against
from work import ERROR_LOG, Workers, WorkFolder, contents, without_made_up

SAVES = pathlib.Path(__file__).resolve().parent / "saves"
# how a call fails, and by which turns: at every so many calls, from which on
KINDS = (("enospc", 1, 0), ("kill", 4, 0), ("eio", 4, 1), ("full", 4, 2), ("short", 4, 3), ("torn", 4, 2))
DEADLY = ("kill", "torn")
IN_A_ROW = 16
BY_PRODUCTS = {ERROR_LOG, "client/checked.ini", "server/pgbp.lock"}
BACKUPS = "backups"  # folder in the practice
RESTORED = "restored"  # beside it
# of a backup, the files that are others in what it gives: the place of the hand-over and of the books is in them
TELLING_THE_PLACE = ("backup.txt", "Drive.txt", "server/company.mdb")
PROGRAMS = ("pgbp-suite", "pgbp-drive", "pgbp-audit-reader", "pgbp-books-link", "pgbp-report")
OTHER_ATTACKS = ("backup", "restore", "writers", "damage")


def of_a_row(calls):
    """Where the calls are that stand for those like them, from 1."""
    begins, places = 0, []
    for at, call in enumerate(calls):
        if at == 0 or call != calls[at - 1]:
            begins = at
        is_last = at + 1 == len(calls) or calls[at + 1] != call
        if is_last or (at - begins) % IN_A_ROW == 0:
            places.append(at + 1)
    return places


def by_turns(calls, places, every, first):
    """Each so many of the places, and the first and the last of each name and file."""
    ends = {calls[at - 1]: at for at in places}
    begins = {calls[at - 1]: at for at in reversed(places)}
    return sorted({*places[first::every], *begins.values(), *ends.values()})


def spread(count, longest):
    """Random moments over all of the time."""
    return [(number + random.random()) / count * longest for number in range(count)]


class Attack:
    def __init__(self, programs, failing_calls, work, is_short):
        self.work, self.is_short = work, is_short
        self.copies = work.path / "copies"  # what is needed for one attack
        self.number = 0
        self.losses = []
        self.tries = collections.Counter()
        self.environment = {**os.environ, "ASAN_OPTIONS": "verify_asan_link_order=0:detect_leaks=0"}
        self.programs = work.path / "programs"  # those of the build may be linked anew meanwhile
        self.programs.mkdir()
        for name in PROGRAMS:
            shutil.copy2(programs / name, self.programs)
        self.failing_calls = pathlib.Path(shutil.copy2(failing_calls, self.programs))
        self.fresh = Practice(work.path / "fresh", self.programs / "pgbp-suite")
        subprocess.run([programs / "pgbp-suite", "new", self.fresh.folder], check=True, stdout=subprocess.DEVNULL)

    # runs of the programs

    def folder(self):
        self.number += 1
        return self.copies / str(self.number)

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

    def faulty(self, folder, kind, at, struck):
        return {"LD_PRELOAD": str(self.failing_calls), "FAULT_FOLDER": str(folder), "FAULT_AT": str(at),
                "FAULT_KIND": kind, "FAULT_STRUCK": str(struck)}

    def calls(self, run, folder):
        """Name and file of each call that changes something below the folder."""
        listed = self.work.path / "calls"
        run(self.faulty(folder, "list", 0, listed))
        calls = without_made_up(listed.read_text()).splitlines()
        listed.unlink()
        return calls

    def fail_calls(self, calls, places, attempt):
        """Rounds that fail them, each way by its turns."""
        return [(kind, attempt(kind, at)) for kind, every, first in KINDS
                for at in (random.sample(places, min(3, len(places))) if self.is_short
                           else by_turns(calls, places, every, first))]

    def duration(self, run):
        began = time.monotonic()
        run()
        return 1.2 * (time.monotonic() - began)

    def run_rounds(self, title, prototype, make_ready, rounds):
        self.copies.mkdir(exist_ok=True)
        began = time.monotonic()
        table = collections.defaultdict(collections.Counter)
        for kind, outcome, words in Workers(self.work, prototype, make_ready, rounds).outcomes():
            table[kind][outcome] += 1
            self.tries[kind] += 1
            if words:
                self.losses.append(words)
        print(f"{title}: {len(rounds)} tries in {time.monotonic() - began:.0f} s")
        for kind, found in table.items():
            print(f"  {kind:<18}" + "   ".join(f"{count} {outcome}" for outcome, count in sorted(found.items())))
        sys.stdout.flush()
        shutil.rmtree(self.copies)

    # one save

    def prepare(self, save):
        """The practice before it, settled by a run that changes nothing, and the states before and after it."""
        before = self.fresh.copy(self.folder(), save)
        for _ in range(2):
            self.work_undisturbed(before)
        after = before.copy(self.folder(), save)
        status, said = self.work_through(after, save)
        old, new = before.state(), after.state()
        shutil.rmtree(after.folder)
        if old.others == new.others:  # the head may stay: a return has more than its head of income
            raise Loss(f"{save.name} changes nothing: {said} {status}")
        return before, old, new

    def judge(self, slot, old, new, is_read_first):
        """What became of the practice, with the files left over; whether the next start lives with them."""
        practice = slot.practice
        if not is_read_first:
            self.work_undisturbed(practice, leaves=False)
        found = hold_against(practice.state(), old, new)
        self.work_undisturbed(practice)
        wanted = old if found == "old" else new
        settled = practice.state()
        if settled.whole() != wanted.whole():
            raise Loss("the next run does not put the rest right: " + "\n".join(settled.difference(wanted)))
        return " ".join([found, *slot.new_names(BY_PRODUCTS)])

    def judged(self, slot, old, new):
        is_read_first = random.random() < 0.5  # by the next reader of the files, else by the module itself
        return slot.judge(is_read_first, lambda: self.judge(slot, old, new, is_read_first))

    def fail_call(self, save, old, new):
        def at_call(kind, at):
            def attempt(slot):
                status, said = self.work_through(slot.practice, save,
                                                 self.faulty(slot.practice.folder, kind, at, slot.struck))
                if status not in (0, 1, -9):
                    raise Loss(f"the module crashed with {status}: {said}")
                if status == -9 and kind not in DEADLY:
                    raise Loss("the module was killed")
                return self.judged(slot, old, new) if slot.struck.exists() else "not reached"

            return attempt

        return at_call

    def kill(self, save, old, new, delay):
        def attempt(slot):
            session = self.start(slot.practice)
            session.do_all(save.opening)
            session.send([*save.saving, "cross\n"])
            time.sleep(delay)
            session.process.kill()
            session.end()
            return self.judged(slot, old, new)

        return attempt

    def attack(self, save):
        before, old, new = self.prepare(save)

        def under_fire():
            session.send([*save.saving, "cross\n"])
            session.end()

        session = self.start(before.copy(self.folder(), save))
        session.do_all(save.opening)
        longest = self.duration(under_fire)
        copy = before.copy(self.folder(), save)
        calls = self.calls(lambda more: self.work_through(copy, save, more), copy.folder)
        rounds = self.fail_calls(calls, range(1, len(calls) + 1), self.fail_call(save, old, new))
        rounds += [("killed at random", self.kill(save, old, new, delay))
                   for delay in spread(25 if self.is_short else 200, longest)]
        self.run_rounds(f"{save.name}, {len(calls)} calls that change a file", before,
                        lambda practice: practice.hand_over(save), rounds)

    # a backup and its restore

    def suite_under_faults(self, slot, folder, kind, at, words):
        """Exit status and what was said; nothing when the call was not reached."""
        status, said = slot.practice.run_suite(
            *words, environment={**self.environment, **self.faulty(folder, kind, at, slot.struck)})
        if status not in (0, 1, -9):
            raise Loss(f"{words} crashed with {status}: {said}")
        if status == 1 and not said.startswith("pgbp-suite: "):
            raise Loss(f"{words} fails without a word: {said}")
        if status == 1 and kind in ("enospc", "full") and "does not know" in said:
            raise Loss(f"the message for a full disk does not name the disk: {said}")
        return (status, said) if slot.struck.exists() else None

    def suite_killed(self, slot, delay, words):
        process = subprocess.Popen([slot.practice.suite, "--program-folder", slot.practice.folder, *words],
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(delay)
        process.kill()
        return process.wait(), ""

    def attack_suite(self, title, before, make_ready, folder_of, words_of, judge):
        """Faults of a command's own calls, and kills; rounds that the caller may add to."""
        practice = before.copy(self.folder())
        make_ready(practice)
        longest = self.duration(lambda: practice.run_suite(*words_of(practice)))
        practice = before.copy(self.folder())
        make_ready(practice)
        calls = self.calls(lambda more: practice.run_suite(*words_of(practice),
                                                           environment={**self.environment, **more}),
                           folder_of(practice))

        def fail(kind, at):
            def attempt(slot):
                ended = self.suite_under_faults(slot, folder_of(slot.practice), kind, at, words_of(slot.practice))
                return judge(slot, *ended) if ended else "not reached"

            return attempt

        def kill(delay):
            return lambda slot: judge(slot, *self.suite_killed(slot, delay, words_of(slot.practice)))

        rounds = self.fail_calls(calls, of_a_row(calls), fail)
        rounds += [("killed at random", kill(delay)) for delay in spread(15 if self.is_short else 200, longest)]
        return f"{title}, {len(calls)} calls that change a file", rounds, longest

    def judge_backups(self, practice, first, old, status, said):
        """What became of the backup made behind the first one; whether the next one lives with what is left."""
        counting = practice.backups()
        if first not in counting:
            raise Loss(f"the earlier backup is gone: {said}")
        made = counting - {first}
        if status == 0 and not made:
            raise Loss(f"it was told that one was made, and none counts: {said}")
        for backup in sorted(counting):
            whole = practice.restored(backup, practice.folder.with_name(RESTORED)).whole()
            if whole != old.whole():
                raise Loss(f"{backup} has other rows: {whole - old.whole()} {old.whole() - whole}")
        status, said = practice.run_suite("backup")
        if status != 0:
            raise Loss(f"the next backup fails: {said}")
        left = [path.name for path in (practice.folder / BACKUPS).iterdir() if path.name.endswith(".new")]
        if left or len(practice.backups()) != len(counting) + 1:
            raise Loss(f"the next backup left {left} and {practice.backups()}")
        return "made" if made else "none"

    def make_backup_ready(self, save):
        """With a backup of its own: those of another practice do not count."""
        def make_ready(practice):
            practice.hand_over(save)
            status, said = practice.run_suite("backup")
            if status != 0:
                raise Loss(f"no first backup: {said}")

        return make_ready

    def write_beside_backup(self, save, old, new, delay):
        def attempt(slot):
            practice = slot.practice
            (first,) = practice.backups()
            session = self.start(practice)
            session.do_all(save.opening)
            backup = subprocess.Popen([practice.suite, "--program-folder", practice.folder, "backup"], text=True,
                                      stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            time.sleep(delay)
            session.send([*save.saving, "cross\n"])
            said, _ = backup.communicate()
            session.end()
            if backup.returncode != 0:
                raise Loss(f"a backup fails beside a writer: {said}")
            if len(practice.backups()) != 2:
                raise Loss(f"of two backups these count: {practice.backups()}")
            (made,) = practice.backups() - {first}
            outcome = hold_against(practice.restored(made, practice.folder.with_name(RESTORED)), old, new)
            hold_against(practice.state(), new, new)
            return outcome

        return attempt

    def attack_backup(self, save):
        before, old, new = self.prepare(save)

        def judge(slot, status, said):
            first = min(name for name in os.listdir(slot.practice.folder / BACKUPS) if name.endswith("-1"))
            return slot.judge(status, lambda: self.judge_backups(slot.practice, first, old, status, said))

        make_ready = self.make_backup_ready(save)
        title, rounds, longest = self.attack_suite("a backup", before, make_ready, lambda practice: practice.folder,
                                                   lambda _: ["backup"], judge)
        rounds += [("while one saves", self.write_beside_backup(save, old, new, delay))
                   for delay in spread(5 if self.is_short else 50, longest)]
        self.run_rounds(title, before, make_ready, rounds)

    def judge_restored(self, slot, save, old, place_of, words_of, status, said):
        """Whether the new folder is there and whole; where it is not, the next restore must make it."""
        made = Practice(place_of(slot.practice), slot.practice.suite)
        is_there = made.folder.exists()
        if status == 0 and not is_there:
            raise Loss(f"it was told that the practice was restored, and it is not there: {said}")
        words = words_of(slot.practice)
        if not is_there:
            again, words_said = slot.practice.run_suite(*words)
            if again != 0:
                raise Loss(f"the next restore fails: {words_said}")
        there = contents(made.folder)
        for name, content in contents(slot.path(BACKUPS) / words[1]).items():
            if name not in TELLING_THE_PLACE and there.get(name) != content:
                raise Loss(f"{name} is not what it is in the backup")
        if slot.changed():
            raise Loss(f"the practice of the backup was changed: {slot.changed()}")
        for _ in range(2):
            state = made.state()
            if state.whole() != old.whole():
                raise Loss("other rows are restored: " + "\n".join(state.difference(old)))
            made.hand_over(save)
            self.work_undisturbed(made)
        is_aside = any(path.name.endswith(".new") for path in slot.folder.iterdir())
        return ("there" if is_there else "not there") + (", a part aside" if is_aside else "")

    def attack_restore(self, save):
        before, old, _ = self.prepare(save)

        def place_of(practice):
            return practice.folder.with_name(practice.folder.name + "-" + RESTORED)

        def words_of(practice):
            (backup,) = practice.backups()
            return ["restore", backup, place_of(practice)]

        def judge(slot, status, said):
            return slot.judge(status, lambda: self.judge_restored(slot, save, old, place_of, words_of, status, said))

        make_ready = self.make_backup_ready(save)
        title, rounds, _ = self.attack_suite("a restore", before, make_ready, place_of, words_of, judge)
        self.run_rounds(title, before, make_ready, rounds)

    # several at once

    def write_at_once(self, saves):
        """Each writer has a client of its own; all of them must end with their new rows, as if they had been alone."""
        def make_ready(practice):
            for save in saves:
                practice.hand_over(save)
                self.work_undisturbed(practice)

        alone = self.fresh.copy(self.folder())
        make_ready(alone)
        for save in saves:
            alone.hand_over(save)
            self.work_through(alone, save)
        wanted = alone.state()

        def attempt(slot):
            sessions = []
            for save in saves:
                slot.practice.hand_over(save)
                sessions.append(self.start(slot.practice))
                sessions[-1].do_all(save.opening)
            for save, session in zip(saves, sessions):
                session.send([*save.saving, "cross\n"])
            said = [session.end()[1] for session in sessions]
            state = slot.practice.state()
            if state.whole() != wanted.whole():
                raise Loss("\n".join(state.difference(wanted) + said))
            return "all there"

        self.run_rounds("several writers", self.fresh, make_ready,
                        [(f"{len(saves)} at once", attempt)] * (2 if self.is_short else 20))

    # damage

    def damage(self, save):
        def attempt(slot):
            path = slot.path(random.choice(sorted(slot.kept)))
            content = bytearray(path.read_bytes())
            way = random.choice(("bytes", "cut", "zeros"))
            if way == "cut":
                del content[random.randrange(len(content) + 1):]
            elif content:
                at = random.randrange(len(content))
                length = random.choice((1, 16, 512)) if way == "bytes" else 4096
                end = min(len(content), at + length)
                content[at:end] = bytes(end - at) if way == "zeros" else random.randbytes(end - at)
            path.write_bytes(content)
            status, said = self.work_through(slot.practice, save)
            if status not in (0, 1):
                raise Loss(f"{path.name} damaged ({way}): {status} {said}")
            return "told" if status or "| OK |" in said else "worked"

        before, _, _ = self.prepare(save)
        self.run_rounds("damage", before, lambda practice: practice.hand_over(save),
                        [("damaged files", attempt)] * (8 if self.is_short else 1000))


def attack_all(attack, names):
    saves = [Save(path) for path in sorted(SAVES.glob("*.txt"))]
    wants = lambda name: not names or name in names
    for save in saves:
        if wants(save.name):
            attack.attack(save)
    if wants("backup"):
        attack.attack_backup(saves[0])
    if wants("restore"):
        attack.attack_restore(saves[0])
    if wants("writers"):
        for count in (2, 4):
            attack.write_at_once(saves[:count])
    if wants("damage"):
        attack.damage(saves[0])


def main(words):
    is_short = "--short" in words
    programs, library, *names = (word for word in words if word != "--short")
    if unknown := {*names} - {path.stem for path in SAVES.glob("*.txt")} - {*OTHER_ATTACKS}:
        sys.exit(f"faults: no such attack: {', '.join(sorted(unknown))}")
    random.seed(7)
    began = time.monotonic()
    with WorkFolder() as work:
        attack = Attack(pathlib.Path(programs).resolve(), pathlib.Path(library).resolve(), work, is_short)
        attack_all(attack, names)
    tries = "   ".join(f"{count} {kind}" for kind, count in attack.tries.items())
    print(f"{attack.tries.total()} tries in {time.monotonic() - began:.0f} s: {tries}")
    if attack.losses:
        print(f"{len(attack.losses)} LOSSES, the first of them:\n" + "\n".join(attack.losses[:5]))
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
