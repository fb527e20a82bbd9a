"""Sheet of the stand-ups: FrontStandUp and BackStandUp.

    python3 tools/keyframes/getup.py Data   # rewrites Data/SkillData/{Front,Back}StandUp.conf

No stand-up motion that gets the robot off the ground has been found yet (see the header of the
files). Until then both hold the standing stance like Stop: the attacker's and the keeper's fall
rule also fires on a standing robot whose tilted head sees far landmarks high up, and a stance
costs such a robot only a pause, where a real stand-up motion would throw it over.
"""
import sys

from kf import ZERO, Step, write
from stance import STANCE

data = sys.argv[1] if len(sys.argv) > 1 else 'Data'

for name, lying in (('FrontStandUp', 'face down'), ('BackStandUp', 'on its back')):
    write(data + '/SkillData/%s.conf' % name, """%s: NOT YET A STAND-UP. Meant to get the robot up from lying %s; for now
it holds the standing stance like Stop (one key frame, every joint arriving together in 17
cycles from the straight-legged pose), which is harmless when the fall indicator fires on a
standing robot. Measured with motion-lab on the sync-mode server: 0 of 10 fallen robots stood
up. Searched so far without success: arms forward to push the chest up, hips flexed and knees
bent to bring the feet under the body, arms pushing the weight back over the feet.""" % (name, lying),
          [Step(STANCE, 17, precision=1.5)], loop=1, start=ZERO)
