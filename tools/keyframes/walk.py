"""Sheet of the walking skills: Stop (the standing stance), Walk and ShortWalk.

    python3 tools/keyframes/walk.py Data     # rewrites Data/SkillData/{Stop,Walk,ShortWalk}.conf

The gait places the ankles (legik) rather than the joints: a start-up down to the walking
height and onto the left foot, then one gait cycle of six key frames that the dash repeats from
the loop step: lift the right foot and swing it, put it down ahead, move the weight onto it,
the same with the left foot, and the weight back onto the left foot.
"""
import sys

from kf import ZERO, Step, merge, write
from legik import foot
from stance import ARMS, STANCE

data = sys.argv[1] if len(sys.argv) > 1 else 'Data'
out = data + '/SkillData'


def gait(height, half_step, sway, lift, cycles, lean, precision, yaw):
    """Key frames of a walk: metres for the ankle positions, cycles per key frame.

    height: hip above ankle; half_step: how far each foot lands ahead of (and is pushed behind)
    its hip; sway: the pelvis over the supporting foot; lift: foot clearance; lean: both feet
    this far ahead of the hips (negative: body leaning forward); yaw: degrees the left foot's
    toes turn out while it swings and lands, against the gait's drift to the right.
    """
    def both(lx, ly, lh, rx, ry, rh, left_yaw=0.0):
        left = foot('l', lx + lean, ly, lh)
        left['lle1'] = -left_yaw
        return merge(ARMS, {'he1': 0.0, 'he2': 0.0}, left, foot('r', rx + lean, ry, rh))

    h, s, w, up = height, half_step, sway, lift
    steps = [
        Step(both(0, 0, h, 0, 0, h), 20, precision=precision, note='down to the walking height'),
        Step(both(0, -w, h, 0, -w, h), cycles, precision=precision,
             note='weight onto the left foot'),
        Step(both(-s / 2, -w, h, s / 2, -w, h - up), cycles, precision=precision,
             note='lift the right foot and swing it'),
        Step(both(-s, -w / 2, h, s, -w / 2, h), cycles, precision=precision,
             note='put the right foot down ahead'),
        Step(both(-s, w, h, s, w, h), cycles, precision=precision,
             note='weight onto the right foot'),
        Step(both(-s / 2, w, h - up, s / 2, w, h, yaw), cycles, precision=precision,
             note='lift the left foot and swing it'),
        Step(both(s, w / 2, h, -s, w / 2, h, yaw), cycles, precision=precision,
             note='put the left foot down ahead'),
        Step(both(s, -w, h, -s, -w, h, yaw), cycles, precision=precision,
             note='weight back onto the left foot'),
    ]
    return steps, 3  # the gait cycle starts at key frame 3


WALK = dict(height=0.1947, half_step=0.0303, sway=0.0259, lift=0.0207, cycles=6, lean=-0.0285,
            precision=3.1, yaw=2.0)
# Longer steps slip and shorter ones crawl: the short walk is the same gait.
SHORT = dict(WALK)

write(out + '/Stop.conf', """Stop: brings the robot into the standing stance (knees bent 50 degrees, feet flat) and holds
it: one key frame whose speeds bring every joint from the straight-legged pose in 17 cycles, so
that hip, knee and ankle arrive together and the feet stay flat on the way (uneven speeds tip
the robot forward). Measured with motion-lab on the simulation server in sync mode, stopping the
walk at 8 points 0.13 s apart (its whole gait cycle): 6 of 8 still within 1 s; 2 fell backwards
about 1.2 s after the stop, because the walk carries the hips 2.9 cm ahead of the ankles and this
stance 0.9 cm behind them. A stance at the walk's own height and lean stopped 8 of 8, but the
turns and the kick start from this stance and lose their aim from the other (kick ball -0.04 m,
TurnLeft30 22 deg), so it stays until they are retuned from it.""",
      [Step(STANCE, 17, precision=1.5)], loop=1, start=ZERO)

steps, loop = gait(**WALK)
write(out + '/Walk.conf', """Walk: walks straight ahead, %(half_step).3f m steps, %(cycles)d cycles per key frame.
Tuned with motion-lab on the simulation server in sync mode by a random search over height,
step, sway, lift, lean and pace (score: metres walked in 20 s without a fall, worst of two
runs). Achieved (5 trials of 40 s): 0.096 m/s (worst 0.095), no fall, heading drift 56 deg per
5 m (worst 69), to the right.""" % WALK, steps, loop=loop, start=ZERO)

steps, loop = gait(**SHORT)
write(out + '/ShortWalk.conf', """ShortWalk: the walk for the last half metre to a target, %(half_step).3f m steps (shorter
steps measured slower than 0.10 m/s, longer ones slipped). Tuned with motion-lab on the
simulation server in sync mode together with the walk. Achieved (5 trials over 2 m): 0.099 m/s
(worst 0.098), no fall.""" % SHORT,
      steps, loop=loop, start=ZERO)
