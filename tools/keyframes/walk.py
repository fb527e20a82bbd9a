"""Sheet of the walking skills: Stop (the standing stance), Walk and ShortWalk.

    python3 tools/keyframes/walk.py Data     # rewrites Data/SkillData/{Stop,Walk,ShortWalk}.conf
"""
import sys

from kf import ZERO, Step, write
from stance import STANCE

data = sys.argv[1] if len(sys.argv) > 1 else 'Data'
out = data + '/SkillData'

write(out + '/Stop.conf', """Stop: brings the robot into the standing stance (knees bent 50 degrees, feet flat) and holds
it: one key frame whose speeds bring every joint from the straight-legged pose in 17 cycles, so
that hip, knee and ankle arrive together and the feet stay flat on the way (uneven speeds tip
the robot forward). Tuned with motion-lab on the simulation server in sync mode: from straight
legs and from the walk it settles without falling.""",
      [Step(STANCE, 17, precision=1.5)], loop=1, start=ZERO)
