#!/usr/bin/env python3
"""Types into a program in a terminal of tmux, and writes what its screen shows as an animated SVG.

  record_terminal.py KEYS PICTURE COMMAND...

Each line of the file KEYS is typed and ended with Enter. "<Tab>", "<M-s>" and the like are keys, by
the names that tmux has for them; a line that ends with "<>" is not ended with Enter; "#" begins a
comment. The picture shows the last screen where animations are not played.
"""
import html, os, re, subprocess, sys, tempfile, time

COLUMNS, ROWS = 72, 19
WIDTH, HEIGHT = 8.4, 18  # of a character
KEY_SECONDS, LINE_SECONDS, END_SECONDS = 0.09, 1.3, 5
COLOURS = {31: "#ff7b72", 32: "#7ee787", 33: "#e3b341", 34: "#79c0ff", 35: "#d2a8ff", 36: "#76e3ea"}


class Terminal:
    def __init__(self, command, home):
        self.socket = os.path.join(home, "socket")
        self.environment = {"PATH": os.environ["PATH"], "HOME": home, "LC_ALL": "C.UTF-8",
                            "TERM": "xterm-256color"}
        self.tmux("-f", "/dev/null", "new-session", "-d", "-x", str(COLUMNS), "-y", str(ROWS), *command)
        self.tmux("set-option", "-g", "status", "off")
        self.tmux("set-option", "-g", "escape-time", "0")

    def tmux(self, *arguments):
        done = subprocess.run(["tmux", "-S", self.socket, *arguments], env=self.environment,
                              check=True, stdout=subprocess.PIPE)
        return done.stdout.decode()

    def press(self, key):
        literal = [] if len(key) > 1 else ["-l"]
        self.tmux("send-keys", *literal, "--", key if key != ";" else "\\;")

    def look(self):
        """The lines of the screen, with escape sequences, and the column and row of the cursor."""
        lines = self.tmux("capture-pane", "-p", "-e").split("\n")[:ROWS]
        column, row = self.tmux("display-message", "-p", "#{cursor_x} #{cursor_y}").split()
        return [line.rstrip() for line in lines], (int(column), int(row))

    def look_when_still(self):
        before = None
        for _ in range(100):
            time.sleep(0.05)
            now = self.look()
            if now == before:
                return now
            before = now
        raise SystemExit("the screen does not come to rest")

    def end(self):
        self.tmux("kill-server")


def read_keys(path):
    """Lists of keys, one for each line."""
    with open(path) as file:
        for line in file:
            line = line.rstrip("\n")
            if line.startswith("#"):
                continue
            waits = line.endswith("<>")
            keys = re.findall(r"<[A-Z][\w-]*>|.", line[:-2] if waits else line)
            keys = [key[1:-1] if len(key) > 1 else key for key in keys]
            yield keys if waits else keys + ["Enter"]


def record(command, keys):
    """Frames: when each begins, its lines and its cursor; and the length of all."""
    with tempfile.TemporaryDirectory() as home:
        terminal = Terminal(command, home)
        try:
            frames = [(0.0, *terminal.look_when_still())]
            now = LINE_SECONDS
            for line in keys:
                for key in line:
                    terminal.press(key)
                    frames.append((now, *terminal.look_when_still()))
                    now += KEY_SECONDS
                now += LINE_SECONDS
        finally:
            terminal.end()
    return frames, now + END_SECONDS


def draw_line(line):
    """The line in SVG: tspans where escape sequences ask for colours."""
    drawn, style = "", {}
    for part in re.split(r"(\033\[[\d;]*m)", line):
        if not part.startswith("\033"):
            text = html.escape(part, quote=False).replace(" ", "\u00a0")
            names = "".join(f' {name}="{value}"' for name, value in style.items())
            drawn += f"<tspan{names}>{text}</tspan>" if text and names else text
            continue
        for code in [int(code or 0) for code in part[2:-1].split(";")]:
            if code in COLOURS:
                style["fill"] = COLOURS[code]
            elif code in (1, 7):  # reverse is shown as bold
                style["font-weight"] = "bold"
            elif code == 2:
                style["opacity"] = ".6"
            elif code == 39:
                style.pop("fill", None)
            elif code in (22, 27):
                style.pop("font-weight", None)
                style.pop("opacity", None)
            elif code == 0:
                style = {}
    return drawn


def animate(attribute, changes, length):
    """Changes: pairs of a time and a value, the first at 0."""
    times = ";".join(f"{round(begin / length, 4):g}" for begin, _ in changes)
    values = ";".join(str(value) for _, value in changes)
    return (f'<animate attributeName="{attribute}" dur="{length:g}s" repeatCount="indefinite" '
            f'calcMode="discrete" keyTimes="{times}" values="{values}"/>')


def spans_of(frames, length):
    """When each text stands in each row: (row, text) and its pairs of begin and end."""
    spans = {}
    for index, (begin, lines, _) in enumerate(frames):
        end = frames[index + 1][0] if index + 1 < len(frames) else length
        for row, line in enumerate(lines):
            if not line:
                continue
            seen = spans.setdefault((row, line), [])
            if seen and seen[-1][1] == begin:
                seen[-1] = (seen[-1][0], end)
            else:
                seen.append((begin, end))
    return spans


def draw_text(row, line, spans, length):
    changes = []
    for begin, end in spans:
        changes += [(begin, "visible")] + ([(end, "hidden")] if end < length else [])
    if changes[0][0] > 0:
        changes.insert(0, (0, "hidden"))
    columns = len(re.sub(r"\033\[[\d;]*m", "", line))
    is_last = spans[-1][1] == length
    hidden = "" if is_last else ' visibility="hidden"'
    animation = animate("visibility", changes, length) if len(changes) > 1 else ""
    return (f'<text y="{(row + 1) * HEIGHT - 5}" textLength="{columns * WIDTH:.1f}"{hidden}>'
            f"{draw_line(line)}{animation}</text>")


def draw_cursor(frames, length):
    rows = [(begin, cursor[1] * HEIGHT) for begin, _, cursor in frames]
    columns = [(begin, f"{cursor[0] * WIDTH:g}") for begin, _, cursor in frames]
    return (f'<rect x="{columns[-1][1]}" y="{rows[-1][1]}" width="{WIDTH}" height="{HEIGHT}" '
            f'fill="#c9d1d9" opacity=".6">{animate("x", columns, length)}{animate("y", rows, length)}</rect>')


def draw(frames, length):
    width, height = COLUMNS * WIDTH + 24, ROWS * HEIGHT + 24
    texts = [draw_text(row, line, spans, length)
             for (row, line), spans in spans_of(frames, length).items()]
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width:g} {height:g}" width="{width:g}">',
        f'<rect width="{width:g}" height="{height:g}" rx="6" fill="#0d1117"/>',
        '<g transform="translate(12 12)" fill="#c9d1d9" font-family="ui-monospace, DejaVu Sans Mono, '
        'Menlo, Consolas, monospace" font-size="14">',
        draw_cursor(frames, length), *texts, "</g>", "</svg>", ""])


def main():
    frames, length = record(sys.argv[3:], list(read_keys(sys.argv[1])))
    with open(sys.argv[2], "w") as file:
        file.write(draw(frames, length))


if __name__ == "__main__":
    main()
