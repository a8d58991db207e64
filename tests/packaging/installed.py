#!/usr/bin/env python3
"""Installs the package into a clean root and does a preparer's first day there. Usage: installed.py PACKAGE WORK

PACKAGE is the .deb, or the folder it lies in. The root, WORK/root, holds the files of the packages that the package
depends on, and of those that they depend on, as they are on this computer, and nothing else: neither the sources nor
the build, nor a library that happens to be here. dpkg installs into it, as on a real system, so an undeclared
dependency, a compiled-in path or a forgotten file shows. The programs run there without network, with bubblewrap."""

import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import sys

HOME = "/home/preparer"
NOT_NEEDED = re.compile(r"/usr/share/(doc|man|info|locale|lintian|gtk-doc|bug)/|/usr/lib/[^/]+/dri/")
SCENARIOS = pathlib.Path(__file__).resolve().parent.parent / "scenarios"
STORIES = ["firm-head-of-income", "statement-bad-debts", "presumptive-shop"]
FIRM = "1003r2023-24"  # what the first of them computes


def packages_here():
    """The packages that are installed: name to fields, provided names included."""
    found = {}
    for stanza in pathlib.Path("/var/lib/dpkg/status").read_text().split("\n\n"):
        fields = dict(re.findall(r"^([A-Z][\w-]*): (.*(?:\n .*)*)", stanza, flags=re.M))
        if fields.get("Status") != "install ok installed":
            continue
        fields["stanza"] = stanza
        found[fields["Package"]] = fields
        for provided in names_in(fields.get("Provides", "")):
            found.setdefault(provided[0], fields)
    return found


def names_in(relation):
    """A field of dependencies: for each the names of which one is enough."""
    return [[re.split(r"[ :(]", each.strip(), maxsplit=1)[0] for each in group.split("|")]
            for group in relation.split(",") if group.strip()]


def needed_by(depends, here):
    """All packages that lead on from there, as a fresh installation would bring them."""
    needed, open_ends = {}, names_in(depends)
    while open_ends:
        names = open_ends.pop()
        package = next((here[name] for name in names if name in here), None)
        assert package, f"none of {names} is installed here: tools/setup.sh brings what the tests need"
        if package["Package"] not in needed:
            needed[package["Package"]] = package
            open_ends += names_in(package.get("Depends", "")) + names_in(package.get("Pre-Depends", ""))
    return needed.values()


def copy_files(package, root):
    info = pathlib.Path("/var/lib/dpkg/info")
    listed = info / f"{package['Package']}:{package['Architecture']}.list"
    if not listed.exists():
        listed = info / f"{package['Package']}.list"
    for line in listed.read_text().splitlines():
        if NOT_NEEDED.search(line) or not os.path.lexists(line):
            continue
        parent, name = os.path.split(line)
        place = root / os.path.realpath(parent)[1:] / name
        if os.path.islink(line):
            place.parent.mkdir(parents=True, exist_ok=True)
            if not os.path.lexists(place):
                place.symlink_to(os.readlink(line))
        elif os.path.isfile(line):
            place.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(line, place)


class CleanRoot:
    def __init__(self, root, packages):
        self.root = root
        for folder in ("usr/bin", "usr/sbin", "usr/lib", "usr/lib64", "var/lib/dpkg/info", "var/lib/dpkg/updates",
                       "etc", "tmp", "dev", "proc", HOME[1:]):
            (root / folder).mkdir(parents=True)
        for name in ("bin", "sbin", "lib", "lib64"):
            (root / name).symlink_to(f"usr/{name}")
        for package in packages:
            copy_files(package, root)
        (root / "var/lib/dpkg/status").write_text("".join(f"{each['stanza'].strip()}\n\n" for each in packages))

    def dpkg(self, *words):
        """dpkg of this computer works on the root; it wants to be root, or to believe it."""
        believes = [] if os.geteuid() == 0 else ["unshare", "--map-root-user"]
        environment = {**os.environ, "PATH": f"{os.environ['PATH']}:/usr/sbin:/sbin", "LC_ALL": "C"}
        done = subprocess.run([*believes, "dpkg", f"--root={self.root}", *words], env=environment, text=True,
                              capture_output=True)
        assert done.returncode == 0, f"dpkg {' '.join(map(str, words))}: {done.stdout}{done.stderr}"

    def run(self, *words, script="", status=0, **environment):
        """Runs a program in the root as somebody who may write in the home folder alone; gives what it printed."""
        variables = {"HOME": HOME, "PATH": "/usr/bin", "LC_ALL": "C.UTF-8", **environment}
        box = ["bwrap", "--unshare-all", "--die-with-parent", "--clearenv", "--uid", "1000", "--gid", "1000",
               "--ro-bind", self.root, "/", "--bind", self.root / HOME[1:], HOME, "--proc", "/proc", "--dev", "/dev",
               "--tmpfs", "/tmp", "--chdir", HOME]
        for name, value in variables.items():
            box += ["--setenv", name, value]
        done = subprocess.run([*box, *words], input=script, text=True, capture_output=True, timeout=120)
        said = done.stdout + done.stderr
        assert done.returncode == status, f"{' '.join(words)}: status {done.returncode}\n{said}"
        return said

    def home(self, name):
        return self.root / HOME[1:] / name

    def names(self):
        return {str(path.relative_to(self.root)) for path in self.root.rglob("*") if not path.is_dir()}


