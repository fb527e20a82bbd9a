"""Checks of motion-search that need no server: the parameter <-> sheet mapping, the lab output
it reads, and that an interrupted search resumes to the same result as one left alone."""
import os
import sys
import tempfile
import unittest
from concurrent.futures import ThreadPoolExecutor

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import search  # noqa: E402
import sheets  # noqa: E402

KEYFRAMES = os.path.join(search.ROOT, 'tools', 'keyframes')
DATA = os.path.join(search.ROOT, 'Data')


def read(path):
    with open(path) as f:
        return f.read()


class SheetMapping(unittest.TestCase):
    def test_shipped_parameters_lie_inside_the_bounds(self):
        for name, value, (low, high) in zip(sheets.NAMES, sheets.shipped(KEYFRAMES),
                                            sheets.BOUNDS):
            self.assertTrue(low <= value <= high, name)

    def test_trees_follow_the_parameters(self):
        shipped = sheets.shipped(KEYFRAMES)
        longer = list(shipped)
        longer[sheets.NAMES.index('half_step')] += 0.01
        deeper = list(shipped)
        deeper[sheets.NAMES.index('K0')] -= 4.0
        with tempfile.TemporaryDirectory() as tmp:
            trees = {name: sheets.build_tree(x, KEYFRAMES, DATA, os.path.join(tmp, name))
                     for name, x in (('shipped', shipped), ('longer', longer),
                                     ('deeper', deeper))}

            def skill(tree, name):
                return read(os.path.join(trees[tree], 'SkillData', name + '.conf'))

            # The shipped parameters give the repository's own skill files back.
            for name in ('Walk', 'Stop', 'TurnLeft40', 'LeftKick'):
                self.assertEqual(skill('shipped', name),
                                 read(os.path.join(DATA, 'SkillData', name + '.conf')), name)
            # A longer step changes the walk only; a deeper stance every sheet that stands in it.
            self.assertNotEqual(skill('longer', 'Walk'), skill('shipped', 'Walk'))
            self.assertEqual(skill('longer', 'TurnLeft40'), skill('shipped', 'TurnLeft40'))
            self.assertIn('walks straight ahead, 0.048 m steps', skill('longer', 'Walk'))
            for name in ('Stop', 'TurnLeft40', 'LeftSideWalk', 'LeftKick', 'FrontStandUp'):
                self.assertNotEqual(skill('deeper', name), skill('shipped', name), name)
            self.assertEqual(read(os.path.join(trees['deeper'], 'ConfigurationData',
                                               'Config_FileAddresses.conf')),
                             read(os.path.join(DATA, 'ConfigurationData',
                                               'Config_FileAddresses.conf')))

    def test_walk_text_round_trip_keeps_the_other_entries(self):
        text = 'x = 1\nWALK = dict(height=0.2, frames=8,\n  lift=0.01)\ny = 2\n'
        patched = sheets.write_walk(text, {'lift': 0.02})
        self.assertEqual(sheets.read_walk(patched), {'height': 0.2, 'frames': 8, 'lift': 0.02})
        self.assertTrue(patched.startswith('x = 1\n') and patched.endswith('\ny = 2\n'))
        with self.assertRaises(ValueError):
            sheets.write_walk(text, {'stride': 1.0})
        with self.assertRaises(ValueError):
            sheets.read_stance('P0 = 25\n')


    def test_the_back_stand_up_family_rewrites_only_its_skill(self):
        sheets.use('backup')
        try:
            shipped = sheets.shipped(KEYFRAMES)
            for name, value, (low, high) in zip(sheets.NAMES, shipped, sheets.BOUNDS):
                self.assertTrue(low <= value <= high, name)
            deeper = list(shipped)
            deeper[sheets.NAMES.index('catch_ankle')] = 60.0
            with tempfile.TemporaryDirectory() as tmp:
                trees = [os.path.join(sheets.build_tree(x, KEYFRAMES, DATA, os.path.join(tmp, n)),
                                      'SkillData') for n, x in (('a', shipped), ('b', deeper))]
                changed = [f for f in sorted(os.listdir(trees[0]))
                           if read(os.path.join(trees[0], f)) != read(os.path.join(trees[1], f))]
                self.assertEqual(changed, ['BackStandUp.conf'])
                self.assertEqual(read(os.path.join(trees[0], 'BackStandUp.conf')),
                                 read(os.path.join(DATA, 'SkillData', 'BackStandUp.conf')))
                self.assertIn('Leg::Left = 0 7.4 92.04 -101.63 60 -7.4',
                              read(os.path.join(trees[1], 'BackStandUp.conf')))
        finally:
            sheets.use('walk')


