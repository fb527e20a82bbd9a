"""Sheet of the kick: LeftKick.

    python3 tools/keyframes/kick.py Data     # rewrites Data/SkillData/LeftKick.conf

From the stance: down to the kicking height, the weight onto the right foot, the left foot
lifted and drawn back, swung through the ball at the motors' top speed, brought back and put
down, the weight back to the middle. The shift and the return place the ankles (legik); the
draw-back and the swing set the kicking leg's joints.
"""
import sys

from kf import MAXSPEED, Step, merge, write
from legik import foot
from stance import ARMS, STANCE

data = sys.argv[1] if len(sys.argv) > 1 else 'Data'

# Metres: hip above ankle, pelvis over the right foot, left foot lift, both feet ahead of the
# hips; cycles per key frame of the shift and the return. The draw-back and the swing place the
# left leg by its joints (degrees: hip pitch, knee, ankle pitch): drawn back with the knee bent,
# then swung through with hip, knee and ankle all at the motors' top speed, so that the foot
# meets the ball while every joint is still driving it forwards. During the swing the standing
# foot is placed `brace` metres further ahead of the hips: the hips draw back against the
# swinging leg (1.0-1.2 cm: 4.07-4.09 m; 0.8 or 1.5 cm: 3.96-3.97 m, as without it).
KICK = dict(height=0.203, sway=0.0664, lift=0.02, lean=0.0088, cycles=13,
            draw=(21.4707, -65.1982, 25.3272), draw_cycles=24,
            swing=(52.9715, 0.0, 22.4408), swing_cycles=6, swing_precision=6.349, brace=0.012)


def kick(height, sway, lift, lean, cycles, draw, draw_cycles, swing, swing_cycles,
         swing_precision, brace):
    def both(lx, lh, rx=0.0):
        return merge(ARMS, {'he1': 0.0, 'he2': 0.0},
                     foot('l', lx + lean, sway, lh), foot('r', rx + lean, sway, height))

    def left_leg(hip, knee, ankle, right_ahead=0.0):
        pose = both(0, height - lift, right_ahead)
        pose['lle3'], pose['lle4'], pose['lle5'] = hip, knee, ankle
        return pose

    def middle():
        return merge(ARMS, {'he1': 0.0, 'he2': 0.0},
                     foot('l', lean, 0, height), foot('r', lean, 0, height))

    h = height
    return [
        Step(middle(), 12, precision=2.5, note='down to the kicking height'),
        Step(both(0, h), cycles, precision=2.5, note='weight onto the right foot'),
        Step(both(0, h - lift), cycles, precision=3, note='lift the left foot'),
        Step(left_leg(*draw), draw_cycles, precision=3, note='draw it back, knee bent'),
        Step(left_leg(*swing, right_ahead=brace), swing_cycles, precision=swing_precision,
             note='swing through the ball', speeds={j: MAXSPEED for j in ('lle3', 'lle4', 'lle5')}),
        Step(both(0, h - lift), cycles, precision=3, note='bring it back'),
        Step(both(0, h), cycles, precision=3, note='put it down'),
        Step(middle(), cycles, precision=2.5, note='weight back to the middle'),
    ]


write(data + '/SkillData/LeftKick.conf', """LeftKick: kicks a ball lying in front of the left foot straight ahead, standing on the right
foot: the left leg is drawn back with the knee bent, then swung through with hip, knee and ankle
at the motors' top speed (7 deg/cycle), so that the foot meets the ball in mid-swing. Tuned with
motion-lab on the simulation server in sync mode by random searches over the standing height,
sway, lift and lean and the joint angles of the draw-back and the swing (score: ball travel
forward without a fall; the searches levelled off at 3.9-4.0 m); then the standing foot set
1.2 cm further ahead of the hips during the swing, tried by hand at 0.5-2 cm. Achieved (5
trials in sync mode, 3 in real time; ball 0.16 m ahead of the head and 0.055 m to its left):
4.09 m forward, 0.43 m to the right, no fall. The earlier kick, which moved the foot rather than
the joints, reached 2.85 m.""",
      kick(**KICK), loop=1, start=STANCE)
