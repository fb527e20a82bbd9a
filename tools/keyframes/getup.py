"""Sheet of the stand-ups: FrontStandUp and BackStandUp.

    python3 tools/keyframes/getup.py Data   # rewrites Data/SkillData/{Front,Back}StandUp.conf

FrontStandUp. The hip pitch stops at 100 degrees, so from lying face down no sequence of still
poses leads to a squat with the weight over the feet: with hands and feet flat on the ground the
centre of mass stays at least 14 cm ahead of the ankles, 3 cm beyond the toes. The robot gets
there through the hip yaw-pitch joints instead, which swing the knees out and the feet in under
the body: on all fours with its knees wide it pushes itself up and back with both arms in one
quick step and rises through a squat. The push and the rise (steps "push", "rise") came from a
random search on the sync-mode server started from that all-fours pose; "catch" leans the torso
forward at once so that the rise does not carry on over the heels. A standing robot that plays
it (the fall rule fires on far landmarks) squats, puts its hands down and comes up again.

BackStandUp: no motion that gets the robot up from its back has been found yet (see the file's
header); it holds the standing stance like Stop.
"""
import sys

from kf import ALL, ZERO, Step, leg, merge, pose, write
from stance import STANCE

data = sys.argv[1] if len(sys.argv) > 1 else 'Data'


def arms(pitch, roll=10.0):
    """Both arms: shoulder pitch (0 straight ahead, -90 hanging) and roll out from the body
    (a little by default, clear of the legs)."""
    return dict(lae1=pitch, lae2=roll, lae3=0, lae4=0, rae1=pitch, rae2=-roll, rae3=0, rae4=0)


def legs(pitch, knee, ankle, yaw_pitch=0.0, roll=0.0):
    """Both legs, mirrored: hip yaw-pitch (negative swings the knees out), hip roll (positive
    outwards), hip pitch, knee and ankle pitch; the ankles' roll keeps the feet level."""
    return merge(leg('l', rot=yaw_pitch, roll=roll, pitch=pitch, knee=knee, apitch=ankle),
                 leg('r', rot=yaw_pitch, roll=-roll, pitch=pitch, knee=knee, apitch=ankle))


# Every joint at 6 degrees per cycle: the first step starts from wherever the fall left them.
ANY_START = {j: 6.0 for j in ALL}
# The arms come back from wherever the push-up left them (the body rests on them).
ARMS_BACK = {'lae1': 5.0, 'rae1': 5.0}
ALL_FOURS = pose(**arms(0), **legs(90, -130, 74, yaw_pitch=-60))

front = [
    Step(pose(**arms(-90, roll=90), **legs(0, 0, 0)), 10, precision=10, speeds=ANY_START,
         note='arms out to the sides along the ground, legs straight'),
    Step(pose(**arms(90, roll=90), **legs(0, 0, 0)), 16, precision=10,
         note='arms turned to point forwards'),
    Step(pose(**arms(90, roll=0), **legs(0, 0, 0)), 10, precision=10,
         note='arms stretched past the head'),
    Step(pose(**arms(0), **legs(0, 0, 0)), 16, precision=15,
         note='push-up: hands under the shoulders lift the chest'),
    Step(pose(**arms(0), **legs(100, -130, 74)), 20, precision=15, speeds=ARMS_BACK,
         note='knees pulled in under the hips'),
    Step(ALL_FOURS, 24, precision=4, note='all fours, knees wide, feet flat'),
    Step(pose(**arms(2), **legs(90, -130, 74, yaw_pitch=-60)), 2, precision=1,
         note='settle on all fours'),
    Step(pose(**arms(-120, roll=40.8), **legs(100, -105.3, 16.1, yaw_pitch=-47.3, roll=35.9)), 7,
         precision=4, note='push: arms swing down and back, knees open'),
    Step(pose(**arms(-67.7, roll=26.8), **legs(74.3, -89, 24.8, yaw_pitch=-42.5, roll=-20)), 14,
         precision=4, note='rise over the feet'),
    Step(pose(**arms(20), **legs(100, -120, 50)), 6, precision=3,
         note='catch: torso forward, arms ahead'),
    Step(STANCE, 40, precision=2, note='stand up into the stance'),
]

write(data + '/SkillData/FrontStandUp.conf', """FrontStandUp: gets the robot up from lying face down, in about 4 s: arms past the head,
push-up, knees in under the hips, all fours with the knees wide, then one quick push of the
arms and it rises through a squat into the standing stance. Tuned on the sync-mode server with
the motion lab (tools/keyframes/getup.py tells how). Measured with motion-lab over 10 trials,
each from another heading and after lying a little longer: standing after 4.06-4.11 s in 10 of
10. A standing robot that plays it squats, puts its hands down and stands up again.""", front,
      loop=1, start=ZERO)

write(data + '/SkillData/BackStandUp.conf', """BackStandUp: NOT YET A STAND-UP. Meant to get the robot up from lying on its back; for now it
holds the standing stance like Stop (one key frame, every joint arriving together in 17 cycles
from the straight-legged pose), which is harmless when the fall indicator fires on a standing
robot. Measured with motion-lab on the sync-mode server: 0 of 10 fallen robots stood up.
Searched so far without success: sitting up on the arms, rolling over onto the front by
swinging the raised legs to one side.""", [Step(STANCE, 17, precision=1.5)], loop=1, start=ZERO)