class LabOutput(unittest.TestCase):
    def test_rows_and_course_costs(self):
        out = ('# Walk: 10 m forward\nConnecting to TCP 127.0.0.1:3151\n'
               'Walk            1  FAIL  speed m/s 0.184  forward m 7.370  sideways m -0.940  '
               'drift deg/5m 11.954  time s 40.000  fell 0.000  (distance not covered)\n'
               'Walk           passed 0/1  speed m/s mean 0.184 [0.184, 0.184]\n'
               'standup-walking  2  pass  walked s 2.130  back 1.000\n')
        rows = search.parse_lab(out)
        self.assertEqual(rows, [
            (False, {'speed m/s': 0.184, 'forward m': 7.37, 'sideways m': -0.94,
                     'drift deg/5m': 11.954, 'time s': 40.0, 'fell': 0.0}),
            (True, {'walked s': 2.13, 'back': 1.0})])
        walk = rows[0][1]
        self.assertAlmostEqual(search.course_cost('straight', walk), -7.37 - 1.84 + 0.5977)
        self.assertAlmostEqual(search.course_cost('straight', dict(walk, fell=1.0)),
                               -7.37 - 1.84 + 0.5977 + search.FALL)
        # Standing still must not beat walking, even walking into a fall on the course.
        still = {'forward m': 0.17, 'speed m/s': 0.004, 'drift deg/5m': 1271.5, 'fell': 0.0}
        stood = {'progress m': 3.6, 'time s': 180.0, 'fell': 0.0}
        fell = {'progress m': 2.0, 'time s': 18.0, 'fell': 1.0}
        self.assertLess(search.total_cost({'straight': walk, 'targets': fell},
                                          ['straight', 'targets']),
                        search.total_cost({'straight': still, 'targets': stood},
                                          ['straight', 'targets']))
        self.assertEqual(search.course_cost('stop', {'still after s': -1.0, 'fell': 0.0}), 4.0)
        # Stand-ups: standing in more trials first, then the head's height at the end.
        self.assertLess(search.course_cost('backup', {'passed': 0.5, 'head m': 0.29}),
                        search.course_cost('backup', {'passed': 0.0, 'head m': 0.52}))
        self.assertEqual(search.course_cost('inplay', {'down s': 75.0, 'falls': 5.0}), 7.5)


class Fake(search.Evaluator):
    """Scores by a formula instead of the server; counts what it measured."""

    def measure(self, x, slot):
        self.measured = getattr(self, 'measured', 0) + 1
        if self.measured > self.args.stop_after:
            raise KeyboardInterrupt
        drift = sum((v - (lo + hi) / 2) ** 2 / (hi - lo) ** 2
                    for v, (lo, hi) in zip(x, sheets.BOUNDS))
        return {'straight': {'forward m': x[0], 'speed m/s': x[1], 'drift deg/5m': drift,
                             'fell': 0.0}}, ''


class Resume(unittest.TestCase):
    def run_search(self, path, stop_after):
        args = search.parse_args(['--state', path, '--courses', 'straight', '--popsize', '1',
                                  '--generations', '3', '--servers', '2'])
        args.stop_after = stop_after
        state = (search.load_state(path) if os.path.exists(path)
                 else search.new_state(args, sheets.shipped(KEYFRAMES)))
        evaluator = Fake(args, state, search.Processes())
        with ThreadPoolExecutor(max_workers=2) as pool:
            try:
                result = search.optimise(args, evaluator, state['shipped'], pool, None)
            except KeyboardInterrupt:
                return None, evaluator
        return result, evaluator

    def test_an_interrupted_search_resumes_where_it_stopped(self):
        with tempfile.TemporaryDirectory() as tmp:
            whole, alone = self.run_search(os.path.join(tmp, 'whole.json'), 10**6)
            cut = os.path.join(tmp, 'cut.json')
            self.assertIsNone(self.run_search(cut, 15)[0])
            kept = len(search.load_state(cut)['evaluations'])
            self.assertGreaterEqual(kept, 13)
            resumed, again = self.run_search(cut, 10**6)
            self.assertEqual(list(resumed.x), list(whole.x))
            self.assertEqual(resumed.fun, whole.fun)
            self.assertEqual(again.measured, alone.measured - kept)
            state = search.load_state(cut)
            self.assertEqual(len(state['evaluations']), alone.measured)
            self.assertEqual(sum(e['shipped'] for e in state['evaluations']), 1)


if __name__ == '__main__':
    unittest.main()
