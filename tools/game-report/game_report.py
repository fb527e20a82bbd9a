#!/usr/bin/python3
"""Game report: one picture and one table of a game the team scripts played.

    tools/game-report/game_report.py [RUN_DIR] [--out PNG] [--track BINARY]

(Debian's /usr/bin/python3 with python3-matplotlib, which scripts/install-deps.sh installs.)

RUN_DIR (default ./run) is what ./start.sh left behind: run/playerN/ for the Korvel team and
run/NAME/playerN/ for a team started under a name of its own (run/replay/ holds the offline
replay, played as number 3). Each player's recording, LogFiles/Korvel-1.log.offline, holds every
server message it received. The report reads it twice:

- the messages themselves: the game state (time, play mode, score, side), the torso's
  accelerometer and, when the server reports true positions, "mypos" and "ballpos";
- the player's own replay of them (korvel-track, built beside the player): what it believed
  (its position and the ball's) and did (stand-ups and kicks begun), decision for decision as in
  the game, since offline play repeats online play exactly (with the same build and Data).

Positions are the server's true ones when the recording has them, the player's own localisation
otherwise (the table says which). A robot is down while its head is below 0.3 m (true positions)
or, without them, while its torso leans more than about 60 degrees (accelerometer, averaged over
0.1 s); a fall is a spell down of at least 0.2 s. A stand-up "begun upright" is one the player
began while the robot was clearly up (head above 0.4 m, or leaning less than about 30 degrees). Metres walked add up the position every second of play while
the robot is up (steps over 3 m, jumps of localisation, are left out). A goal counts for the team
whose score went up, and for that team's player who began the last kick before it.

Writes the PNG (default RUN_DIR/game-report.png) and the table (printed, and saved beside the PNG
as .txt). Exit status 0; 1 when RUN_DIR holds no recording.
"""

import argparse
import math
import os
import re
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))

FIELD_LENGTH = 30.0  # metres
FIELD_WIDTH = 20.0
GOAL_WIDTH = 2.1
GOAL_DEPTH = 0.6
CENTRE_RADIUS = 2.0

DOWN_HEAD_Z = 0.3  # metres: head below this is down (true positions)
UP_HEAD_Z = 0.4
DOWN_ACC_Z = 4.9  # m/s^2 along the torso's up axis: below this (lean over 60 degrees) is down
UP_ACC_Z = 8.3
MIN_FALL = 0.2  # seconds down before it counts as a fall
SAMPLE = 1.0  # seconds between position samples for the metres walked
MAX_STEP = 3.0  # metres: a longer step between samples is a jump, not walking
JUMP = 1.0  # metres between two messages: a jump, not drawn as a path

NUMBER = r"([-+]?[0-9]*\.?[0-9]+(?:[eE][-+]?[0-9]+)?)"
RE_NOW = re.compile(r"\(time \(now " + NUMBER + r"\)\)")
RE_ACC = re.compile(r"\(ACC \(n torso\) \(a " + NUMBER + " " + NUMBER + " " + NUMBER + r"\)\)")
RE_MYPOS = re.compile(r"\(mypos " + NUMBER + " " + NUMBER + " " + NUMBER + r"\)")
RE_BALLPOS = re.compile(r"\(ballpos " + NUMBER + " " + NUMBER + " " + NUMBER + r"\)")


def game_state(message):
    """The "GS" list of a message as a dict of its atoms (t, pm, sl, sr, team, unum)."""
    start = message.find("(GS ")
    if start < 0:
        return {}
    depth = 0
    for end in range(start, len(message)):
        depth += {"(": 1, ")": -1}.get(message[end], 0)
        if depth == 0:
            break
    return dict(re.findall(r"\((\w+) ([^()\s]+)\)", message[start + 4:end]))


