#!/usr/bin/env python3
"""Time the peers of the calculator, and the calculator itself beside them, on the same work.

  run_peers.py                                      all installed peers, all workloads
  run_peers.py --cmd 'build/mirlow {script}'        adds a candidate ({script}: a script in
                                                    mirlow's syntax); NAME=COMMAND names it;
                                                    may be given several times
  run_peers.py --cmd '...' --peers sol,lua-line     only these peers beside it ('none' for none)
  run_peers.py --workloads W1,W7 --runs 7           only these; counted runs (default 5)
  run_peers.py --sink null|file|pipe                where standard output goes (default null)
  run_peers.py --timeout 30 --json r.json --md r.md
  run_peers.py --tables r.json                      the tables of an earlier run again
  run_peers.py --list                               the peers, and which are installed

Every (workload, size) is measured in rounds, each peer once a round, so that all see the same
noise; medians are quoted, and the ratio to the speed-of-light program is the median of the
ratios within the rounds. One run first, uncounted, whose output is checked against values
computed here (every result line's last number, to a relative 1e-6; W4 only where a vector is
printed on one line). 'refused' in a table = an error message instead of the value.
A peer that needs more than a third of the timeout gets one counted run, not five.
Peak memory is the largest resident size of the process by itself.

Binaries of peers built from elsewhere are looked for in $PEER_BIN (default ~/.cache/mirlow-peers) and
skipped when absent; sol, sol-static, meas and drv-muparser are built there from this folder.
"""
import argparse, json, math, os, re, shutil, statistics, subprocess, sys, tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
import gen_workloads as G

BIN = os.environ.get("PEER_BIN", os.path.expanduser("~/.cache/mirlow-peers"))
PY = "/usr/bin/python3" if os.path.exists("/usr/bin/python3") else sys.executable

SIZES = {"W1": [200_000], "W2": [1_000, 10_000, 100_000, 1_000_000],
         "W3": [100, 1_000, 10_000, 100_000], "W3P": [100, 1_000, 10_000, 100_000],
         "W3L": [100, 1_000, 10_000, 100_000],
         "W4": [10, 100, 1_000, 10_000, 100_000], "W4I": [10_000], "W5": [0],
         "W6": [100_000], "W7": [100_000]}


class Peer:
    def __init__(self, name, dialect, cmd, stdin=False, small=None, skip=(), args=None):
        self.name, self.dialect, self.cmd, self.stdin = name, dialect, cmd, stdin
        self.small = small or {}       # workload -> size used instead (a slow peer)
        self.skip = skip               # workloads it cannot say
        self.args = args or {}         # workload -> further arguments

    def installed(self):
        for a in self.cmd:
            if a.startswith(HERE) and not os.path.exists(a):
                return False
        return shutil.which(self.cmd[0]) is not None


NOVEC = ("W4", "W4I")
PEERS = [
    Peer("true", "calc", ["/bin/true"], skip=tuple(w for w in G.WORKLOADS if w != "W5")),   # fork, exec and exit alone
    Peer("sol", "calc", [f"{BIN}/sol", "{script}"], args={"W4": ["vec"], "W4I": ["vec"]}),
    Peer("sol-static", "calc", [f"{BIN}/sol-static", "{script}"], args={"W4": ["vec"], "W4I": ["vec"]}),
    Peer("tinyexpr", "calc", [f"{BIN}/drv-tinyexpr", "{script}"], skip=NOVEC),
    Peer("muparser", "calc", [f"{BIN}/drv-muparser", "{script}"], skip=NOVEC),
    Peer("exprtk", "calc", [f"{BIN}/drv-exprtk", "{script}"], skip=NOVEC),
    Peer("lua-file", "lua", ["lua5.4", "{script}"], skip=NOVEC),
    Peer("lua-line", "calc", ["lua5.4", f"{HERE}/drv_line.lua", "{script}"], skip=NOVEC),
    Peer("luajit-file", "lua", ["luajit", "{script}"], skip=NOVEC),
    Peer("luajit-line", "calc", ["luajit", f"{HERE}/drv_line.lua", "{script}"], skip=NOVEC),
    Peer("python-file", "python", [PY, "{script}"]),
    Peer("python-line", "calc", [PY, f"{HERE}/drv_line.py", "{script}"], skip=NOVEC),
    Peer("gawk-file", "gawk", ["gawk", "-f", "{script}"], skip=NOVEC),
    Peer("tcl", "tcl", ["tclsh", "{script}"], skip=NOVEC),
    Peer("bc-gnu", "bc", ["bc", "-q", "{script}"]),
    Peer("bc-gh", "bc", [f"{BIN}/gh/bc", "-q", "{script}"]),
    Peer("dc-gnu", "dc", ["dc", "{script}"]),
    Peer("dc-gh", "dc", [f"{BIN}/gh/dc", "{script}"]),
    Peer("apcalc", "apcalc", ["calc", "-q", "-d", "-p"], stdin=True),
    Peer("gp", "gp", ["gp", "-q", "-f", "-s", "1G"], stdin=True),
    Peer("octave", "octave", ["octave-cli", "-qf", "--no-history"], stdin=True),
    Peer("qalc", "qalc", ["qalc", "-t", "-f", "{script}"],
         small={"W1": 500, "W6": 500, "W7": 250}),    # 20 ms of waiting a line
    Peer("fend", "fend", [f"{BIN}/drv-fend", "{script}"], small={"W1": 20_000, "W7": 20_000}),
]

