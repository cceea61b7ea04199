#!/usr/bin/env python3
"""Prints one table from the results of several runs: report.py <results directory>

The directory holds <Program>.<run>.json, as Google Benchmark writes it, Peer.<run>.json of the same form where the peer
was measured, and loads.jsonl, a line a loading in a process of its own. Each ratio is taken within one run; the table
shows its median and its range over the runs.
"""

import datetime
import json
import pathlib
import statistics
import sys

SYNTHETIC = ("500", "5000", "50000")
PLACES = ("sanfrancisco", "chicago", "montevideo")
DRAWN = [f"draw_{ids}" for ids in SYNTHETIC]
RANDOM = [f"random_{ids}" for ids in SYNTHETIC]
UNSTYLED = [f"unstyled_{ids}" for ids in SYNTHETIC]
ALL_SCENES = [*PLACES, *DRAWN, *RANDOM, *UNSTYLED]
COMPARED = [*PLACES, "draw_5000", "random_5000"]  # where a row is for information, these scenes are enough
BUILT = {"theme": "230 rules and 750 ids", "ids_5000": "5,000 ids", "ids_50000": "50,000 ids"}
KILOBYTE = 1024


class Results:
    """The numbers of all runs."""

    def __init__(self, directory):
        self.runs = {}
        for file in sorted(directory.glob("*.json")):
            program = file.name.split(".")[0]
            content = json.loads(file.read_text())
            if "num_cpus" in content["context"]:
                self.context = content["context"]
            self.runs.setdefault(program, []).append({row["name"]: row for row in content["benchmarks"]})
        self.tools = [json.loads(line) for line in (directory / "tools.jsonl").read_text().splitlines()]
        self.loads = [json.loads(line) for line in (directory / "loads.jsonl").read_text().splitlines()]

    def cost_ratios(self, program, dear, cheap):
        """Time an item of one benchmark over that of another, for each run."""
        rate = "items_per_second"
        return [run[cheap][rate] / run[dear][rate] for run in self.runs[program]]

    def peer_ratios(self, scene, program, contender):
        """Time a feature of a contender over that of the peer, for each run."""
        rate = "items_per_second"
        return [peer[f"{scene}/evaluator"][rate] / run[f"{scene}/{contender}"][rate]
                for peer, run in zip(self.runs["Peer"], self.runs[program], strict=True)]

    def counters(self, program, benchmark, counter):
        return [run[benchmark][counter] for run in self.runs[program]]

    def allocations(self):
        return [max(row.get("allocations", 0) for row in run.values())
                for runs in self.runs.values() for run in runs]

    def load(self, kind, files, what):
        """One number of each loading in a process of its own, in the order of the runs."""
        return [load[what] for load in self.loads if (load["kind"], load["files"]) == (kind, files)]

    def tool(self, command, files, what):
        """One number of each run of the tool on files, in the order of the runs."""
        return [run[what] for run in self.tools if (run["command"], run["files"]) == (command, files)]

    def load_ratios(self, files, what):
        return [init / parse for init, parse in zip(self.load("init", files, what), self.load("parse", files, what))]


def ratio_text(value):
    return f"{value:.4f}" if value < 0.05 else f"{value:.3f}" if value < 10 else f"{value:.0f}"


def kilobyte_text(value):
    return f"{value / KILOBYTE:.1f} KB"


class Table:
    """Rows of a name, the values of the runs and the bar that the median must not pass."""

    def __init__(self):
        self.missed = 0
        print("| what | median | min to max | bar | |")
        print("|---|---|---|---|---|")

    def row(self, name, values, bar=None, text=ratio_text):
        median = statistics.median(values)
        verdict = "" if bar is None else "ok" if median <= bar else "MISSED"
        self.missed += verdict == "MISSED"
        bar_text = "" if bar is None else f"{bar:.3g}" if text is ratio_text else text(bar)
        print(f"| {name} | {text(median)} | {text(min(values))} to {text(max(values))} | {bar_text} | {verdict} |")


def query_rows(table, results):
    for scene in ALL_SCENES:
        table.row(f"class style query / literal walk, {scene}",
                  results.cost_ratios("QueryBench", f"{scene}/class", f"{scene}/literal"), 0.15)
    for scene in ALL_SCENES:
        table.row(f"class style query / literal walk, {scene}, by clang++",
                  results.cost_ratios("ClangQueryBench", f"{scene}/class", f"{scene}/literal"), 0.15)
    for scene in COMPARED:
        table.row(f"class icon query / literal walk, {scene}",
                  results.cost_ratios("IconBench", f"{scene}/class", f"{scene}/literal"))


def snapshot_rows(table, results):
    def ratios(scene, contender, yardstick):
        return results.cost_ratios("SnapshotBench", f"{scene}/{contender}", f"{scene}/{yardstick}")

    bars = {**{scene: 1.9 for scene in PLACES}, **{scene: 2.0 for scene in DRAWN}, **{scene: 3.0 for scene in RANDOM}}
    for scene in [*PLACES, *DRAWN, *RANDOM, *UNSTYLED]:
        table.row(f"snapshot query / direct index, {scene}", ratios(scene, "snapshot", "direct"), bars.get(scene))
    for scene in COMPARED:
        table.row(f"snapshot borrow / direct index, {scene}", ratios(scene, "borrow", "direct"),
                  1.3 if scene in PLACES else None)
    for scene in COMPARED:
        table.row(f"snapshot query / bare copy of the record, {scene}", ratios(scene, "snapshot", "copy"))
    for scene in COMPARED:
        table.row(f"snapshot query / class query, {scene}", ratios(scene, "snapshot", "class"))
    for scene in COMPARED:
        table.row(f"snapshot icon query / class icon query, {scene}",
                  results.cost_ratios("IconBench", f"{scene}/snapshot", f"{scene}/class"))


