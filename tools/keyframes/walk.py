"""Sheet of the walking skills: Stop (the standing stance), Walk and ShortWalk.

    python3 tools/keyframes/walk.py Data     # rewrites Data/SkillData/{Stop,Walk,ShortWalk}.conf

The gait places the ankles (legik) rather than the joints: a start-up down to the walking
height, one gait cycle whose steps grow to full length, then the gait cycle that the dash
repeats from the loop step. A cycle is a smooth periodic path of both ankles (sideways sway,
steps, foot lift) sampled at a few key frames, so that every joint moves on every frame rather
than one limb at a time.
"""
import math
import sys

from kf import ZERO, Step, merge, write
from legik import foot
from stance import ARMS, STANCE

data = sys.argv[1] if len(sys.argv) > 1 else 'Data'
out = data + '/SkillData'


def gait(height, half_step, sway, lift, lean, frames, cycles, precision, phase, yaw):
    """Key frames of a walk: the gait cycle is a smooth periodic path of both ankles, sampled
    at `frames` key frames of `cycles` cycles each (metres for the ankle positions).

    Over the cycle's phase p (0 to 2 pi) the right foot swings from behind its hip to ahead of
    it while the left one pushes back, then the other way round; the pelvis sways `sway` over
    the supporting foot (sin p), and a foot lifts by up to `lift` in its half of the cycle,
    shifted by `phase` radians against the sway so that the weight is off a foot before it
    rises. height: hip above ankle; half_step: how far each foot lands ahead of (and is pushed
    behind) its hip; lean: both feet this far ahead of the hips (negative: body leaning
    forward); yaw: degrees the left foot's toes turn out by the end of its swing and back
    while it supports, a knob against heading drift (single trials at 1.5 to 4.5 degrees
    drifted no less than 0, so the walk ships with 0).
    """
    def pose_at(p, amount):
        side = -sway * math.sin(p) * amount
        up_right = lift * max(0.0, math.sin(p + phase)) * amount
        up_left = lift * max(0.0, -math.sin(p + phase)) * amount
        ahead = half_step * math.cos(p) * amount
        left = foot('l', ahead + lean, side, height - up_left)
        left['lle1'] = -yaw * amount * (1 + math.cos(p + phase)) / 2
        right = foot('r', -ahead + lean, side, height - up_right)
        return merge(ARMS, {'he1': 0.0, 'he2': 0.0}, left, right)

    def cycle(note, amount):
        return [Step(pose_at(2 * math.pi * k / frames, amount(k)), cycles, precision=precision,
                     note=note if k == 0 else None) for k in range(frames)]

    steps = [Step(pose_at(0.0, 0.0), 20, precision=1.5, note='down to the walking height')]
    steps += cycle('first gait cycle, the steps growing to full length',
                   lambda k: (k + 1) / frames)
    loop = len(steps) + 1
    steps += cycle('the gait cycle, repeated from here', lambda k: 1.0)
    return steps, loop


WALK = dict(height=0.189, half_step=0.0376, sway=0.0196, lift=0.0167, lean=-0.0329, frames=8,
            cycles=3, precision=1.1935, phase=-0.3617, yaw=0.0)

write(out + '/Stop.conf', """Stop: brings the robot into the standing stance (knees bent 50 degrees, feet flat) and holds
it: one key frame whose speeds bring every joint from the straight-legged pose in 17 cycles, so
that hip, knee and ankle arrive together and the feet stay flat on the way (uneven speeds tip
the robot forward). Measured with motion-lab on the simulation server in sync mode, stopping the
walk at 8 points 0.13 s apart over its gait cycle, twice: 5 of 16 still within 1 s; 9 fell
backwards 1.1-1.8 s after the stop, because the walk carries the hips 3.3 cm ahead of the
ankles and pitches the torso up to 10 degrees forward, while this stance has them 0.9 cm behind.
The dash stops only at the end of a gait cycle, and there no stop fell (2 dash-turn and 4
dash-point trials). A stop that first brings the feet together under the walking body stopped 7
of 8, but the turns and the kick that start from its stance lost their aim (TurnLeft40 28
degrees, kick 0.2-3.0 m); a single key frame with the ankles faster than the hips fell on the
first cycles from the straight-legged pose. So it stays until those are retuned from it.""",
      [Step(STANCE, 17, precision=1.5)], loop=1, start=ZERO)

steps, loop = gait(**WALK)
write(out + '/Walk.conf', """Walk: walks straight ahead, %(half_step).3f m steps, %(frames)d key frames per gait cycle, each given
%(cycles)d cycles (a frame takes one more to be seen reached: 0.64 s a cycle). Tuned with
motion-lab on the simulation server in sync mode by a random search (hill climbing) over
height, step, sway, lift, lean, phase, precision and pace (score: metres walked in 12 s without
a fall, less sideways wander). Achieved (5 trials of 40 s): 0.183 m/s (worst 0.180), no fall,
heading drift 19.6 deg per 5 m (worst 26.7), wandering to the left. In most variants steps of
0.044 m and longer walked less far in 12 s or fell, and 2 cycles a frame walked less far.
The previous gait, one limb at a time in six key frames, managed 0.096 m/s.""" % WALK, steps, loop=loop, start=ZERO)

# The short walk is the same gait; it is already slow enough to arrive on a point.
write(out + '/ShortWalk.conf', """ShortWalk: the walk for the last half metre to a target, the same gait as Walk (%(half_step).3f m
steps). Achieved with motion-lab on the simulation server in sync mode (5 trials over 2 m):
0.180 m/s (worst 0.180), no fall.""" % WALK,
      steps, loop=loop, start=ZERO)
