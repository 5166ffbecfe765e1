#!/usr/bin/env python3
"""Deterministic generators of the peer workloads, one text per (workload, size, dialect).

  gen_workloads.py WORKLOAD SIZE DIALECT > script
  gen_workloads.py --list

Workloads (SIZE):
  W1   SIZE lines of scalar arithmetic, a rotation of ten shapes, each printing its result
  W2   one line 1+2-3+4-5... of SIZE terms
  W3   one line of SIZE nested parentheses: (1+(1+(1+ ... (1)...)))
  W3P  the same, nothing between the parentheses: ((((1))))
  W3L  the same, nested on the left: (((1)+1)+1)
  W4   vectors of SIZE numbers: v=<...>, w=<...>, v+w, v[k]; repeated so that about
       200,000 literal numbers are read whatever the size
  W4I  one vector of SIZE numbers, then 10,000 lines v[k]
  W5   start-up: an empty script (SIZE ignored)
  W6   SIZE lines of function calls such as max(min(1,2),round(2.6))
  W7   SIZE distinct variables defined, then read back one by one
  R1   SIZE references, each one more than the one before, then their base changed and the last
       one read; R1P the same with plain values
  R2   as R1, defined from the last, before there is a base
  R3   SIZE references to one base, which is changed 500 times with one of them read each time;
       R3P the same with plain values in the place of the references
  R4   SIZE lines that use one reference; R4P the same with a variable
       (all of R in the dialect calc only)

Dialects: calc (mirlow's own syntax; also read by every line-at-a-time driver),
bc, dc, apcalc, qalc, octave, gp, lua, python, gawk, tcl, fend.
None is returned by gen() for what a dialect cannot say.
"""
import random
import sys

DIALECTS = "calc bc dc apcalc qalc octave gp lua python gawk tcl fend".split()
WORKLOADS = "W1 W2 W3 W3P W3L W4 W4I W5 W6 W7 R1 R1P R2 R3 R3P R4 R4P".split()

# ---- expressions: ("n", text) ("v", name) ("neg", e) ("call", f, [e...]) (op, l, r)
PREC = {"+": 1, "-": 1, "*": 2, "/": 2}


class Dialect:
    float_literals = False     # write 3 as 3.0 (integer or exact arithmetic otherwise)
    var_prefix = ""
    names = {}                 # variable renames
    funcs = {"min": "min", "max": "max", "round": "round"}
    sep = ","                  # between the arguments of a function

    def num(self, t):
        if self.float_literals and "." not in t and "e" not in t:
            return t + ".0"
        return t

    def var(self, n):
        return self.var_prefix + self.names.get(n, n)

    def expr(self, e, prec=0, right=False):
        k = e[0]
        if k == "n":
            return self.num(e[1])
        if k == "v":
            return self.var(e[1])
        if k == "neg":                      # only generated at the start of an expression
            return "-" + self.expr(e[1], 3)
        if k == "call":
            return self.funcs[e[1]] + "(" + self.sep.join(self.expr(a) for a in e[2]) + ")"
        p = PREC[k]
        s = self.expr(e[1], p) + k + self.expr(e[2], p, True)
        return "(" + s + ")" if p < prec or (right and p == prec) else s

    # what one line looks like; None = not sayable
    def show(self, text):
        return text

    def assign(self, name, text):
        return f"{self.var(name)}={text}"

    def header(self, w):
        return ""

    def footer(self, w):
        return ""

    def readback(self, name):
        return self.show(self.var(name))

    vec = None                 # (vector literal, assignment of v / w, v+w, index) if it has vectors


class Calc(Dialect):
    @staticmethod
    def vlit(nums): return "<" + ",".join(nums) + ">"
    def vassign(self, n, nums): return f"{n}={self.vlit(nums)}"
    def vadd(self): return "v+w"
    def vindex(self, k): return f"v[{k}]"


class Bc(Dialect):
    funcs = {"min": "m", "max": "x", "round": "r"}
    def header(self, w):
        h = "scale=15\n"
        if w == "W6":
            h += ("define m(a,b){if(a>=b)return (b);return (a);}\n"
                  "define x(a,b){if(b>=a)return (b);return (a);}\n"
                  "define r(a){auto s,q;s=scale;scale=0;if(a>=0){q=(a+.5)/1}else{q=(a-.5)/1};scale=s;return (q);}\n")
        return h
    def assign(self, name, text): return f"({name}={text})"


