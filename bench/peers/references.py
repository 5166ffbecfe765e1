#!/usr/bin/env python3
"""Time references beside plain values, in turns: the same script, with "=" in the place of "&=",
but for R2, which stands beside R1P: in its order plain values would be errors.

  references.py PROGRAM [ROUNDS]

Prints, for each workload of ROWS (see gen_workloads.py), the median of the processor
time and that of the ratios within the rounds; and of the chain how long it takes to build, and then to
change its base and read its end, by itself.
"""
import os, statistics, sys, tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import gen_workloads as G

# workload, size, and the one beside it
ROWS = [("R1", 100_000, "R1P"), ("R1", 1_000_000, "R1P"), ("R2", 100_000, "R1P"),
        ("R3", 20_000, "R3P"), ("R4", 100_000, "R4P")]


def run(program, script):
    """milliseconds of processor time"""
    files = [(os.POSIX_SPAWN_OPEN, 0, "/dev/null", os.O_RDONLY, 0),
             (os.POSIX_SPAWN_OPEN, 1, "/dev/null", os.O_WRONLY, 0)]
    pid = os.posix_spawn(program, [program, script], os.environ, file_actions=files)
    _, status, usage = os.wait4(pid, 0)
    if status:
        sys.exit(f"{program} ended with {status}")
    return 1000 * (usage.ru_utime + usage.ru_stime)


def write(folder, name, lines):
    path = os.path.join(folder, name)
    with open(path, "w") as file:
        file.write("\n".join(lines) + "\n")
    return path


def compare(program, rounds, folder, workload, size, plain):
    scripts = [write(folder, w, G.reference_lines(w, size)) for w in (workload, plain)]
    runs = [[run(program, script) for script in scripts] for _ in range(rounds)]
    times = [statistics.median(r[i] for r in runs) for i in range(2)]
    ratio = statistics.median(r[0] / r[1] for r in runs)
    print(f"| {workload}, {size:,} | {times[0]:.1f} ms | {times[1]:.1f} ms | {ratio:.2f} |")


def divide(program, rounds, folder, size):
    lines = G.reference_lines("R1", size)
    scripts = [write(folder, "build", lines[:-2]), write(folder, "all", lines)]
    runs = [[run(program, script) for script in scripts] for _ in range(rounds)]
    built = statistics.median(r[0] for r in runs)
    changed = statistics.median(r[1] - r[0] for r in runs)
    print(f"{size}: built {built:.1f} ms, changed and read {changed:.1f} ms")


def main():
    program = os.path.abspath(sys.argv[1])
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 15
    with tempfile.TemporaryDirectory() as folder:
        print("| | references | plain values | ratio |\n|---|---|---|---|")
        for row in ROWS:
            compare(program, rounds, folder, *row)
        print()
        for size in (1_000, 10_000, 100_000):
            divide(program, rounds, folder, size)


main()
