#pragma once

#include <string>
#include <utility>

// The text the agent broadcasts to its team-mates through the server's say effector. It is
// appended to every effector message after the joint velocities, as "(Say " text ")".
class SayCommand {
public:
    SayCommand() = default;
    SayCommand(const SayCommand&) = default;
    SayCommand& operator=(const SayCommand&) = default;
    virtual ~SayCommand() = default;

    [[nodiscard]] const std::string& getSendStr() const { return sendStr; }
    void setSendStr(const std::string& text) { sendStr = text; }

    // Four characters for a ball position: integer part and two decimal digits of x, then of
    // y, each as the character code 50 plus the number. Meant for 0 <= x, y <= 205.99; other
    // values give codes that wrap around the 8-bit range.
    static std::string encode(float x, float y);

    // The inverse of encode for the first four characters: returns (x, y). A text shorter than
    // four characters carries no position and gives (0, 0).
    static std::pair<float, float> decode(const std::string& text);

    // sendStr becomes encode(x, y).
    void setCurrentBall(float x, float y);

    // "(Say " + sendStr + ")", also when sendStr is empty.
    [[nodiscard]] std::string toString() const;

private:
    std::string sendStr;
};