NUM = re.compile(r"[-+]?(?:\d+\.?\d*|\.\d+)(?: ?[eE][-+]?\d+)?")


def build():
    os.makedirs(BIN, exist_ok=True)
    for src, out, cmd in (("meas.c", "meas", ["gcc", "-O2"]), ("sol.cpp", "sol", ["g++", "-std=c++17", "-O2"]),
                          ("sol.cpp", "sol-static", ["g++", "-std=c++17", "-O2", "-static"]),
                          ("drv_muparser.cpp", "drv-muparser", ["g++", "-std=c++17", "-O2"])):
        s, o = os.path.join(HERE, src), os.path.join(BIN, out)
        if not os.path.exists(s) or (os.path.exists(o) and os.path.getmtime(o) >= os.path.getmtime(s)):
            continue
        c = cmd + [s, "-o", o] + (["-lmuparser"] if "muparser" in src else [])
        if subprocess.run(c).returncode:
            print(f"not built: {out}", file=sys.stderr)


def measure(cmd, sink, stdin, timeout, cwd, env, stack_kib=0):
    r, w = os.pipe()
    os.set_inheritable(w, True)
    full = [f"{BIN}/meas", sink, stdin, str(timeout), "16384", str(stack_kib), "--"] + cmd
    # meas writes to descriptor 3
    p = subprocess.Popen(["sh", "-c", f'exec 3>&{w}; exec "$@"', "sh"] + full, cwd=cwd, env=env,
                         pass_fds=(w,), stdout=subprocess.DEVNULL)
    os.close(w)
    data = b""
    while True:
        b = os.read(r, 4096)
        if not b:
            break
        data += b
    os.close(r)
    p.wait()
    return json.loads(data)


def status(m):
    if m["timeout"]:
        return "timeout"
    if m["signal"]:
        import signal
        try:
            return "crash " + signal.Signals(m["signal"]).name
        except ValueError:
            return f"crash signal {m['signal']}"
    return "" if m["exit"] == 0 else f"exit {m['exit']}"


def check(w, size, path, dialect="calc"):
    """'' when the output is right; otherwise a short word about it"""
    if w == "W5" or (w == "W4" and dialect not in ("calc", "python", "gp")):
        return ""              # (the others print a vector over several lines)
    want = G.expected(w, size)
    got, first_bad = [], ""
    with open(path, errors="replace") as f:
        for line in f:
            line = line.replace("\u2212", "-").strip()
            if w == "W4I" and not got:          # a vector may take several lines: skip the first result
                pass
            m = NUM.findall(line)
            low = line.lower()
            if any(k in low for k in ("error", "overflow", "too ", "exceed", "not enough", "exhausted", "***", "[c]", "traceback")):
                first_bad = first_bad or line[:90]
                continue
            if m:
                got.append(float(m[-1].replace(" ", "")))
    if w == "W4I":
        want, got = want[1:], got[-(len(want) - 1):]
    if len(want) == 1 and len(got) > 1:
        got = got[-1:]
    if len(got) != len(want):
        return f"{len(got)} of {len(want)} results" + (f": {first_bad}" if first_bad else "")
    bad = sum(not (math.isclose(a, b, rel_tol=1e-6, abs_tol=1e-7)) for a, b in zip(got, want))
    return f"{bad} of {len(want)} values differ" if bad else ""