class Dc(Dialect):
    def rpn(self, e):
        k = e[0]
        if k == "n": return e[1] + " "
        if k == "v": return "l" + e[1] + " "
        if k == "neg": return "0 " + self.rpn(e[1]) + "-"
        if k == "call": return None
        return self.rpn(e[1]) + self.rpn(e[2]) + k
    def expr(self, e, prec=0, right=False): return self.rpn(e)
    def header(self, w): return "15k\n"
    def show(self, text): return text + "ps."
    def assign(self, name, text): return f"{text}ps{name}"


class Apcalc(Dialect):
    def show(self, text): return "print " + text
    def assign(self, name, text): return f"print {name}={text}"
    def header(self, w): return 'config("maxprint",1000000),\n' if w.startswith("W4") else ""
    def vassign(self, n, nums): return f"mat {n}[{len(nums)}]={{{','.join(nums)}}}; print {n}"
    def vadd(self): return "print v+w"
    def vindex(self, k): return f"print v[{k}]"


class Qalc(Dialect):
    names = {"x": "vx", "y": "vy", "z": "vz", "w": "vw"}
    def assign(self, name, text): return f"{self.var(name)}:={text}"
    def header(self, w): return "set precision 15\n"
    def vassign(self, n, nums): return f"v{n}:=[{','.join(nums)}]"
    def vadd(self): return "vv+vw"
    def vindex(self, k): return f"element(vv,{k + 1})"


class Octave(Dialect):
    def header(self, w): return "format long\n"
    def vassign(self, n, nums): return f"{n}=[{','.join(nums)}]"
    def vadd(self): return "v+w"
    def vindex(self, k): return f"v({k + 1})"


class Gp(Dialect):
    float_literals = True       # 1/3 would be an exact fraction
    def header(self, w): return "default(realprecision,15)\n"
    def vassign(self, n, nums): return f"{n}=[{','.join(self.num(t) for t in nums)}]"
    def vadd(self): return "v+w"
    def vindex(self, k): return f"v[{k + 1}]"


class Lua(Dialect):
    funcs = {"min": "min", "max": "max", "round": "round"}
    def header(self, w):
        return ("min=math.min max=math.max round=function(x) return math.floor(x+0.5) end\n"
                if w == "W6" else "")
    def show(self, text): return f"print({text})"
    def assign(self, name, text): return f"{name}={text} print({name})"


class Python(Dialect):
    def show(self, text): return f"print({text})"
    def assign(self, name, text): return f"{name}={text};print({name})"
    def vassign(self, n, nums): return f"{n}=[{','.join(self.num(t) for t in nums)}];print({n})"
    def vadd(self): return "print([a+b for a,b in zip(v,w)])"
    def vindex(self, k): return f"print(v[{k}])"


class Gawk(Dialect):
    def header(self, w):
        h = ""
        if w == "W6":
            h = ("function min(a,b){return a>=b?b:a}\nfunction max(a,b){return b>=a?b:a}\n"
                 "function round(x){return int(x+.5)}\n")
        return h + 'BEGIN{OFMT="%.15g"\n'
    def footer(self, w): return "}\n"
    def show(self, text): return f"print ({text})"
    def assign(self, name, text): return f"print ({name}={text})"


class Tcl(Dialect):
    float_literals = True       # 1/3 would be 0
    var_prefix = "$"
    def show(self, text): return f"puts [expr {{{text}}}]"
    def assign(self, name, text): return f"puts [set {name} [expr {{{text}}}]]"
    def readback(self, name): return f"puts ${name}"


class Fend(Dialect):
    names = {"x": "vx", "y": "vy", "z": "vz", "w": "vw"}   # x, y, z, w are taken by units
    funcs = None
    def assign(self, name, text): return f"{self.var(name)} = {text}"


BY_NAME = {c.__name__.lower(): c() for c in (Calc, Bc, Dc, Apcalc, Qalc, Octave, Gp, Lua, Python, Gawk, Tcl, Fend)}


