"""Leg inverse kinematics of the simulated Nao, for the sheets that place feet rather than joints.

Foot positions are the ankle's, relative to the hip joint of the same leg, in metres: x forward,
y to the robot's left, h downwards. Angles come out in degrees with the soles kept flat.
"""
import math

THIGH, SHIN = 0.12, 0.10  # metres, from the server's robot description


def ik(x, y, h):
    """Hip pitch, knee and hip roll (degrees) that put the ankle at (x, y, h)."""
    roll = math.degrees(math.atan2(y, h))
    vertical = math.hypot(h, y)
    reach = min(math.hypot(x, vertical), THIGH + SHIN - 1e-4)
    inner = math.acos((THIGH ** 2 + SHIN ** 2 - reach ** 2) / (2 * THIGH * SHIN))
    knee = -(180.0 - math.degrees(inner))
    alpha = math.acos((THIGH ** 2 + reach ** 2 - SHIN ** 2) / (2 * THIGH * reach))
    pitch = math.degrees(math.atan2(x, vertical) + alpha)
    return pitch, knee, roll


def foot(side, x, y, h):
    """Joint targets of leg `side` ('l' or 'r') for the ankle at (x, y, h), sole flat."""
    pitch, knee, roll = ik(x, y, h)
    return {side + 'le1': 0.0, side + 'le2': roll, side + 'le3': pitch, side + 'le4': knee,
            side + 'le5': -(pitch + knee), side + 'le6': -roll}