class Player:
    def __init__(self, team, number, directory):
        self.team = team
        self.number = number
        self.directory = directory
        self.label = f"{team}-{number}"
        self.side = 0
        self.times = []  # simulation time of each message (s)
        self.playing = []  # the game has been kicked off
        self.xs, self.ys = [], []
        self.ball = []  # (time, x, y)
        self.down = []  # per message
        self.falls = []  # (time, x, y)
        self.standups = []  # (time, x, y, begun upright)
        self.kicks = []  # (time, x, y)
        self.goals = 0
        self.source = ""
        self.metres = 0.0
        self.seconds_down = 0.0
        self.scores = []  # (time, sl, sr)


def find_players(run):
    players = []
    for entry in sorted(os.listdir(run)):
        path = os.path.join(run, entry)
        recording = os.path.join(path, "LogFiles", "Korvel-1.log.offline")
        match = re.fullmatch(r"player([0-9]+)", entry)
        if match and os.path.isfile(recording):
            players.append(Player("Korvel", int(match.group(1)), path))
        elif entry == "replay" and os.path.isfile(recording):
            players.append(Player("replay", 3, path))
        elif os.path.isdir(path) and entry != "replay":
            for inner in sorted(os.listdir(path)):
                match = re.fullmatch(r"player([0-9]+)", inner)
                if match and os.path.isfile(
                        os.path.join(path, inner, "LogFiles", "Korvel-1.log.offline")):
                    players.append(Player(entry, int(match.group(1)), os.path.join(path, inner)))
    # A replay left by an earlier offline start belongs to no game that was played.
    if any(p.team != "replay" for p in players):
        players = [p for p in players if p.team != "replay"]
    return players


