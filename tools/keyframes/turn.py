"""Sheet of the turns on the spot: TurnLeftN and TurnRightN for N = 40 30 25 15 10 5 degrees.

    python3 tools/keyframes/turn.py Data     # rewrites Data/SkillData/Turn{Left,Right}{N}.conf

One turn step, for TurnLeft (TurnRight is its mirror image):
  1. lean over the right foot (the body moves sideways, the feet stay flat),
  2. lift the left foot,
  3. the right hip yaw turns the toes of the planted right foot out: the body turns over it,
     while the lifted left foot turns its toes out as well,
  4. put the left foot down,
  5. lean over the (turned) left foot,
  6. lift the right foot,
  7. the left hip yaw straightens while the left foot carries the robot: the body turns over
     the left foot, and the lifted right foot comes round straight,
  8. put the right foot down and lean back to the middle: the stance.

le1 can only turn the toes outwards, and its axis lies halfway between the vertical and the
sideways axis, so turning it also pitches the thigh. Every leg posture is therefore solved
(inverse kinematics with the robot model's joint axes and leg lengths) from where the ankle is
wanted relative to the hip and how far the flat foot is turned.

The body turns less than the hip yaw setting (the feet slip a little); each size's setting was
found by measuring what it really turns.
"""
import math
import sys

from kf import Step, merge, pose, write
from stance import K0, P0, STANCE

# ---- kinematics of one leg (joint axes of the robot model; x right, y forward, z up) ----


def rot(axis, deg):
    x, y, z = axis
    n = math.sqrt(x * x + y * y + z * z)
    x, y, z = x / n, y / n, z / n
    a = math.radians(deg)
    c, s, t = math.cos(a), math.sin(a), 1 - math.cos(a)
    return [[t * x * x + c, t * x * y - s * z, t * x * z + s * y],
            [t * x * y + s * z, t * y * y + c, t * y * z - s * x],
            [t * x * z - s * y, t * y * z + s * x, t * z * z + c]]


def mul(a, b):
    return [[sum(a[i][k] * b[k][j] for k in range(3)) for j in range(3)] for i in range(3)]


def tr(a):
    return [[a[j][i] for j in range(3)] for i in range(3)]


X, Y, Z = (1, 0, 0), (0, 1, 0), (0, 0, 1)


def yaw_axis(side):
    """Axis of le1: (-0.7071, 0, -0.7071) on the left leg, (-0.7071, 0, 0.7071) on the right."""
    return (-0.7071, 0.0, -0.7071 if side == 'l' else 0.7071)


THIGH = (0.0, 0.005, -0.12)  # hip to knee, metres (leg straight down at every angle 0)
SHANK = (0.0, 0.0, -0.10)  # knee to ankle


def fk(side, a):
    """Ankle position relative to the hip (metres) and foot orientation for joint angles a[0..5]."""
    r3 = mul(mul(rot(yaw_axis(side), a[0]), rot(Y, a[1])), rot(X, a[2]))
    r4 = mul(r3, rot(X, a[3]))
    knee = [sum(r3[i][k] * THIGH[k] for k in range(3)) for i in range(3)]
    ankle = [knee[i] + sum(r4[i][k] * SHANK[k] for k in range(3)) for i in range(3)]
    foot = mul(mul(r4, rot(X, a[4])), rot(Y, a[5]))
    return ankle, foot


def ik(side, ankle, yaw, guess):
    """Joint angles putting the ankle at `ankle` (relative to the hip, metres) with the foot
    flat and turned by `yaw` degrees; Newton steps from `guess`."""
    want = rot(Z, yaw)

    def residual(a):
        p, f = fk(side, a)
        m = mul(tr(want), f)
        return [1000 * (p[i] - ankle[i]) for i in range(3)] + \
            [1000 * (m[2][1] - m[1][2]) / 2, 1000 * (m[0][2] - m[2][0]) / 2, 1000 * (m[1][0] - m[0][1]) / 2]

    a = list(guess)
    for _ in range(50):
        r = residual(a)
        if max(abs(v) for v in r) < 1e-4:
            break
        jac = []
        for j in range(6):
            b = list(a)
            b[j] += 1e-3
            rb = residual(b)
            jac.append([(rb[i] - r[i]) / 1e-3 for i in range(6)])
        # Gauss-Jordan on the Newton system: sum over j of jac[j][i] * d[j] = -r[i]
        mtx = [[jac[j][i] for j in range(6)] + [-r[i]] for i in range(6)]
        for c in range(6):
            piv = max(range(c, 6), key=lambda q: abs(mtx[q][c]))
            mtx[c], mtx[piv] = mtx[piv], mtx[c]
            for q in range(6):
                if q != c:
                    f = mtx[q][c] / mtx[c][c]
                    mtx[q] = [mtx[q][k] - f * mtx[c][k] for k in range(7)]
        d = [mtx[c][6] / mtx[c][c] for c in range(6)]
        step = max(abs(v) for v in d)
        scale = min(1.0, 10.0 / step) if step > 0 else 1.0
        a = [a[j] + scale * d[j] for j in range(6)]
    else:
        raise ValueError('no leg posture for ankle %s yaw %s' % (ankle, yaw))
    return a