def main():
    ap = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    ap.add_argument("--cmd", action="append", default=[])
    ap.add_argument("--peers"); ap.add_argument("--workloads"); ap.add_argument("--sizes")
    ap.add_argument("--runs", type=int, default=5)
    ap.add_argument("--sink", default="null", choices=["null", "file", "pipe"])
    ap.add_argument("--timeout", type=int, default=30)
    ap.add_argument("--stack-kib", type=int, default=0, help="stack limit of the peers (default: as inherited)")
    ap.add_argument("--json"); ap.add_argument("--md"); ap.add_argument("--list", action="store_true")
    ap.add_argument("--tables", metavar="R.JSON", help="only print the tables of an earlier --json")
    a = ap.parse_args()
    if a.tables:
        with open(a.tables) as f:
            print(tables(json.load(f), a))
        return
    build()
    if a.list:
        for p in PEERS:
            print(f"{p.name:12} {p.dialect:8} {'installed' if p.installed() else '-'}  {' '.join(p.cmd)}")
        return
    peers = [p for p in PEERS if p.installed()]
    if a.peers:
        keep = a.peers.split(",")
        peers = [p for p in peers if p.name in keep]
    for i, c in enumerate(a.cmd):
        m = re.match(r"^([\w.-]+)=(?=\S)(.*)$", c)
        name, text = (m.group(1), m.group(2)) if m else (f"candidate{i + 1 if i else ''}", c)
        import shlex
        argv = shlex.split(text)
        if "/" in argv[0]:
            argv[0] = os.path.abspath(argv[0])
        peers.append(Peer(name, "calc", argv, stdin="{script}" not in text))
    works = a.workloads.split(",") if a.workloads else list(SIZES)
    tmp = tempfile.mkdtemp(prefix="peers-")
    env = {"PATH": os.environ["PATH"], "HOME": tmp, "LC_ALL": "C.UTF-8", "TERM": "dumb", "BC_LINE_LENGTH": "0", "DC_LINE_LENGTH": "0"}
    results = []
    for w in works:
        sizes = [int(float(s)) for s in a.sizes.split(",")] if a.sizes else SIZES[w]
        for size in sizes:
            todo = []
            for p in peers:
                if w in p.skip:
                    continue
                n = min(size, p.small.get(w, size))
                path = os.path.join(tmp, f"{w}-{n}.{p.dialect}")
                if not os.path.exists(path):
                    text = G.gen(w, n, p.dialect)
                    if text is None:
                        continue
                    with open(path, "w") as f:
                        f.write(text)
                cmd = [x.replace("{script}", path) for x in p.cmd] + p.args.get(w, [])
                stdin = path if p.stdin else "/dev/null"
                out = os.path.join(tmp, "out")
                m = measure(cmd, "file:" + out, stdin, a.timeout, tmp, env, a.stack_kib)
                why = status(m) or (check(w, n, out, p.dialect) if not p.name.startswith("sol") else "")
                tail = ""
                if why:
                    with open(out, errors="replace") as f:
                        text = f.read()[-4000:].strip().splitlines()
                    tail = text[-1][:160] if text else ""
                rec = {"workload": w, "size": size, "used": n, "peer": p.name, "why": why, "tail": tail,
                       "first": m, "wall": [], "cpu": [], "rss": [], "ratio": []}
                results.append(rec)
                if not m["timeout"] and not m["signal"]:
                    todo.append((p, rec, cmd, stdin))
                else:
                    rec["rss"].append(m["maxrss_kib"])
                print(f"{w} {size} {p.name:12} first {m['wall_ns'] / 1e9:8.3f} s  {m['maxrss_kib'] / 1024:8.1f} MiB  {why}  {tail if why else ''}", flush=True)
            for r in range(a.runs):
                base = None
                for p, rec, cmd, stdin in todo:
                    if r and rec["first"]["wall_ns"] > a.timeout * 1e9 / 3:
                        continue
                    sink = "file:" + os.path.join(tmp, "out") if a.sink == "file" else a.sink
                    m = measure(cmd, sink, stdin, a.timeout, tmp, env, a.stack_kib)
                    t = m["wall_ns"] / 1e9
                    if p.name == "sol":
                        base = t
                    rec["wall"].append(t)
                    rec["cpu"].append((m["user_us"] + m["sys_us"]) / 1e6)
                    rec["rss"].append(m["maxrss_kib"])
                    if base:
                        rec["ratio"].append(t * size / max(rec["used"], 1) / base if size else t / base)
            for f in os.listdir(tmp):            # scripts of this size only
                if f.startswith(w + "-"):
                    os.remove(os.path.join(tmp, f))
            if a.json:
                with open(a.json, "w") as f:
                    json.dump(results, f, indent=0)
    text = tables(results, a)
    print(text)
    if a.md:
        with open(a.md, "w") as f:
            f.write(text)
    shutil.rmtree(tmp, ignore_errors=True)


