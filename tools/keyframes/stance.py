from kf import *  # noqa: F401,F403
# Standing stance shared by all skills: knees bent, feet flat, arms down.
P0, K0 = 25.0, -50.0
ARMS = dict(lae1=-90, lae2=8, lae3=0, lae4=-20, rae1=-90, rae2=-8, rae3=0, rae4=20)
STANCE = pose(**ARMS, **leg('l', pitch=P0, knee=K0), **leg('r', pitch=P0, knee=K0))
