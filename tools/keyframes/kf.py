"""Key-frame sheet -> skill data files.

A pose is a dict of joint effector names to degrees; missing joints keep the previous pose.
Each step gives a pose and a duration in cycles: every joint gets the speed that brings it
from the previous step's target to this one in that many cycles (at most 7 deg/cycle).
"""
import math

JOINTS = {
    'head': ['he1', 'he2'],
    'larm': ['lae1', 'lae2', 'lae3', 'lae4'],
    'rarm': ['rae1', 'rae2', 'rae3', 'rae4'],
    'lleg': ['lle1', 'lle2', 'lle3', 'lle4', 'lle5', 'lle6'],
    'rleg': ['rle1', 'rle2', 'rle3', 'rle4', 'rle5', 'rle6'],
}
ALL = [j for v in JOINTS.values() for j in v]
MAXSPEED = 7.0

ZERO = {j: 0.0 for j in ALL}


def pose(base=None, **kw):
    p = dict(ZERO if base is None else base)
    for k, v in kw.items():
        assert k in p, k
        p[k] = float(v)
    return p


def leg(side, rot=0, roll=0, pitch=0, knee=0, apitch=None, aroll=None):
    """Joint values of one leg; ankles parallel to the ground unless given."""
    if apitch is None:
        apitch = -(pitch + knee)
    if aroll is None:
        aroll = -roll
    p = side
    return {p + 'le1': rot, p + 'le2': roll, p + 'le3': pitch, p + 'le4': knee,
            p + 'le5': apitch, p + 'le6': aroll}


def merge(*dicts):
    out = {}
    for d in dicts:
        out.update(d)
    return out


class Step:
    def __init__(self, targets, cycles, precision=2.0, wait=None, lfoot=None, rfoot=None,
                 lraise=None, rraise=None, note=None, speeds=None, end_at_lean=None):
        self.targets = targets
        self.cycles = cycles
        self.precision = precision
        self.wait = wait
        self.lfoot = lfoot
        self.rfoot = rfoot
        self.lraise = lraise
        self.rraise = rraise
        self.note = note
        self.speeds = speeds
        # The step ends once the torso leans forward this far (degrees), targets reached or not.
        self.end_at_lean = end_at_lean


def fmt(v):
    if abs(v - round(v)) < 1e-9:
        return str(int(round(v)))
    return ('%.2f' % v).rstrip('0').rstrip('.')


def write(path, header, steps, loop=1, start=None):
    """steps: list of Step with full poses (dict of all joints)."""
    prev = dict(start if start is not None else ZERO)
    lines = ['# ' + l if l else '#' for l in header.strip('\n').split('\n')]
    lines += ['', '[DefaultSet]', 'StepCount = %d' % len(steps), 'LoopStepNumber = %d' % loop]
    for i, s in enumerate(steps, 1):
        t = s.targets
        sp = {}
        for j in ALL:
            if s.speeds and j in s.speeds:
                sp[j] = s.speeds[j]
                continue
            d = abs(t[j] - prev[j])
            sp[j] = min(MAXSPEED, max(0.5, d / max(1, s.cycles)))
        lines += ['', '[Step%d]' % i]
        if s.note:
            lines.append('# ' + s.note)
        lines.append('leftFootParallerGround = ' + ('true %s' % fmt(s.lfoot) if s.lfoot else 'false'))
        lines.append('rightFootParallerGround = ' + ('true %s' % fmt(s.rfoot) if s.rfoot else 'false'))
        lines.append('leftRaise2 = ' + ('true %s %s' % (fmt(s.lraise[0]), fmt(s.lraise[1])) if s.lraise else 'false'))
        lines.append('rightRaise2 = ' + ('true %s %s' % (fmt(s.rraise[0]), fmt(s.rraise[1])) if s.rraise else 'false'))
        lines.append('precision = true %s' % fmt(s.precision))
        if s.wait:
            lines.append('wait = %s' % fmt(s.wait))
        if s.end_at_lean is not None:
            lines.append('endAtLean = %s' % fmt(s.end_at_lean))
        for key, limb in (('Head::Instance', 'head'), ('Arm::Left', 'larm'), ('Arm::Right', 'rarm'),
                          ('Leg::Left', 'lleg'), ('Leg::Right', 'rleg')):
            pkey = key.replace('::Instance', '::PInstance').replace('::Left', '::PLeft').replace('::Right', '::PRight')
            lines.append('%s = %s' % (key, ' '.join(fmt(t[j]) for j in JOINTS[limb])))
            lines.append('%s = %s' % (pkey, ' '.join(fmt(sp[j]) for j in JOINTS[limb])))
        prev = t
    with open(path, 'w') as f:
        f.write('\n'.join(lines) + '\n')