def peer_rows(table, results):
    if "Peer" not in results.runs:
        return
    for scene in PLACES:
        table.row(f"snapshot query / expression evaluator, {scene}",
                  results.peer_ratios(scene, "SnapshotBench", "snapshot"), 1 / 60)
    for scene in PLACES:
        table.row(f"class style query / expression evaluator, {scene}",
                  results.peer_ratios(scene, "QueryBench", "class"), 1)


def build_rows(table, results):
    for size, bar in (("theme", 0.3), ("ids_5000", None), ("ids_50000", None)):
        table.row(f"building the snapshot / Init, {BUILT[size]}",
                  results.cost_ratios("LoadBench", f"load/{size}/snapshot", f"load/{size}/init"), bar)
    table.row("building the snapshot, time per id at 50,000 ids / at 5,000",
              [ratio / 10 for ratio in results.cost_ratios("LoadBench", "load/ids_50000/snapshot",
                                                           "load/ids_5000/snapshot")], 2)
    table.row("indexing 10,000 ids that are chosen to collide / any ids",
              results.cost_ratios("LoadBench", "index/chosen_ids", "index/any_ids"), 2)


def thread_rows(table, results):
    # Each of two threads asks every question, so together they ask twice as many.
    def ratios(scene, yardstick, factor):
        shared, base = f"{scene}/shared/real_time/threads:2", f"{scene}/{yardstick}"
        return [factor * ratio for ratio in results.cost_ratios("SharingBench", shared, base)]

    for scene in COMPARED:
        table.row(f"two threads on one snapshot / on two copies, {scene}",
                  ratios(scene, "own/real_time/threads:2", 1), 1.1)
    for scene in COMPARED:
        table.row(f"two threads on one snapshot / one thread, {scene}", ratios(scene, "one/real_time", 2))


def load_rows(table, results):
    for size in ("rules_100", "rules_10000", "ids_50000"):
        table.row(f"Init / (read + parse + delete), {size}, in one process",
                  results.cost_ratios("LoadBench", f"load/{size}/init", f"load/{size}/parse"))
    for files, bar in (("rules_10000", None), ("rules_100000", 1.5), ("rules_1000000", 1.5), ("ids_1000000", None)):
        table.row(f"Init / (read + parse + delete), {files}, fresh process", results.load_ratios(files, "seconds"), bar)
    table.row("Init, time per rule at 1,000,000 rules / at 10,000",
              [many / few / 100 for many, few in zip(results.load("init", "rules_1000000", "seconds"),
                                                     results.load("init", "rules_10000", "seconds"))], 1.3)
    table.row("peak memory of Init / of text and tree, 1,000,000 rules",
              results.load_ratios("rules_1000000", "peak_kb"), 1.1)


def object_rows(table, results):
    table.row("construct + destroy / 1,314 empty maps and two name tables",
              results.cost_ratios("ConstructBench", "construct/class", "construct/standard_maps"), 1.2)
    table.row("heap allocations in any query", results.allocations(), 0, lambda count: f"{count:.0f}")
    table.row("object size", results.counters("ConstructBench", "construct/class", "bytes"), 64 * KILOBYTE,
              kilobyte_text)
    for store in ("example", *SYNTHETIC):
        ids = results.counters("SnapshotBench", f"size/{store}", "ids")[0]
        table.row(f"snapshot size, {store} ({ids:.0f} ids)",
                  results.counters("SnapshotBench", f"size/{store}", "bytes"), 64 * ids + 160 * KILOBYTE, kilobyte_text)


def tool_rows(table, results):
    def seconds(value):
        return f"{value:.2f} s"

    # On two processors; a slower machine has to allow for it.
    for files, bar in (("rules_5000", 2), ("rules_15000", 6), ("rules_50000", 20)):
        check, dump = results.tool("check", files, "seconds"), results.tool("dump", files, "seconds")
        table.row(f"check with all proofs, {files}", check, bar, seconds)
        table.row(f"check / dump, {files}", [long / short for long, short in zip(check, dump)])
        table.row(f"peak memory of check, {files}",
                  [KILOBYTE * peak for peak in results.tool("check", files, "peak_kb")], 200_000 * KILOBYTE,
                  kilobyte_text)
    table.row("minify --mapping, rules_5000", results.tool("minify", "rules_5000", "seconds"), 5, seconds)
    table.row("minify / dump, rules_5000",
              [long / short for long, short in zip(results.tool("minify", "rules_5000", "seconds"),
                                                   results.tool("dump", "rules_5000", "seconds"))])
    for what in ("check", "check_broken"):
        times = [1 / run[f"{what}/200"]["items_per_second"] for run in results.runs["StudyBench"]]
        table.row(f"{what} after an edit, 200 rules", times, 0.03, lambda value: f"{1000 * value:.1f} ms")
    table.row("check / load, 200 rules", results.cost_ratios("StudyBench", "check/200", "load/200"))


def processor_name():
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return line.split(":")[1].strip()
    return "unknown processor"


def main():
    results = Results(pathlib.Path(sys.argv[1]))
    runs = len(results.runs["QueryBench"])
    print(f"{datetime.date.today()}, {processor_name()}, {results.context['num_cpus']} processors, {runs} runs\n")
    table = Table()
    for rows in (query_rows, snapshot_rows, peer_rows, build_rows, thread_rows, load_rows, tool_rows, object_rows):
        rows(table, results)
    print(f"\n{table.missed} of the bars missed" if table.missed else "\nall bars reached")


if __name__ == "__main__":
    main()
