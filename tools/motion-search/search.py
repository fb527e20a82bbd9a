#!/usr/bin/python3
"""motion-search: tunes the key-frame sheets' parameters on the real simulation server.

Each candidate (the walk sheet's gait and the shared standing stance, see sheets.py) is written
as a scratch Data tree and scored with motion-lab runs on a server of its own in agent sync
mode; K servers run side by side on their own ports. The optimiser is scipy's
differential_evolution (seeded, deferred updating, so that a generation's candidates are scored
in parallel). Every evaluation goes into the state file at once; a search started again with the
same state file and seed replays the finished evaluations from it and carries on where it
stopped. Costs are minimised; the cost of each course is described in README.md.
"""
import argparse
import json
import os
import queue
import re
import signal
import socket
import subprocess
import sys
import threading
import time
from concurrent.futures import ThreadPoolExecutor

import sheets

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))

# Course name -> the motion-lab motion that runs it.
COURSES = {
    'straight': 'Walk',
    'targets': 'go-to-targets',
    'sideways': 'LeftSideWalk',
    'kick': 'LeftKick',
    'stop': 'Stop',
    'frontup': 'FrontStandUp',
    'backup': 'BackStandUp',
    'fallback': 'fall-back',
    'fallwalk': 'fall-back-walking',
    'inplay': 'score',
}
# Costs are counted mostly in metres walked. A fall ends the course (the lab does not stand up)
# and costs as much as 5 m of progress more,
# so that a robot that walks and falls does not beat one that walks less far on its feet, and
# neither beats walking on.
FALL = 5.0
BROKEN = 100.0    # cost of a candidate whose sheets or lab run failed


def course_cost(course, f):
    """Cost of one course's figures (a dict of motion-lab measurements); lower is better."""
    fell = FALL * f.get('fell', 0.0)
    if course == 'straight':   # metres and speed, heading drift in degrees per 5 m (up to 40)
        return (-f['forward m'] - 10.0 * f['speed m/s'] + 0.05 * min(f['drift deg/5m'], 40.0)
                + fell)
    if course == 'targets':    # metres of progress towards the points, then time
        return -1.0 * f['progress m'] + 0.01 * f['time s'] + fell
    if course == 'sideways':   # speed, and heading change
        return -10.0 * f['speed m/s'] + 0.05 * min(abs(f['turned deg']), 40.0) + fell
    if course == 'kick':       # ball distance, and aim
        return -0.5 * f['ball forward m'] + 0.3 * abs(f['ball sideways m']) + fell
    if course == 'stop':       # time to stand still (never: 4 s)
        still = f['still after s']
        return (still if still >= 0.0 else 4.0) + fell
    if course in ('frontup', 'backup', 'fallback', 'fallwalk'):
        # Standing at the end above all (the share of trials that passed), then the head's
        # height at the end (about 0.52 m standing, 0.06 m lying).
        return 10.0 * (1.0 - f['passed']) - 2.0 * f['head m']
    if course == 'inplay':     # the attacker's own game for 180 s: seconds on the ground
        return f['down s'] / 10.0
    raise ValueError('unknown course ' + course)


def total_cost(figures, courses):
    """A candidate's cost: the sum over the courses, BROKEN when it has no figures."""
    if figures is None:
        return BROKEN
    return sum(course_cost(c, figures[c]) for c in courses)


_ROW = re.compile(r'^(\S+)\s+(\d+)\s+(pass|FAIL)(.*)$')


def parse_lab(text):
    """The trial rows of motion-lab's output -> list of (passed, {measurement: value})."""
    rows = []
    for line in text.splitlines():
        row = _ROW.match(line)
        if not row:
            continue
        figures = {}
        for field in row.group(4).split('  '):
            field = field.strip()
            if not field or field.startswith('('):
                continue
            name, _, value = field.rpartition(' ')
            try:
                figures[name] = float(value)
            except ValueError:
                pass
        rows.append((row.group(3) == 'pass', figures))
    return rows


class Processes:
    """Every child process the search started (servers and lab runs), so that all of them are
    stopped, by pid, whatever ends the search."""

    def __init__(self):
        self.lock = threading.Lock()
        self.live = {}
        self.stopping = False

    def start(self, argv, signal_to_stop, **kw):
        with self.lock:
            if self.stopping:
                raise KeyboardInterrupt
            child = subprocess.Popen(argv, **kw)
            self.live[child.pid] = (child, signal_to_stop)
        return child

    def stop(self, child):
        with self.lock:
            entry = self.live.pop(child.pid, None)
        if entry is None:
            return
        if child.poll() is None:
            child.send_signal(entry[1])
            try:
                child.wait(timeout=10)
            except subprocess.TimeoutExpired:
                child.kill()
                child.wait()

    def stop_all(self):
        with self.lock:
            self.stopping = True
            children = [c for c, _ in self.live.values()]
        for child in children:
            self.stop(child)