def replay(player, track):
    """The player's own replay: one row of floats per message."""
    with tempfile.NamedTemporaryFile(suffix=".tsv", delete=False) as out:
        path = out.name
    try:
        subprocess.run([track, str(player.number), path], cwd=player.directory,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
        with open(path) as rows:
            next(rows)
            return [[float(v) for v in line.split("\t")] for line in rows if line.strip()]
    finally:
        os.unlink(path)


def analyse(player, track):
    rows = replay(player, track)
    with open(os.path.join(player.directory, "LogFiles", "Korvel-1.log.offline")) as f:
        messages = [line.rstrip("\n") for line in f]
    messages = messages[:len(rows)]
    true_seen = sum(1 for m in messages if RE_MYPOS.search(m))
    vision = sum(1 for m in messages if "(See " in m) or 1
    use_true = true_seen >= vision // 2 and true_seen > 0
    player.source = "server" if use_true else "own"

    for row in rows:
        if int(row[2]) != 0:
            player.side = int(row[2])
    flip = -1.0 if player.side == 2 else 1.0

    down = False
    candidate_since = None
    acc_window = []
    x = y = None
    head_z = None
    standups_seen = kicks_seen = 0
    last_sl = last_sr = 0
    playing = False
    for message, row in zip(messages, rows):
        now = row[0]
        state = game_state(message)
        if "pm" in state:
            playing = state["pm"] != "BeforeKickOff"
        sl, sr = int(state.get("sl", last_sl)), int(state.get("sr", last_sr))
        if (sl, sr) != (last_sl, last_sr):
            player.scores.append((now, sl, sr))
            last_sl, last_sr = sl, sr
        mypos = RE_MYPOS.search(message)
        if use_true and mypos:
            x, y = flip * float(mypos.group(1)), flip * float(mypos.group(2))
            head_z = float(mypos.group(3))
        elif not use_true:
            x, y = row[3], row[4]
        ballpos = RE_BALLPOS.search(message)
        if ballpos:
            player.ball.append((now, flip * float(ballpos.group(1)), flip * float(ballpos.group(2)),
                                True))
        else:
            player.ball.append((now, row[6], row[7], False))

        # Down or up, with the time a change must last.
        acc = RE_ACC.search(message)
        if acc:
            acc_window = (acc_window + [float(acc.group(3))])[-5:]
        if use_true and head_z is not None:
            looks_down, looks_up = head_z < DOWN_HEAD_Z, head_z > UP_HEAD_Z
        elif acc_window:
            mean = sum(acc_window) / len(acc_window)
            looks_down, looks_up = mean < DOWN_ACC_Z, mean > UP_ACC_Z
        else:
            looks_down = looks_up = False
        if (looks_down and not down) or (looks_up and down):
            candidate_since = now if candidate_since is None else candidate_since
            if now - candidate_since >= (MIN_FALL if not down else 0.3):
                down = not down
                candidate_since = None
                if down and x is not None:
                    player.falls.append((now, x, y))
        else:
            candidate_since = None

        standups, kicks = int(row[9]), int(row[10])
        if standups > standups_seen and x is not None:
            player.standups.append((now, x, y, looks_up))
        if kicks > kicks_seen and x is not None:
            player.kicks.append((now, x, y))
        standups_seen, kicks_seen = standups, kicks

        player.times.append(now)
        player.playing.append(playing)
        player.xs.append(x)
        player.ys.append(y)
        player.down.append(down)

    # Seconds down and metres walked, over the time of play.
    previous = None
    next_sample = None
    for i, now in enumerate(player.times):
        if not player.playing[i]:
            continue
        if i > 0 and player.down[i]:
            player.seconds_down += now - player.times[i - 1]
        if player.xs[i] is None:
            continue
        if next_sample is None or now >= next_sample:
            next_sample = now + SAMPLE
            here = (player.xs[i], player.ys[i], player.down[i])
            if previous and not here[2] and not previous[2]:
                step = math.hypot(here[0] - previous[0], here[1] - previous[1])
                if step <= MAX_STEP:
                    player.metres += step
            previous = here


def goals_of(players):
    """Each goal once: (time, side that scored, ball x, ball y)."""
    goals = {}
    for p in players:
        last = (0, 0)
        for now, sl, sr in p.scores:
            for side, before, after in ((1, last[0], sl), (2, last[1], sr)):
                if after > before and (side, after) not in goals:
                    ball = min(p.ball, key=lambda b: abs(b[0] - now)) if p.ball else (now, 0, 0, 0)
                    goals[(side, after)] = (now, side, ball[1], ball[2])
            last = (sl, sr)
    return sorted(goals.values())


def attribute(goals, players):
    for now, side, _, _ in goals:
        kicks = [(k[0], p) for p in players if p.side == side for k in p.kicks if k[0] <= now]
        if kicks:
            max(kicks, key=lambda k: k[0])[1].goals += 1


def table(players, goals):
    lines = [f"{'player':<18} {'side':<5} {'pos':<6} {'walked m':>8} {'falls':>5} "
             f"{'stand-ups (upright)':>19} {'down s':>7} {'kicks':>5} {'goals':>5}"]
    for p in players:
        upright = sum(1 for s in p.standups if s[3])
        side = {1: "left", 2: "right"}.get(p.side, "?")
        lines.append(f"{p.label:<18} {side:<5} {p.source:<6} {p.metres:>8.1f} "
                     f"{len(p.falls):>5} {len(p.standups):>13} {'(' + str(upright) + ')':>5} "
                     f"{p.seconds_down:>7.1f} {len(p.kicks):>5} {p.goals:>5}")
    score = {1: 0, 2: 0}
    for _, side, _, _ in goals:
        score[side] += 1
    lines.append(f"score: left {score[1]} : {score[2]} right; goals at "
                 + (", ".join(f"{g[0]:.1f} s ({'left' if g[1] == 1 else 'right'})" for g in goals)
                    or "none"))
    return "\n".join(lines)


def draw(players, goals, out):
    import matplotlib
    matplotlib.use("Agg")
    import matplotlib.pyplot as plt
    from matplotlib.collections import LineCollection
    from matplotlib.lines import Line2D
    from matplotlib.patches import Circle, Rectangle

    fig, ax = plt.subplots(figsize=(13, 9))
    half_l, half_w = FIELD_LENGTH / 2, FIELD_WIDTH / 2
    ax.add_patch(Rectangle((-half_l - 1, -half_w - 1), FIELD_LENGTH + 2, FIELD_WIDTH + 2,
                           color="#3d8c40", zorder=0))
    ax.add_patch(Rectangle((-half_l, -half_w), FIELD_LENGTH, FIELD_WIDTH, fill=False,
                           edgecolor="white", linewidth=2))
    ax.plot([0, 0], [-half_w, half_w], color="white", linewidth=2)
    ax.add_patch(Circle((0, 0), CENTRE_RADIUS, fill=False, edgecolor="white", linewidth=2))
    for sign in (-1, 1):
        ax.add_patch(Rectangle((sign * half_l if sign > 0 else -half_l - GOAL_DEPTH,
                                -GOAL_WIDTH / 2), GOAL_DEPTH, GOAL_WIDTH, color="#f0f0f0",
                               zorder=1))

    times = [t for p in players for t, play in zip(p.times, p.playing) if play] or [0, 1]
    t0, t1 = min(times), max(times)
    norm = plt.Normalize(t0, t1 if t1 > t0 else t0 + 1)
    for p in players:
        points = [(t, x, y) for t, x, y, play in zip(p.times, p.xs, p.ys, p.playing)
                  if play and x is not None]
        if len(points) > 1:
            # A jump between two messages is the referee moving the robot (or, with the
            # player's own localisation, a lost position), not a path: it is not drawn.
            segments = [[(a[1], a[2]), (b[1], b[2])] for a, b in zip(points, points[1:])
                        if math.hypot(b[1] - a[1], b[2] - a[2]) <= JUMP]
            lines = LineCollection(segments, cmap="viridis", norm=norm, linewidth=2, zorder=3)
            lines.set_array([a[0] for a, b in zip(points, points[1:])
                             if math.hypot(b[1] - a[1], b[2] - a[2]) <= JUMP])
            ax.add_collection(lines)
            ax.annotate(p.label, (points[-1][1], points[-1][2]), color="white",
                        fontweight="bold", xytext=(4, 4), textcoords="offset points", zorder=6)
        for _, x, y in p.falls:
            ax.plot(x, y, "x", color="red", markersize=9, markeredgewidth=2, zorder=5)
        for _, x, y, upright in p.standups:
            ax.plot(x, y, "o", markersize=9 if upright else 7, zorder=5,
                    color="magenta" if upright else "deepskyblue", markeredgecolor="black")
        for _, x, y in p.kicks:
            ax.plot(x, y, "D", color="orange", markersize=6, markeredgecolor="black", zorder=5)

    # The ball: true positions of whoever has the most, else the first player's estimate.
    best = max(players, key=lambda p: sum(1 for b in p.ball if b[3]))
    ball = [(x, y) for _, x, y, true in best.ball if true] or [(x, y) for _, x, y, _ in best.ball]
    if ball:
        ax.plot([b[0] for b in ball], [b[1] for b in ball], ":", color="black", linewidth=1.2,
                zorder=4)
        ax.plot(ball[-1][0], ball[-1][1], "o", color="white", markeredgecolor="black", zorder=6)
    for now, side, x, y in goals:
        ax.plot(x, y, "*", color="gold", markersize=22, markeredgecolor="black", zorder=7)
        ax.annotate(f"goal {'left' if side == 1 else 'right'} {now:.0f} s", (x, y), zorder=7,
                    xytext=(8, -14), textcoords="offset points", color="gold", fontweight="bold")

    colourbar = fig.colorbar(plt.cm.ScalarMappable(norm=norm, cmap="viridis"), ax=ax,
                             fraction=0.03, pad=0.02)
    colourbar.set_label("simulation time (s)")
    legend = [Line2D([], [], marker="x", color="red", linestyle="", label="fall"),
              Line2D([], [], marker="o", color="deepskyblue", markeredgecolor="black",
                     linestyle="", label="stand-up"),
              Line2D([], [], marker="o", color="magenta", markeredgecolor="black", linestyle="",
                     label="stand-up begun upright"),
              Line2D([], [], marker="D", color="orange", markeredgecolor="black", linestyle="",
                     label="kick"),
              Line2D([], [], color="black", linestyle=":", label="ball"),
              Line2D([], [], marker="*", color="gold", markeredgecolor="black", linestyle="",
                     markersize=14, label="goal")]
    ax.legend(handles=legend, loc="upper center", bbox_to_anchor=(0.5, -0.04), ncol=6,
              frameon=False)
    teams = {}
    for p in players:
        teams.setdefault(p.side, p.team)
    score = {1: 0, 2: 0}
    for _, side, _, _ in goals:
        score[side] += 1
    ax.set_title(f"{teams.get(1, '?')} (left) {score[1]} : {score[2]} {teams.get(2, '?')} (right)"
                 f", {t1 - t0:.0f} s of play; positions: "
                 + ", ".join(sorted({"true (server)" if p.source == "server" else
                                     "the players' own" for p in players})))
    ax.set_xlim(-half_l - 1, half_l + 1)
    ax.set_ylim(-half_w - 1, half_w + 1)
    ax.set_aspect("equal")
    ax.set_xlabel("x (m)")
    ax.set_ylabel("y (m)")
    fig.savefig(out, dpi=80, bbox_inches="tight")
    plt.close(fig)


def default_track():
    for build in ("build", "build-asan"):
        path = os.path.join(ROOT, build, "korvel-track")
        if os.access(path, os.X_OK):
            return path
    return os.path.join(ROOT, "build", "korvel-track")


def report(run, out, track):
    players = find_players(run)
    if not players:
        print(f"No player recordings under {run} (run/playerN/LogFiles/Korvel-1.log.offline)",
              file=sys.stderr)
        return 1
    for p in players:
        analyse(p, track)
    goals = goals_of(players)
    attribute(goals, players)
    text = table(players, goals)
    draw(players, goals, out)
    with open(os.path.splitext(out)[0] + ".txt", "w") as f:
        f.write(text + "\n")
    print(text)
    print(f"Picture: {out}")
    return 0


def self_check(track):
    """The report of the shipped real recording, replayed as the attacker: the robot flails and
    falls, so there must be falls, time down and a track; the picture must be written."""
    recording = os.path.join(ROOT, "tests", "data", "real-session-3200.txt")
    with tempfile.TemporaryDirectory() as run:
        player = os.path.join(run, "player3")
        os.makedirs(os.path.join(player, "LogFiles"))
        os.symlink(os.path.join(ROOT, "Data"), os.path.join(player, "Data"))
        shutil.copy(recording, os.path.join(player, "LogFiles", "Korvel-1.log.offline"))
        out = os.path.join(run, "game-report.png")
        if report(run, out, track) != 0:
            return 1
        with open(os.path.join(run, "game-report.txt")) as f:
            rows = f.read().splitlines()
        fields = rows[1].split()
        checks = [
            (len(rows) == 3, "one player row and the score line"),
            (fields[:3] == ["Korvel-3", "left", "own"],
             "player Korvel-3 of the left team, own localisation (no true positions recorded)"),
            (int(fields[4]) >= 1, "the flailing robot falls"),
            (float(fields[7]) > 1.0, "it spends time down"),
            (float(fields[3]) > 0.0, "its track moves"),
            (rows[2].startswith("score: left 0 : 0 right; goals at none"), "no goal"),
            (os.path.getsize(out) > 20000, "the picture is written"),
        ]
        failed = [what for ok, what in checks if not ok]
        for what in failed:
            print(f"self-check failed: {what}", file=sys.stderr)
        return 1 if failed else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("run", nargs="?", default="run", help="run directory (default ./run)")
    parser.add_argument("--out", help="PNG to write (default RUN/game-report.png)")
    parser.add_argument("--track", default=default_track(), help="korvel-track binary")
    parser.add_argument("--self-check", action="store_true",
                        help="report the shipped recording and check the result")
    args = parser.parse_args()
    args.track = os.path.abspath(args.track)
    if args.self_check:
        return self_check(args.track)
    return report(args.run, args.out or os.path.join(args.run, "game-report.png"), args.track)


if __name__ == "__main__":
    sys.exit(main())