def sums_of(folder):
    return {path: hashlib.sha256(path.read_bytes()).digest() for path in sorted(folder.rglob("*")) if path.is_file()}


def check_files(clean, before):
    """What the package put where."""
    there = clean.names() - before
    wrong = {name for name in there if not re.match(r"usr/(bin/pgbp|share/(pgbp|doc/pgbp)/|share/.*/pgbp)", name)
             and not name.startswith("var/lib/dpkg/")}
    assert not wrong, f"files out of their place: {sorted(wrong)}"
    entry = (clean.root / "usr/share/applications/pgbp.desktop").read_text()
    program, icon = (re.search(rf"^{key}=(\S+)", entry, flags=re.M)[1] for key in ("Exec", "Icon"))
    assert f"usr/bin/{program}" in there
    icons = {name for name in there if pathlib.Path(name).stem == icon and "/icons/" in name}
    assert {pathlib.Path(name).suffix for name in icons} == {".png", ".svg"}, icons
    data = SCENARIOS.parent.parent / "data"
    wanted = {f"usr/share/pgbp/{path.relative_to(data)}" for path in data.rglob("*")
              if path.is_file() and path.name != "README.md"}
    assert wanted == {name for name in there if name.startswith("usr/share/pgbp/")}
    for program in (name.removeprefix("usr/bin/") for name in there if name.startswith("usr/bin/")):
        assert f"usr/share/man/man1/{program}.1.gz" in there, f"{program} has no page"
        clean.run(program, "--help")  # and has all its libraries
    subprocess.run(["desktop-file-validate", clean.root / "usr/share/applications/pgbp.desktop"], check=True)


def first_day(clean):
    """A practice is made, clients are handed over, computed without a window, reported, backed up and restored."""
    clean.run("pgbp-suite", "new", "practice")
    for story in STORIES:
        script = (SCENARIOS / f"{story}.txt").read_text()
        clean.run("pgbp-suite", "handover", *re.search(r"^#! handover (.*)$", script, flags=re.M)[1].split())
        clean.run("pgbp-drive", "--program-folder", "practice", script=script)
    shown = clean.run("pgbp-suite", "show", FIRM)
    assert "13,08,131.00" in shown.splitlines()[-1], shown
    report_of_firm(clean)
    assert "All agrees." in clean.run("pgbp-suite", "check", FIRM)
    clean.run("pgbp-suite", "report", FIRM, "--pdf", "reports")
    pdf, = clean.home("reports").glob("*.pdf")
    text = subprocess.run(["pdftotext", "-layout", pdf, "-"], check=True, text=True, capture_output=True).stdout
    assert "13,08,131.00" in text, text
    clean.run("pgbp-suite", "--picture", "chooser.png")  # with platform and icon of the window
    assert clean.home("chooser.png").stat().st_size > 20000
    made = clean.run("pgbp-suite", "backup")
    name = re.search(r"backup (\S+) is made", made)[1]
    clean.run("pgbp-suite", "restore", name, "restored")
    assert clean.run("pgbp-suite", "--program-folder", "restored", "show", FIRM) == shown


def report_of_firm(clean):
    """As the module asks for it: by the practice's link, on what was handed over."""
    clean.run("pgbp-suite", "handover", FIRM)
    report = clean.run(f"{HOME}/practice/VornRep.exe", "--text")
    assert "13,08,131.00" in report, report


def older_version_goes(clean, package):
    """A practice of a version that lies elsewhere goes on with this one when that is gone, and when it is not."""
    older = clean.root / "opt/older"
    older.mkdir(parents=True)
    subprocess.run(["dpkg-deb", "-x", package, older], check=True)
    shutil.rmtree(clean.home("practice"))
    clean.run("/opt/older/usr/bin/pgbp-suite", "new", "practice")
    link = clean.home("practice/VornRep.exe")
    assert os.readlink(link) == "/opt/older/usr/bin/pgbp-report", os.readlink(link)
    clean.run("pgbp-suite", "handover", FIRM)
    assert os.readlink(link) == "/usr/bin/pgbp-report", os.readlink(link)
    clean.run("/opt/older/usr/bin/pgbp-suite", "handover", FIRM)
    shutil.rmtree(older)
    report_of_firm(clean)


def removed(clean, before):
    practice = sums_of(clean.home("practice"))
    clean.dpkg("--purge", "pgbp")
    assert sums_of(clean.home("practice")) == practice
    left = {name for name in clean.names() - before if not name.startswith((HOME[1:], "var/lib/dpkg/"))}
    assert not left, f"left behind: {sorted(left)}"


def main():
    package, work = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    if package.is_dir():
        package = max(package.glob("*.deb"), key=lambda each: each.stat().st_mtime)
    shutil.rmtree(work, ignore_errors=True)
    depends = subprocess.run(["dpkg-deb", "-f", package, "Depends"], check=True, text=True, capture_output=True).stdout
    clean = CleanRoot(work / "root", needed_by(depends, packages_here()))
    before = clean.names()
    clean.dpkg("--install", package)
    check_files(clean, before)
    first_day(clean)
    older_version_goes(clean, package)
    removed(clean, before)
    shutil.rmtree(work)
    print(f"{package.name} works in a root of its own")


if __name__ == "__main__":
    main()