STANCE_ANKLE = fk('l', [0, 0, P0, K0, -(P0 + K0), 0])[0]


def leg_pose(side, yaw=0.0, shift=0.0, lift=0.0, back=0.0):
    """One leg with the foot flat, turned by `yaw` degrees (counter-clockwise) and placed at the
    stance position moved `shift` metres to the robot's right, `back` metres backwards (torso
    frame) and lifted `lift` metres."""
    ankle = [STANCE_ANKLE[0] + shift, STANCE_ANKLE[1] - back, STANCE_ANKLE[2] + lift]
    a = ik(side, ankle, yaw, [0, 0, P0, K0, -(P0 + K0), 0])
    lo = {'1': -90, '2': -25 if side == 'l' else -45, '3': -25, '4': -130, '5': -45,
          '6': -45 if side == 'l' else -25}
    hi = {'1': 1, '2': 45 if side == 'l' else 25, '3': 100, '4': 1, '5': 75,
          '6': 25 if side == 'l' else 45}
    for j, v in enumerate(a, 1):
        assert lo[str(j)] <= v <= hi[str(j)], (side, j, v, yaw, shift, lift)
    return {side + 'le%d' % j: v for j, v in enumerate(a, 1)}


# ---- the turn step ----

# Per size N: yaw = the two hip yaws' turn together (degrees; set from what each size measured),
# split = the part of it turned over the first planted foot, lean = how far the body moves
# sideways over the planted foot (metres), lift = foot lift (metres), spread = how much wider
# the first lifted foot is put down, so that the turned feet miss each other (metres), back =
# the feet stand this much further back during the step (metres; the body's weight then lies
# over the middle of the feet instead of near the heels), ease = the part of each lean done in
# the first half of its time, t = cycles of each phase.
SIZES = {
    n: dict(yaw=y, lean=0.04, lift=0.03, spread=0.01, split=0.5, back=0.02, ease=0.7,
            t=(12, 6, 8, 6, 15, 6, 10, 6, 16))
    for n, y in ((40, 70.0), (30, 32.0), (25, 27.0), (15, 15.0), (10, 8.0), (5, 7.5))
}
PRECISION = 3.0

# Measured turn (degrees, 5 trials each, motion lab, sync-mode server, from the stance and
# followed by Stop): every trial of a file turned the same on the deterministic server.
RESULTS = {40: 48.26, 30: 29.93, 25: 25.61, 15: 14.42, 10: 10.77, 5: 4.38}
TRIAL_SECONDS = {40: 2.38, 30: 2.44, 25: 2.40, 15: 2.42, 10: 2.28, 5: 2.27}


def mirror(p):
    """The same pose for the other side: the legs swap, hip and ankle rolls change sign; the hip
    yaw joint keeps its value (on both legs it turns the toes out). The arms stay as they are."""
    out = dict(p)
    sign = {'1': 1, '2': -1, '3': 1, '4': 1, '5': 1, '6': -1}
    for j, v in p.items():
        if j[1:3] == 'le':
            out[('r' if j[0] == 'l' else 'l') + j[1:]] = sign[j[3]] * v
    return out