# ---- workloads
def const(rng):
    """a number as a user types it: an integer up to 999 or a decimal of 1 to 4 places"""
    k = rng.randrange(10)
    if k < 5:
        return ("n", str(rng.randrange(1, 1000)))
    if k < 9:
        places = rng.randrange(1, 5)
        return ("n", f"{rng.randrange(1, 1000)}.{rng.randrange(1, 10 ** places):0{places}d}")
    return ("n", f"0.{rng.randrange(1, 1000):03d}")


def w1_lines(n):
    """(name or None, expression) for n lines"""
    rng = random.Random(1)
    x, y, z, w = (("v", c) for c in "xyzw")
    out = []
    for i in range(n):
        c = lambda: const(rng)
        k = i % 10
        if k == 0: out.append((None, ("+", c(), c())))
        elif k == 1: out.append(("x", ("+", c(), c())))
        elif k == 2: out.append(("y", ("-", ("*", x, c()), ("/", c(), ("+", x, c())))))
        elif k == 3: out.append((None, ("-", ("*", x, y), c())))
        elif k == 4: out.append((None, ("+", ("-", ("*", c(), c()), ("/", c(), c())), c())))
        elif k == 5: out.append(("z", ("*", ("+", x, y), ("-", c(), c()))))
        elif k == 6: out.append((None, ("/", ("+", ("*", ("+", x, c()), ("-", y, c())), c()), ("+", c(), c()))))
        elif k == 7: out.append((None, ("/", ("*", ("+", c(), c()), ("-", c(), c())), ("+", c(), c()))))
        elif k == 8: out.append(("w", ("+", ("neg", x), ("/", y, c()))))
        else: out.append((None, ("+", ("+", ("+", x, y), z), w)))
    return out


def w6_lines(n):
    rng = random.Random(6)
    out = []
    whole = lambda: ("n", str(rng.randrange(1, 1000)))
    untied = lambda: ("n", f"{rng.randrange(1, 1000)}.{rng.choice('12346789')}")   # rounds alike everywhere
    for i in range(n):
        c = lambda: const(rng)
        k = i % 4
        if k == 0: out.append(("call", "max", [("call", "min", [c(), c()]), ("call", "round", [untied()])]))
        elif k == 1: out.append(("+", ("call", "min", [c(), c()]), ("*", c(), ("call", "max", [c(), c()]))))
        elif k == 2: out.append(("call", "round", [("/", whole(), ("n", rng.choice("37")))]))
        else: out.append(("call", "min", [("call", "max", [c(), c()]), ("call", "max", [c(), c()])]))
    return out


def evaluate(e, env):
    k = e[0]
    if k == "n": return float(e[1])
    if k == "v": return env[e[1]]
    if k == "neg": return -evaluate(e[1], env)
    if k == "call":
        a = [evaluate(t, env) for t in e[2]]
        if e[1] == "round":
            import math
            return float(math.floor(a[0] + 0.5))
        return min(a) if e[1] == "min" else max(a)
    l, r = evaluate(e[1], env), evaluate(e[2], env)
    return l + r if k == "+" else l - r if k == "-" else l * r if k == "*" else (l / r if r else float("nan"))


def vecnums(n, seed):
    rng = random.Random(seed)
    return [const(rng)[1] for _ in range(n)]


def var_name(i):
    return f"va{i}"


