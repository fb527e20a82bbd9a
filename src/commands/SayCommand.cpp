#include "commands/SayCommand.h"

namespace {

constexpr int kCodeBase = 50;  // the character "2" stands for the number 0

// Integer part (truncated toward zero) and the first two decimal digits of a value, as the
// two numbers that go into the text. Float arithmetic on purpose: the digits are those of the
// float value times 10 and times 100, truncated.
std::pair<int, int> splitValue(float value) {
    const int whole = static_cast<int>(value);
    const int tenths = static_cast<int>(value * 10.0F) % 10;
    const int hundredths = static_cast<int>(value * 100.0F) % 10;
    return {whole, tenths * 10 + hundredths};
}

char codeChar(int number) {
    // Wraps modulo 256 for numbers outside 0..205 (negative or very large coordinates).
    return static_cast<char>(static_cast<unsigned char>((kCodeBase + number) & 0xFF));
}

int charNumber(char c) {
    int number = static_cast<int>(static_cast<unsigned char>(c)) - kCodeBase;
    if (number < 0) {
        number += 256;
    }
    return number;
}

}  // namespace

std::string SayCommand::encode(float x, float y) {
    const auto [xWhole, xDigits] = splitValue(x);
    const auto [yWhole, yDigits] = splitValue(y);
    std::string text;
    text += codeChar(xWhole);
    text += codeChar(xDigits);
    text += codeChar(yWhole);
    text += codeChar(yDigits);
    return text;
}

std::pair<float, float> SayCommand::decode(const std::string& text) {
    if (text.size() < 4) {
        return {0.0F, 0.0F};
    }
    const float x =
        static_cast<float>(charNumber(text[0])) + static_cast<float>(charNumber(text[1])) / 100.0F;
    const float y =
        static_cast<float>(charNumber(text[2])) + static_cast<float>(charNumber(text[3])) / 100.0F;
    return {x, y};
}

void SayCommand::setCurrentBall(float x, float y) {
    sendStr = encode(x, y);
}

std::string SayCommand::toString() const {
    return "(Say " + sendStr + ")";
}
