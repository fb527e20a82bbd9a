"""Sheet of the kick: LeftKick.

    python3 tools/keyframes/kick.py Data     # rewrites Data/SkillData/LeftKick.conf

From the stance: down to the kicking height, the weight onto the right foot, the left foot
lifted and drawn back, swung through the ball at the motors' top speed, brought back and put
down, the weight back to the middle. Ankle positions by legik.
"""
import sys

from kf import Step, merge, write
from legik import foot
from stance import ARMS, STANCE

data = sys.argv[1] if len(sys.argv) > 1 else 'Data'

# Metres: hip above ankle, pelvis over the right foot, foot lift, draw-back, swing-through,
# lift at the end of the swing (fraction of `lift`), both feet ahead of the hips.
KICK = dict(height=0.194, sway=0.0526, lift=0.0359, back=0.03, through=0.0728, follow=0.538,
            lean=0.0047, cycles=10)


def kick(height, sway, lift, back, through, follow, lean, cycles):
    def both(lx, lh, rx=0.0):
        return merge(ARMS, {'he1': 0.0, 'he2': 0.0},
                     foot('l', lx + lean, sway, lh), foot('r', rx + lean, sway, height))

    def middle():
        return merge(ARMS, {'he1': 0.0, 'he2': 0.0},
                     foot('l', lean, 0, height), foot('r', lean, 0, height))

    h = height
    return [
        Step(middle(), 12, precision=2.5, note='down to the kicking height'),
        Step(both(0, h), cycles, precision=2.5, note='weight onto the right foot'),
        Step(both(0, h - lift), cycles, precision=3, note='lift the left foot'),
        Step(both(-back, h - lift), cycles, precision=3, note='draw it back'),
        Step(both(through, h - lift * follow), 2, precision=4, note='swing through the ball',
             speeds={'lle3': 7.0, 'lle4': 7.0, 'lle5': 7.0}),
        Step(both(0, h - lift), cycles, precision=3, note='bring it back'),
        Step(both(0, h), cycles, precision=3, note='put it down'),
        Step(middle(), cycles, precision=2.5, note='weight back to the middle'),
    ]


write(data + '/SkillData/LeftKick.conf', """LeftKick: kicks a ball lying in front of the left foot straight ahead, standing on the right
foot; the swing runs hip, knee and ankle at the motors' top speed (7 deg/cycle). Tuned with
motion-lab on the simulation server in sync mode by a random search over height, sway, lift,
draw-back, swing-through and lean (score: ball travel without a fall). Achieved (5 trials, ball
0.16 m ahead of the head and 0.055 m to its left): 2.85 m straight ahead, no fall.""",
      kick(**KICK), loop=1, start=STANCE)