def wait_for_port(port, seconds):
    until = time.time() + seconds
    while time.time() < until:
        try:
            with socket.create_connection(('127.0.0.1', port), timeout=1):
                return True
        except OSError:
            time.sleep(0.3)
    return False


class Evaluator:
    """Scores candidates, one server per slot (agent port base + slot, monitor port base + 100
    + slot), and records every evaluation in the state."""

    def __init__(self, args, state, processes):
        self.args = args
        self.state = state
        self.processes = processes
        self.slots = queue.Queue()
        for k in range(args.servers):
            self.slots.put(k)
        self.lock = threading.Lock()
        # Costs always follow from the stored figures, so that a change of the cost keeps the
        # measurements.
        for e in state['evaluations']:
            e['cost'] = total_cost(e['figures'], args.courses)
        self.cache = {key(e['x']): e for e in state['evaluations']}
        self.fresh = 0
        self.batch = []  # costs of the generation under way, replayed ones included
        self.started = time.time()

    def score(self, x):
        x = [float(v) for v in x]
        with self.lock:
            hit = self.cache.get(key(x))
            if hit is not None:
                self.batch.append(hit['cost'])
                return hit['cost']
        slot = self.slots.get()
        try:
            figures, note = self.measure(x, slot)
        finally:
            self.slots.put(slot)
        if self.processes.stopping:
            raise KeyboardInterrupt  # cut short: not a measurement of this candidate
        cost = total_cost(figures, self.args.courses)
        entry = {'x': x, 'cost': cost, 'figures': figures, 'note': note,
                 'shipped': same(x, self.state['shipped']), 'time': time.time()}
        with self.lock:
            self.state['evaluations'].append(entry)
            self.cache[key(x)] = entry
            self.batch.append(cost)
            self.fresh += 1
            save_state(self.args.state, self.state)
        return cost

    def measure(self, x, slot):
        """Per-course figures of candidate x (the mean over --trials trials), or None and why."""
        work = os.path.join(self.args.work, 'slot%d' % slot)
        try:
            sheets.build_tree(x, os.path.join(ROOT, 'tools', 'keyframes'),
                              os.path.join(ROOT, 'Data'), work)
        except (RuntimeError, ValueError) as e:
            return None, str(e)
        agent = self.args.port + slot
        monitor = self.args.port + 100 + slot
        run_dir = os.path.join(work, 'server')
        os.makedirs(run_dir, exist_ok=True)
        with open(os.path.join(run_dir, 'server.log'), 'w') as log:
            server = self.processes.start(
                [self.args.server, '--agent-port', str(agent), '--server-port', str(monitor)],
                signal.SIGINT, cwd=run_dir, stdout=log, stderr=subprocess.STDOUT)
        try:
            if not wait_for_port(agent, 30) or server.poll() is not None:
                return None, 'the server on port %d did not start' % agent
            figures = {}
            for course in self.args.courses:
                lab = self.processes.start(
                    [self.args.lab, '--sync', '--port', str(agent), '--monitor-port',
                     str(monitor), '--trials', str(self.args.trials), COURSES[course]],
                    signal.SIGTERM, cwd=work, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                    text=True)
                try:
                    out, _ = lab.communicate(timeout=self.args.lab_timeout)
                except subprocess.TimeoutExpired:
                    return None, '%s: the lab took over %d s' % (course, self.args.lab_timeout)
                finally:
                    self.processes.stop(lab)
                rows = parse_lab(out)
                if not rows:
                    return None, '%s: no trial row (lab exit %s)' % (course, lab.returncode)
                names = rows[0][1].keys()
                figures[course] = {n: sum(r[1].get(n, 0.0) for r in rows) / len(rows)
                                   for n in names}
                figures[course]['passed'] = sum(r[0] for r in rows) / len(rows)
            return figures, ''
        finally:
            self.processes.stop(server)

    def rate(self):
        minutes = (time.time() - self.started) / 60.0
        return self.fresh / minutes if minutes > 0 else 0.0


def same(a, b):
    return len(a) == len(b) and all(abs(u - v) < 1e-9 for u, v in zip(a, b))


def key(x):
    return json.dumps([float(v) for v in x])


def new_state(args, shipped):
    return {'version': 1, 'seed': args.seed, 'courses': args.courses, 'family': args.family,
            'names': sheets.NAMES,
            'bounds': [list(b) for b in sheets.BOUNDS], 'shipped': shipped, 'evaluations': [], 'generations': []}