def med(v):
    return statistics.median(v) if v else None


def word(why):
    return "refused" if why.startswith(("0 of", "exit")) else "wrong value" if "differ" in why else why.split(":")[0]


def sec(t):
    return "" if t is None else f"{t * 1e3:.2f} ms" if t < 0.1 else f"{t:.3f} s" if t < 10 else f"{t:.1f} s"


def count(x):
    return f"{x / 1e6:.2f} M" if x >= 1e6 else f"{x / 1e3:.1f} k" if x >= 1e3 else f"{x:.0f}"


LINES = {"W1": lambda n: n, "W6": lambda n: n, "W7": lambda n: 2 * n, "W4I": lambda n: 10_001}


def tables(results, a):
    out = []
    works = []
    for r in results:
        if r["workload"] not in works:
            works.append(r["workload"])
    for w in works:
        rs = [r for r in results if r["workload"] == w]
        sizes = sorted({r["size"] for r in rs})
        out.append(f"\n### {w}" + (f", {sizes[0]:,}" if len(sizes) == 1 and sizes[0] else "") + f" (standard output: {a.sink})\n")
        if len(sizes) == 1:
            has_lines = w in LINES
            out.append("| peer | median wall | min-max | " + ("lines/s | " if has_lines else "") + "ratio to sol | peak RSS | remark |")
            out.append("|---|---|---|" + ("---|" if has_lines else "") + "---|---|---|")
            for r in sorted(rs, key=lambda r: (bool(r["why"]), med(r["ratio"]) or med(r["wall"]) or 1e9)):
                t = None if r["why"] else med(r["wall"])      # a failed run's time says nothing
                remark = r["why"] + ("; " + r["tail"] if r["why"] and r["tail"] else "")
                if r["used"] != r["size"]:
                    remark = f"measured on {r['used']:,}" + ("; " + remark if remark else "")
                cells = [r["peer"], sec(t) if t else "-", f"{sec(min(r['wall']))} - {sec(max(r['wall']))}" if t else "-"]
                if has_lines:
                    cells.append(count(LINES[w](r["used"]) / t) if t else "-")
                cells += [f"{med(r['ratio']):.1f}" if r["ratio"] and t else "-", f"{med(r['rss']) / 1024:.1f} MiB" if r["rss"] else "-", remark.replace("|", "/")]
                out.append("| " + " | ".join(cells) + " |")
        else:
            out.append("Median wall time; in brackets the ratio to sol.\n")
            out.append("| peer | " + " | ".join(f"{s:,}" for s in sizes) + " | peak RSS at each |")
            out.append("|---|" + "---|" * (len(sizes) + 1))
            names = []
            for r in rs:
                if r["peer"] not in names:
                    names.append(r["peer"])
            notes = []
            for n in names:
                cells, rss = [], []
                for s in sizes:
                    r = next((r for r in rs if r["peer"] == n and r["size"] == s), None)
                    if r is None:
                        cells.append(""); continue
                    t = med(r["wall"])
                    c = f"{sec(t)} ({med(r['ratio']):.1f})" if t and r["ratio"] else sec(t) if t else ""
                    if r["why"]:
                        notes.append((n, s, r["why"] + (f" ({r['tail']})" if r["tail"] and r["tail"] not in r["why"] else "")))
                        c = "**" + word(r["why"]) + "**"
                    cells.append(c)
                    rss.append(f"{med(r['rss']) / 1024:.1f}" if r["rss"] else "-")
                out.append(f"| {n} | " + " | ".join(cells) + " | " + " / ".join(rss) + " MiB |")
            if notes:
                out.append("")
                seen = set()
                for n, s, x in notes:               # the smallest size at which each peer fails
                    if n not in seen:
                        seen.add(n)
                        out.append(f"- {n}, from {s:,}: {x}".replace("|", "/"))
    return "\n".join(out) + "\n"


if __name__ == "__main__":
    main()
