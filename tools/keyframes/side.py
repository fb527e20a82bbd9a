"""Sheet of the side steps (LeftSideWalk, RightSideWalk) and the opening Style motion.

    python3 tools/keyframes/side.py Data   # rewrites Data/SkillData/{Left,Right}SideWalk.conf, Style.conf

Joint conventions used here (measured on the server):
  hip roll le2 > 0 swings that leg's foot towards the robot's left (+y) for BOTH legs; with both
  feet planted, rolling both hips by +a moves the pelvis to the right (-y) over the right foot.
  Ankle roll le6 = -le2 keeps the sole flat.

One side-step cycle starts and ends in the stance (so that either side step may follow the
other at the loop step, and Stop may follow at any time):
  shift the weight onto the trailing foot, lift the leading foot, swing it out, put it down,
  shift the weight onto the leading foot, lift the trailing foot, bring it alongside, put it
  down, back to the centre.
"""
import math
import os
import sys

from kf import ZERO, Step, leg, pose, write
from stance import ARMS, P0, K0, STANCE

# Leg geometry of the Nao model (metres): hip to knee, knee to ankle, half the hip spacing.
THIGH, SHIN, HIP_Y = 0.12, 0.10, 0.055
# The stance's ankle position below the hip (from P0 and K0): height and forward offset.
H0 = THIGH * math.cos(math.radians(P0)) + SHIN * math.cos(math.radians(P0 + K0))
X0 = THIGH * math.sin(math.radians(P0)) + SHIN * math.sin(math.radians(P0 + K0))

# Tuning parameters (metres, metres per cycle, cycles); environment overrides (SIDE_<NAME>)
# are for tuning runs in the motion lab only.
PAR = dict(
    HEIGHT=0.18,   # hip to ankle height while stepping (the stance has H0 = 0.199)
    XOFF=-0.0014,  # ankles this far further forward of the hips than in the stance (< 0: lean forward)
    SHIFT=0.03,   # pelvis shift from the centre of the feet towards the supporting foot
    STEP=0.07,     # length of one side step
    LIFT=0.035,    # foot lift
    V_SHIFT=0.006, # pelvis speed while both feet are planted (weight shifts)
    C_LIFT=4,      # cycles to lift a foot
    C_SWING=6,     # cycles to swing it sideways
    C_DOWN=4,      # cycles to put it down
    YAW_LEAD=0.0,  # hip yaw-pitch (le1, <= 0) of the leading leg from its lift to the next shift
    YAW_TRAIL=-3.11,  # the same for the trailing leg
    MERGE=0.0,     # 1: lift and swing in one key frame, put down while the weight shifts
    PREC=3.26,     # key-frame precision (degrees)
    SPREC=3.0,     # precision of the weight shifts (degrees)
)
for _k in list(PAR):
    if 'SIDE_' + _k in os.environ:
        PAR[_k] = type(PAR[_k])(float(os.environ['SIDE_' + _k]))


def foot(side, dy, lift=0.0, height=H0, x=X0):
    """Joint values that put the ankle of leg `side` ('l' or 'r') dy metres to the left (+y) of
    its hip and `height` - `lift` metres below it, sole flat, at the stance's forward offset."""
    hz = height - lift
    roll = math.degrees(math.atan2(dy, hz))
    depth = math.hypot(dy, hz)  # hip to ankle in the rolled leg plane
    d = math.hypot(x, depth)
    knee = -(180.0 - math.degrees(math.acos((THIGH ** 2 + SHIN ** 2 - d * d) / (2 * THIGH * SHIN))))
    pitch = math.degrees(math.atan2(x, depth) +
                         math.acos((THIGH ** 2 + d * d - SHIN ** 2) / (2 * THIGH * d)))
    return leg(side, roll=roll, pitch=pitch, knee=knee)


def side_steps(s):
    """One side-step cycle towards +y (s = +1, leading leg left) or -y (s = -1, leading right),
    from the stance back to the stance. Positions u are measured along the direction of travel
    from the centre of the feet at the start."""
    sh, st, h, v = PAR['SHIFT'], PAR['STEP'], PAR['LIFT'], PAR['V_SHIFT']
    cl, cw, cd = PAR['C_LIFT'], PAR['C_SWING'], PAR['C_DOWN']
    p, sp = PAR['PREC'], PAR['SPREC']
    ly, ty = PAR['YAW_LEAD'], PAR['YAW_TRAIL']
    lead_side, trail_side = ('l', 'r') if s > 0 else ('r', 'l')

    def at(pelvis, lead, trail, lead_lift=0.0, trail_lift=0.0, height=PAR['HEIGHT'], lyaw=0.0,
           tyaw=0.0):
        x = X0 + (PAR['XOFF'] if height != H0 else 0.0)
        out = pose(STANCE, **foot(lead_side, s * (lead - (pelvis + HIP_Y)), lead_lift, height, x),
                   **foot(trail_side, s * (trail - (pelvis - HIP_Y)), trail_lift, height, x))
        out[lead_side + 'le1'] = lyaw
        out[trail_side + 'le1'] = tyaw
        return out

    def shift(travel):
        return max(1, round(travel / v))

    lead0, trail0 = HIP_Y, -HIP_Y
    lead1, trail1 = HIP_Y + st, -HIP_Y + st
    if PAR['MERGE'] > 0:
        return [
            Step(at(-sh, lead0, trail0), shift(sh), sp, note='weight onto the trailing foot'),
            Step(at(-sh, lead1, trail0, lead_lift=h), cl, p,
                 note='lift the leading foot and swing it out'),
            Step(at(st + sh, lead1, trail0), cd, p,
                 note='put it down while the weight moves onto it'),
            Step(at(st + sh, lead1, trail1, trail_lift=h), cl, p,
                 note='lift the trailing foot and bring it alongside'),
            Step(at(st, lead1, trail1, height=H0), cd, p,
                 note='put it down while the pelvis returns to the centre (the stance)'),
        ]
    return [
        Step(at(-sh, lead0, trail0), shift(sh), sp, note='weight onto the trailing foot'),
        Step(at(-sh, lead0, trail0, lead_lift=h, lyaw=ly), cl, p, note='lift the leading foot'),
        Step(at(-sh, lead1, trail0, lead_lift=h, lyaw=ly), cw, p, note='swing it out'),
        Step(at(-sh, lead1, trail0, lyaw=ly), cd, p, note='put it down'),
        Step(at(st + sh, lead1, trail0), shift(st + 2 * sh), sp, note='weight onto the leading foot'),
        Step(at(st + sh, lead1, trail0, trail_lift=h, tyaw=ty), cl, p, note='lift the trailing foot'),
        Step(at(st + sh, lead1, trail1, trail_lift=h, tyaw=ty), cw, p, note='bring it alongside'),
        Step(at(st + sh, lead1, trail1, tyaw=ty), cd, p, note='put it down'),
        Step(at(st, lead1, trail1, height=H0), shift(sh), sp, note='back to the centre (the stance)'),
    ]