def load_state(path):
    with open(path) as f:
        state = json.load(f)
    if (state.get('version') != 1 or state.get('names') != sheets.NAMES
            or state.get('bounds') != [list(b) for b in sheets.BOUNDS]):
        raise ValueError('%s: not a state file of this search (other parameters)' % path)
    return state


def save_state(path, state):
    tmp = path + '.tmp'
    with open(tmp, 'w') as f:
        json.dump(state, f)
    os.replace(tmp, path)


def best(state):
    done = [e for e in state['evaluations'] if e['figures'] is not None]
    return min(done, key=lambda e: e['cost']) if done else None


def plot(state, path):
    """Fitness over evaluations, and the best candidate's per-course figures beside the
    shipped ones."""
    import matplotlib
    matplotlib.use('Agg')
    import matplotlib.pyplot as plt
    evaluations = state['evaluations']
    if not evaluations:
        return
    fig, (left, right) = plt.subplots(1, 2, figsize=(13, 5))
    costs = [e['cost'] for e in evaluations]
    running = [min(costs[:i + 1]) for i in range(len(costs))]
    left.plot(range(1, len(costs) + 1), costs, '.', color='grey', label='candidate')
    left.plot(range(1, len(costs) + 1), running, '-', color='tab:blue', label='best so far')
    for e in (e for e in evaluations if e.get('shipped')):
        left.axhline(e['cost'], color='tab:orange', ls='--', label='shipped')
        break
    left.set_xlabel('evaluation')
    left.set_ylabel('cost (lower is better)')
    left.legend()
    top = best(state)
    ship = next((e for e in evaluations if e.get('shipped') and e['figures']), None)
    if top is not None:
        labels, mine, theirs = [], [], []
        for course, figures in top['figures'].items():
            for name, value in figures.items():
                if name in ('time s', 'passed'):
                    continue
                labels.append('%s\n%s' % (course, name))
                mine.append(value)
                theirs.append(ship['figures'][course].get(name, 0.0) if ship else 0.0)
        at = range(len(labels))
        right.bar([i - 0.2 for i in at], mine, 0.4, label='best (cost %.3f)' % top['cost'])
        right.bar([i + 0.2 for i in at], theirs, 0.4, label='shipped')
        right.set_xticks(list(at))
        right.set_xticklabels(labels, rotation=60, ha='right', fontsize=7)
        right.legend()
        right.set_title('per-course figures (sync mode)')
    fig.tight_layout()
    fig.savefig(path)
    plt.close(fig)


def optimise(args, evaluator, shipped, pool, callback):
    """Differential evolution over the sheets' parameters, the shipped ones in the first
    generation. Seeded and with deferred updating, so that the same seed proposes the same
    candidates in the same order: a resumed search meets its finished evaluations again and
    takes their costs from the state."""
    from scipy.optimize import differential_evolution  # only the search itself needs scipy
    return differential_evolution(
        evaluator.score, sheets.BOUNDS, x0=shipped, popsize=args.popsize,
        maxiter=args.generations, seed=args.seed, polish=False, tol=0.0, atol=0.0,
        updating='deferred', workers=lambda f, xs: list(pool.map(f, xs)), callback=callback,
        init='latinhypercube')


def parse_args(argv):
    p = argparse.ArgumentParser(
        prog='motion-search',
        description='Tunes the walk sheet\'s gait and the shared standing stance '
                    '(tools/keyframes) with differential evolution on the real simulation server '
                    'in agent sync mode. Each candidate is written to a scratch Data tree (never '
                    'the repository\'s) and scored with build/motion-lab runs.',
        epilog='Stops every server it started (SIGINT, by pid) on exit, Ctrl-C included. '
               'Run again with the same --state to resume.')
    p.add_argument('--state', default='motion-search-state.json',
                   help='state file: every evaluation so far (resumed from when it exists)')
    p.add_argument('--work', default='/tmp/motion-search',
                   help='scratch directory for the candidates\' Data trees and server logs')
    p.add_argument('--plot', default='motion-search.png', help='PNG drawn every generation')
    p.add_argument('--family', default='walk', choices=sorted(sheets.FAMILIES),
                   help='the parameters searched (see sheets.py)')
    p.add_argument('--courses', default='straight,targets',
                   help='comma-separated, from: ' + ', '.join(COURSES))
    p.add_argument('--servers', type=int, default=1, help='servers run side by side (K)')
    p.add_argument('--port', type=int, default=3150,
                   help='agent port of the first server; the monitor ports are 100 above')
    p.add_argument('--generations', type=int, default=10, help='generations after the first')
    p.add_argument('--popsize', type=int, default=1,
                   help='population = popsize x number of parameters (scipy\'s meaning)')
    p.add_argument('--trials', type=int, default=1, help='lab trials per course and candidate')
    p.add_argument('--seed', type=int, default=1, help='random seed (keep it to resume)')
    p.add_argument('--lab', default=os.path.join(ROOT, 'build', 'motion-lab'),
                   help='the motion-lab binary')
    p.add_argument('--server', default='rcssserver3d-sync',
                   help='the sync-mode server command (on the PATH)')
    p.add_argument('--lab-timeout', type=int, default=900,
                   help='seconds a lab run may take before the candidate counts as broken')
    p.add_argument('--best', action='store_true',
                   help='print the best candidate of the state file and exit')
    p.add_argument('--export', metavar='DIR',
                   help='write the best candidate\'s Data tree to DIR/Data and exit')
    args = p.parse_args(argv)
    args.courses = [c for c in args.courses.split(',') if c]
    sheets.use(args.family)
    for c in args.courses:
        if c not in COURSES:
            p.error('unknown course "%s"' % c)
    if args.servers < 1 or args.popsize < 1 or args.trials < 1:
        p.error('--servers, --popsize and --trials must be at least 1')
    return args


