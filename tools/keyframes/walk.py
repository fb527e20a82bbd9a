"""Sheet of the walking skills: Stop (the standing stance), Walk and ShortWalk.

    python3 tools/keyframes/walk.py Data     # rewrites Data/SkillData/{Stop,Walk,ShortWalk}.conf
"""
import sys

from kf import Step, write
from stance import STANCE

data = sys.argv[1] if len(sys.argv) > 1 else 'Data'
out = data + '/SkillData'

write(out + '/Stop.conf', """Stop: brings the robot from any posture into the standing stance (knees bent 50 degrees,
feet flat, arms down) and holds it: one key frame, every joint at up to 3 degrees per cycle.""",
      [Step(STANCE, 10, precision=1.5, speeds={j: 3.0 for j in STANCE})], loop=1)