def left_turn_steps(cfg):
    """Key frames of a left turn (counter-clockwise) as (pose, cycles, note)."""
    lean, lift, spread = cfg['lean'], cfg['lift'], cfg['spread']
    # The turn is shared by the two hip yaw joints: the right one turns the body while the left
    # foot is in the air, the left one while the right foot is.
    yr = cfg['yaw'] * cfg['split']
    yl = cfg['yaw'] - yr
    arms = {k: STANCE[k] for k in STANCE if k[1] == 'a' or k[0] == 'h'}

    def body(l, r):
        return pose(STANCE, **merge(arms, l, r))

    def L(side, **kw):
        return leg_pose(side, back=cfg['back'], **kw)

    R = L
    frames = [
        (body(L('l', shift=-lean), R('r', shift=-lean)), 'lean over the right foot'),
        (body(L('l', shift=-lean, lift=lift), R('r', shift=-lean)), 'lift the left foot'),
        (body(L('l', yaw=yl, shift=-lean - spread, lift=lift), R('r', yaw=-yr, shift=-lean)),
         'turn the body over the right foot and the left toes out'),
        (body(L('l', yaw=yl, shift=-lean - spread), R('r', yaw=-yr, shift=-lean)),
         'left foot down'),
        (body(L('l', yaw=yl, shift=lean), R('r', yaw=-yr, shift=lean + spread)),
         'lean over the left foot'),
        (body(L('l', yaw=yl, shift=lean), R('r', yaw=-yr, shift=lean + spread, lift=lift)),
         'lift the right foot'),
        (body(L('l', shift=lean), R('r', shift=lean, lift=lift)),
         'turn the body over the left foot, the right foot with it'),
        (body(L('l', shift=lean), R('r', shift=lean)), 'right foot down'),
        (STANCE, 'lean back to the middle: the stance'),
    ]
    # The leans end slowly: most of the way in the first half of their time, the rest in the
    # second half, so that the body does not sway on over the supporting foot.
    out, prev = [], STANCE
    for i, ((p, n), t) in enumerate(zip(frames, cfg['t'])):
        if i in (0, 4, 8) and cfg['ease'] < 1:
            f = cfg['ease']
            mid = {j: prev[j] + f * (p[j] - prev[j]) for j in p}
            out.append((mid, t // 2, n + ' (most of the way)'))
            out.append((p, t - t // 2, n))
        else:
            out.append((p, t, n))
        prev = p
    return out


def header(side, n):
    way = 'counter-clockwise (left)' if side == 'Left' else 'clockwise (right)'
    lead, other = ('right', 'left') if side == 'Left' else ('left', 'right')
    text = ('Turn%s%d: turns the robot %d degrees %s on the spot, from the standing stance\n'
            'back to the stance. Lean over the %s foot, lift the %s one; the %s hip yaw turns the\n'
            'body over the planted foot while the lifted foot turns its toes out; put it down, lean\n'
            'over it, lift the %s foot; the %s hip yaw straightens, turning the body over the %s\n'
            'foot; put the lifted foot down and lean back to the middle.\n'
            'Generated by tools/keyframes/turn.py (hip yaw setting %g degrees); tuned with the\n'
            'motion lab on a sync-mode rcssserver3d, 5 trials from the stance, each followed by Stop.\n'
            % (side, n, n, way, lead, other, lead, lead, other, other, SIZES[n]['yaw']))
    if n in RESULTS:
        text += ('Achieved: turned %.1f degrees in every trial (%+.0f %%), no fall, ends standing; the\n'
                 'trial (turn, Stop, 0.5 s still) took %.2f s.\n'
                 % (RESULTS[n], 100 * (RESULTS[n] - n) / n, TRIAL_SECONDS[n]))
    if n == 40:
        text += ('The dash turns in steps of this size. Its about turn (a point 3 m behind, from standing)\n'
                 'was done, within 20 degrees, after 6.76-7.13 s in 22 of 28 trials and after 8.69-10.25 s\n'
                 'in the other six (in the three traced, the third step ended short of 160 degrees and a\n'
                 'fourth was needed); in real time 2 of 3; never a fall. With the hip yaw setting 60\n'
                 '(44.4 degrees a step) it took 9.3 s. The turn is very sensitive to the setting: 66 fell,\n'
                 '68 and 74 turned 58.7 and 59.2 degrees.\n')
    return text


def main():
    data = sys.argv[1] if len(sys.argv) > 1 else 'Data'
    out = data + '/SkillData'
    for n, cfg in SIZES.items():
        frames = left_turn_steps(cfg)
        for side in ('Left', 'Right'):
            steps = []
            for p, t, note in frames:
                steps.append(Step(p if side == 'Left' else mirror(p), t, precision=PRECISION,
                                  note=note if side == 'Left' else note.replace('left', 'LEFT')
                                  .replace('right', 'left').replace('LEFT', 'right')))
            write('%s/Turn%s%d.conf' % (out, side, n), header(side, n), steps, loop=1, start=STANCE)


if __name__ == '__main__':
    main()
