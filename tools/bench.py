#!/usr/bin/env python3
"""Runs the benchmarks, each beside its floor, and prints the ratios. Usage: bench.py PROGRAMS [NAME...]"""

import json
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

STARTS = 15


def run_google_benchmark(program):
    out = subprocess.run(
        [program, "--benchmark_format=json", "--benchmark_repetitions=5", "--benchmark_report_aggregates_only=true",
         "--benchmark_enable_random_interleaving=true"],
        check=True, capture_output=True, text=True, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}).stdout
    times = {}
    for result in json.loads(out)["benchmarks"]:
        if result.get("aggregate_name") == "median":
            name = result["run_name"].removesuffix("/real_time")
            times[name] = (result["real_time"], result["time_unit"])
    return times


def print_ratios(times):
    for name, (time, unit) in times.items():
        thing, _, size = name.partition("/")
        if thing.endswith("Floor"):
            continue
        floor = times.get(f"{thing}Floor/{size}" if size else f"{thing}Floor")
        beside = f"floor {floor[0]:>12,.2f} {floor[1]}   ratio {time / floor[0]:6.2f}" if floor else "no floor"
        print(f"{name:<34} {time:>12,.2f} {unit}   {beside}")


def flatness(times):
    for thing in ("Recompute", "OpenList", "WriteHead", "SaveLine", "OpenLine", "Keystroke", "OpenItems", "SaveItems",
                  "SaveStatement", "OpenStatement", "OpenAnnexure", "SaveAnnexure", "ImportYear",
                  "SaveDeemed", "OpenDeemed", "SaveCarriages", "OpenCarriages", "FindFirms", "SaveFirms",
                  "SaveGst", "SaveCommission", "SaveShares", "SaveProfits"):
        small, large = times.get(f"{thing}/1"), times.get(f"{thing}/100000")
        if small and large:
            print(f"{thing:<34} 100,000 assessee-years against 1: {large[0] / small[0]:.2f}")


def start_once(program, practice, *arguments):
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "PGBP_PROGRAM_FOLDER": str(practice),
                   "PGBP_STARTED_AT": str(time.monotonic_ns())}
    out = subprocess.run([program, *arguments], check=True, capture_output=True, text=True, env=environment).stdout
    return [float(number) for number in out.split()]


def start(programs):
    with tempfile.TemporaryDirectory() as folder:
        practice = pathlib.Path(folder) / "practice"
        suite = [programs / "pgbp-suite", "--program-folder", practice]
        subprocess.run([programs / "pgbp-suite", "new", practice], check=True, capture_output=True)
        listed = subprocess.run([*suite, "list"], check=True, capture_output=True, text=True).stdout
        code = next(line.split()[0] for line in listed.splitlines() if " Firm " in line and "2023-24" in line)
        subprocess.run([*suite, "handover", code, "GlLarge=0"], check=True, capture_output=True)
        rounds = [(start_once(programs / "bench_start", practice),
                   start_once(programs / "bench_start", practice, "minimal")) for _ in range(STARTS)]
    for what, unit, at in (("Start", "ms", 0), ("Memory", "kB", 1)):
        ours, floor = (statistics.median(each[side][at] for each in rounds) for side in (0, 1))
        print(f"{what:<34} {ours:>12,.2f} {unit}   floor {floor:>12,.2f} {unit}   ratio {ours / floor:6.2f}")


def run_once(environment, *command):
    began = time.monotonic()
    subprocess.run(command, check=True, capture_output=True, env=environment)
    return (time.monotonic() - began) * 1000


def report(programs):
    """One PDF from the start of the process to its end, and each of all clients of the practice in one process."""
    with tempfile.TemporaryDirectory() as folder:
        practice, pages = pathlib.Path(folder) / "practice", pathlib.Path(folder) / "pages"
        suite = [programs / "pgbp-suite", "--program-folder", practice]
        subprocess.run([programs / "pgbp-suite", "new", practice], check=True, capture_output=True)
        listed = subprocess.run([*suite, "list"], check=True, capture_output=True, text=True).stdout.splitlines()
        codes = [line.split()[0] for line in listed]
        firm = next(line.split()[0] for line in listed if " Firm " in line and "2023-24" in line)
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
        reporter = [programs / "pgbp-report", "--program-folder", practice, "--pdf", pages]
        rounds = [(run_once(environment, *reporter, firm), start_once(programs / "bench_start", practice, "minimal")[0])
                  for _ in range(STARTS)]
        ours, floor = (statistics.median(each[side] for each in rounds) for side in (0, 1))
        print(f"{'Report':<34} {ours:>12,.2f} ms   floor {floor:>12,.2f} ms   ratio {ours / floor:6.2f}")
        many = statistics.median(run_once(environment, *reporter, *codes) for _ in range(5)) / len(codes)
        print(f"{'Report of many':<34} {many:>12,.2f} ms   no floor")


def main():
    programs = pathlib.Path(sys.argv[1])
    wanted = sys.argv[2:] or ["services", "statements", "annexure", "annexure_screen", "workbook", "summary", "computation", "presumptive", "firms", "side_entries",
                                "statement_screen", "statement_window", "backup", "check", "start", "report"]
    for name in wanted:
        print(f"-- {name}", flush=True)
        if name == "start":
            start(programs)
            continue
        if name == "report":
            report(programs)
            continue
        times = run_google_benchmark(programs / f"bench_{name}")
        print_ratios(times)
        flatness(times)


main()