def style_steps():
    """Opening flourish: from the straight-legged start pose into the stance while both arms
    open sideways, the elbows bend once, and the arms come down into the stance."""
    open_arms = pose(STANCE, lae1=-90, lae2=60, lae3=0, lae4=0, rae1=-90, rae2=-60, rae3=0, rae4=0)
    bent = pose(open_arms, lae4=-60, rae4=60)
    return [
        Step(open_arms, 25, 3.0, note='knees into the stance, arms open sideways'),
        Step(bent, 10, 3.0, note='elbows bend'),
        Step(open_arms, 10, 3.0, note='and stretch again'),
        Step(STANCE, 20, 2.0, note='arms down: the stance'),
    ]


# What the motion lab measured (5 trials each, sync-mode server); written into the file headers.
MEASURED = {
    'LeftSideWalk': ('0 of 5 reach the 2 m target: 0.052 m/s mean (0.046 worst), 1.47 m sideways in\n'
                     '30 s (1.39 worst), 1 of 5 fell (after 24 s); turns clockwise -24 deg mean (-44\n'
                     'worst). The trailing hip yaw of -3.1 degrees (found by a random search over\n'
                     'the sheet\'s parameters, about 40 candidates) halved the turning: without it\n'
                     '0.041 m/s, 1.2 m, -50 deg mean (-79 worst), 1 of 5 fell.'),
    'RightSideWalk': ('0 of 5 reach the 2 m target: 0.047 m/s mean (0.045 worst), 1.41 m sideways in\n'
                      '30 s (1.34 worst), no fall; turns counter-clockwise +23 deg mean (+29 worst).\n'
                      'Without the trailing hip yaw: 0.049 m/s, 1.2 m, +64 deg mean (+80 worst), 1 of\n'
                      '5 fell. The search\'s scores were noisy: the same parameters fell in one pair\n'
                      'of trials and not in the next, so only steps that held over 2 pairs were kept.'),
    'Style': '5 of 5 trials end standing (about 1.9 s including Stop), no fall',
}

SIDE_HEADER = """{name}: one side step towards {way} and back into the stance (robot facing +x): shift the
weight onto the {trail} foot, lift the {lead} foot, swing it out {step:.0f} mm, put it down, shift the
weight onto it, lift the {trail} foot, bring it alongside, put it down, centre the pelvis. The
{trail} hip's yaw-pitch joint stands at {yaw:.1f} degrees while that foot is lifted, brought
alongside and put down.
Foot positions are turned into joint angles by the leg geometry (thigh 0.12 m, shin 0.10 m),
pelvis {height:.0f} mm above the ankles while stepping, soles kept flat. Played from step 1 and
repeated from the loop step (step 1: every cycle starts and ends in the stance, so the other
side step or Stop may follow).
Tuned with the motion lab (tools/motion-lab) on the sync-mode server, 5 trials:
{measured}"""

STYLE_HEADER = """Style: opening flourish from the straight-legged start pose into the stance: knees bend
into the stance while both arms open sideways, the elbows bend and stretch once, and the arms
come down. It ends in the stance, so whatever motion follows starts from a standing robot; a
single cycle of it (the attacker's first turn) only starts the knees bending.
Tuned with the motion lab (tools/motion-lab) on the sync-mode server, 5 trials:
{measured}"""


def main():
    data = sys.argv[1] if len(sys.argv) > 1 else 'Data'
    out = data + '/SkillData'
    for name, s in (('LeftSideWalk', 1), ('RightSideWalk', -1)):
        header = SIDE_HEADER.format(
            name=name, way='+y (left)' if s > 0 else '-y (right)', lead='left' if s > 0 else 'right',
            trail='right' if s > 0 else 'left', step=PAR['STEP'] * 1000, yaw=PAR['YAW_TRAIL'],
            height=PAR['HEIGHT'] * 1000, measured=MEASURED[name])
        write('%s/%s.conf' % (out, name), header, side_steps(s), loop=1, start=STANCE)
    write(out + '/Style.conf', STYLE_HEADER.format(measured=MEASURED['Style']), style_steps(),
          loop=1, start=ZERO)


if __name__ == '__main__':
    main()