def report_best(state):
    top = best(state)
    if top is None:
        print('no evaluation yet')
        return None
    print('best cost %.4f (evaluation %d of %d)' % (top['cost'],
                                                    state['evaluations'].index(top) + 1,
                                                    len(state['evaluations'])))
    for name, value in zip(sheets.NAMES, top['x']):
        print('  %-10s %.5f' % (name, value))
    for course, figures in top['figures'].items():
        print('  %-9s %s' % (course, '  '.join('%s %.3f' % kv for kv in figures.items())))
    return top


def main(argv):
    args = parse_args(argv)
    shipped = sheets.shipped(os.path.join(ROOT, 'tools', 'keyframes'))
    if os.path.exists(args.state):
        state = load_state(args.state)
        if state['seed'] != args.seed or state['courses'] != args.courses:
            sys.exit('motion-search: %s was made with seed %s and courses %s; give the same '
                     '(or another --state)' % (args.state, state['seed'],
                                               ','.join(state['courses'])))
    elif args.best or args.export:
        sys.exit('motion-search: no state file %s' % args.state)
    else:
        state = new_state(args, shipped)
    if args.best or args.export:
        top = report_best(state)
        if args.export and top is not None:
            out = sheets.build_tree(top['x'], os.path.join(ROOT, 'tools', 'keyframes'),
                                    os.path.join(ROOT, 'Data'), args.export)
            print('wrote', out)
        return 0
    if not os.access(args.lab, os.X_OK):
        sys.exit('motion-search: no motion-lab at %s (build it, or give --lab)' % args.lab)

    processes = Processes()
    evaluator = Evaluator(args, state, processes)
    size = args.popsize * len(sheets.NAMES)
    planned = size * (args.generations + 1)
    generation = [0]

    def progress(xk, convergence=None):
        generation[0] += 1
        with evaluator.lock:
            batch, evaluator.batch = evaluator.batch, []
        count = len(state['evaluations'])
        rate = evaluator.rate()
        eta = (planned - count) / rate if rate > 0 else float('nan')
        top = best(state)
        line = ('generation %d: best %.4f  mean %.4f  evaluations %d/%d  %.2f per minute  '
                'eta %.0f min' % (generation[0], top['cost'] if top else float('nan'),
                                  sum(batch) / len(batch) if batch else float('nan'), count,
                                  planned, rate, eta))
        print(line, flush=True)
        if generation[0] > len(state['generations']):
            state['generations'].append({'best': top['cost'] if top else None,
                                         'evaluations': count, 'time': time.time()})
            save_state(args.state, state)
        plot(state, args.plot)
        return False

    def interrupted(signum, frame):
        raise KeyboardInterrupt

    # Also when started in the background, where SIGINT arrives ignored: the servers started
    # after this inherit the default action rather than an ignored signal.
    signal.signal(signal.SIGINT, interrupted)
    signal.signal(signal.SIGTERM, interrupted)
    pool = ThreadPoolExecutor(max_workers=args.servers)
    try:
        result = optimise(args, evaluator, shipped, pool, progress)
        print('finished: %s, %d evaluations' % (result.message, len(state['evaluations'])))
    except KeyboardInterrupt:
        print('\ninterrupted; %d evaluations kept in %s' % (len(state['evaluations']),
                                                          args.state), file=sys.stderr)
        return 130
    finally:
        processes.stop_all()
        pool.shutdown(wait=True, cancel_futures=True)
        save_state(args.state, state)
        plot(state, args.plot)
    report_best(state)
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
