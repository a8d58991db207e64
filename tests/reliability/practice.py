"""What is attacked: a practice, the saves that change it, the runs of the module on it, the rows that it may have."""

import collections
import hashlib
import pathlib
import shutil
import sqlite3
import subprocess
import threading

HERE = pathlib.Path(__file__).resolve().parent
SAMPLES = HERE.parent / "trial_balance" / "samples"
PATIENCE = 120  # seconds until a process counts as hanging
WORD = "said and done"
KEPT_FILES = ("company", "balance")


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


def digest(content):
    return hashlib.blake2b(content, digest_size=16).digest()


class Practice:
    """A folder with its programs' data. Rows that were read once are known again by the bytes of their files."""

    known = {}

    def __init__(self, folder, suite):
        self.folder, self.suite = folder, suite

    def hand_over(self, save):
        subprocess.run([self.suite, "--program-folder", self.folder, "handover", *save.hand_over], check=True)

    def copy(self, folder, save=None):
        """The hand-over tells where the data is: a copy needs its own."""
        shutil.copytree(self.folder, folder, symlinks=True)
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
        """A file beside which a journal lies is read in any case: its own bytes do not tell the rows."""
        files = [self.folder / "server" / f"{file}.mdb" for file in KEPT_FILES]
        key = None
        if not any(each.with_name(each.name + ending).exists() for each in files for ending in ("-journal", "-wal")):
            key = tuple(digest(each.read_bytes()) for each in files)
        if key and key in self.known:
            return self.known[key]
        state = State({file: self.rows(file) for file in KEPT_FILES})
        if key:
            self.known[key] = state
        return state

    def run_suite(self, *words, environment=None):
        """The exit status and what was said."""
        try:
            ended = subprocess.run([self.suite, "--program-folder", self.folder, *words], text=True, timeout=PATIENCE,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                   env=environment)
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