def w4_reps(size):
    return max(1, 100_000 // size)


CHANGES = 500   # of the base of a fan


def reference_lines(workload, size):
    is_plain = workload.endswith("P")
    equals = "=" if is_plain else "&="
    if workload in ("R3", "R3P"):
        changes = [t for i in range(CHANGES) for t in (f"a={i}", f"r{i * 7919 % size}")]
        return ["a=1"] + [f"r{i}{equals}a+{i}" for i in range(size)] + changes
    if workload in ("R4", "R4P"):
        return ["a=1", f"r{equals}a+1"] + [f"r+{i}" for i in range(size)]
    links = [f"r{i}{equals}r{i - 1}+1" for i in range(1, size + 1)]
    if workload == "R2":
        return links[::-1] + ["r0=1", "r0=5", f"r{size}"]
    return ["r0=1"] + links + ["r0=5", f"r{size}"]


def gen(workload, size, dialect):
    """the script text, or None when the dialect cannot say it"""
    d = BY_NAME[dialect]
    if workload == "W5":
        return d.header(workload) + d.footer(workload) if dialect == "gawk" else ""
    body = []
    if workload.startswith("R"):
        if dialect != "calc":
            return None            # no references
        body = reference_lines(workload, size)
    elif workload == "W1":
        for name, e in w1_lines(size):
            t = d.expr(e)
            body.append(d.assign(name, t) if name else d.show(t))
    elif workload == "W2":
        if dialect == "dc":
            t = "1 " + "".join(f"{i % 1000} {'+' if i % 2 == 0 else '-'}" for i in range(2, size + 1))
        else:
            t = d.num("1") + "".join(f"{'+' if i % 2 == 0 else '-'}{d.num(str(i % 1000))}" for i in range(2, size + 1))
        body.append(d.show(t))
    elif workload in ("W3", "W3P", "W3L"):
        if dialect == "dc":
            return None            # reverse Polish has no parentheses
        one = d.num("1")
        if workload == "W3": t = f"({one}+" * size + one + ")" * size
        elif workload == "W3P": t = "(" * size + one + ")" * size
        else: t = "(" * size + one + f"+{one})" * size
        body.append(d.show(t))
    elif workload in ("W4", "W4I"):
        if not hasattr(d, "vassign"):
            return None
        nums = vecnums(size, 4), vecnums(size, 5)
        if workload == "W4":
            for r in range(w4_reps(size)):
                body += [d.vassign("v", nums[0]), d.vassign("w", nums[1]), d.vadd(), d.vindex(r % size)]
        else:
            body.append(d.vassign("v", nums[0]))
            body += [d.vindex(i * 7919 % size) for i in range(10_000)]
    elif workload == "W6":
        if dialect in ("dc", "fend"):
            return None
        body = [d.show(d.expr(e)) for e in w6_lines(size)]
    elif workload == "W7":
        if dialect == "dc":
            return None            # registers have one-character names
        body = [d.assign(var_name(i), d.num(str(i)) if i % 2 else f"{i}.5") for i in range(size)]
        body += [d.readback(var_name(i * 7919 % size)) for i in range(size)]
    else:
        raise ValueError(workload)
    return d.header(workload) + "\n".join(body) + "\n" + d.footer(workload)


def expected(workload, size):
    """(number of result lines, list of the value each should end with or None)"""
    if workload == "W5":
        return []
    if workload == "W1":
        env, out = {}, []
        for name, e in w1_lines(size):
            v = evaluate(e, env)
            if name: env[name] = v
            out.append(v)
        return out
    if workload == "W2":
        return [float(1 + sum((i % 1000) * (1 if i % 2 == 0 else -1) for i in range(2, size + 1)))]
    if workload in ("W3", "W3L"):
        return [float(size + 1)]
    if workload == "W3P":
        return [1.0]
    if workload == "W4":
        a, b = ([float(t) for t in vecnums(size, s)] for s in (4, 5))
        out = []
        for r in range(w4_reps(size)):
            out += [a[-1], b[-1], a[-1] + b[-1], a[r % size]]
        return out
    if workload == "W4I":
        a = [float(t) for t in vecnums(size, 4)]
        return [a[-1]] + [a[i * 7919 % size] for i in range(10_000)]
    if workload == "W6":
        return [evaluate(e, {}) for e in w6_lines(size)]
    if workload == "W7":
        v = [float(i) if i % 2 else i + 0.5 for i in range(size)]
        return v + [v[i * 7919 % size] for i in range(size)]
    if workload.startswith("R"):   # a definition ends with its expression
        out = [None] * len(reference_lines(workload, size))
        if workload in ("R3", "R3P"):
            for i in range(CHANGES):
                k = i * 7919 % size
                out[size + 2 + 2 * i] = float(k + (1 if workload == "R3P" else i))
        elif workload in ("R4", "R4P"):
            out[2:] = [float(2 + i) for i in range(size)]
        else:
            out[-1] = float(size + (1 if workload == "R1P" else 5))
        return out
    raise ValueError(workload)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        print(__doc__)
        sys.exit(0 if "--list" in sys.argv else 2)
    t = gen(sys.argv[1], int(sys.argv[2]), sys.argv[3])
    if t is None:
        sys.exit(f"{sys.argv[3]} cannot say {sys.argv[1]}")
    sys.stdout.write(t)
